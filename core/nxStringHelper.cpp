// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxStringHelper.h"

#include "core/nxDecimal.h"
#include "core/nxTime.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace {
    constexpr std::string_view WhiteSpace = " \t\n\v\f\r";

    template <class Number>
    void AppendNumber(std::string& text, Number value) {
        std::array<char, 32> buffer;
        const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
        text.append(buffer.data(), end);
    }

    template <class Value>
    std::string TextOf(const Value& value) {
        std::string text;
        nxStringHelper::AppendAsString(text, value);
        return text;
    }

    template <class Number>
    nxErrorEnum ParseNumber(std::string_view text, Number& value) {
        Number parsed{};
        const char* const end = text.data() + text.size();
        const auto [stop, error] = std::from_chars(text.data(), end, parsed);
        if (error != std::errc() || stop != end)
            return nxErrorEnum::ValueNotParsed;

        value = parsed;
        return nxErrorEnum::OK;
    }

    nxErrorEnum ParseFinite(std::string_view text, double& value) {
        double parsed = 0;
        const nxErrorEnum result = ParseNumber(text, parsed);
        if (!result.IsOK())
            return result;
        if (!std::isfinite(parsed))
            return nxErrorEnum::ValueNotParsed;

        value = parsed;
        return nxErrorEnum::OK;
    }

    bool EqualsIgnoringCase(std::string_view text, std::string_view lowerCase) {
        const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
        return std::ranges::equal(text, lowerCase, {}, lower);
    }
} // namespace

void nxStringHelper::AppendAsString(std::string& text, bool value) {
    text += value ? "true" : "false";
}

std::string nxStringHelper::GetAsString(bool value) {
    return TextOf(value);
}

nxErrorEnum nxStringHelper::SetFromString(std::string_view text, bool& value) {
    if (text == "1" || EqualsIgnoringCase(text, "true"))
        value = true;
    else if (text == "0" || EqualsIgnoringCase(text, "false"))
        value = false;
    else
        return nxErrorEnum::ValueNotParsed;

    return nxErrorEnum::OK;
}

void nxStringHelper::AppendAsString(std::string& text, int value) {
    AppendNumber(text, value);
}

void nxStringHelper::AppendAsString(std::string& text, unsigned int value) {
    AppendNumber(text, value);
}

void nxStringHelper::AppendAsString(std::string& text, long value) {
    AppendNumber(text, value);
}

void nxStringHelper::AppendAsString(std::string& text, unsigned long value) {
    AppendNumber(text, value);
}

void nxStringHelper::AppendAsString(std::string& text, long long value) {
    AppendNumber(text, value);
}

void nxStringHelper::AppendAsString(std::string& text, unsigned long long value) {
    AppendNumber(text, value);
}

std::string nxStringHelper::GetAsString(int value) {
    return TextOf(value);
}

std::string nxStringHelper::GetAsString(unsigned int value) {
    return TextOf(value);
}

std::string nxStringHelper::GetAsString(long value) {
    return TextOf(value);
}

std::string nxStringHelper::GetAsString(unsigned long value) {
    return TextOf(value);
}

std::string nxStringHelper::GetAsString(long long value) {
    return TextOf(value);
}

std::string nxStringHelper::GetAsString(unsigned long long value) {
    return TextOf(value);
}

nxErrorEnum nxStringHelper::SetFromString(std::string_view text, int& value) {
    return ParseNumber(text, value);
}

nxErrorEnum nxStringHelper::SetFromString(std::string_view text, unsigned int& value) {
    return ParseNumber(text, value);
}

nxErrorEnum nxStringHelper::SetFromString(std::string_view text, long& value) {
    return ParseNumber(text, value);
}

nxErrorEnum nxStringHelper::SetFromString(std::string_view text, unsigned long& value) {
    return ParseNumber(text, value);
}

nxErrorEnum nxStringHelper::SetFromString(std::string_view text, long long& value) {
    return ParseNumber(text, value);
}

