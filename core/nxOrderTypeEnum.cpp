// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxOrderTypeEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxOrderTypeEnum::UndefinedValue, "UNDEFINED", "Undefined", "Undefined order type"},
        {nxOrderTypeEnum::NoChangeValue, "NO_CHANGE", "No change", "No change of the order type"},
        {nxOrderTypeEnum::Market, "MARKET", "Market", "Market order"},
        {nxOrderTypeEnum::Limit, "LIMIT", "Limit", "Limit order"},
        {nxOrderTypeEnum::Stop, "STOP", "Stop", "Stop order"},
        {nxOrderTypeEnum::StopLimit, "STOP_LIMIT", "Stop limit", "Stop limit order"},
        {nxOrderTypeEnum::TrailingStop, "TRAILING_STOP", "Trailing stop", "Trailing stop order"},
        {nxOrderTypeEnum::MarketToLimit, "MARKET_TO_LIMIT", "Market to limit",
         "Market order whose remainder rests as a limit order"},
        {nxOrderTypeEnum::MarketIfTouched, "MARKET_IF_TOUCHED", "Market if touched",
         "Market order, active once its trigger price is touched"},
        {nxOrderTypeEnum::LimitIfTouched, "LIMIT_IF_TOUCHED", "Limit if touched",
         "Limit order, active once its trigger price is touched"},
        {nxOrderTypeEnum::Iceberg, "ICEBERG", "Iceberg", "Limit order that shows only part of its quantity"},
        {nxOrderTypeEnum::Pegged, "PEGGED", "Pegged", "Order whose price follows the best bid or offer"},
        {nxOrderTypeEnum::MidpointPegged, "MIDPOINT_PEGGED", "Midpoint pegged",
         "Order whose price follows the middle of bid and offer"},
        {nxOrderTypeEnum::MarketOnOpen, "MARKET_ON_OPEN", "Market on open",
         "Market order for the opening auction"},
        {nxOrderTypeEnum::LimitOnOpen, "LIMIT_ON_OPEN", "Limit on open",
         "Limit order for the opening auction"},
        {nxOrderTypeEnum::MarketOnClose, "MARKET_ON_CLOSE", "Market on close",
         "Market order for the closing auction"},
        {nxOrderTypeEnum::LimitOnClose, "LIMIT_ON_CLOSE", "Limit on close",
         "Limit order for the closing auction"},
        {nxOrderTypeEnum::PreviouslyQuoted, "PREVIOUSLY_QUOTED", "Previously quoted",
         "Order against a quote given before"},
    };
    static_assert(nxEnumTableIsSound(Table, nxOrderTypeEnum::MinValue, nxOrderTypeEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxOrderTypeEnum::Rows() {
    return Table;
}
