// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxClockText.h"

#include "core/nxStringHelper.h"

using namespace std::chrono_literals;

namespace {
    constexpr std::size_t NanosecondDigits = 9;

    bool IsDigit(char c) {
        return c >= '0' && c <= '9';
    }

    unsigned int DigitOf(char c) {
        return static_cast<unsigned int>(c - '0');
    }
} // namespace

std::optional<nxClockText::Numbers> nxClockText::Read(std::string_view text, std::string_view pattern) {
    if (text.size() < pattern.size())
        return std::nullopt;

    Numbers numbers{};
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (!IsDigit(pattern[i])) {
            if (text[i] != pattern[i])
                return std::nullopt;
            continue;
        }
        if (!IsDigit(text[i]))
            return std::nullopt;
        unsigned int& number = numbers[DigitOf(pattern[i])];
        number = number * 10 + DigitOf(text[i]);
    }
    if (numbers[Hour] > 23 || numbers[Minute] > 59 || numbers[Second] > 59)
        return std::nullopt;
    return numbers;
}

void nxClockText::Append(std::string& text, std::string_view pattern, Numbers numbers) {
    const std::size_t start = text.size();
    text += pattern;
    for (std::size_t i = pattern.size(); i-- > 0;) {
        if (!IsDigit(pattern[i]))
            continue;
        unsigned int& number = numbers[DigitOf(pattern[i])];
        text[start + i] = static_cast<char>('0' + number % 10);
        number /= 10;
    }
}

std::chrono::seconds nxClockText::TimeOfDay(const Numbers& numbers) {
    return numbers[Hour] * 1h + numbers[Minute] * 1min + numbers[Second] * 1s;
}

nxClockText::Numbers nxClockText::SplitTimeOfDay(std::chrono::seconds sinceMidnight) {
    const auto seconds = static_cast<unsigned int>(sinceMidnight.count());
    Numbers numbers{};
    numbers[Hour] = seconds / 3600;
    numbers[Minute] = seconds / 60 % 60;
    numbers[Second] = seconds % 60;
    return numbers;
}

std::optional<std::chrono::nanoseconds> nxClockText::ReadFraction(std::string_view text) {
    if (text.empty())
        return 0ns;
    const std::string_view digits = text.substr(1);
    if (text.front() != '.' || digits.empty() || digits.size() > NanosecondDigits)
        return std::nullopt;

    unsigned int nanoseconds = 0;
    if (!nxStringHelper::SetFromString(digits, nanoseconds).IsOK())
        return std::nullopt;
    for (std::size_t read = digits.size(); read < NanosecondDigits; ++read)
        nanoseconds *= 10;
    return std::chrono::nanoseconds(nanoseconds);
}

void nxClockText::AppendFraction(std::string& text, std::chrono::nanoseconds fraction) {
    if (fraction == 0ns)
        return;

    // A leading 1 keeps the zeros and makes room for the point.
    const std::size_t point = text.size();
    nxStringHelper::AppendAsString(text, 1'000'000'000LL + fraction.count());
    text[point] = '.';
    while (text.ends_with("000"))
        text.resize(text.size() - 3);
}
