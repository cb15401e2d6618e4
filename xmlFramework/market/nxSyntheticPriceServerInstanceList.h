// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLDescription.h"

#include <string>
#include <vector>

// The names of synthetic price server instances, in order. Category SPSI, document
// "SyntheticPriceServerInstanceList".
class XMLFRAMEWORK_API nxSyntheticPriceServerInstanceList : public nxXMLDataObject {
public:
    // Adds to the names held. Every child of the list with a text is a name, whatever it is called.
    [[nodiscard]] nxErrorEnum ConvertFromXML(const std::string& xml, const std::string& logPrefix) override;
    [[nodiscard]] nxErrorEnum ConvertToXML(std::string& xmlOut, const std::string&) override;
    nxUnsignedValueWrapper GetDataCategoryTypeID() override;
    nxXMLDataObject* CreateInstance() const override;
    nxSyntheticPriceServerInstanceList* CopyInstance() const override;
    // What the documents look like.
    static nxXMLDescription GetDocumentDescription();
    using nxXMLDataObject::CreateInstance;

    bool operator==(const nxSyntheticPriceServerInstanceList& other) const {
        return _instances == other._instances;
    }

    virtual nxErrorEnum IsValid() const; // always OK

    std::vector<std::string>& GetSyntheticPriceServerInstances() { return _instances; }
    const std::vector<std::string>& GetSyntheticPriceServerInstances() const { return _instances; }

private:
    struct Fields;
    static const bool _registered;

    std::vector<std::string> _instances;
};
