// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// What an update of a market-by-order book does to one order, or to the book.
class NXCORE_API nxMarketByOrderActionTypeEnum final : public nxEnumClass<nxMarketByOrderActionTypeEnum> {
public:
    enum Value : unsigned int {
        Add = 7201,
        Modify = 7202,
        Replace = 7203,
        Delete = 7204,
        Execute = 7205,
        Clear = 7206,
    };

    static constexpr std::string_view ClassName = "nxMarketByOrderActionTypeEnum";
    static constexpr unsigned int MinValue = 7200;
    static constexpr unsigned int MaxValue = 7207;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
