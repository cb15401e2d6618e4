// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxDecimal.h"

#include "core/nxStringHelper.h"

#include <algorithm>
#include <array>

namespace {
    constexpr auto PowersOfTen = [] {
        std::array<std::int64_t, nxDecimal::MaxFractionDigits + 1> powers{};
        std::int64_t power = 1;
        for (std::int64_t& slot : powers) {
            slot = power;
            if (&slot != &powers.back())
                power *= 10;
        }
        return powers;
    }();

    // A number as whole units and billionths of billionths, both with the number's sign: comparing these
    // pairs compares the values without a product that could overflow.
    struct Parts {
        std::int64_t whole;
        std::int64_t fraction;
        auto operator<=>(const Parts&) const = default;
    };

    Parts Split(std::int64_t units, unsigned int fractionDigits) {
        const std::int64_t power = PowersOfTen[fractionDigits];
        return {units / power, units % power * PowersOfTen[nxDecimal::MaxFractionDigits - fractionDigits]};
    }

    bool IsDigits(std::string_view text) {
        return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
    }
} // namespace

nxDecimal::nxDecimal(std::int64_t units, unsigned int fractionDigits) {
    if (fractionDigits > MaxFractionDigits)
        return;
    _units = units;
    _fractionDigits = static_cast<std::uint8_t>(fractionDigits);
}

void nxDecimal::AppendAsString(std::string& text, char decimalSeparator) const {
    if (IsNull())
        return;

    const auto power = static_cast<std::uint64_t>(PowersOfTen[_fractionDigits]);
    const auto units = static_cast<std::uint64_t>(_units);
    const std::uint64_t magnitude = _units < 0 ? 0 - units : units;
    if (_units < 0)
        text += '-';
    nxStringHelper::AppendAsString(text, magnitude / power);
    if (_fractionDigits == 0)
        return;

    // The power's leading 1 keeps the fraction's zeros and makes room for the separator.
    const std::size_t point = text.size();
    nxStringHelper::AppendAsString(text, power + magnitude % power);
    text[point] = decimalSeparator;
}

std::string nxDecimal::GetAsString(char decimalSeparator) const {
    std::string text;
    AppendAsString(text, decimalSeparator);
    return text;
}

void nxDecimal::AppendAsLogString(std::string& text, char decimalSeparator) const {
    if (IsNull())
        text += "NULL";
    else
        AppendAsString(text, decimalSeparator);
}

std::string nxDecimal::GetAsLogString(char decimalSeparator) const {
    std::string text;
    AppendAsLogString(text, decimalSeparator);
    return text;
}

nxErrorEnum nxDecimal::SetFromString(std::string_view text, char decimalSeparator) {
    if (text.empty()) {
        SetNull();
        return nxErrorEnum::OK;
    }

    const std::size_t point = text.find(decimalSeparator);
    std::string digits(text.substr(0, point));
    std::size_t fractionDigits = 0;
    if (point != std::string_view::npos) {
        const std::string_view fraction = text.substr(point + 1);
        if (!IsDigits(fraction) || fraction.size() > MaxFractionDigits)
            return nxErrorEnum::ValueNotParsed;
        if (!IsDigits(std::string_view(digits).substr(digits.starts_with('-') ? 1 : 0)))
            return nxErrorEnum::ValueNotParsed;
        digits += fraction;
        fractionDigits = fraction.size();
    }

    long long units = 0;
    const nxErrorEnum result = nxStringHelper::SetFromString(digits, units);
    if (result.IsOK())
        *this = nxDecimal(units, static_cast<unsigned int>(fractionDigits));
    return result;
}

bool operator==(const nxDecimal& left, const nxDecimal& right) {
    return (left <=> right) == 0;
}

std::weak_ordering operator<=>(const nxDecimal& left, const nxDecimal& right) {
    if (left.IsNull() || right.IsNull())
        return right.IsNull() <=> left.IsNull();
    return Split(left._units, left._fractionDigits) <=> Split(right._units, right._fractionDigits);
}
