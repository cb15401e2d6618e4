// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxDecimal.h"

#include "core/nxStringHelper.h"

#include <algorithm>
#include <array>
#include <limits>

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

    // Holds the units of any two numbers, and of their sum, with the same digits behind the point.
    __extension__ using Wide = __int128;

    constexpr std::uint64_t MaxUnits = std::numeric_limits<std::int64_t>::max();

    // Puts the digits behind those of `units`. False when there is none, when something else is among them,
    // or when they are more than any number can have.
    bool AddDigits(std::string_view digits, std::uint64_t& units) {
        for (const char c : digits) {
            if (c < '0' || c > '9' || units > MaxUnits / 10)
                return false;
            units = units * 10 + static_cast<std::uint64_t>(c - '0');
        }
        return !digits.empty();
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
    const bool hasPoint = point != std::string_view::npos;
    std::string_view whole = text.substr(0, point);
    const std::string_view fraction = hasPoint ? text.substr(point + 1) : std::string_view();
    const bool isNegative = whole.starts_with('-');
    if (isNegative)
        whole.remove_prefix(1);

    std::uint64_t units = 0;
    if (!AddDigits(whole, units) || fraction.size() > MaxFractionDigits)
        return nxErrorEnum::ValueNotParsed;
    if (hasPoint && !AddDigits(fraction, units))
        return nxErrorEnum::ValueNotParsed;
    if (units > MaxUnits + (isNegative ? 1 : 0))
        return nxErrorEnum::ValueNotParsed;

    *this = nxDecimal(static_cast<std::int64_t>(isNegative ? 0 - units : units),
                      static_cast<unsigned int>(fraction.size()));
    return nxErrorEnum::OK;
}

nxErrorEnum nxDecimal::_Add(const nxDecimal& other, int sign) {
    if (IsNull() || other.IsNull())
        return nxErrorEnum::InvalidData;

    unsigned int fractionDigits = std::max(_fractionDigits, other._fractionDigits);
    const auto scaled = [fractionDigits](const nxDecimal& value) {
        return Wide{value._units} * PowersOfTen[fractionDigits - value._fractionDigits];
    };
    Wide units = scaled(*this) + sign * scaled(other);
    const auto fits = [&units] { return units == static_cast<std::int64_t>(units); };
    for (; !fits() && fractionDigits > 0 && units % 10 == 0; --fractionDigits)
        units /= 10;
    if (!fits())
        return nxErrorEnum::ValueOutOfRange;

    *this = nxDecimal(static_cast<std::int64_t>(units), fractionDigits);
    return nxErrorEnum::OK;
}

nxErrorEnum nxDecimal::Add(const nxDecimal& other) {
    return _Add(other, 1);
}

nxErrorEnum nxDecimal::Subtract(const nxDecimal& other) {
    return _Add(other, -1);
}

bool operator==(const nxDecimal& left, const nxDecimal& right) {
    return (left <=> right) == 0;
}

std::weak_ordering operator<=>(const nxDecimal& left, const nxDecimal& right) {
    if (left.IsNull() || right.IsNull())
        return right.IsNull() <=> left.IsNull();
    return Split(left._units, left._fractionDigits) <=> Split(right._units, right._fractionDigits);
}
