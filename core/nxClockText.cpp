// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxClockText.h"

#include "core/nxStringHelper.h"

namespace nxClockText {
    constexpr std::size_t NanosecondDigits = 9;

    std::optional<int> ReadDigits(std::string_view text) {
        int number = 0;
        if (text.size() > NanosecondDigits || text.starts_with('-'))
            return std::nullopt;
        if (!nxStringHelper::SetFromString(text, number).IsOK())
            return std::nullopt;
        return number;
    }

    std::optional<std::chrono::nanoseconds> ReadFraction(std::string_view text) {
        if (text.empty())
            return std::chrono::nanoseconds::zero();
        if (text.front() != '.')
            return std::nullopt;

        std::string digits(text.substr(1));
        if (digits.empty() || digits.size() > NanosecondDigits)
            return std::nullopt;
        digits.resize(NanosecondDigits, '0');
        const std::optional<int> nanoseconds = ReadDigits(digits);
        if (!nanoseconds)
            return std::nullopt;
        return std::chrono::nanoseconds(*nanoseconds);
    }

    void AppendDigits(std::string& text, unsigned int number, std::size_t width) {
        text.append(width, '0');
        for (auto digit = text.rbegin(); number != 0; number /= 10)
            *digit++ = static_cast<char>('0' + number % 10);
    }

    void AppendTimeOfDay(std::string& text, std::chrono::seconds sinceMidnight) {
        const auto seconds = static_cast<unsigned int>(sinceMidnight.count());
        AppendDigits(text, seconds / 3600, 2);
        text += ':';
        AppendDigits(text, seconds / 60 % 60, 2);
        text += ':';
        AppendDigits(text, seconds % 60, 2);
    }

    void AppendFraction(std::string& text, std::chrono::nanoseconds fraction) {
        if (fraction == std::chrono::nanoseconds::zero())
            return;

        text += '.';
        AppendDigits(text, static_cast<unsigned int>(fraction.count()), NanosecondDigits);
        while (text.ends_with("000"))
            text.resize(text.size() - 3);
    }
} // namespace nxClockText
