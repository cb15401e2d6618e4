// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// Who decided on the execution of an order, as regulatory order records need it.
class NXCORE_API nxExecutionDecisionQualifierEnum final
    : public nxEnumClass<nxExecutionDecisionQualifierEnum> {
public:
    enum Value : unsigned int {
        Algorithm = 7111,
        NaturalPerson = 7112,
        Client = 7113,
    };

    static constexpr std::string_view ClassName = "nxExecutionDecisionQualifierEnum";
    static constexpr unsigned int MinValue = 7110;
    static constexpr unsigned int MaxValue = 7114;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
