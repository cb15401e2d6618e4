// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "deskProfile.h"

#include "include/nxLogLevels.h"

namespace {
    constexpr char SourceFile[] = "desks/deskProfile";
} // namespace

// The fields stand here and nowhere else: who reads, who writes and who describes visits them.
struct DeskProfile::Trader::Fields {
    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        using namespace nxXMLFields;
        field("id", Attribute(record.id), Key());
        field("Name", record.name);
    }
};

nxErrorEnum DeskProfile::Trader::_Read(const nxXMLNode& node, const nxXMLReadContext& context) {
    return nxXMLFields::ReadFirst(node, context, [this](auto& field) { Fields::Visit(*this, field); })
        .GetResult();
}

void DeskProfile::Trader::_Write(nxXMLSink& sink) const {
    Fields::Visit(*this, nxXMLFields::Writer(sink));
}

std::vector<nxXMLFieldDescription> DeskProfile::Trader::_Describe() {
    const Trader none;
    return nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); });
}

struct DeskProfile::Fields {
    static constexpr const char* Root = "DeskProfile";

    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        using namespace nxXMLFields;
        field("Name", Required(record.name));
        field("IsActive", record.isActive);
        field("MaxLoss", record.maxLoss);
        field("OpensAt", record.opensAt);
        field("Traders", ListOf("Trader", record.traders));
    }
};

// One empty profile, from which nxXMLDataObject::CreateInstance makes others.
const bool DeskProfile::_registered = nxXMLDataObject::_Register(new DeskProfile);

nxErrorEnum DeskProfile::ConvertFromXML(const std::string& xml, const std::string& logPrefix) {
    const nxLogSite site(nxLogLevels::Error, SourceFile);
    return nxXMLConversion::ReadDocument(
        xml, {Fields::Root, site, logPrefix, "The desk profile is no XML document"},
        [this, &site](const nxXMLNode& root, const nxXMLReadContext& context) -> nxErrorEnum {
            return nxXMLFields::ReadFirst(root, context, [this](auto& field) { Fields::Visit(*this, field); })
                .GetResultLogged(site, "Failed to read desk profile. ");
        });
}

nxErrorEnum DeskProfile::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save(
        Fields::Root, xmlOut, [this](nxXMLSink& sink) { Fields::Visit(*this, nxXMLFields::Writer(sink)); });
}

nxXMLDescription DeskProfile::GetDocumentDescription() {
    const DeskProfile none;
    return {Fields::Root, nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); })};
}
