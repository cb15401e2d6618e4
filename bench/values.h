// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <charconv>
#include <chrono>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// The values of plain records: what documents hold as text, converted as whoever has no library for it would.
// FromText throws for what ToText does not write.
namespace bench {
    // One of the values of an enumeration, by its place among their texts.
    template <const auto& Texts>
    struct Choice {
        std::size_t index = 0;

        std::string_view Text() const { return Texts[index]; }
        bool operator==(const Choice&) const = default;
    };

    // units / 10^fractionDigits
    struct Decimal {
        std::uint64_t units = 0;
        std::size_t fractionDigits = 0;

        bool operator==(const Decimal&) const = default;
    };

    using Seconds = std::chrono::duration<unsigned int>; // since midnight

    inline void Require(bool condition, std::string_view text) {
        if (!condition)
            throw std::runtime_error("no such value: " + std::string(text));
    }

    inline void FromText(std::string_view text, std::string& value) {
        value = text;
    }

    inline void FromText(std::string_view text, bool& value) {
        value = text == "true";
        Require(value || text == "false", text);
    }

    template <std::integral Number>
    void FromText(std::string_view text, Number& value) {
        const char* const end = text.data() + text.size();
        const auto [stop, error] = std::from_chars(text.data(), end, value);
        Require(error == std::errc() && stop == end, text);
    }

    template <const auto& Texts>
    void FromText(std::string_view text, Choice<Texts>& value) {
        for (value.index = 0; value.index < std::size(Texts); ++value.index)
            if (text == value.Text())
                return;
        Require(false, text);
    }

    inline void FromText(std::string_view text, Decimal& value) {
        std::string digits(text);
        const std::size_t point = digits.find('.');
        if (point != std::string::npos)
            digits.erase(point, 1);
        FromText(digits, value.units);
        value.fractionDigits = point != std::string::npos ? digits.size() - point : 0;
    }

    inline void FromText(std::string_view text, Seconds& value) { // HH:MM:SS
        Require(text.size() == 8 && text[2] == ':' && text[5] == ':', text);
        unsigned int hours = 0;
        unsigned int minutes = 0;
        unsigned int seconds = 0;
        FromText(text.substr(0, 2), hours);
        FromText(text.substr(3, 2), minutes);
        FromText(text.substr(6, 2), seconds);
        value = Seconds((hours * 60 + minutes) * 60 + seconds);
    }

    inline void FromText(std::string_view text, std::vector<std::string>& value) { // separated by commas
        value.clear();
        while (!text.empty()) {
            const std::size_t length = text.find(',');
            value.emplace_back(text.substr(0, length));
            text.remove_prefix(length == std::string_view::npos ? text.size() : length + 1);
        }
    }

    inline const std::string& ToText(const std::string& value) {
        return value;
    }

    inline std::string ToText(bool value) {
        return value ? "true" : "false";
    }

    template <std::integral Number>
    std::string ToText(Number value) {
        return std::to_string(value);
    }

    template <const auto& Texts>
    std::string ToText(const Choice<Texts>& value) {
        return std::string(value.Text());
    }

    inline std::string ToText(const Decimal& value) {
        std::string text = std::to_string(value.units);
        if (value.fractionDigits == 0)
            return text;
        if (text.size() <= value.fractionDigits)
            text.insert(0, value.fractionDigits + 1 - text.size(), '0');
        return text.insert(text.size() - value.fractionDigits, 1, '.');
    }

    inline std::string ToText(const Seconds& value) {
        std::string text = "00:00:00";
        unsigned int number = value.count();
        for (const std::size_t at : {6U, 3U, 0U}) {
            text[at] = static_cast<char>('0' + number % 60 / 10);
            text[at + 1] = static_cast<char>('0' + number % 60 % 10);
            number /= 60;
        }
        return text;
    }

    inline std::string ToText(const std::vector<std::string>& value) {
        std::string text;
        for (const std::string& item : value)
            text.append(text.empty() ? "" : ",").append(item);
        return text;
    }
} // namespace bench
