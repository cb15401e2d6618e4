// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumModuleSpec.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxKestrumModuleSpec";
} // namespace

struct nxKestrumModuleSpec::Fields {
    static constexpr const char* Root = "KestrumModuleSpec";

    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        field("SourceCode", record._sourceCode);
    }
};

const bool nxKestrumModuleSpec::_registered = nxXMLDataObject::_Register(new nxKestrumModuleSpec);

nxErrorEnum nxKestrumModuleSpec::ConvertFromXML(const std::string& xml, const std::string& context) {
    // The message names another record; log monitoring matches it as it stands.
    return nxXMLConversion::ReadDocument(
        xml,
        {Fields::Root,
         {nxLogLevels::Error, SourceFile},
         context,
         "Failed to convert XML data to spread spec. Unable to create XML document from XML string"},
        [this](const nxXMLNode& root, const nxXMLReadContext& readContext) {
            nxXMLFields::ReadFirst(root, readContext, [this](auto& field) { Fields::Visit(*this, field); });
            return nxErrorEnum::OK;
        });
}

nxErrorEnum nxKestrumModuleSpec::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save(
        Fields::Root, xmlOut, [this](nxXMLSink& sink) { Fields::Visit(*this, nxXMLFields::Writer(sink)); });
}

nxXMLDescription nxKestrumModuleSpec::GetDocumentDescription() {
    const nxKestrumModuleSpec none;
    return {Fields::Root, nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); })};
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
