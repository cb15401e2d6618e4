// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// Who decided on an investment, as regulatory order records need it.
class NXCORE_API nxInvestmentDecisionQualifierEnum final
    : public nxEnumClass<nxInvestmentDecisionQualifierEnum> {
public:
    enum Value : unsigned int {
        Algorithm = 7121,
        NaturalPerson = 7122,
        Client = 7123,
    };

    static constexpr std::string_view ClassName = "nxInvestmentDecisionQualifierEnum";
    static constexpr unsigned int MinValue = 7120;
    static constexpr unsigned int MaxValue = 7124;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
