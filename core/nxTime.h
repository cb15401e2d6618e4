// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"
#include "include/nxErrorEnum.h"

#include <chrono>
#include <compare>
#include <string>
#include <string_view>

// A time of day to the nanosecond, 00:00:00 to 23:59:59.999999999, or null.
class NXCORE_API nxTime {
public:
    nxTime() = default; // null
    // Time since midnight. Null when it lies outside the day.
    explicit nxTime(std::chrono::nanoseconds sinceMidnight);

    bool IsNull() const { return _sinceMidnight < std::chrono::nanoseconds::zero(); }
    void SetNull() { *this = nxTime(); }
    // Negative for null.
    std::chrono::nanoseconds GetSinceMidnight() const { return _sinceMidnight; }

    // "HH:MM:SS", followed by "." and three, six or nine digits where the time has a fraction of a second;
    // the empty text for null.
    void AppendAsString(std::string& text) const;
    std::string GetAsString() const;
    // The same, but "NULL" for null.
    void AppendAsLogString(std::string& text) const;
    std::string GetAsLogString() const;

    // Reads HH:MM:SS with an optional "." and one to nine digits; the empty text is null. Any other text
    // gives nxErrorEnum::ValueNotParsed and leaves the value untouched.
    nxErrorEnum SetFromString(std::string_view text);

    auto operator<=>(const nxTime&) const = default; // null comes first

private:
    std::chrono::nanoseconds _sinceMidnight{-1};
};
