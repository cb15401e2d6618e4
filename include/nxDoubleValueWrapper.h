// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"
#include "core/nxValueStatusEnum.h"
#include "include/nxErrorEnum.h"
#include "include/nxInitializers.h"

#include <string>
#include <string_view>

// A double that can also be null or "no change". The two states are reserved values far above any price or
// quantity; comparisons and arithmetic work on the raw value, reserved or not.
class NXCORE_API nxDoubleValueWrapper {
public:
    static constexpr double NullValue = 4503599627370495.0;     // 2 to the 52nd, less 1
    static constexpr double NoChangeValue = 4503599627370494.0; // less 2

    constexpr nxDoubleValueWrapper() = default; // null
    constexpr nxDoubleValueWrapper(double value) : _value(value) {}
    // Crossed over: these two have always been so, and code that uses them counts on it. SetNull and
    // SetNoChange do what they say.
    constexpr nxDoubleValueWrapper(nxNoChangeInitalizer) : _value(NullValue) {}
    constexpr nxDoubleValueWrapper(nxNullInitalizer) : _value(NoChangeValue) {}

    constexpr void SetNull() { _value = NullValue; }
    constexpr bool IsNull() const { return _value == NullValue; }
    constexpr void SetNoChange() { _value = NoChangeValue; }
    constexpr bool IsNoChange() const { return _value == NoChangeValue; }
    constexpr bool IsValid() const { return !IsNull() && !IsNoChange(); }
    constexpr double GetValue() const { return _value; }
    constexpr operator double() const { return _value; }
    nxValueStatusEnum GetStatus() const;

    // Arithmetic that changes the held value. The forms that give a double (+, -, *, /) and the comparisons
    // with a double come from the conversion to double.
    constexpr nxDoubleValueWrapper& operator+=(double other) { return *this = _value + other; }
    constexpr nxDoubleValueWrapper& operator-=(double other) { return *this = _value - other; }
    constexpr nxDoubleValueWrapper& operator*=(double other) { return *this = _value * other; }
    constexpr nxDoubleValueWrapper& operator/=(double other) { return *this = _value / other; }

    static constexpr nxDoubleValueWrapper GetMax(nxDoubleValueWrapper a, nxDoubleValueWrapper b) {
        return a._value < b._value ? b : a;
    }
    static constexpr nxDoubleValueWrapper GetMin(nxDoubleValueWrapper a, nxDoubleValueWrapper b) {
        return b._value < a._value ? b : a;
    }

    // The number's text (nxStringHelper::GetAsString); the empty text for null and for no change.
    void AppendAsString(std::string& text) const;
    std::string GetAsString() const;
    // As GetAsString, but "NO_CHANGE" for no change and, for null, the digits of the reserved value.
    std::string GetAsLogString() const;
    // Reads a number with the decimal separator '.'. On failure the value becomes null and the result is the
    // parser's, nxErrorEnum::ValueNotParsed. Other types keep theirs: see docs/errors.md.
    nxErrorEnum SetFromString(std::string_view text);

private:
    double _value = NullValue;
};
