// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxDateTime.h"

#include "core/nxClockText.h"

#include <date/date.h>

#include <algorithm>
#include <locale>
#include <optional>

using namespace std::chrono_literals;

namespace {
    constexpr std::chrono::sys_seconds FirstTime = std::chrono::sys_days(std::chrono::year(0) / 1 / 1);
    constexpr std::chrono::sys_seconds EndTime = std::chrono::sys_days(std::chrono::year(10000) / 1 / 1);

    constexpr std::string_view DocumentPattern = "00001122:33:44:55";
    constexpr std::string_view LogPattern = "0000-11-22T33:44:55";

    struct Shape {
        std::string_view pattern;
        bool hasTime; // only a time of day may be followed by a fraction and a zone
    };
    constexpr Shape Shapes[] = {
        {DocumentPattern, true}, {LogPattern, true},  {"00001122T334455", true},
        {"0000-11-22", false},   {"00001122", false},
    };
    constexpr std::string_view ZonePatterns[] = {"33:44", "3344", "33"};

    // "Z", "+01:00", "-0530", "+01": how far ahead of UTC; nothing for the empty text.
    std::optional<std::chrono::seconds> ReadZone(std::string_view zone) {
        if (zone.empty() || zone == "Z")
            return 0s;
        if (zone.front() != '+' && zone.front() != '-')
            return std::nullopt;

        const std::string_view clock = zone.substr(1);
        const auto* const pattern = std::ranges::find(ZonePatterns, clock.size(), &std::string_view::size);
        if (pattern == std::end(ZonePatterns))
            return std::nullopt;
        const auto numbers = nxClockText::Read(clock, *pattern);
        if (!numbers)
            return std::nullopt;
        const std::chrono::seconds length = nxClockText::TimeOfDay(*numbers);
        return zone.front() == '-' ? -length : length;
    }

    // Of a date, or a date and a time, and what stands behind them. Null when there is no such date.
    nxDateTime PointInTime(const nxClockText::Numbers& numbers, std::string_view behind) {
        const std::chrono::year_month_day date(
            std::chrono::year(static_cast<int>(numbers[nxClockText::Year])),
            std::chrono::month(numbers[nxClockText::Month]), std::chrono::day(numbers[nxClockText::Day]));
        const std::size_t zoneStart = std::min(behind.find_first_of("Z+-"), behind.size());
        const auto fraction = nxClockText::ReadFraction(behind.substr(0, zoneStart));
        const auto zone = ReadZone(behind.substr(zoneStart));
        if (!date.ok() || !fraction || !zone)
            return nxDateTime();
        return nxDateTime(std::chrono::sys_days(date) + nxClockText::TimeOfDay(numbers) - *zone, *fraction);
    }

    // Null when the text is no point in time.
    nxDateTime Parse(std::string_view text) {
        for (const auto& [pattern, hasTime] : Shapes) {
            const auto numbers = nxClockText::Read(text, pattern);
            if (numbers && (hasTime || text.size() == pattern.size()))
                return PointInTime(*numbers, text.substr(pattern.size()));
        }
        return nxDateTime();
    }

    void AppendTime(std::string& text, std::string_view pattern, std::chrono::sys_seconds time) {
        const auto midnight = std::chrono::floor<std::chrono::days>(time);
        const std::chrono::year_month_day date(midnight);
        nxClockText::Numbers numbers = nxClockText::SplitTimeOfDay(time - midnight);
        numbers[nxClockText::Year] = static_cast<unsigned int>(static_cast<int>(date.year()));
        numbers[nxClockText::Month] = static_cast<unsigned int>(date.month());
        numbers[nxClockText::Day] = static_cast<unsigned int>(date.day());
        nxClockText::Append(text, pattern, numbers);
    }
} // namespace

nxDateTime::nxDateTime(std::chrono::sys_seconds time, std::chrono::nanoseconds fraction) {
    if (time < FirstTime || time >= EndTime || fraction < 0s || fraction >= 1s)
        return;
    _time = time;
    _fraction = fraction;
}

void nxDateTime::AppendAsString(std::string& text, const char* format) const {
    if (IsNull())
        return;
    if (std::string_view(format) == DocumentFormat)
        AppendTime(text, DocumentPattern, _time);
    else
        text += date::format(std::locale::classic(), format, _time);
}

std::string nxDateTime::GetAsString(const char* format) const {
    std::string text;
    AppendAsString(text, format);
    return text;
}

void nxDateTime::AppendAsLogString(std::string& text) const {
    if (IsNull()) {
        text += "NULL";
        return;
    }

    AppendTime(text, LogPattern, _time);
    nxClockText::AppendFraction(text, _fraction);
    text += 'Z';
}

std::string nxDateTime::GetAsLogString() const {
    std::string text;
    AppendAsLogString(text);
    return text;
}

nxErrorEnum nxDateTime::SetFromString(std::string_view text, nxDateTime& value) {
    const nxDateTime parsed = Parse(text);
    if (parsed.IsNull() && !text.empty())
        return nxErrorEnum::ValueNotParsed;

    value = parsed;
    return nxErrorEnum::OK;
}
