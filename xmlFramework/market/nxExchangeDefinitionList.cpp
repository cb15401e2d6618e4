// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxExchangeDefinitionList.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/market/nxSharedItems.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLLists.h"

#include <algorithm>
#include <functional>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxExchangeDefinitionList";
    constexpr std::string_view NewPrefix = "NEW_";
    constexpr std::string_view SimulatedSuffix = "_SIM";

    void Select(const nxExchangeDefinitionList::Definitions& definitions,
                bool (nxExchangeDefinition::*hasRole)() const, nxExchangeDefinitionList::Selection& out) {
        for (const auto& [mnemonic, definition] : definitions) {
            if (definition && (*definition.*hasRole)())
                out.emplace(mnemonic, definition.get());
        }
    }
} // namespace

struct nxExchangeDefinitionList::Fields {
    static constexpr const char* Root = "ExchangeDefinitionList";

    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        using namespace nxXMLFields;
        field("ExchangeDefinitions",
              ListOf<ByKey>("ExchangeDefinition-",
                            KeyedBy(&nxExchangeDefinition::GetMnemonic, record._definitions)));
    }
};

const bool nxExchangeDefinitionList::_registered = nxXMLDataObject::_Register(new nxExchangeDefinitionList);

nxExchangeDefinitionList::nxExchangeDefinitionList(const nxExchangeDefinitionList& other)
    : nxXMLDataObject(other), _definitions(nxSharedItems::Copy(other._definitions)) {}

bool nxExchangeDefinitionList::operator==(const nxExchangeDefinitionList& other) const {
    return nxSharedItems::AreEqual(_definitions, other._definitions);
}

nxErrorEnum nxExchangeDefinitionList::ConvertFromXML(const std::string& xml, const std::string& logPrefix) {
    // The message names another record; log monitoring matches it as it stands.
    return nxXMLConversion::ReadDocument(
        xml,
        {Fields::Root,
         {nxLogLevels::Error, SourceFile},
         logPrefix,
         "Failed to convert XML data to spread spec. Unable to create XML document from XML string"},
        [this, &logPrefix](const nxXMLNode& root, const nxXMLReadContext& context) {
            const nxErrorEnum result = nxXMLFields::ReadInDocumentOrder(
                root, context, [this](auto& field) { Fields::Visit(*this, field); });
            if (!result.IsOK())
                nxWriteLog({nxLogLevels::Error, SourceFile}, logPrefix,
                           "Failed to convert XML data to exchange definition list spec. "
                           "Failed to exchange definition from XML");
            return result;
        });
}

nxErrorEnum nxExchangeDefinitionList::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save(
        Fields::Root, xmlOut, [this](nxXMLSink& sink) { Fields::Visit(*this, nxXMLFields::Writer(sink)); });
}

nxXMLDescription nxExchangeDefinitionList::GetDocumentDescription() {
    const nxExchangeDefinitionList none;
    return {Fields::Root, nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); })};
}

nxUnsignedValueWrapper nxExchangeDefinitionList::GetDataCategoryTypeID() {
    return nxDataCategoryEnum::ExchangeDefinitionList;
}

nxXMLDataObject* nxExchangeDefinitionList::CreateInstance() const {
    return new nxExchangeDefinitionList;
}

nxExchangeDefinitionList* nxExchangeDefinitionList::CopyInstance() const {
    return new nxExchangeDefinitionList(*this);
}

nxErrorEnum nxExchangeDefinitionList::IsValid() const {
    return nxSharedItems::Validate(_definitions);
}

bool nxExchangeDefinitionList::GetDescriptionForMnemonic(const std::string& mnemonic,
                                                         std::string& description) const {
    const auto entry = _definitions.find(mnemonic);
    if (entry == _definitions.end() || !entry->second)
        return false;
    description = entry->second->GetDescription();
    return true;
}

void nxExchangeDefinitionList::GetExchangesOnly(Selection& out) const {
    Select(_definitions, &nxExchangeDefinition::IsExchange, out);
}

void nxExchangeDefinitionList::GetPriceSourcesOnly(Selection& out) const {
    Select(_definitions, &nxExchangeDefinition::IsPriceSource, out);
}

void nxExchangeDefinitionList::GetOrderDestinationsOnly(Selection& out) const {
    Select(_definitions, &nxExchangeDefinition::IsOrderDestination, out);
}

void nxExchangeDefinitionList::ProcessExchangeDefinitionList(
    std::map<std::string, std::string>& micToMnemonic, bool wantSimulated, bool wantNew) const {
    std::map<std::string, std::set<std::string>> venuesByMIC;
    for (const auto& [key, definition] : _definitions) {
        if (!definition)
            continue;
        for (const std::string& mic : definition->GetMICs())
            venuesByMIC[mic].insert(definition->GetMnemonic());
    }

    const auto isWanted = [=](const std::string& mnemonic) {
        return mnemonic.starts_with(NewPrefix) == wantNew &&
               mnemonic.ends_with(SimulatedSuffix) == wantSimulated;
    };
    for (const auto& [mic, venues] : venuesByMIC) {
        const auto venue = std::ranges::find_if(venues, isWanted);
        if (venue != venues.end())
            micToMnemonic.emplace(mic, *venue);
    }
}

void nxExchangeDefinitionList::StripOrvalenExchangeName(const std::string& name, std::string& stripped) {
    stripped = name;
    if (stripped.starts_with(NewPrefix))
        stripped.erase(0, NewPrefix.size());
    if (stripped.ends_with(SimulatedSuffix))
        stripped.resize(stripped.size() - SimulatedSuffix.size());
}

bool nxExchangeDefinitionList::IsEquivalentExchange(const std::string& name, const std::string& baseName) {
    return IsOneOfEquivalentExchanges(name, {baseName});
}

bool nxExchangeDefinitionList::IsOneOfEquivalentExchanges(const std::string& name,
                                                          const std::set<std::string>& baseNames) {
    std::string stripped;
    StripOrvalenExchangeName(name, stripped);
    return baseNames.contains(stripped);
}

bool nxExchangeDefinitionList::IsCMEExchangeDestination(const std::string& name) {
    return IsOneOfEquivalentExchanges(name, {"CME", "CBOTGL", "NYMEX", "BOVESPA", "MEXDER"});
}
