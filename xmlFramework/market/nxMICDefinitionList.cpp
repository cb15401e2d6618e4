// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxMICDefinitionList.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/market/nxSharedItems.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLLists.h"

#include <functional>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxMICDefinitionList";

    void LogItem(const std::string& name) {
        nxWriteLog({nxLogLevels::Trace, SourceFile}, "Converting MIC definition to XML. Element: ", name);
    }
} // namespace

struct nxMICDefinitionList::Fields {
    static constexpr const char* Root = "MICDefinitionList";

    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        using namespace nxXMLFields;
        field(
            "MICDefinitions",
            ListOf<ByKey>("MICDefinition-", KeyedBy(&nxMICDefinition::GetMIC, record._definitions), LogItem));
    }
};

const bool nxMICDefinitionList::_registered = nxXMLDataObject::_Register(new nxMICDefinitionList);

nxMICDefinitionList::nxMICDefinitionList(const nxMICDefinitionList& other)
    : nxXMLDataObject(other), _definitions(nxSharedItems::Copy(other._definitions)) {}

bool nxMICDefinitionList::operator==(const nxMICDefinitionList& other) const {
    return nxSharedItems::AreEqual(_definitions, other._definitions);
}

nxErrorEnum nxMICDefinitionList::ConvertFromXML(const std::string& xml, const std::string& logPrefix) {
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
                           "Failed to convert XML data to MIC definition");
            return result;
        });
}

nxErrorEnum nxMICDefinitionList::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save(
        Fields::Root, xmlOut, [this](nxXMLSink& sink) { Fields::Visit(*this, nxXMLFields::Writer(sink)); });
}

nxXMLDescription nxMICDefinitionList::GetDocumentDescription() {
    const nxMICDefinitionList none;
    return {Fields::Root, nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); })};
}

nxUnsignedValueWrapper nxMICDefinitionList::GetDataCategoryTypeID() {
    return nxDataCategoryEnum::MICDefinitionList;
}

nxXMLDataObject* nxMICDefinitionList::CreateInstance() const {
    return new nxMICDefinitionList;
}

nxMICDefinitionList* nxMICDefinitionList::CopyInstance() const {
    return new nxMICDefinitionList(*this);
}

nxErrorEnum nxMICDefinitionList::IsValid() const {
    return nxSharedItems::Validate(_definitions);
}
