// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxValueStatusEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxValueStatusEnum::UndefinedValue, "UNDEFINED", "Undefined", "Undefined value status"},
        {nxValueStatusEnum::NoChangeValue, "NO_CHANGE", "No change", "No change of the value status"},
        {nxValueStatusEnum::Valid, "VALID", "Valid", "An ordinary value is set"},
        {nxValueStatusEnum::Null, "NULL", "Null", "No value was ever set"},
        {nxValueStatusEnum::NoChange, "NO_CHANGE_VALUE", "No-change value",
         "The stored value is left as it is"},
    };
    static_assert(nxEnumTableIsSound(Table, nxValueStatusEnum::MinValue, nxValueStatusEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxValueStatusEnum::Rows() {
    return Table;
}
