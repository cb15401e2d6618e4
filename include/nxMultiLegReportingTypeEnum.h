// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// What an execution report describes when strategies are traded.
class NXCORE_API nxMultiLegReportingTypeEnum final : public nxEnumClass<nxMultiLegReportingTypeEnum> {
public:
    enum Value : unsigned int {
        SingleSecurity = 7301,
        IndividualLeg = 7302,
        MultiLegSecurity = 7303,
    };

    static constexpr std::string_view ClassName = "nxMultiLegReportingTypeEnum";
    static constexpr unsigned int MinValue = 7300;
    static constexpr unsigned int MaxValue = 7304;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
