// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>

// What the texts of times of day and points in time have in common. Private to libnxcore.
//
// A pattern shows a text of fixed width, with the place of its number among Numbers in place of each digit:
// "00001122:33:44:55" for "20261121:10:53:00".
namespace nxClockText {
    enum Number { Year, Month, Day, Hour, Minute, Second };
    using Numbers = std::array<unsigned int, 6>;

    // The numbers in a text that begins as the pattern shows, 0 for those that the pattern lacks. Nothing
    // where the text begins otherwise or no day has its hour, minute or second; the date is not looked at.
    std::optional<Numbers> Read(std::string_view text, std::string_view pattern);
    void Append(std::string& text, std::string_view pattern, Numbers numbers);

    // From and to hour, minute and second.
    std::chrono::seconds TimeOfDay(const Numbers& numbers);
    Numbers SplitTimeOfDay(std::chrono::seconds sinceMidnight);

    // ".5", ".500" and ".500000000" are half a second each; the empty text is none.
    std::optional<std::chrono::nanoseconds> ReadFraction(std::string_view text);

    // The shortest of three, six and nine digits that holds the fraction, after a point; nothing for zero.
    void AppendFraction(std::string& text, std::chrono::nanoseconds fraction);
} // namespace nxClockText
