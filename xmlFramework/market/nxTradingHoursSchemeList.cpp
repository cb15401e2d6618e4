// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxTradingHoursSchemeList.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxTradingHoursSchemeList";
    constexpr char List[] = "TradingHoursSchemes";
    constexpr char Item[] = "Scheme";
} // namespace

const bool nxTradingHoursSchemeList::_registered = nxXMLDataObject::_Register(new nxTradingHoursSchemeList);

nxErrorEnum nxTradingHoursSchemeList::ConvertFromXML(const std::string& xml, const std::string& logPrefix) {
    nxXMLDocument document;
    const nxErrorEnum loaded =
        nxXMLConversion::Load(document, xml, {nxLogLevels::Error, SourceFile}, logPrefix,
                              "Failed to convert XML data to trading hours scheme list. Unable to create XML "
                              "document from XML string");
    if (!loaded.IsOK())
        return nxErrorEnum::InvalidData;

    const nxErrorEnum result = nxXMLFields::ReadList(
        document.GetRootElement(), List, Item, [this, &logPrefix](nxXMLElement& element) {
            nxTradingHoursScheme scheme;
            const nxErrorEnum converted = scheme.ConvertFromXML(element, logPrefix);
            if (converted.IsOK())
                _schemes.try_emplace(scheme.GetSchemeName(), scheme);
            return converted;
        });
    if (!result.IsOK())
        nxWriteLog({nxLogLevels::Error, SourceFile}, logPrefix, // two blanks: as it has always been
                   "Failed to convert XML data to trading hours scheme list spec. "
                   "Failed to convert trading hours scheme  from XML");
    return result;
}

nxErrorEnum nxTradingHoursSchemeList::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save("TradingHoursSchemesList", xmlOut, [this](nxXMLElement& root) {
        return nxXMLFields::WriteList(root, List, Item, _schemes,
                                      [](nxXMLElement& element, const Schemes::value_type& entry) {
                                          return entry.second.ConvertToXML(element, std::string());
                                      });
    });
}

nxUnsignedValueWrapper nxTradingHoursSchemeList::GetDataCategoryTypeID() {
    return nxDataCategoryEnum::TradingHoursSchemeList;
}

nxXMLDataObject* nxTradingHoursSchemeList::CreateInstance() const {
    return new nxTradingHoursSchemeList;
}

nxTradingHoursSchemeList* nxTradingHoursSchemeList::CopyInstance() const {
    return new nxTradingHoursSchemeList(*this);
}

nxErrorEnum nxTradingHoursSchemeList::IsValid() const {
    for (const auto& [name, scheme] : _schemes) {
        const nxErrorEnum result = scheme.IsValid();
        if (!result.IsOK())
            return result;
    }
    return nxErrorEnum::OK;
}
