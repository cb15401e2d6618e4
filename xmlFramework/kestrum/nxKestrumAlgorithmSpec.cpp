// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/kestrum/nxKestrumLimitList.h"
#include "xmlFramework/kestrum/nxKestrumUserString.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLLists.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <tuple>
#include <utility>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxKestrumAlgorithmSpec";

    bool AddDefinition(nxKestrumDefinitionList& list, const nxKestrumParameterDefinition& definition) {
        if (list.Find(definition.GetName())) {
            nxWriteLog({nxLogLevels::Error, SourceFile},
                       "Paramter already exists with name: ", definition.GetName());
            return false;
        }
        list.Add(std::unique_ptr<nxKestrumParameterDefinition>(definition.CopyInstance()));
        return true;
    }

    void SetDefinitions(nxKestrumDefinitionList& list,
                        const nxKestrumDefinitionList::Definitions& definitions) {
        nxKestrumDefinitionList replacement; // `definitions` may be the list's own
        for (const auto& definition : definitions) {
            if (definition)
                AddDefinition(replacement, *definition);
        }
        list = std::move(replacement);
    }

    // A module as its document holds it. The name is a view of the document, or of the spec.
    struct Module {
        std::string_view name;

        template <class Visitor>
        void Visit(Visitor&& field) {
            field("Name", nxXMLFields::Required(name), nxXMLFields::Key());
        }
        nxErrorEnum _Read(const nxXMLNode& node, const nxXMLReadContext& context) {
            return nxXMLFields::ReadFirst(node, context, [this](auto& field) { Visit(field); })
                .GetResultLogged({nxLogLevels::Error, SourceFile}, "Failed to read module. ");
        }
        void _Write(nxXMLSink& sink) { Visit(nxXMLFields::Writer(sink)); }
        static std::vector<nxXMLFieldDescription> _Describe() {
            return nxXMLFields::Describe([none = Module()](auto& field) mutable { none.Visit(field); });
        }
    };

    template <class Names>
    class ModuleList {
    public:
        using Holder = Module;

        explicit ModuleList(Names& names) : _names(names) {}

        const char* Add(const Module& module) {
            return _names.emplace(module.name).second ? nullptr : "named before already";
        }
        auto Range() const {
            return nxXMLFields::MadeFrom(_names, [](const std::string& name) { return Module{name}; });
        }

    private:
        Names& _names;
    };

    template <class Parameter>
    nxErrorEnum AppendParameters(const std::vector<Parameter*>& parameters, std::string& text) {
        std::string value;
        for (const nxKestrumParameter* parameter : parameters) {
            if (!parameter || parameter->IsNull())
                continue;
            parameter->PersistValueToString(value);
            nxKestrumUserString::AppendPair(text, parameter->GetName(), value);
        }
        return nxErrorEnum::OK;
    }
} // namespace

struct nxKestrumAlgorithmSpec::Fields {
    static constexpr const char* Root = "KestrumAlgorithmSpec";

    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        using namespace nxXMLFields;
        field("ScriptSourceCode", record._scriptSourceCode);
        field("Parameters", ListOf("Parameter", record._scriptParameters));
        field("SyntheticOrderType", record._syntheticOrderType);
        nxKestrumLimitList::Visit(record._limits, field);
        field("Modules", ListOf("Module", ModuleList(record._modules)));
        field("OutputParameters", ListOf("OutputParameter", record._outputParameters));
        field("HideParentOrder", record._hideParentOrder);
    }
};

struct nxKestrumAlgorithmSpec::SystemParameters {
    SystemParameters() {
        using Type = nxKestrumParameterTypeEnum;
        Add("$backTestingEnabled", Type::Boolean);
        Add("$backTestingStartTime", Type::DateTime);
        Add("$backTestingEndTime", Type::DateTime);
        Add("$backTestingSpeedMultiplier", Type::Decimal);
        Add("$classroomPlaybackEnabled", Type::Boolean);
        Add("$classroomNumber", Type::Unsigned);
        definitions.Find(""); // makes the index, while nobody else looks
    }
    void Add(const char* name, const nxKestrumParameterTypeEnum& type) {
        definitions.Add(std::unique_ptr<nxKestrumParameterDefinition>(new nxKestrumParameterDefinition(
            name, type, true, true))); // the constructor is not for make_unique
    }

