// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxStringHelper.h"
#include "tool/view.h"
#include "xmlFramework/market/nxAlgoIDMappingList.h"
#include "xmlFramework/market/nxBrokerMap.h"
#include "xmlFramework/market/nxExchangeDefinitionList.h"
#include "xmlFramework/market/nxMICDefinitionList.h"
#include "xmlFramework/market/nxOrvalenPriceUsageStatistics.h"
#include "xmlFramework/market/nxSyntheticPriceServerInstanceList.h"
#include "xmlFramework/market/nxUserTextList.h"

#include <utility>

namespace {
    tool::View ListView(tool::Table table) {
        const std::size_t count = table.GetRowCount();
        return {nxStringHelper::GetAsString(count) + (count == 1 ? " item" : " items"), {std::move(table)}};
    }

    tool::View TextsView(const char* heading, const std::vector<std::string>& texts) {
        tool::Table table({heading});
        for (const std::string& text : texts)
            table.AddRow({text});
        return ListView(std::move(table));
    }

    std::string Join(const std::vector<std::string>& texts) {
        std::string joined;
        for (const std::string& text : texts)
            joined += (joined.empty() ? "" : " ") + text;
        return joined;
    }

    std::string YesNo(bool value) {
        return value ? "yes" : "no";
    }
} // namespace

tool::View tool::MakeView(const nxAlgoIDMappingList& record) {
    Table table({"ID", "PATH"});
    for (const auto& [path, id] : record.GetAlgoIDMappings())
        table.AddRow({nxStringHelper::GetAsString(id), path});
    return ListView(std::move(table));
}

tool::View tool::MakeView(const nxMICDefinitionList& record) {
    Table table({"MIC", "OPERATING MIC", "O/S", "STATUS", "COUNTRY", "CITY", "ACRONYM", "NAME"});
    for (const auto& [mic, definition] : record.GetMICDefinitions())
        table.AddRow({mic, definition->GetOperatingMIC(), definition->GetIsOperatingMIC() ? "O" : "S",
                      definition->GetIsActive() ? "ACTIVE" : "DELETED", definition->GetIsoCountryCode(),
                      definition->GetCity(), definition->GetAcronym(), definition->GetName()});
    return ListView(std::move(table));
}

tool::View tool::MakeView(const nxBrokerMap& record) {
    Table table({"ID", "BROKER"});
    for (const auto& [id, name] : record.GetBrokerIDMap())
        table.AddRow({id.GetAsString(), name});
    return ListView(std::move(table));
}

tool::View tool::MakeView(const nxExchangeDefinitionList& record) {
    Table table({"MNEMONIC", "EXCHANGE", "PRICES", "ORDERS", "MICS", "PRICE STREAMS", "DESCRIPTION"});
    for (const auto& [mnemonic, definition] : record.GetExchangeDefinitions())
        table.AddRow({mnemonic, YesNo(definition->IsExchange()), YesNo(definition->IsPriceSource()),
                      YesNo(definition->IsOrderDestination()), Join(definition->GetMICs()),
                      Join(definition->GetPriceStreams()), definition->GetDescription()});
    return ListView(std::move(table));
}

tool::View tool::MakeView(const nxUserTextList& record) {
    return TextsView("TEXT", record.GetUserTextEntries());
}

tool::View tool::MakeView(const nxSyntheticPriceServerInstanceList& record) {
    return TextsView("INSTANCE", record.GetSyntheticPriceServerInstances());
}

tool::View tool::MakeView(const nxOrvalenPriceUsageStatistics& record) {
    Table table({"PRODUCT", "OBJECTS", "UNOBSERVED", "UPDATES", "OF UNOBSERVED PRODUCTS"});
    for (const auto& [productID, product] : record.GetProducts())
        table.AddRow({productID, nxStringHelper::GetAsString(product.GetNoOfPriceDataObjects()),
                      nxStringHelper::GetAsString(product.GetNoOfUnobservedPriceDataObjects()),
                      nxStringHelper::GetAsString(product.GetNoOfPriceUpdates()),
                      nxStringHelper::GetAsString(product.GetNoOfPriceUpdatesForUnobservedProducts())});
    View view = ListView(std::move(table));
    view.summary = "user " + record.GetUserID().GetAsString() + ", " + view.summary;
    return view;
}
