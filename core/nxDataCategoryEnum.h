// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// The number of a category code: its four characters, the first in the most significant byte.
constexpr unsigned int nxDataCategoryCode(const char (&characters)[5]) {
    unsigned int code = 0;
    for (int i = 0; i < 4; ++i)
        code = code << 8 | static_cast<unsigned char>(characters[i]);
    return code;
}

// The kinds of top-level records. The value is the record's category code, the name its four characters. The
// range takes every code of four printable ASCII characters; a code that no record has IsUndefined.
class NXCORE_API nxDataCategoryEnum final : public nxEnumClass<nxDataCategoryEnum> {
public:
    enum Value : unsigned int {
        KestrumAlgorithmSpec = nxDataCategoryCode("ALGO"),
        AlgoIDMappingList = nxDataCategoryCode("ALID"),
        BrokerMap = nxDataCategoryCode("BROK"),
        ExchangeDefinitionList = nxDataCategoryCode("EXCH"),
        KestrumJobSpec = nxDataCategoryCode("KJOB"),
        KestrumModuleSpec = nxDataCategoryCode("KMOD"),
        OrvalenPriceUsageStatistics = nxDataCategoryCode("OPUS"),
        SyntheticSpreadOrderSpec = nxDataCategoryCode("SPRD"),
        SyntheticPriceServerInstanceList = nxDataCategoryCode("SPSI"),
        TradingHoursSchemeList = nxDataCategoryCode("TRSL"),
        UserTextList = nxDataCategoryCode("URTL"),
        MICDefinitionList = nxDataCategoryCode("XMIC"),
    };

    static constexpr std::string_view ClassName = "nxDataCategoryEnum";
    static constexpr unsigned int MinValue = nxDataCategoryCode("    ") - 1;
    static constexpr unsigned int MaxValue = nxDataCategoryCode("~~~~") + 1;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
