// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxUserTextList.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

#include <algorithm>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxUserTextList";
    constexpr char Text[] = "UT";
} // namespace

const bool nxUserTextList::_registered = nxXMLDataObject::_Register(new nxUserTextList);

nxErrorEnum nxUserTextList::ConvertFromXML(const std::string& xml, const std::string& logPrefix) {
    nxXMLDocument document;
    const nxErrorEnum loaded =
        nxXMLConversion::Load(document, xml, {nxLogLevels::Error, SourceFile}, logPrefix,
                              "Failed to convert XML data to user text history list. Unable to create XML "
                              "document from XML string");
    if (!loaded.IsOK())
        return nxErrorEnum::InvalidData;

    return nxXMLFields::ForEachLeadingChild(document.GetRootElement(), Text,
                                            [this](const nxXMLElement& text) {
                                                _texts.push_back(text.GetTextValue());
                                                return nxErrorEnum::OK;
                                            });
}

nxErrorEnum nxUserTextList::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save("UserTextHistoryList", xmlOut, [this](nxXMLElement& root) {
        for (const std::string& text : _texts)
            nxXMLFields::WriteChild(root, Text, text);
        return nxErrorEnum::OK;
    });
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
