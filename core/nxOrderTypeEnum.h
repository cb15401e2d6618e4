// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// How an order is priced and when it becomes active.
class NXCORE_API nxOrderTypeEnum final : public nxEnumClass<nxOrderTypeEnum> {
public:
    enum Value : unsigned int {
        Market = 1001,
        Limit = 1002,
        Stop = 1003,
        StopLimit = 1004,
        TrailingStop = 1005,
        MarketToLimit = 1006,
        MarketIfTouched = 1007,
        LimitIfTouched = 1008,
        Iceberg = 1009,
        Pegged = 1010,
        MidpointPegged = 1011,
        MarketOnOpen = 1012,
        LimitOnOpen = 1013,
        MarketOnClose = 1014,
        LimitOnClose = 1015,
        PreviouslyQuoted = 1016,
    };

    static constexpr std::string_view ClassName = "nxOrderTypeEnum";
    static constexpr unsigned int MinValue = 1000;
    static constexpr unsigned int MaxValue = 1017;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
