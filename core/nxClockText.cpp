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

    std::string FractionText(std::chrono::nanoseconds fraction) {
        if (fraction == std::chrono::nanoseconds::zero())
            return {};

        std::string digits = nxStringHelper::GetAsString(static_cast<long long>(fraction.count()));
        digits.insert(0, NanosecondDigits - digits.size(), '0');
        while (digits.ends_with("000"))
            digits.resize(digits.size() - 3);
        return "." + digits;
    }
} // namespace nxClockText
