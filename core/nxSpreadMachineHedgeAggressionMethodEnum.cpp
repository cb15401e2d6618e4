// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxSpreadMachineHedgeAggressionMethodEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxSpreadMachineHedgeAggressionMethodEnum::UndefinedValue, "UNDEFINED", "Undefined",
         "Undefined hedge aggression"},
        {nxSpreadMachineHedgeAggressionMethodEnum::NoChangeValue, "NO_CHANGE", "No change",
         "No change of the hedge aggression"},
        {nxSpreadMachineHedgeAggressionMethodEnum::Passive, "PASSIVE", "Passive",
         "Hedge at the limit price and wait"},
        {nxSpreadMachineHedgeAggressionMethodEnum::Join, "JOIN", "Join",
         "Hedge by joining the best price of the own side"},
        {nxSpreadMachineHedgeAggressionMethodEnum::Improve, "IMPROVE", "Improve",
         "Hedge one tick better than the best price of the own side"},
        {nxSpreadMachineHedgeAggressionMethodEnum::Midpoint, "MIDPOINT", "Midpoint",
         "Hedge in the middle of bid and offer"},
        {nxSpreadMachineHedgeAggressionMethodEnum::Cross, "CROSS", "Cross",
         "Hedge at the best price of the other side"},
        {nxSpreadMachineHedgeAggressionMethodEnum::Sweep, "SWEEP", "Sweep",
         "Hedge through several price levels of the other side"},
        {nxSpreadMachineHedgeAggressionMethodEnum::Market, "MARKET", "Market", "Hedge with a market order"},
    };
    static_assert(nxEnumTableIsSound(Table, nxSpreadMachineHedgeAggressionMethodEnum::MinValue,
                                     nxSpreadMachineHedgeAggressionMethodEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxSpreadMachineHedgeAggressionMethodEnum::Rows() {
    return Table;
}
