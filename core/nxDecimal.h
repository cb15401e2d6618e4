// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"
#include "include/nxErrorEnum.h"

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

// An exact decimal number, or null.
//
// Holds any number of up to 18 digits, wherever the decimal point stands among them, leading zeros not
// counted. It keeps the digits it was given, so that 1.50 is written as "1.50", and compares by value, so
// that 1.50 equals 1.5. Nothing is ever rounded.
class NXCORE_API nxDecimal {
public:
    static constexpr unsigned int MaxFractionDigits = 18;

    nxDecimal() = default; // null
    // units / 10^fractionDigits, so that (150, 2) is 1.50. Null when fractionDigits exceeds
    // MaxFractionDigits.
    explicit nxDecimal(std::int64_t units, unsigned int fractionDigits = 0);

    // What the constructor takes. Not to be asked of null.
    std::int64_t GetUnits() const { return _units; }
    unsigned int GetFractionDigits() const { return _fractionDigits; }

    bool IsNull() const { return _fractionDigits == NullMark; }
    void SetNull() { *this = nxDecimal(); }

    // The number's digits; the empty text for null.
    void AppendAsString(std::string& text, char decimalSeparator) const;
    std::string GetAsString(char decimalSeparator) const;
    // The same, but "NULL" for null.
    void AppendAsLogString(std::string& text, char decimalSeparator) const;
    std::string GetAsLogString(char decimalSeparator) const;

    // Reads [-]digits[separator digits]; the empty text is null. Leading zeros and the sign of zero are
    // accepted but not kept. A text of another form, or a number that cannot be held exactly, gives
    // nxErrorEnum::ValueNotParsed and leaves the value untouched.
    nxErrorEnum SetFromString(std::string_view text, char decimalSeparator);

    // Adds or subtracts exactly. The result has the digits behind the point of the operand with more of them,
    // so that 1.50 and 0.5 make 2.00, and fewer zeros at its end where it cannot be held otherwise.
    // nxErrorEnum::ValueOutOfRange when it cannot be held at all, nxErrorEnum::InvalidData when either is
    // null; the value is untouched then.
    [[nodiscard]] nxErrorEnum Add(const nxDecimal& other);
    [[nodiscard]] nxErrorEnum Subtract(const nxDecimal& other);

    // By value; null equals null and comes before every number.
    friend NXCORE_API bool operator==(const nxDecimal& left, const nxDecimal& right);
    friend NXCORE_API std::weak_ordering operator<=>(const nxDecimal& left, const nxDecimal& right);

private:
    static constexpr std::uint8_t NullMark = 0xFF;

    nxErrorEnum _Add(const nxDecimal& other, int sign);

    std::int64_t _units = 0;
    std::uint8_t _fractionDigits = NullMark;
};
