// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLDescription.h"

#include <string>

// The source code of one Kestrum script module. Category KMOD, document "KestrumModuleSpec".
class XMLFRAMEWORK_API nxKestrumModuleSpec : public nxXMLDataObject {
public:
    // A document without source code leaves the code held as it is.
    [[nodiscard]] nxErrorEnum ConvertFromXML(const std::string& xml, const std::string& context) override;
    [[nodiscard]] nxErrorEnum ConvertToXML(std::string& xmlOut, const std::string&) override;
    nxUnsignedValueWrapper GetDataCategoryTypeID() override;
    nxXMLDataObject* CreateInstance() const override;
    nxKestrumModuleSpec* CopyInstance() const override;
    // What the documents look like.
    static nxXMLDescription GetDocumentDescription();
    using nxXMLDataObject::CreateInstance;

    bool operator==(const nxKestrumModuleSpec& other) const { return _sourceCode == other._sourceCode; }

    const std::string& GetSourceCode() const { return _sourceCode; }
    void SetSourceCode(const std::string& sourceCode) { _sourceCode = sourceCode; }

private:
    struct Fields;

    static const bool _registered;

    std::string _sourceCode;
};
