// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxDecimal.h"

#include <cstdint>

// What decimals stand for, in billionths of billionths, with room for sums.
namespace nxExactDecimal {
    __extension__ using Wide = __int128;

    inline Wide Exact(std::int64_t units, unsigned int digits) {
        Wide value = units;
        for (; digits < nxDecimal::MaxFractionDigits; ++digits)
            value *= 10;
        return value;
    }
} // namespace nxExactDecimal
