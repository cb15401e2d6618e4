// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// In which capacity a firm trades, as European trade and transaction reports tell it.
class NXCORE_API nxTradingCapacityEnum final : public nxEnumClass<nxTradingCapacityEnum> {
public:
    enum Value : unsigned int {
        OwnAccount = 7401,
        MatchedPrincipal = 7402,
        AnyOtherCapacity = 7403,
    };

    static constexpr std::string_view ClassName = "nxTradingCapacityEnum";
    static constexpr unsigned int MinValue = 7400;
    static constexpr unsigned int MaxValue = 7404;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
