// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumParameterDefinition.h"

#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLFields.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxKestrumParameterDefinition";
} // namespace

struct nxKestrumParameterDefinition::Fields {
    template <class Record, class Visitor>
    static void VisitRequired(Record& record, Visitor&& field) {
        field("Name", record._name);
        field("ParameterType", record._parameterType);
        field("Optional", record._optional);
    }
    template <class Record, class Visitor>
    static void VisitOptional(Record& record, Visitor&& field) {
        field("SystemParameter", record._isSystemParameter);
        field("ReadOnly", record._readOnly);
        field("Description", record._description);
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

nxErrorEnum nxKestrumParameterDefinition::ConvertToXML(nxXMLElement& element) const {
    nxXMLFields::UntilFailure writer{nxXMLFields::Writer(element)};
    Fields::VisitRequired(*this, writer);
    Fields::VisitOptional(*this, writer);
    if (!writer.GetResult().IsOK())
        return writer.GetResult();

    nxXMLElement validValues = element.AddChildElement("ValidValues");
    for (const std::string& value : _validValues) {
        const nxErrorEnum result = validValues.AddChildValue("ValidValue", std::string_view(value));
        if (!result.IsOK())
            return result;
    }
    return nxErrorEnum::OK;
}

nxErrorEnum nxKestrumParameterDefinition::ConvertFromXML(nxXMLElement& element) {
    _nameWatch.Report();
    nxXMLFields::UntilFailure required{nxXMLFields::Reader(element)};
    Fields::VisitRequired(*this, required);
    const nxErrorEnum result =
        required.GetResultLogged({nxLogLevels::Error, SourceFile}, "Failed to read parameter definition. ");
    if (!result.IsOK())
        return result;
    Fields::VisitOptional(*this, nxXMLFields::Reader(element));

    return nxXMLFields::ForEachLeadingChild(element.FindChildElement("ValidValues"), "ValidValue",
                                            [this](const nxXMLElement& value) {
                                                _validValues.push_back(value.GetTextValue());
                                                return nxErrorEnum::OK;
                                            });
}
