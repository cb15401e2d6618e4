// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumUserLimit.h"

#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxKestrumUserLimit";
} // namespace

struct nxKestrumUserLimit::Fields {
    static constexpr const char* Root = "KestrumUserLimit";

    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        field("maxTransactions", nxXMLFields::NullIfMalformed(record._maxTransactions));
        field("maxTransactionsPS", nxXMLFields::NullIfMalformed(record._maxTransactionsPerSecond));
        field("maxConcurrentJobs", nxXMLFields::NullIfMalformed(record._maxConcurrentJobs));
    }
};

nxKestrumUserLimit::~nxKestrumUserLimit() = default;

nxKestrumUserLimit* nxKestrumUserLimit::CopyInstance() const {
    return new nxKestrumUserLimit(*this);
}

nxErrorEnum nxKestrumUserLimit::ConvertFromXML(const std::string& xml, const std::string& context) {
    return nxXMLConversion::ReadDocument(
        xml,
        {Fields::Root,
         {nxLogLevels::Error, SourceFile},
         context,
         "Failed to convert XML data to kestrum user limit. Unable to create XML document from XML string"},
        [this](const nxXMLNode& root, const nxXMLReadContext& readContext) {
            nxXMLFields::ReadFirst(root, readContext, [this](auto& field) { Fields::Visit(*this, field); });
            return nxErrorEnum::OK;
        });
}

nxErrorEnum nxKestrumUserLimit::ConvertToXML(std::string& xmlOut, const std::string& /*context*/) const {
    return nxXMLConversion::Save(
        Fields::Root, xmlOut, [this](nxXMLSink& sink) { Fields::Visit(*this, nxXMLFields::Writer(sink)); });
}

nxXMLDescription nxKestrumUserLimit::GetDocumentDescription() {
    const nxKestrumUserLimit none;
    return {Fields::Root, nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); })};
}
