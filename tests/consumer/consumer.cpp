// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Makes a list, writes it, reads it back and looks at what it found; and makes a record by its category.

#include "core/nxDataCategoryEnum.h"
#include "xmlFramework/market/nxBrokerMap.h"
#include "xmlFramework/market/nxMICDefinitionList.h"

#include <iostream>
#include <memory>
#include <string>

namespace {
    // Made before main and, where the libraries are static ones, maybe before their own static objects.
    const nxBrokerMap earlyBrokers = [] {
        nxBrokerMap brokers;
        brokers.SetBrokerIDAndName(7, "early");
        return brokers;
    }();
} // namespace

int main() {
    if (earlyBrokers.GetBrokerID("early") != 7U) {
        std::cerr << "a name from before main is not found\n";
        return 1;
    }
    nxMICDefinitionList list;
    auto definition = std::make_shared<nxMICDefinition>();
    definition->SetMIC("XABC");
    definition->SetName("B\u00f6rse <Example> & Co");
    list.GetMICDefinitions().emplace("XABC", definition);

    std::string xml;
    if (const nxErrorEnum written = list.ConvertToXML(xml, ""); !written.IsOK()) {
        std::cerr << "not written: " << written.GetAsString() << '\n';
        return 1;
    }

    nxMICDefinitionList readBack;
    if (const nxErrorEnum read = readBack.ConvertFromXML(xml, "consumer: "); !read.IsOK()) {
        std::cerr << "not read: " << read.GetAsString() << '\n';
        return 1;
    }
    const auto found = readBack.GetMICDefinitions().find("XABC");
    if (found == readBack.GetMICDefinitions().end() || found->second->GetName() != definition->GetName()) {
        std::cerr << "read back something else from " << xml << '\n';
        return 1;
    }
    // This program names no class of that record.
    const std::unique_ptr<nxXMLDataObject> spread(
        nxXMLDataObject::CreateInstance(nxDataCategoryEnum::SyntheticSpreadOrderSpec));
    if (!spread || !spread->ConvertToXML(xml, "").IsOK()) {
        std::cerr << "no record of the category\n";
        return 1;
    }
    std::cout << found->second->GetAsLogString() << '\n';
    return 0;
}
