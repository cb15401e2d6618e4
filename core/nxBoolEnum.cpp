// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxBoolEnum.h"

#include <algorithm>

namespace {
    constexpr nxEnumRow Table[] = {
        {nxBoolEnum::UndefinedValue, "undefined", "undefined", "Undefined"},
        {nxBoolEnum::NoChangeValue, "no change", "no change", "No change"},
        {nxBoolEnum::False, "false", "false", "False"},
        {nxBoolEnum::True, "true", "true", "True"},
    };
    static_assert(nxEnumTableIsSound(Table, nxBoolEnum::MinValue, nxBoolEnum::MaxValue));
    static_assert(std::ranges::all_of(Table,
                                      [](const nxEnumRow& row) { return row.name == row.shortDescription; }),
                  "what GetShortDescription writes, SetFromString reads");
} // namespace

std::span<const nxEnumRow> nxBoolEnum::Rows() {
    return Table;
}
