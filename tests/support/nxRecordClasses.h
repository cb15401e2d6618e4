// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxDataCategoryEnum.h"
#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"
#include "xmlFramework/kestrum/nxKestrumJobSpec.h"
#include "xmlFramework/kestrum/nxKestrumModuleSpec.h"
#include "xmlFramework/kestrum/nxKestrumUserLimit.h"
#include "xmlFramework/market/nxAlgoIDMappingList.h"
#include "xmlFramework/market/nxBrokerMap.h"
#include "xmlFramework/market/nxExchangeDefinitionList.h"
#include "xmlFramework/market/nxMICDefinitionList.h"
#include "xmlFramework/market/nxOrvalenPriceUsageStatistics.h"
#include "xmlFramework/market/nxSyntheticPriceServerInstanceList.h"
#include "xmlFramework/market/nxTradingHoursSchemeList.h"
#include "xmlFramework/market/nxUserTextList.h"
#include "xmlFramework/spread/nxSyntheticSpreadOrderSpec_XML.h"

#include <string>
#include <type_traits>

// The classes of all records that are documents of their own.
namespace nxRecordClasses {
    template <class... Classes>
    struct List {
        // Calls visit(std::type_identity<Class>()) for each.
        static void ForEach(auto visit) { (visit(std::type_identity<Classes>()), ...); }
    };

    using All = List<nxAlgoIDMappingList, nxBrokerMap, nxExchangeDefinitionList, nxKestrumAlgorithmSpec,
                     nxKestrumJobSpec, nxKestrumModuleSpec, nxKestrumUserLimit, nxMICDefinitionList,
                     nxOrvalenPriceUsageStatistics, nxSyntheticPriceServerInstanceList,
                     nxSyntheticSpreadOrderSpec_XML, nxTradingHoursSchemeList, nxUserTextList>;

    // The category code, or the root element of a record that has none.
    template <class Class>
    std::string NameOf() {
        if constexpr (requires(Class record) { record.GetDataCategoryTypeID(); })
            return nxDataCategoryEnum(Class().GetDataCategoryTypeID()).GetAsString();
        else
            return Class::GetDocumentDescription().root;
    }
} // namespace nxRecordClasses
