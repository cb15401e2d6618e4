// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLDescription.h"

#include <map>
#include <string>

// Algorithm paths and their IDs, one to one. Category ALID, document "AlgoIDMappingList".
class XMLFRAMEWORK_API nxAlgoIDMappingList : public nxXMLDataObject {
public:
    using Mappings = std::map<std::string, unsigned int>; // from path, in byte order, to ID

    // Replaces the mappings by those in `xml`; without a document they are gone. A mapping without a path,
    // without a valid ID, or with a path or an ID that an earlier one has, is logged and left out.
    [[nodiscard]] nxErrorEnum ConvertFromXML(const std::string& xml, const std::string& logPrefix) override;
    [[nodiscard]] nxErrorEnum ConvertToXML(std::string& xmlOut, const std::string&) override;
    nxUnsignedValueWrapper GetDataCategoryTypeID() override;
    nxXMLDataObject* CreateInstance() const override;
    nxAlgoIDMappingList* CopyInstance() const override;
    // What the documents look like.
    static nxXMLDescription GetDocumentDescription();
    using nxXMLDataObject::CreateInstance;

    bool operator==(const nxAlgoIDMappingList& other) const { return _mappings == other._mappings; }

    virtual nxErrorEnum IsValid() const; // always OK

    Mappings& GetAlgoIDMappings() { return _mappings; }
    const Mappings& GetAlgoIDMappings() const { return _mappings; }

private:
    static const bool _registered;

    Mappings _mappings;
};
