// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// What a market does during one trading period, in the order of a trading day.
class NXCORE_API nxTradingSessionTypeEnum final : public nxEnumClass<nxTradingSessionTypeEnum> {
public:
    enum Value : unsigned int {
        PreTrading = 6101,
        OpeningAuction = 6102,
        ContinuousTrading = 6103,
        IntradayAuction = 6104,
        Break = 6105,
        ClosingAuction = 6106,
        TradeAtClose = 6107,
        PostTrading = 6108,
        AfterHours = 6109,
        Closed = 6110,
    };

    static constexpr std::string_view ClassName = "nxTradingSessionTypeEnum";
    static constexpr unsigned int MinValue = 6100;
    static constexpr unsigned int MaxValue = 6111;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
