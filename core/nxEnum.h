// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"

#include <span>
#include <string>
#include <string_view>

// One value of an enumeration with its texts. Within one class no two rows share a name, a short description
// or a long description.
struct nxEnumRow {
    unsigned int value;
    std::string_view name;             // GetAsString, SetFromString
    std::string_view shortDescription; // GetShortDescription, SetFromShortDescriptionString
    std::string_view longDescription;  // GetLongDescription
};

// Base of every enumerated value of the platform: an unsigned 32-bit number with texts.
//
// Value 0 is "undefined" ("OK" for the error result) and value 2 is "no change", whatever the class. Objects
// are plain values: copy them freely, share them between threads as you would an int.
class NXCORE_API nxEnum {
public:
    static constexpr unsigned int UndefinedValue = 0;
    static constexpr unsigned int NoChangeValue = 2;

    virtual std::string GetClassName() const = 0;
    // The open bounds of the class's range: a value v belongs to it when _MinValue() < v < _MaxValue().
    virtual unsigned int _MinValue() const = 0;
    virtual unsigned int _MaxValue() const = 0;

    // The texts of the value. A value without a row of its own gives its decimal digits.
    void AppendAsString(std::string& text) const;
    void AppendShortDescription(std::string& text) const;
    void AppendLongDescription(std::string& text) const;
    std::string GetAsString() const;
    std::string GetShortDescription() const;
    std::string GetLongDescription() const;

    // Take the value that the text names, exactly and case-sensitively. False, with the value unchanged, when
    // the class knows no such text. Other value types give an nxErrorEnum: see docs/errors.md.
    bool SetFromString(std::string_view name);
    bool SetFromShortDescriptionString(std::string_view shortDescription);

    // True for 0 and for a value in the class's range to which the class gives no meaning.
    bool IsUndefined() const;
    constexpr bool IsNoChange() const { return _value == NoChangeValue; }
    constexpr unsigned int GetEnumValue() const { return _value; }
    constexpr bool _LessThan(const nxEnum& other) const { return _value < other._value; }

protected:
    constexpr nxEnum() = default;
    constexpr explicit nxEnum(unsigned int value) : _value(value) {}
    nxEnum(const nxEnum&) = default;
    nxEnum& operator=(const nxEnum&) = default;
    ~nxEnum() = default;

    virtual std::span<const nxEnumRow> _Rows() const = 0;

    // Store a value by the rule of nxEnumStoredValue. True when the value was stored as given.
    bool _Set(unsigned int value);
    bool _Set(const nxEnum& other);

private:
    const nxEnumRow* _FindRow() const;
    void _Append(std::string& text, std::string_view nxEnumRow::*rowText) const;
    bool _SetFromText(std::string_view nxEnumRow::*rowText, std::string_view text);

    unsigned int _value = UndefinedValue;
};

// The value that an enumeration with the open range (min, max) stores for `value`: the value itself inside
// the range or when it is 0 or 2, else 0.
constexpr unsigned int nxEnumStoredValue(unsigned int value, unsigned int min, unsigned int max) {
    const bool inRange = min < value && value < max;
    const bool universal = value == nxEnum::UndefinedValue || value == nxEnum::NoChangeValue;
    return inRange || universal ? value : nxEnum::UndefinedValue;
}

// The comparisons of an enumeration class. They stand by themselves because GCC takes the destructor of a
// class with friends for one that everybody may call, whatever its access.
template <class Derived>
class nxEnumComparison {
    friend constexpr bool operator==(const Derived& left, const Derived& right) {
        return left.GetEnumValue() == right.GetEnumValue();
    }
    friend constexpr bool operator<(const Derived& left, const Derived& right) {
        return left._LessThan(right);
    }
};

// Gives an enumeration class its construction, assignment and comparison. `Derived` supplies
//   static constexpr std::string_view ClassName;
//   static constexpr unsigned int MinValue, MaxValue;   the open bounds of its range
//   static std::span<const nxEnumRow> Rows();           its values and texts, in ascending order of value
template <class Derived>
class NXCORE_API nxEnumClass : public nxEnum, private nxEnumComparison<Derived> {
public:
    constexpr nxEnumClass() = default;
    // A value outside the class's range becomes 0: see nxEnumStoredValue.
    constexpr nxEnumClass(unsigned int value)
        : nxEnum(nxEnumStoredValue(value, Derived::MinValue, Derived::MaxValue)) {}

    Derived& operator=(unsigned int value) {
        _Set(value);
        return static_cast<Derived&>(*this);
    }

    std::string GetClassName() const override { return std::string(Derived::ClassName); }
    unsigned int _MinValue() const override { return Derived::MinValue; }
    unsigned int _MaxValue() const override { return Derived::MaxValue; }

protected:
    nxEnumClass(const nxEnumClass&) = default;
    nxEnumClass& operator=(const nxEnumClass&) = default;
    ~nxEnumClass() = default; // values are never deleted by way of a base

    std::span<const nxEnumRow> _Rows() const override { return Derived::Rows(); }
};

// For the static check beside each table: values ascend and are storable, and no text stands twice.
constexpr bool nxEnumTableIsSound(std::span<const nxEnumRow> rows, unsigned int min, unsigned int max) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (nxEnumStoredValue(rows[i].value, min, max) != rows[i].value)
            return false;
        if (rows[i].name.empty() || rows[i].shortDescription.empty() || rows[i].longDescription.empty())
            return false;
        for (std::size_t j = 0; j < i; ++j) {
            if (rows[j].value >= rows[i].value || rows[j].name == rows[i].name ||
                rows[j].shortDescription == rows[i].shortDescription ||
                rows[j].longDescription == rows[i].longDescription)
                return false;
        }
    }
    return !rows.empty() && rows.front().value == nxEnum::UndefinedValue;
}
