// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumModuleSpec.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxKestrumModuleSpec";
    constexpr char SourceCode[] = "SourceCode";
} // namespace

const bool nxKestrumModuleSpec::_registered = nxXMLDataObject::_Register(new nxKestrumModuleSpec);

nxErrorEnum nxKestrumModuleSpec::ConvertFromXML(const std::string& xml, const std::string& context) {
    nxXMLDocument document;
    // The message names another record; log monitoring matches it as it stands.
    const nxErrorEnum loaded = nxXMLConversion::Load(
        document, xml, {nxLogLevels::Error, SourceFile}, context,
        "Failed to convert XML data to spread spec. Unable to create XML document from XML string");
    if (!loaded.IsOK())
        return nxErrorEnum::InvalidData;

    nxXMLFields::ReadChild(document.GetRootElement(), SourceCode, _sourceCode);
    return nxErrorEnum::OK;
}

nxErrorEnum nxKestrumModuleSpec::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save("KestrumModuleSpec", xmlOut, [this](nxXMLElement& root) {
        return nxXMLFields::WriteChild(root, SourceCode, _sourceCode);
    });
}

nxUnsignedValueWrapper nxKestrumModuleSpec::GetDataCategoryTypeID() {
    return nxDataCategoryEnum::KestrumModuleSpec;
}

nxXMLDataObject* nxKestrumModuleSpec::CreateInstance() const {
    return new nxKestrumModuleSpec;
}

nxKestrumModuleSpec* nxKestrumModuleSpec::CopyInstance() const {
    return new nxKestrumModuleSpec(*this);
}
