// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxSyntheticSpreadPayupMethodEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxSyntheticSpreadPayupMethodEnum::UndefinedValue, "UNDEFINED", "Undefined",
         "Undefined payup method"},
        {nxSyntheticSpreadPayupMethodEnum::NoChangeValue, "NO_CHANGE", "No change",
         "No change of the payup method"},
        {nxSyntheticSpreadPayupMethodEnum::Plain, "PLAIN", "Plain", "Payup without conditions"},
        {nxSyntheticSpreadPayupMethodEnum::Conditional, "CONDITIONAL", "Conditional", "Conditional payup"},
        {nxSyntheticSpreadPayupMethodEnum::Cascade, "CASCADE", "Cascade", "Cascading conditional payup"},
    };
    static_assert(nxEnumTableIsSound(Table, nxSyntheticSpreadPayupMethodEnum::MinValue,
                                     nxSyntheticSpreadPayupMethodEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxSyntheticSpreadPayupMethodEnum::Rows() {
    return Table;
}
