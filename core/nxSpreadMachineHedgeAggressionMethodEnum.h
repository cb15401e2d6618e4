// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// How far a spread leg's hedge order goes to get filled, from the most patient to the most eager.
class NXCORE_API nxSpreadMachineHedgeAggressionMethodEnum final
    : public nxEnumClass<nxSpreadMachineHedgeAggressionMethodEnum> {
public:
    enum Value : unsigned int {
        Passive = 13101,
        Join = 13102,
        Improve = 13103,
        Midpoint = 13104,
        Cross = 13105,
        Sweep = 13106,
        Market = 13107,
    };

    static constexpr std::string_view ClassName = "nxSpreadMachineHedgeAggressionMethodEnum";
    static constexpr unsigned int MinValue = 13100;
    static constexpr unsigned int MaxValue = 13108;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
