// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"
#include "include/nxErrorEnum.h"

#include <chrono>
#include <compare>
#include <string>
#include <string_view>

// A point in time to the nanosecond, in the years 0 to 9999, or null. Platform time has no time zone of its
// own; a text with an offset from UTC is read as the time in UTC.
class NXCORE_API nxDateTime {
public:
    // How the platform's documents write a point in time.
    static constexpr const char* DocumentFormat = "%Y%m%d:%H:%M:%S";

    nxDateTime() = default; // null
    // Null when the time lies outside the years 0 to 9999 or the fraction outside [0, 1) second.
    explicit nxDateTime(std::chrono::sys_seconds time,
                        std::chrono::nanoseconds fraction = std::chrono::nanoseconds::zero());

    bool IsNull() const { return _time == NullTime; }
    void SetNull() { *this = nxDateTime(); }
    std::chrono::sys_seconds GetTime() const { return _time; }
    std::chrono::nanoseconds GetFraction() const { return _fraction; } // of a second

    // The time in a strftime-like format, to the second, with the names of the C locale; the empty text for
    // null.
    void AppendAsString(std::string& text, const char* format) const;
    std::string GetAsString(const char* format) const;
    // ISO 8601 ("2026-11-21T10:53:00.5Z" style, fraction of three, six or nine digits), or "NULL".
    void AppendAsLogString(std::string& text) const;
    std::string GetAsLogString() const;

    // Reads DocumentFormat and ISO 8601: a date, or a date, "T" and a time, both in extended form
    // (YYYY-MM-DD, HH:MM:SS) or both in basic form (YYYYMMDD, HHMMSS). Behind a time may stand a fraction,
    // "." and one to nine digits, and "Z" or an offset from UTC (+HH:MM, +HHMM, +HH). There is no hour 24 and
    // no second 60. The empty text is null. Any other text gives nxErrorEnum::ValueNotParsed and leaves
    // `value` untouched. (For the shapes of SetFromString see docs/errors.md.)
    static nxErrorEnum SetFromString(std::string_view text, nxDateTime& value);

    auto operator<=>(const nxDateTime&) const = default; // null comes first

private:
    static constexpr std::chrono::sys_seconds NullTime = std::chrono::sys_seconds::min();

    std::chrono::sys_seconds _time = NullTime;
    std::chrono::nanoseconds _fraction{0};
};
