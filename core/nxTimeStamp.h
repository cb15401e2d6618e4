// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"
#include "core/nxDateTime.h"

#include <chrono>
#include <cstdint>

// A point in time as nanoseconds since 1970-01-01T00:00:00Z in 64 bits, which reach from 1677 to 2262.
class NXCORE_API nxTimeStamp {
public:
    constexpr nxTimeStamp() = default;
    constexpr explicit nxTimeStamp(std::int64_t nanosecondsSinceEpoch) : _value(nanosecondsSinceEpoch) {}

    static nxTimeStamp Now();

    nxDateTime GetAsDateTime() const;
    constexpr std::int64_t GetAsTimeValue() const { return _value; } // nanoseconds since the epoch

    // The three digits each of the second's fraction: 0.123456789 s has 123 milli-, 456 micro- and 789
    // nanoseconds.
    unsigned int GetMilliseconds() const { return _FractionPart(1'000'000); }
    unsigned int GetMicroseconds() const { return _FractionPart(1'000); }
    unsigned int GetNanoseconds() const { return _FractionPart(1); }

    constexpr auto operator<=>(const nxTimeStamp&) const = default;

private:
    unsigned int _FractionPart(unsigned int unit) const;

    std::int64_t _value = 0;
};
