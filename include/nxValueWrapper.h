// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"
#include "core/nxStringHelper.h"
#include "include/nxErrorEnum.h"
#include "include/nxInitializers.h"

#include <compare>
#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

// A number that can also be null (never set) or "no change" (in an update: leave the stored value alone). The
// two states are the reserved values Null and NoChange of the type itself, so comparisons, which look at the
// raw value only, order them like any other value. For the shapes that IsValid and SetFromString have from
// class to class see docs/errors.md.
template <class T, T Null, T NoChange>
class NXCORE_API nxValueWrapper {
public:
    static constexpr T NullValue = Null;
    static constexpr T NoChangeValue = NoChange;

    constexpr nxValueWrapper() = default; // null
    constexpr nxValueWrapper(T value) : _value(value) {}
    constexpr nxValueWrapper(nxNullInitalizer) : _value(Null) {}
    constexpr nxValueWrapper(nxNoChangeInitalizer) : _value(NoChange) {}

    constexpr bool IsNull() const { return _value == Null; }
    constexpr bool IsNoChange() const { return _value == NoChange; }
    constexpr bool IsValid() const { return !IsNull() && !IsNoChange(); }
    constexpr void SetNull() { _value = Null; }
    constexpr void SetNoChange() { _value = NoChange; }
    constexpr operator T() const { return _value; }

    // "NULL", "NO_CHANGE" or the decimal digits.
    void AppendAsString(std::string& text) const {
        if (IsNull())
            text += "NULL";
        else if (IsNoChange())
            text += "NO_CHANGE";
        else
            nxStringHelper::AppendAsString(text, _value);
    }
    std::string GetAsString() const {
        std::string text;
        AppendAsString(text);
        return text;
    }

    // Reads what GetAsString writes, and the reserved values' digits; nxErrorEnum::ValueNotParsed for any
    // other text, with the value untouched.
    nxErrorEnum SetFromString(std::string_view text) {
        if (text == "NULL")
            SetNull();
        else if (text == "NO_CHANGE")
            SetNoChange();
        else
            return nxStringHelper::SetFromString(text, _value);
        return nxErrorEnum::OK;
    }

    friend constexpr bool operator==(nxValueWrapper left, nxValueWrapper right) {
        return left._value == right._value;
    }
    friend constexpr std::strong_ordering operator<=>(nxValueWrapper left, nxValueWrapper right) {
        return left._value <=> right._value;
    }
    // Templates, so that an enumerator or a literal of another integer type is neither ambiguous nor read
    // with a wrong sign. The plus makes an integer of whatever promotes to one.
    template <class U>
    requires(std::integral<U> || std::is_enum_v<U>) friend constexpr bool operator==(nxValueWrapper left,
                                                                                     U right) {
        return std::cmp_equal(left._value, +right);
    }
    template <class U>
    requires(std::integral<U> || std::is_enum_v<U>) friend constexpr std::strong_ordering
    operator<=>(nxValueWrapper left, U right) {
        if (std::cmp_less(left._value, +right))
            return std::strong_ordering::less;
        return std::cmp_equal(left._value, +right) ? std::strong_ordering::equal
                                                   : std::strong_ordering::greater;
    }

private:
    T _value = Null;
};

// IDs and unsigned counts.
using nxUnsignedValueWrapper = nxValueWrapper<unsigned int, 0xFFFFFFFF, 0xFFFFFFFE>;
// Signed counts, such as tick offsets.
using nxIntValueWrapper = nxValueWrapper<int, 0x7FFFFFFF, 0x7FFFFFFE>;
