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

std::string nxDecimal::GetAsString(char decimalSeparator) const {
    if (IsNull())
        return {};

    std::string digits = nxStringHelper::GetAsString(static_cast<long long>(_units));
    if (_fractionDigits == 0)
        return digits;

    const std::size_t sign = _units < 0 ? 1 : 0;
    const std::size_t wanted = std::size_t{_fractionDigits} + 1; // at least one digit before the point
    if (digits.size() - sign < wanted)
        digits.insert(sign, wanted - (digits.size() - sign), '0');
    digits.insert(digits.size() - _fractionDigits, 1, decimalSeparator);
    return digits;
}

std::string nxDecimal::GetAsLogString(char decimalSeparator) const {
    return IsNull() ? "NULL" : GetAsString(decimalSeparator);
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
