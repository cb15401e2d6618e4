// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "tool/table.h"

#include <string>
#include <vector>

class nxAlgoIDMappingList;
class nxBrokerMap;
class nxExchangeDefinitionList;
class nxKestrumAlgorithmSpec;
class nxKestrumJobSpec;
class nxKestrumModuleSpec;
class nxKestrumUserLimit;
class nxMICDefinitionList;
class nxOrvalenPriceUsageStatistics;
class nxSyntheticPriceServerInstanceList;
class nxSyntheticSpreadOrderSpec_XML;
class nxTradingHoursSchemeList;
class nxUserTextList;

namespace tool {
    // A record as people want to look at it.
    struct View {
        std::string summary; // how much there is: "20 items"
        std::vector<Table> tables;
    };

    // One for each class of records.
    View MakeView(const nxAlgoIDMappingList& record);
    View MakeView(const nxBrokerMap& record);
    View MakeView(const nxExchangeDefinitionList& record);
    View MakeView(const nxKestrumAlgorithmSpec& record);
    View MakeView(const nxKestrumJobSpec& record);
    View MakeView(const nxKestrumModuleSpec& record);
    View MakeView(const nxKestrumUserLimit& record);
    View MakeView(const nxMICDefinitionList& record);
    View MakeView(const nxOrvalenPriceUsageStatistics& record);
    View MakeView(const nxSyntheticPriceServerInstanceList& record);
    View MakeView(const nxSyntheticSpreadOrderSpec_XML& record);
    View MakeView(const nxTradingHoursSchemeList& record);
    View MakeView(const nxUserTextList& record);
} // namespace tool
