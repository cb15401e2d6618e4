// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/market/nxMICDefinition.h"
#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLDescription.h"

#include <map>
#include <memory>
#include <string>

// The register of market identifier codes (ISO 10383). Category XMIC, document "MICDefinitionList".
//
// A copy has items of its own. An assigned list shares its items with the other list; each item lives as long
// as one of them holds it.
class XMLFRAMEWORK_API nxMICDefinitionList : public nxXMLDataObject {
public:
    using Definitions =
        std::map<std::string,
                 std::shared_ptr<nxMICDefinition>>; // by MIC, in byte order; a null pointer is not valid, and
                                                    // is passed over by everything else

    nxMICDefinitionList() = default;
    nxMICDefinitionList(const nxMICDefinitionList& other);
    nxMICDefinitionList& operator=(const nxMICDefinitionList& other) = default;
    nxMICDefinitionList(nxMICDefinitionList&&) noexcept = default;
    nxMICDefinitionList& operator=(nxMICDefinitionList&&) noexcept = default;

    // Adds to what the list holds; of several definitions of one MIC the first stays.
    [[nodiscard]] nxErrorEnum ConvertFromXML(const std::string& xml, const std::string& logPrefix) override;
    [[nodiscard]] nxErrorEnum ConvertToXML(std::string& xmlOut, const std::string&) override;
    nxUnsignedValueWrapper GetDataCategoryTypeID() override;
    nxXMLDataObject* CreateInstance() const override;
    nxMICDefinitionList* CopyInstance() const override;
    // What the documents look like.
    static nxXMLDescription GetDocumentDescription();
    using nxXMLDataObject::CreateInstance;

    bool operator==(const nxMICDefinitionList& other) const; // in the values of the items

    // The first result, in key order, of an item that is not valid.
    virtual nxErrorEnum IsValid() const;

    Definitions& GetMICDefinitions() { return _definitions; }
    const Definitions& GetMICDefinitions() const { return _definitions; }

private:
    struct Fields;
    static const bool _registered;

    Definitions _definitions;
};
