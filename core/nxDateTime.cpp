// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxDateTime.h"

#include "core/nxClockText.h"

#include <date/date.h>

#include <algorithm>
#include <locale>
#include <optional>
#include <sstream>

using namespace std::chrono_literals;

namespace {
    constexpr std::chrono::sys_seconds FirstTime = std::chrono::sys_days(std::chrono::year(0) / 1 / 1);
    constexpr std::chrono::sys_seconds EndTime = std::chrono::sys_days(std::chrono::year(10000) / 1 / 1);

    // Fixed-width shapes ('9' stands for any digit), each with the format that reads it. The shapes keep out
    // what the formats alone would let through: signs, single digits, blanks.
    struct Shape {
        std::string_view pattern;
        const char* format;
        bool hasTime; // only a time of day may be followed by a fraction and a zone
    };
    constexpr Shape Shapes[] = {
        {"99999999:99:99:99", nxDateTime::DocumentFormat, true},
        {"9999-99-99T99:99:99", "%Y-%m-%dT%H:%M:%S", true},
        {"99999999T999999", "%Y%m%dT%H%M%S", true},
        {"9999-99-99", "%Y-%m-%d", false},
        {"99999999", "%Y%m%d", false},
    };

    bool BeginsWithShape(std::string_view text, std::string_view pattern) {
        const auto fits = [](char c, char p) { return p == '9' ? c >= '0' && c <= '9' : c == p; };
        return text.size() >= pattern.size() &&
               std::ranges::equal(text.substr(0, pattern.size()), pattern, fits);
    }

    std::optional<std::chrono::sys_seconds> ReadTime(std::string_view text, const char* format) {
        std::istringstream stream{std::string(text)};
        stream.imbue(std::locale::classic());
        date::sys_seconds time;
        date::from_stream(stream, format, time);
        if (stream.fail())
            return std::nullopt;
        return time;
    }

    // "Z", "+01:00", "-0530", "+01": how far ahead of UTC; nothing for the empty text.
    std::optional<std::chrono::minutes> ReadZone(std::string_view zone) {
        if (zone.empty() || zone == "Z")
            return 0min;
        if (zone.front() != '+' && zone.front() != '-')
            return std::nullopt;

        std::string digits(zone.substr(1));
        if (digits.size() == 5 && digits[2] == ':')
            digits.erase(2, 1);
        if (digits.size() == 2)
            digits += "00";
        const auto number = nxClockText::ReadDigits(digits);
        if (digits.size() != 4 || !number || *number / 100 > 23 || *number % 100 > 59)
            return std::nullopt;
        const std::chrono::minutes ahead = *number / 100 * 1h + *number % 100 * 1min;
        return zone.front() == '-' ? -ahead : ahead;
    }

    void AppendDate(std::string& text, std::chrono::sys_days day, const char* separator) {
        const std::chrono::year_month_day date(day);
        nxClockText::AppendDigits(text, static_cast<unsigned int>(static_cast<int>(date.year())), 4);
        text += separator;
        nxClockText::AppendDigits(text, static_cast<unsigned int>(date.month()), 2);
        text += separator;
        nxClockText::AppendDigits(text, static_cast<unsigned int>(date.day()), 2);
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
    if (std::string_view(format) != DocumentFormat) {
        text += date::format(std::locale::classic(), format, _time);
        return;
    }

    const auto midnight = std::chrono::floor<std::chrono::days>(_time);
    AppendDate(text, midnight, "");
    text += ':';
    nxClockText::AppendTimeOfDay(text, _time - midnight);
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

    const auto midnight = std::chrono::floor<std::chrono::days>(_time);
    AppendDate(text, midnight, "-");
    text += 'T';
    nxClockText::AppendTimeOfDay(text, _time - midnight);
    nxClockText::AppendFraction(text, _fraction);
    text += 'Z';
}

std::string nxDateTime::GetAsLogString() const {
    std::string text;
    AppendAsLogString(text);
    return text;
}

nxErrorEnum nxDateTime::SetFromString(std::string_view text, nxDateTime& value) {
    if (text.empty()) {
        value.SetNull();
        return nxErrorEnum::OK;
    }

    const auto* const shape =
        std::ranges::find_if(Shapes, [text](const Shape& s) { return BeginsWithShape(text, s.pattern); });
    if (shape == std::end(Shapes))
        return nxErrorEnum::ValueNotParsed;

    const std::string_view rest = text.substr(shape->pattern.size());
    if (!rest.empty() && !shape->hasTime)
        return nxErrorEnum::ValueNotParsed;
    const std::size_t zoneStart = std::min(rest.find_first_of("Z+-"), rest.size());
    const auto time = ReadTime(text.substr(0, shape->pattern.size()), shape->format);
    const auto fraction = nxClockText::ReadFraction(rest.substr(0, zoneStart));
    const auto zone = ReadZone(rest.substr(zoneStart));
    if (!time || !fraction || !zone)
        return nxErrorEnum::ValueNotParsed;

    const nxDateTime parsed(*time - *zone, *fraction);
    if (parsed.IsNull())
        return nxErrorEnum::ValueNotParsed;
    value = parsed;
    return nxErrorEnum::OK;
}
