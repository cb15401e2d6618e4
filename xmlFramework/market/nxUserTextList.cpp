// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxUserTextList.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLLists.h"

#include <algorithm>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxUserTextList";
} // namespace

struct nxUserTextList::Fields {
    static constexpr const char* Root = "UserTextHistoryList";

    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        using namespace nxXMLFields;
        field("UT", Items<Leading>(record._texts));
    }
};

const bool nxUserTextList::_registered = nxXMLDataObject::_Register(new nxUserTextList);

nxErrorEnum nxUserTextList::ConvertFromXML(const std::string& xml, const std::string& logPrefix) {
    return nxXMLConversion::ReadDocument(
        xml,
        {Fields::Root,
         {nxLogLevels::Error, SourceFile},
         logPrefix,
         "Failed to convert XML data to user text history list. Unable to create XML "
         "document from XML string"},
        [this](const nxXMLNode& root, const nxXMLReadContext& context) {
            nxXMLFields::ReadFirst(root, context, [this](auto& field) { Fields::Visit(*this, field); });
            return nxErrorEnum::OK;
        });
}

nxErrorEnum nxUserTextList::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save(
        Fields::Root, xmlOut, [this](nxXMLSink& sink) { Fields::Visit(*this, nxXMLFields::Writer(sink)); });
}

nxXMLDescription nxUserTextList::GetDocumentDescription() {
    const nxUserTextList none;
    return {Fields::Root, nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); })};
}

nxUnsignedValueWrapper nxUserTextList::GetDataCategoryTypeID() {
    return nxDataCategoryEnum::UserTextList;
}

nxXMLDataObject* nxUserTextList::CreateInstance() const {
    return new nxUserTextList;
}

nxUserTextList* nxUserTextList::CopyInstance() const {
    return new nxUserTextList(*this);
}

nxErrorEnum nxUserTextList::IsValid() const {
    return nxErrorEnum::OK;
}

std::string nxUserTextList::GetDataInstanceNameForUserID(const nxUnsignedValueWrapper& userID) {
    return "UserTextList_" + (userID.IsValid() ? userID.GetAsString() : "???");
}

void nxUserTextList::AddUserTextEntry(const std::string& text) {
    if (std::ranges::find(_texts, text) == _texts.end())
        _texts.push_back(text);
}