nxErrorEnum nxStringHelper::SetFromString(std::string_view text, unsigned long long& value) {
    return ParseNumber(text, value);
}

void nxStringHelper::AppendAsString(std::string& text, double value) {
    if (std::isnan(value))
        text += "nan"; // whatever its sign
    else
        AppendNumber(text, value);
}

std::string nxStringHelper::GetAsString(double value) {
    return TextOf(value);
}

nxErrorEnum nxStringHelper::SetFromString(std::string_view text, double& value, char decimalSeparator) {
    if (decimalSeparator == '.')
        return ParseFinite(text, value);
    if (text.find('.') != std::string_view::npos)
        return nxErrorEnum::ValueNotParsed;

    std::array<char, 64> buffer; // longer than what AppendAsString writes
    if (text.size() > buffer.size()) {
        std::string pointed(text);
        std::ranges::replace(pointed, decimalSeparator, '.');
        return ParseFinite(pointed, value);
    }
    std::ranges::replace_copy(text, buffer.data(), decimalSeparator, '.');
    return ParseFinite({buffer.data(), text.size()}, value);
}

void nxStringHelper::AppendAsString(std::string& text, const nxEnum& value) {
    value.AppendAsString(text);
}

std::string nxStringHelper::GetAsString(const nxEnum& value) {
    return TextOf(value);
}

nxErrorEnum nxStringHelper::SetFromString(std::string_view text, nxEnum& value) {
    return value.SetFromString(text) ? nxErrorEnum::OK : nxErrorEnum::ValueNotParsed;
}

void nxStringHelper::AppendAsString(std::string& text, const nxTime& value) {
    value.AppendAsString(text);
}

std::string nxStringHelper::GetAsString(const nxTime& value) {
    return TextOf(value);
}

nxErrorEnum nxStringHelper::SetFromString(std::string_view text, nxTime& value) {
    return value.SetFromString(text);
}

nxErrorEnum nxStringHelper::SetFromString(std::string_view text, nxDecimal& value, char decimalSeparator) {
    return value.SetFromString(text, decimalSeparator);
}

void nxStringHelper::LeftTrim(std::string& text) {
    text.erase(0, std::min(text.find_first_not_of(WhiteSpace), text.size()));
}

void nxStringHelper::RightTrim(std::string& text) {
    text.erase(text.find_last_not_of(WhiteSpace) + 1); // npos + 1 is 0: all white space
}

std::string_view nxStringHelper::Trimmed(std::string_view text) {
    text = text.substr(0, text.find_last_not_of(WhiteSpace) + 1);
    return text.substr(std::min(text.find_first_not_of(WhiteSpace), text.size()));
}

std::string nxStringHelper::GetRightTrimmed(std::string_view text) {
    return std::string(text.substr(0, text.find_last_not_of(WhiteSpace) + 1));
}

std::string nxStringHelper::GetShortened(std::string_view text, std::size_t longest) {
    if (text.size() <= longest)
        return std::string(text);
    const auto isWithinCharacter = [text](std::size_t i) {
        return (static_cast<unsigned char>(text[i]) & 0xC0U) == 0x80U;
    };
    constexpr std::size_t LongestCharacter = 4;
    std::size_t end = longest;
    while (end > 0 && longest - end < LongestCharacter && isWithinCharacter(end))
        --end;
    return std::string(text.substr(0, isWithinCharacter(end) ? longest : end)) + "...";
}

void nxStringHelper::Replace(std::string& text, std::string_view from, std::string_view to) {
    if (from.empty())
        return;

    std::string replaced;
    std::size_t done = 0;
    for (std::size_t found = text.find(from); found != std::string::npos; found = text.find(from, done)) {
        replaced.append(text, done, found - done).append(to);
        done = found + from.size();
    }
    if (done == 0)
        return;

    replaced.append(text, done);
    text = std::move(replaced);
}
