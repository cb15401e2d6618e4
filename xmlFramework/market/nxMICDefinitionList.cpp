// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxMICDefinitionList.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/market/nxKeyedItems.h"
#include "xmlFramework/xml/nxXMLConversion.h"

#include <functional>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxMICDefinitionList";
    constexpr char Root[] = "MICDefinitionList";
    constexpr char Container[] = "MICDefinitions";
    constexpr char ItemPrefix[] = "MICDefinition-";

    using Items = nxKeyedItems<nxMICDefinition>;
} // namespace

const bool nxMICDefinitionList::_registered = nxXMLDataObject::_Register(new nxMICDefinitionList);

nxMICDefinitionList::nxMICDefinitionList(const nxMICDefinitionList& other)
    : nxXMLDataObject(other), _definitions(Items::Copy(other._definitions)) {}

nxErrorEnum nxMICDefinitionList::ConvertFromXML(const std::string& xml, const std::string& logPrefix) {
    nxXMLDocument document;
    // The message names another record; log monitoring matches it as it stands.
    const nxErrorEnum loaded = nxXMLConversion::Load(
        document, xml, {nxLogLevels::Error, SourceFile}, logPrefix,
        "Failed to convert XML data to spread spec. Unable to create XML document from XML string");
    if (!loaded.IsOK())
        return nxErrorEnum::InvalidData;

    const nxErrorEnum result = Items::Read(_definitions, document.GetRootElement(), Container, ItemPrefix,
                                           logPrefix, std::mem_fn(&nxMICDefinition::GetMIC));
    if (!result.IsOK())
        nxWriteLog({nxLogLevels::Error, SourceFile}, logPrefix,
                   "Failed to convert XML data to MIC definition");
    return result;
}

nxErrorEnum nxMICDefinitionList::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save(Root, xmlOut, [this](nxXMLElement& root) {
        Items::Write(_definitions, root, Container, ItemPrefix, [](const std::string& name) {
            nxWriteLog({nxLogLevels::Trace, SourceFile}, "Converting MIC definition to XML. Element: ", name);
        });
        return nxErrorEnum::OK;
    });
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
    return Items::Validate(_definitions);
}
