// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxTradingCapacityEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxTradingCapacityEnum::UndefinedValue, "UNDEFINED", "Undefined", "Undefined trading capacity"},
        {nxTradingCapacityEnum::NoChangeValue, "NO_CHANGE", "No change", "No change of the trading capacity"},
        {nxTradingCapacityEnum::OwnAccount, "OWN_ACCOUNT", "DEAL", "Dealing on own account"},
        {nxTradingCapacityEnum::MatchedPrincipal, "MATCHED_PRINCIPAL", "MTCH", "Matched principal"},
        {nxTradingCapacityEnum::AnyOtherCapacity, "ANY_OTHER_CAPACITY", "AOTC",
         "Any other capacity, such as agency"},
    };
    static_assert(nxEnumTableIsSound(Table, nxTradingCapacityEnum::MinValue,
                                     nxTradingCapacityEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxTradingCapacityEnum::Rows() {
    return Table;
}
