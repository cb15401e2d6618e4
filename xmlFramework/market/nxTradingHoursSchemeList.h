// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/market/nxTradingHoursScheme.h"
#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLDescription.h"

#include <map>
#include <string>

// The platform's trading hours. Category TRSL, document "TradingHoursSchemesList".
class XMLFRAMEWORK_API nxTradingHoursSchemeList : public nxXMLDataObject {
public:
    using Schemes = std::map<std::string, nxTradingHoursScheme>; // by name, in byte order

    // Adds to what the list holds; of several schemes of one name the first stays. Nothing is validated: see
    // IsValid.
    [[nodiscard]] nxErrorEnum ConvertFromXML(const std::string& xml, const std::string& logPrefix) override;
    [[nodiscard]] nxErrorEnum ConvertToXML(std::string& xmlOut, const std::string&) override;
    nxUnsignedValueWrapper GetDataCategoryTypeID() override;
    nxXMLDataObject* CreateInstance() const override;
    nxTradingHoursSchemeList* CopyInstance() const override;
    // What the documents look like.
    static nxXMLDescription GetDocumentDescription();
    using nxXMLDataObject::CreateInstance;

    bool operator==(const nxTradingHoursSchemeList& other) const { return _schemes == other._schemes; }

    // The first result, in key order, of a scheme that is not valid. (For the shapes of IsValid see
    // docs/errors.md.)
    virtual nxErrorEnum IsValid() const;

    Schemes& GetTradingHoursSchemes() { return _schemes; }
    const Schemes& GetTradingHoursSchemes() const { return _schemes; }

private:
    struct Fields;
    static const bool _registered;

    Schemes _schemes;
};
