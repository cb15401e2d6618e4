// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// The type of a parameter of a Kestrum algorithm: what its value is made of, and what a front end offers for
// entering it. Several types share one kind of value.
class NXCORE_API nxKestrumParameterTypeEnum final : public nxEnumClass<nxKestrumParameterTypeEnum> {
public:
    enum Value : unsigned int {
        Price = 9601,         // nxDecimal
        Unsigned = 9602,      // unsigned, null and no change besides
        Quantity = 9603,      // as Unsigned
        Text = 9604,          // std::string
        Decimal = 9605,       // nxDecimal
        FloatingPoint = 9606, // double, null and no change besides
        Signed = 9607,        // int, null and no change besides
        Boolean = 9608,       // nxBoolEnum
        Instrument = 9609,    // std::string
        DateTime = 9610,      // nxDateTime
        Account = 9611,       // std::string
    };

    static constexpr std::string_view ClassName = "nxKestrumParameterTypeEnum";
    static constexpr unsigned int MinValue = 9600;
    static constexpr unsigned int MaxValue = 9612;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
