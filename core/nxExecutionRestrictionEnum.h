// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// Conditions on how and when an order may be executed. A spread leg can be worked with NoRestriction only;
// its validation refuses the others.
class NXCORE_API nxExecutionRestrictionEnum final : public nxEnumClass<nxExecutionRestrictionEnum> {
public:
    enum Value : unsigned int {
        NoRestriction = 1051,
        ImmediateOrCancel = 1052,
        FillOrKill = 1053,
        AllOrNone = 1054,
        MinimumQuantity = 1055,
        BookOrCancel = 1056,
        AuctionOnly = 1057,
        OpeningAuctionOnly = 1058,
        ClosingAuctionOnly = 1059,
    };

    static constexpr std::string_view ClassName = "nxExecutionRestrictionEnum";
    static constexpr unsigned int MinValue = 1050;
    static constexpr unsigned int MaxValue = 1060;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
