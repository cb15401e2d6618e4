// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxEnum.h"

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

std::string nxEnum::GetAsString() const {
    const nxEnumRow* row = _FindRow();
    return row ? std::string(row->name) : std::to_string(_value);
}

std::string nxEnum::GetShortDescription() const {
    const nxEnumRow* row = _FindRow();
    return row ? std::string(row->shortDescription) : std::to_string(_value);
}

std::string nxEnum::GetLongDescription() const {
    const nxEnumRow* row = _FindRow();
    return row ? std::string(row->longDescription) : std::to_string(_value);
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
