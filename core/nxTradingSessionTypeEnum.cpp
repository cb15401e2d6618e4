// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxTradingSessionTypeEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxTradingSessionTypeEnum::UndefinedValue, "UNDEFINED", "Undefined", "Undefined session type"},
        {nxTradingSessionTypeEnum::NoChangeValue, "NO_CHANGE", "No change", "No change of the session type"},
        {nxTradingSessionTypeEnum::PreTrading, "PRE_TRADING", "Pre-trading",
         "Pre-trading, orders are entered but not matched"},
        {nxTradingSessionTypeEnum::OpeningAuction, "OPENING_AUCTION", "Opening auction", "Opening auction"},
        {nxTradingSessionTypeEnum::ContinuousTrading, "CONTINUOUS_TRADING", "Continuous trading",
         "Continuous trading"},
        {nxTradingSessionTypeEnum::IntradayAuction, "INTRADAY_AUCTION", "Intraday auction",
         "Intraday auction"},
        {nxTradingSessionTypeEnum::Break, "BREAK", "Break", "Trading break"},
        {nxTradingSessionTypeEnum::ClosingAuction, "CLOSING_AUCTION", "Closing auction", "Closing auction"},
        {nxTradingSessionTypeEnum::TradeAtClose, "TRADE_AT_CLOSE", "Trade at close",
         "Trading at the closing price"},
        {nxTradingSessionTypeEnum::PostTrading, "POST_TRADING", "Post-trading",
         "Post-trading, orders are maintained but not matched"},
        {nxTradingSessionTypeEnum::AfterHours, "AFTER_HOURS", "After hours", "After-hours trading"},
        {nxTradingSessionTypeEnum::Closed, "CLOSED", "Closed", "Market closed"},
    };
    static_assert(nxEnumTableIsSound(Table, nxTradingSessionTypeEnum::MinValue,
                                     nxTradingSessionTypeEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxTradingSessionTypeEnum::Rows() {
    return Table;
}
