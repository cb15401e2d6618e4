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
    nxXMLTree tree;
    const nxErrorEnum loaded = nxXMLConversion::Load(
        tree, xml, {nxLogLevels::Error, SourceFile}, context,
        "Failed to convert XML data to kestrum user limit. Unable to create XML document from XML string");
    if (!loaded.IsOK())
        return nxErrorEnum::InvalidData;

    const nxXMLReadContext readContext{context};
    Fields::Visit(*this, nxXMLFields::Reader(tree.GetRoot(), readContext));
    return nxErrorEnum::OK;
}

nxErrorEnum nxKestrumUserLimit::ConvertToXML(std::string& xmlOut, const std::string& /*context*/) const {
    return nxXMLConversion::Save("KestrumUserLimit", xmlOut, [this](nxXMLSink& sink) {
        Fields::Visit(*this, nxXMLFields::Writer(sink));
    });
}
