// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/recordKinds.h"

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
#include "xmlFramework/xml/nxXMLDocument.h"

#include <algorithm>
#include <stdexcept>

namespace {
    using namespace tool;

    // An empty record tells by what it writes.
    std::string FindRoot(Record& record, std::string_view className) {
        std::string xml;
        nxXMLDocument document;
        if (!record.ConvertToXML(xml).IsOK() || !document.LoadFromString(xml).IsOK())
            throw std::logic_error("an empty " + std::string(className) + " has no XML form");
        return document.GetRootElement().GetName();
    }

    bool IsRegistered(const nxUnsignedValueWrapper& code) {
        return std::unique_ptr<nxXMLDataObject>(nxXMLDataObject::CreateInstance(code)) != nullptr;
    }

    template <class Class>
    RecordKind MakeKind(std::string_view className, std::string_view title, std::vector<ListShape> lists = {},
                        std::vector<std::string_view> attributes = {}) {
        RecordKind kind{className,
                        title,
                        {},
                        false,
                        {},
                        [] { return std::unique_ptr<Record>(std::make_unique<RecordOf<Class>>()); },
                        std::move(lists),
                        std::move(attributes)};
        RecordOf<Class> empty;
        kind.root = FindRoot(empty, className);
        if constexpr (requires { empty.Get().GetDataCategoryTypeID(); }) {
            const nxUnsignedValueWrapper code = empty.Get().GetDataCategoryTypeID();
            kind.code = nxDataCategoryEnum(code).GetAsString();
            kind.isRegistered = IsRegistered(code);
        }
        return kind;
    }

    template <class Value>
    const RecordKind* Find(Value RecordKind::*member, std::string_view value) {
        const auto found = std::ranges::find(RecordKinds(), value, member);
        return found == RecordKinds().end() ? nullptr : &*found;
    }
} // namespace

const std::vector<RecordKind>& tool::RecordKinds() {
    static const std::vector<RecordKind> kinds{
        MakeKind<nxAlgoIDMappingList>("nxAlgoIDMappingList", "algo ID mapping list",
                                      {{"AlgoIDMappings", "AlgoPath"}}),
        MakeKind<nxBrokerMap>("nxBrokerMap", "broker map", {{"BrokerMap", "id"}}, {"id", "name"}),
        MakeKind<nxExchangeDefinitionList>("nxExchangeDefinitionList", "exchange definition list",
                                           {{"ExchangeDefinitions", "Mnemonic"}}),
        MakeKind<nxKestrumAlgorithmSpec>("nxKestrumAlgorithmSpec", "Kestrum algorithm specification",
                                         {{"Parameters", "Name"},
                                          {"ValidValues", {}},
                                          {"Limits", "ProductID"},
                                          {"Modules", "Name"},
                                          {"OutputParameters", "Name"}}),
        MakeKind<nxKestrumJobSpec>("nxKestrumJobSpec", "Kestrum job specification",
                                   {{"Limits", "ProductID"}}),
        MakeKind<nxKestrumModuleSpec>("nxKestrumModuleSpec", "Kestrum module specification"),
        MakeKind<nxKestrumUserLimit>("nxKestrumUserLimit", "Kestrum user limit"),
        MakeKind<nxMICDefinitionList>("nxMICDefinitionList", "MIC definition list",
                                      {{"MICDefinitions", "MIC"}}),
        MakeKind<nxOrvalenPriceUsageStatistics>("nxOrvalenPriceUsageStatistics", "price usage statistics",
                                                {{"ProductStatistic", "productID", true}}),
        MakeKind<nxSyntheticPriceServerInstanceList>("nxSyntheticPriceServerInstanceList",
                                                     "synthetic price server instance list",
                                                     {{"SyntheticPriceServerInstances", {}}}),
        MakeKind<nxSyntheticSpreadOrderSpec_XML>("nxSyntheticSpreadOrderSpec_XML",
                                                 "synthetic spread order specification", {{"Legs", {}}}),
        MakeKind<nxTradingHoursSchemeList>("nxTradingHoursSchemeList", "trading hours scheme list",
                                           {{"TradingHoursSchemes", "SchemeName"}, {"Periods", {}}}),
        MakeKind<nxUserTextList>("nxUserTextList", "user text list", {{"UserTextHistoryList", {}}}),
    };
    return kinds;
}

const RecordKind* tool::FindKindByRoot(std::string_view root) {
    return Find(&RecordKind::root, root);
}

const RecordKind* tool::FindKindByCode(std::string_view code) {
    return code.empty() ? nullptr : Find(&RecordKind::code, code);
}
