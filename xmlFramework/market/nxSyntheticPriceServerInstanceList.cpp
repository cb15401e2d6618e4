// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxSyntheticPriceServerInstanceList.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxSyntheticPriceServerInstanceList";
    constexpr char List[] = "SyntheticPriceServerInstances";
} // namespace

const bool nxSyntheticPriceServerInstanceList::_registered =
    nxXMLDataObject::_Register(new nxSyntheticPriceServerInstanceList);

nxErrorEnum nxSyntheticPriceServerInstanceList::ConvertFromXML(const std::string& xml,
                                                               const std::string& logPrefix) {
    nxXMLDocument document;
    // The message names another record; log monitoring matches it as it stands.
    const nxErrorEnum loaded = nxXMLConversion::Load(
        document, xml, {nxLogLevels::Error, SourceFile}, logPrefix,
        "Failed to convert XML data to spread spec. Unable to create XML document from XML string");
    if (!loaded.IsOK())
        return nxErrorEnum::InvalidData;

    nxXMLFields::ForEachChild(document.GetRootElement(), List, [this](const nxXMLElement& list) {
        nxXMLFields::ForEachChild(list, [this](const nxXMLElement& child) {
            std::string name;
            if (child.GetText(name).IsOK())
                _instances.push_back(std::move(name));
        });
    });
    return nxErrorEnum::OK;
}

nxErrorEnum nxSyntheticPriceServerInstanceList::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save("SyntheticPriceServerInstanceList", xmlOut, [this](nxXMLElement& root) {
        nxXMLElement list = root.AddChildElement(List);
        for (const std::string& instance : _instances) {
            const nxErrorEnum result = nxXMLFields::WriteChild(list, "Instance", instance);
            if (!result.IsOK()) {
                nxWriteLog({nxLogLevels::Error, SourceFile},
                           "Failed to add synthetic price server instance as child element to XML document. "
                           "Synthetic price server instance: ",
                           instance);
                return result;
            }
        }
        return nxErrorEnum(nxErrorEnum::OK);
    });
}

nxUnsignedValueWrapper nxSyntheticPriceServerInstanceList::GetDataCategoryTypeID() {
    return nxDataCategoryEnum::SyntheticPriceServerInstanceList;
}

nxXMLDataObject* nxSyntheticPriceServerInstanceList::CreateInstance() const {
    return new nxSyntheticPriceServerInstanceList;
}

nxSyntheticPriceServerInstanceList* nxSyntheticPriceServerInstanceList::CopyInstance() const {
    return new nxSyntheticPriceServerInstanceList(*this);
}

nxErrorEnum nxSyntheticPriceServerInstanceList::IsValid() const {
    return nxErrorEnum::OK;
}
