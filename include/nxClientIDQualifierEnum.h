// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// What a client identifier on an order stands for, as regulatory order records need it.
class NXCORE_API nxClientIDQualifierEnum final : public nxEnumClass<nxClientIDQualifierEnum> {
public:
    enum Value : unsigned int {
        NoClient = 7101,
        LegalEntity = 7102,
        NaturalPerson = 7103,
        Aggregated = 7104,
        PendingAllocation = 7105,
    };

    static constexpr std::string_view ClassName = "nxClientIDQualifierEnum";
    static constexpr unsigned int MinValue = 7100;
    static constexpr unsigned int MaxValue = 7106;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
