// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxSyntheticOrderTypeEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxSyntheticOrderTypeEnum::UndefinedValue, "UNDEFINED", "Undefined",
         "Undefined synthetic order type"},
        {nxSyntheticOrderTypeEnum::NoChangeValue, "NO_CHANGE", "No change",
         "No change of the synthetic order type"},
        {nxSyntheticOrderTypeEnum::Stop, "STOP", "Stop", "Synthetic stop order"},
        {nxSyntheticOrderTypeEnum::StopLimit, "STOP_LIMIT", "Stop limit", "Synthetic stop limit order"},
        {nxSyntheticOrderTypeEnum::TrailingStop, "TRAILING_STOP", "Trailing stop",
         "Synthetic stop order that follows the market"},
        {nxSyntheticOrderTypeEnum::IfTouched, "IF_TOUCHED", "If touched",
         "Order sent once its trigger price is touched"},
        {nxSyntheticOrderTypeEnum::OneCancelsOther, "ONE_CANCELS_OTHER", "One cancels other",
         "Pair of orders of which a fill of one cancels the other"},
        {nxSyntheticOrderTypeEnum::Bracket, "BRACKET", "Bracket",
         "Order with a profit target and a protective stop"},
        {nxSyntheticOrderTypeEnum::Iceberg, "ICEBERG", "Iceberg", "Synthetic iceberg order, shown in slices"},
        {nxSyntheticOrderTypeEnum::Pegged, "PEGGED", "Pegged",
         "Order whose price is kept relative to the market"},
        {nxSyntheticOrderTypeEnum::Sniper, "SNIPER", "Sniper",
         "Hidden order sent when its price is available"},
        {nxSyntheticOrderTypeEnum::Timed, "TIMED", "Timed", "Order sent at a set time"},
        {nxSyntheticOrderTypeEnum::TWAP, "TWAP", "TWAP", "Time-weighted average price order"},
        {nxSyntheticOrderTypeEnum::VWAP, "VWAP", "VWAP", "Volume-weighted average price order"},
        {nxSyntheticOrderTypeEnum::Participation, "PARTICIPATION", "Participation",
         "Order worked as a share of the traded volume"},
        {nxSyntheticOrderTypeEnum::Spread, "SPREAD", "Spread", "Synthetic spread order of two or more legs"},
        {nxSyntheticOrderTypeEnum::KestrumAlgorithm, "KESTRUM_ALGORITHM", "Kestrum algorithm",
         "Order worked by a Kestrum algorithm"},
    };
    static_assert(nxEnumTableIsSound(Table, nxSyntheticOrderTypeEnum::MinValue,
                                     nxSyntheticOrderTypeEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxSyntheticOrderTypeEnum::Rows() {
    return Table;
}
