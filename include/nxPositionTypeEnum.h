// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// What a position, or a part of one, comes from.
class NXCORE_API nxPositionTypeEnum final : public nxEnumClass<nxPositionTypeEnum> {
public:
    enum Value : unsigned int {
        StartOfDay = 7501,
        Intraday = 7502,
        EndOfDay = 7503,
        Allocation = 7504,
        Transfer = 7505,
        Exercise = 7506,
        Assignment = 7507,
        Delivery = 7508,
        CorporateAction = 7509,
        Adjustment = 7510,
        Total = 7511,
    };

    static constexpr std::string_view ClassName = "nxPositionTypeEnum";
    static constexpr unsigned int MinValue = 7500;
    static constexpr unsigned int MaxValue = 7512;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
