// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxEnum.h"

#include "core/nxStringHelper.h"

#include <algorithm>

namespace {
    // Rows ascend by value, so the row is found by halving; the data-category and error tables are the
    // longest.
    const nxEnumRow* FindByValue(std::span<const nxEnumRow> rows, unsigned int value) {
        const auto row = std::ranges::lower_bound(rows, value, {}, &nxEnumRow::value);
        return row != rows.end() && row->value == value ? &*row : nullptr;
    }

    const nxEnumRow* FindByText(std::span<const nxEnumRow> rows, std::string_view nxEnumRow::*text,
                                std::string_view wanted) {
        const auto row = std::ranges::find(rows, wanted, text);
        return row != rows.end() ? &*row : nullptr;
    }
} // namespace

const nxEnumRow* nxEnum::_FindRow() const {
    return FindByValue(_Rows(), _value);
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
    const nxEnumRow* row = FindByText(_Rows(), &nxEnumRow::name, name);
    return row && _Set(row->value);
}

bool nxEnum::SetFromShortDescriptionString(std::string_view shortDescription) {
    const nxEnumRow* row = FindByText(_Rows(), &nxEnumRow::shortDescription, shortDescription);
    return row && _Set(row->value);
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
