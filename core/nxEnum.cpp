// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxEnum.h"

#include "core/nxStringHelper.h"

#include <algorithm>

// Rows ascend by value, so the row is found by halving; the data-category and error tables are the longest.
const nxEnumRow* nxEnum::_FindRow() const {
    const std::span<const nxEnumRow> rows = _Rows();
    const auto row = std::ranges::lower_bound(rows, _value, {}, &nxEnumRow::value);
    return row != rows.end() && row->value == _value ? &*row : nullptr;
}

void nxEnum::_Append(std::string& text, std::string_view nxEnumRow::*rowText) const {
    if (const nxEnumRow* row = _FindRow())
        text += row->*rowText;
    else
        nxStringHelper::AppendAsString(text, _value);
}

void nxEnum::AppendAsString(std::string& text) const {
    _Append(text, &nxEnumRow::name);
}

std::string nxEnum::GetAsString() const {
    std::string text;
    AppendAsString(text);
    return text;
}

void nxEnum::AppendShortDescription(std::string& text) const {
    _Append(text, &nxEnumRow::shortDescription);
}

std::string nxEnum::GetShortDescription() const {
    std::string text;
    AppendShortDescription(text);
    return text;
}

void nxEnum::AppendLongDescription(std::string& text) const {
    _Append(text, &nxEnumRow::longDescription);
}

std::string nxEnum::GetLongDescription() const {
    std::string text;
    AppendLongDescription(text);
    return text;
}

bool nxEnum::SetFromString(std::string_view name) {
    return _SetFromText(&nxEnumRow::name, name);
}

bool nxEnum::SetFromShortDescriptionString(std::string_view shortDescription) {
    return _SetFromText(&nxEnumRow::shortDescription, shortDescription);
}

bool nxEnum::_SetFromText(std::string_view nxEnumRow::*rowText, std::string_view text) {
    const std::span<const nxEnumRow> rows = _Rows();
    const auto row = std::ranges::find(rows, text, rowText);
    if (row == rows.end())
        return false;

    _value = row->value; // the static check beside each table has seen that it is storable
    return true;
}

bool nxEnum::IsUndefined() const {
    return _value == UndefinedValue || _FindRow() == nullptr;
}

bool nxEnum::_Set(unsigned int value) {
    _value = nxEnumStoredValue(value, _MinValue(), _MaxValue());
    return _value == value;
}

bool nxEnum::_Set(const nxEnum& other) {
    return _Set(other._value);
}
