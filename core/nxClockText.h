// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// The digits that times of day and points in time have in common. Private to libnxcore.
namespace nxClockText {
    // The number that exactly `text`, one to nine decimal digits, stands for.
    std::optional<int> ReadDigits(std::string_view text);

    // ".5", ".500" and ".500000000" are half a second each; the empty text is none.
    std::optional<std::chrono::nanoseconds> ReadFraction(std::string_view text);

    // The number's decimal digits, with zeros before them up to the width.
    void AppendDigits(std::string& text, unsigned int number, std::size_t width);

    // "HH:MM:SS"
    void AppendTimeOfDay(std::string& text, std::chrono::seconds sinceMidnight);

    // The shortest of three, six and nine digits that holds the fraction, after a point; nothing for zero.
    void AppendFraction(std::string& text, std::chrono::nanoseconds fraction);
} // namespace nxClockText