    nxKestrumDefinitionList definitions;
};

const bool nxKestrumAlgorithmSpec::_registered = nxXMLDataObject::_Register(new nxKestrumAlgorithmSpec);

const nxKestrumAlgorithmSpec::SystemParameters& nxKestrumAlgorithmSpec::_TheSystemParameters() {
    // Never destroyed: jobs are checked while the process winds down, too. And made without a lock, which a
    // fork might leave locked in the child: who comes second drops what he made.
    static std::atomic<const SystemParameters*> made = nullptr;
    const SystemParameters* current = made.load(std::memory_order_acquire);
    if (!current) {
        auto fresh = std::make_unique<const SystemParameters>();
        if (made.compare_exchange_strong(current, fresh.get(), std::memory_order_acq_rel))
            current = fresh.release();
    }
    return *current;
}

nxErrorEnum nxKestrumAlgorithmSpec::ConvertFromXML(const std::string& xml, const std::string& context) {
    // The message names another record; log monitoring matches it as it stands.
    return nxXMLConversion::ReadDocument(
        xml,
        {Fields::Root,
         {nxLogLevels::Error, SourceFile},
         context,
         "Failed to convert XML data to spread spec. Unable to create XML document from XML string"},
        [this](const nxXMLNode& root, const nxXMLReadContext& readContext) {
            return nxXMLFields::ReadFirst(
                       root, readContext, [this](auto& field) { Fields::Visit(*this, field); },
                       nxXMLFields::AfterFailure::Stop)
                .GetResult();
        },
        [](const nxErrorEnum& result) { return result; });
}

nxErrorEnum nxKestrumAlgorithmSpec::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save(Fields::Root, xmlOut, [this](nxXMLSink& sink) {
        Fields::Visit(*this, nxXMLFields::Writer(sink, nxXMLFields::AfterFailure::Stop));
    });
}

bool nxKestrumAlgorithmSpec::operator==(const nxKestrumAlgorithmSpec& other) const {
    const auto values = [](const nxKestrumAlgorithmSpec& spec) {
        return std::tie(spec._scriptSourceCode, spec._scriptParameters, spec._syntheticOrderType,
                        spec._limits, spec._modules, spec._outputParameters, spec._hideParentOrder);
    };
    return values(*this) == values(other);
}

nxXMLDescription nxKestrumAlgorithmSpec::GetDocumentDescription() {
    const nxKestrumAlgorithmSpec none;
    return {Fields::Root, nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); })};
}

nxUnsignedValueWrapper nxKestrumAlgorithmSpec::GetDataCategoryTypeID() {
    return nxDataCategoryEnum::KestrumAlgorithmSpec;
}

nxXMLDataObject* nxKestrumAlgorithmSpec::CreateInstance() const {
    return new nxKestrumAlgorithmSpec;
}

nxKestrumAlgorithmSpec* nxKestrumAlgorithmSpec::CopyInstance() const {
    return new nxKestrumAlgorithmSpec(*this);
}

nxKestrumParameterDefinition*
nxKestrumAlgorithmSpec::GetScriptParameterDefinition(const std::string& name) const {
    return _scriptParameters.Find(name);
}

void nxKestrumAlgorithmSpec::SetScriptParameterDefinitions(const Definitions& definitions) {
    SetDefinitions(_scriptParameters, definitions);
}

bool nxKestrumAlgorithmSpec::AddScriptParameterDefinition(const nxKestrumParameterDefinition& definition) {
    return AddDefinition(_scriptParameters, definition);
}

nxKestrumParameterDefinition*
nxKestrumAlgorithmSpec::GetScriptOutputParameterDefinition(const std::string& name) const {
    return _outputParameters.Find(name);
}

void nxKestrumAlgorithmSpec::SetScriptOutputParameterDefinitions(const Definitions& definitions) {
    SetDefinitions(_outputParameters, definitions);
}

