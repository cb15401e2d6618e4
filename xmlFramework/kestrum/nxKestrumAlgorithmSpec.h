// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxSyntheticOrderTypeEnum.h"
#include "include/nxOwnedItems.h"
#include "xmlFramework/kestrum/nxKestrumDefinitionList.h"
#include "xmlFramework/kestrum/nxKestrumLimit.h"
#include "xmlFramework/kestrum/nxKestrumParameter.h"
#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLDescription.h"

#include <map>
#include <set>
#include <string>
#include <vector>

// The description of one Kestrum algorithm: its script, the parameters that the script takes and produces,
// the limits that bind it and the modules it needs. Category ALGO, document "KestrumAlgorithmSpec".
//
// Also turns a user string (name "=" value pairs, each ended by the byte 0x01) into typed parameters and
// back. Besides the script's own parameters it knows six of the engine's: "$backTestingEnabled",
// "$backTestingStartTime", "$backTestingEndTime", "$backTestingSpeedMultiplier", "$classroomPlaybackEnabled"
// and "$classroomNumber". All specs share their definitions, on any thread; but for them a copy shares
// nothing with its original.
class XMLFRAMEWORK_API nxKestrumAlgorithmSpec : public nxXMLDataObject {
public:
    using Definitions = nxKestrumDefinitionList::Definitions;
    using Limits = nxOwnedItems<nxKestrumLimit>::Items;

    // Adds to the definitions, limits and modules held. The first item that cannot be read ends the reading;
    // its failure is returned and what was read before it stays. Where the text is no document the document's
    // own failure is returned (nxErrorEnum::XMLParseFailed). A name that is defined twice stays twice, and
    // the later is looked up. The empty name of a definition, product of a limit or name of a module is
    // written, but fails the reading: an element without text counts as missing.
    [[nodiscard]] nxErrorEnum ConvertFromXML(const std::string& xml, const std::string& context) override;
    [[nodiscard]] nxErrorEnum ConvertToXML(std::string& xmlOut, const std::string&) override;
    nxUnsignedValueWrapper GetDataCategoryTypeID() override;
    nxXMLDataObject* CreateInstance() const override;
    nxKestrumAlgorithmSpec* CopyInstance() const override;
    // What the documents look like.
    static nxXMLDescription GetDocumentDescription();
    using nxXMLDataObject::CreateInstance;
    // Lists are equal whose items are, in order.
    bool operator==(const nxKestrumAlgorithmSpec& other) const;

    const std::string& GetScriptSourceCode() const { return _scriptSourceCode; }
    void SetScriptSourceCode(const std::string& sourceCode) { _scriptSourceCode = sourceCode; }
    const nxSyntheticOrderTypeEnum& GetSyntheticOrderType() const { return _syntheticOrderType; }
    void SetSyntheticOrderType(const nxSyntheticOrderTypeEnum& type) { _syntheticOrderType = type; }
    bool GetHideParentOrder() const { return _hideParentOrder; }
    void SetHideParentOrder(bool hideParentOrder) { _hideParentOrder = hideParentOrder; }

    // The parameters that the script takes; of two definitions of one name the later is looked up. The spec
    // owns them. Who has the list by its non-const form may change it and what is in it at any time, and
    // every look-up sees the change; a null pointer in it is passed over. Look-ups are quick but for the
    // first one after a change, which indexes the names. They may come from several threads while nobody
    // changes the spec. Add stores a copy; a name that is taken already is logged and refused with false. Set
    // stores copies in place of the definitions held, each by way of Add.
    const Definitions& GetScriptParameterDefinitions() const { return _scriptParameters.Get(); }
    Definitions& GetScriptParameterDefinitions() { return _scriptParameters.Get(); }
    nxKestrumParameterDefinition*
    GetScriptParameterDefinition(const std::string& name) const; // null: unknown
    void SetScriptParameterDefinitions(const Definitions& definitions);
    bool AddScriptParameterDefinition(const nxKestrumParameterDefinition& definition);
    void ClearScriptParameterDefinitions() { _scriptParameters.Clear(); }

    // The same for those that it produces.
    const Definitions& GetScriptOutputParameterDefinitions() const { return _outputParameters.Get(); }
    Definitions& GetScriptOutputParameterDefinitions() { return _outputParameters.Get(); }
    nxKestrumParameterDefinition* GetScriptOutputParameterDefinition(const std::string& name) const;
    void SetScriptOutputParameterDefinitions(const Definitions& definitions);
    bool AddScriptOutputParameterDefinition(const nxKestrumParameterDefinition& definition);
    void ClearScriptOutputParameterDefinitions() { _outputParameters.Clear(); }

    // None is null. Set and Add store copies, Set without null pointers; Add is always true.
    const Limits& GetLimits() const { return _limits.Get(); }
    void SetLimits(const Limits& limits) { _limits.Assign(limits); }
    bool AddLimit(const nxKestrumLimit& limit);
    void ClearLimits() { _limits.Clear(); }

    const std::set<std::string>& GetModules() const { return _modules; }
    void SetModules(const std::set<std::string>& modules) { _modules = modules; }
    bool AddModule(const std::string& name); // always true, also for a name that is there already
    void ClearModules() { _modules.clear(); }

    // Splits a user string into names and value texts, in place of what `out` holds; of two pairs of one name
    // the later counts. nxErrorEnum::InvalidData for a malformed string, with the pairs before the fault in
    // `out`, none of whose texts may be `text`.
    static nxErrorEnum ExtractParametersFromUserString(const std::string& text,
                                                       std::map<std::string, std::string>& out);
    // Appends a typed parameter to `out` for each pair; the caller owns them, also those that came before a
    // failure. Names are looked up among the script's parameters first, then the engine's.
    // nxErrorEnum::InvalidData for a malformed string and for an unknown name; a value that does not parse
    // gives the parser's failure, with its parameter, null, in `out`.
    nxErrorEnum ExtractParametersFromUserString(const std::string& text,
                                                std::vector<nxKestrumParameter*>& out) const;
    // Appends a pair to `text` for each parameter that is not null. Always OK: it is for the caller to keep
    // "=" out of names and the byte 0x01 out of text values, which would be read as other pairs.
    static nxErrorEnum AddParametersToUserString(const std::vector<nxKestrumParameter*>& parameters,
                                                 std::string& text);
    static nxErrorEnum AddParametersToUserString(const std::vector<const nxKestrumParameter*>& parameters,
                                                 std::string& text);
    // Whether every mandatory parameter of the script is there and not null. If not, `errorText` names one
    // that is missing; else it is empty.
    bool ValidateParameters(const std::vector<nxKestrumParameter*>& parameters, std::string& errorText) const;

protected:
    const nxKestrumParameterDefinition* _GetSystemParameterDefinition(const std::string& name) const;

private:
    struct Fields;
    struct SystemParameters;
    static const SystemParameters& _TheSystemParameters();
    static nxErrorEnum _ExtractParameter(const nxKestrumParameterDefinition& definition,
                                         bool isSystemParameter, const std::string& value,
                                         std::vector<nxKestrumParameter*>& out);

    static const bool _registered;

    std::string _scriptSourceCode;
    nxKestrumDefinitionList _scriptParameters;
    nxSyntheticOrderTypeEnum _syntheticOrderType = nxSyntheticOrderTypeEnum::KestrumAlgorithm;
    nxOwnedItems<nxKestrumLimit> _limits;
    std::set<std::string> _modules; // names
    nxKestrumDefinitionList _outputParameters;
    bool _hideParentOrder = false;
};
