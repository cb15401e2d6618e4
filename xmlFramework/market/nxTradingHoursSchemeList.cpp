// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxTradingHoursSchemeList.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLLists.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxTradingHoursSchemeList";
} // namespace

struct nxTradingHoursSchemeList::Fields {
    static constexpr const char* Root = "TradingHoursSchemesList";

    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        using namespace nxXMLFields;
        field("TradingHoursSchemes",
              ListOf("Scheme", KeyedBy(&nxTradingHoursScheme::GetSchemeName, record._schemes)));
    }
};

const bool nxTradingHoursSchemeList::_registered = nxXMLDataObject::_Register(new nxTradingHoursSchemeList);

nxErrorEnum nxTradingHoursSchemeList::ConvertFromXML(const std::string& xml, const std::string& logPrefix) {
    return nxXMLConversion::ReadDocument(
        xml,
        {Fields::Root,
         {nxLogLevels::Error, SourceFile},
         logPrefix,
         "Failed to convert XML data to trading hours scheme list. Unable to create XML "
         "document from XML string"},
        [this, &logPrefix](const nxXMLNode& root, const nxXMLReadContext& context) {
            const nxErrorEnum result = nxXMLFields::ReadFirst(root, context, [this](auto& field) {
                                           Fields::Visit(*this, field);
                                       }).GetResult();
            if (!result.IsOK())
                nxWriteLog({nxLogLevels::Error, SourceFile}, logPrefix, // two blanks: as it has always been
                           "Failed to convert XML data to trading hours scheme list spec. "
                           "Failed to convert trading hours scheme  from XML");
            return result;
        });
}

nxErrorEnum nxTradingHoursSchemeList::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save(
        Fields::Root, xmlOut, [this](nxXMLSink& sink) { Fields::Visit(*this, nxXMLFields::Writer(sink)); });
}

nxXMLDescription nxTradingHoursSchemeList::GetDocumentDescription() {
    const nxTradingHoursSchemeList none;
    return {Fields::Root, nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); })};
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
