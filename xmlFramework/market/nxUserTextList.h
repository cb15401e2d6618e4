// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLDescription.h"

#include <string>
#include <vector>

// One user's history of texts. Category URTL, document "UserTextHistoryList".
class XMLFRAMEWORK_API nxUserTextList : public nxXMLDataObject {
public:
    // Adds to the texts held, without looking for duplicates. The first child with another name than "UT"
    // ends the texts.
    [[nodiscard]] nxErrorEnum ConvertFromXML(const std::string& xml, const std::string& logPrefix) override;
    [[nodiscard]] nxErrorEnum ConvertToXML(std::string& xmlOut, const std::string&) override;
    nxUnsignedValueWrapper GetDataCategoryTypeID() override;
    nxXMLDataObject* CreateInstance() const override;
    nxUserTextList* CopyInstance() const override;
    // What the documents look like.
    static nxXMLDescription GetDocumentDescription();
    using nxXMLDataObject::CreateInstance;

    bool operator==(const nxUserTextList& other) const { return _texts == other._texts; }

    virtual nxErrorEnum IsValid() const; // always OK

    // The name under which callers store a user's list: "UserTextList_42"; "UserTextList_???" without an ID.
    static std::string GetDataInstanceNameForUserID(const nxUnsignedValueWrapper& userID);

    std::vector<std::string>& GetUserTextEntries() { return _texts; }
    const std::vector<std::string>& GetUserTextEntries() const { return _texts; }
    // Adds at the end, unless the very same text is there already, which keeps its place.
    void AddUserTextEntry(const std::string& text);
    void ClearAllUserTextEntries() { _texts.clear(); }

private:
    struct Fields;
    static const bool _registered;

    std::vector<std::string> _texts;
};
