// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// Orders that the platform works itself, with plain orders at the exchange underneath.
class NXCORE_API nxSyntheticOrderTypeEnum final : public nxEnumClass<nxSyntheticOrderTypeEnum> {
public:
    enum Value : unsigned int {
        Stop = 5901,
        StopLimit = 5902,
        TrailingStop = 5903,
        IfTouched = 5904,
        OneCancelsOther = 5905,
        Bracket = 5906,
        Iceberg = 5907,
        Pegged = 5908,
        Sniper = 5909,
        Timed = 5910,
        TWAP = 5911,
        VWAP = 5912,
        Participation = 5913,
        Spread = 5914,
        KestrumAlgorithm = 5915, // the default of an algorithm spec
    };

    static constexpr std::string_view ClassName = "nxSyntheticOrderTypeEnum";
    static constexpr unsigned int MinValue = 5900;
    static constexpr unsigned int MaxValue = 5916;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
