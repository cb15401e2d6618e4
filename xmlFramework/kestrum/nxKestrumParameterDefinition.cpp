// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumParameterDefinition.h"

#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLLists.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxKestrumParameterDefinition";
} // namespace

struct nxKestrumParameterDefinition::Fields {
    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        using namespace nxXMLFields;
        field("Name", Required(record._name), Key());
        field("ParameterType", Required(record._parameterType));
        field("Optional", Required(record._optional));
        field("SystemParameter", record._isSystemParameter);
        field("ReadOnly", record._readOnly);
        field("Description", record._description);
        field("ValidValues", ListOf<Leading>("ValidValue", record._validValues));
    }
};

nxKestrumParameterDefinition::nxKestrumParameterDefinition(const std::string& name,
                                                           const nxKestrumParameterTypeEnum& type,
                                                           bool optional)
    : nxKestrumParameterDefinition(name, type, optional, false) {}

nxKestrumParameterDefinition::nxKestrumParameterDefinition(const std::string& name,
                                                           const nxKestrumParameterTypeEnum& type,
                                                           bool optional, bool isSystemParameter)
    : _name(name), _parameterType(type), _optional(optional), _isSystemParameter(isSystemParameter) {}

nxKestrumParameterDefinition::~nxKestrumParameterDefinition() = default;

nxKestrumParameterDefinition* nxKestrumParameterDefinition::CopyInstance() const {
    return new nxKestrumParameterDefinition(*this);
}

nxErrorEnum nxKestrumParameterDefinition::_Read(const nxXMLNode& node, const nxXMLReadContext& context) {
    _nameWatch.Report();
    const nxXMLFields::Outcome outcome = nxXMLFields::ReadFirst(
        node, context, [this](auto& field) { Fields::Visit(*this, field); }, nxXMLFields::AfterFailure::Stop);
    return outcome.GetResultLogged({nxLogLevels::Error, SourceFile}, "Failed to read parameter definition. ");
}

void nxKestrumParameterDefinition::_Write(nxXMLSink& sink) const {
    Fields::Visit(*this, nxXMLFields::Writer(sink, nxXMLFields::AfterFailure::Stop));
}

std::vector<nxXMLFieldDescription> nxKestrumParameterDefinition::_Describe() {
    const nxKestrumParameterDefinition none;
    return nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); });
}

nxErrorEnum nxKestrumParameterDefinition::ConvertToXML(nxXMLElement& element) const {
    return nxXMLConversion::WriteElement(*this, element);
}

nxErrorEnum nxKestrumParameterDefinition::ConvertFromXML(nxXMLElement& element) {
    return nxXMLConversion::ReadElement(*this, element, std::string());
}
