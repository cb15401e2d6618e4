// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"

#include <chrono>

// A length of time to the nanosecond; may be negative.
class nxDateTimeSpan {
public:
    constexpr nxDateTimeSpan() = default; // zero
    constexpr explicit nxDateTimeSpan(std::chrono::nanoseconds length) : _length(length) {}

    constexpr std::chrono::nanoseconds GetLength() const { return _length; }

    constexpr auto operator<=>(const nxDateTimeSpan&) const = default;

private:
    std::chrono::nanoseconds _length{0};
};