bool nxKestrumAlgorithmSpec::AddScriptOutputParameterDefinition(
    const nxKestrumParameterDefinition& definition) {
    return AddDefinition(_outputParameters, definition);
}

bool nxKestrumAlgorithmSpec::AddLimit(const nxKestrumLimit& limit) {
    _limits.Add(std::unique_ptr<nxKestrumLimit>(limit.CopyInstance()));
    return true;
}

bool nxKestrumAlgorithmSpec::AddModule(const std::string& name) {
    _modules.insert(name);
    return true;
}

const nxKestrumParameterDefinition*
nxKestrumAlgorithmSpec::_GetSystemParameterDefinition(const std::string& name) const {
    return _TheSystemParameters().definitions.Find(name);
}

nxErrorEnum nxKestrumAlgorithmSpec::ExtractParametersFromUserString(const std::string& text,
                                                                    std::map<std::string, std::string>& out) {
    out.clear();
    return nxKestrumUserString::ForEachPair(text, [&out](std::string name, std::string value) {
        out.insert_or_assign(std::move(name), std::move(value));
        return nxErrorEnum::OK;
    });
}

nxErrorEnum
nxKestrumAlgorithmSpec::ExtractParametersFromUserString(const std::string& text,
                                                        std::vector<nxKestrumParameter*>& out) const {
    nxKestrumDefinitionList::LookUp scriptParameters(_scriptParameters);
    return nxKestrumUserString::ForEachPair(text, [&](const std::string& name, const std::string& value) {
        const nxKestrumParameterDefinition* const scriptDefinition = scriptParameters.Find(name);
        const nxKestrumParameterDefinition* const definition =
            scriptDefinition ? scriptDefinition : _GetSystemParameterDefinition(name);
        if (definition)
            return _ExtractParameter(*definition, !scriptDefinition, value, out);
        nxWriteLog({nxLogLevels::Error, SourceFile},
                   "Unable to find parameter definition for parameter named: ", name);
        return nxErrorEnum(nxErrorEnum::InvalidData);
    });
}

nxErrorEnum nxKestrumAlgorithmSpec::_ExtractParameter(const nxKestrumParameterDefinition& definition,
                                                      bool isSystemParameter, const std::string& value,
                                                      std::vector<nxKestrumParameter*>& out) {
    std::unique_ptr<nxKestrumParameter> parameter(
        nxKestrumParameter::CreateInstance(definition.GetParameterType()));
    if (!parameter)
        return nxErrorEnum::InvalidData;
    parameter->SetName(definition.GetName());
    parameter->SetIsSystemParameter(isSystemParameter);
    const nxErrorEnum result = parameter->PersistValueFromString(value);
    out.push_back(parameter.get());
    parameter.release(); // NOLINT(bugprone-unused-return-value): the caller has it
    return result;
}

nxErrorEnum
nxKestrumAlgorithmSpec::AddParametersToUserString(const std::vector<nxKestrumParameter*>& parameters,
                                                  std::string& text) {
    return AppendParameters(parameters, text);
}

nxErrorEnum
nxKestrumAlgorithmSpec::AddParametersToUserString(const std::vector<const nxKestrumParameter*>& parameters,
                                                  std::string& text) {
    return AppendParameters(parameters, text);
}

bool nxKestrumAlgorithmSpec::ValidateParameters(const std::vector<nxKestrumParameter*>& parameters,
                                                std::string& errorText) const {
    const auto isNotSet = [&errorText](const std::string& name) {
        errorText = "Mandatory parameter: " + name + " is not set";
        return false;
    };

    errorText.clear();
    std::set<std::string> missing;
    for (const auto& definition : _scriptParameters.Get()) {
        if (definition && !definition->GetOptional())
            missing.insert(definition->GetName());
    }
    for (const nxKestrumParameter* parameter : parameters) {
        if (!parameter)
            continue;
        const auto mandatory = missing.find(parameter->GetName());
        if (mandatory == missing.end())
            continue;
        if (parameter->IsNull())
            return isNotSet(parameter->GetName());
        missing.erase(mandatory);
    }
    return missing.empty() || isNotSet(*missing.begin());
}
