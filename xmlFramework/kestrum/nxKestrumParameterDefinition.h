// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxKestrumParameterTypeEnum.h"
#include "include/nxErrorEnum.h"
#include "xmlFramework/nxXMLFrameworkExport.h"
#include "xmlFramework/xml/nxXMLElement.h"

#include <atomic>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class nxXMLNode;
class nxXMLSink;
struct nxXMLFieldDescription;
struct nxXMLItem;
struct nxXMLReadContext;

// Declares one parameter that a Kestrum algorithm's script takes or produces.
class XMLFRAMEWORK_API nxKestrumParameterDefinition {
public:
    nxKestrumParameterDefinition() = default; // optional and read-only
    // Read-only, too: a definition is so until SetReadOnly or a document says otherwise.
    nxKestrumParameterDefinition(const std::string& name, const nxKestrumParameterTypeEnum& type,
                                 bool optional);
    nxKestrumParameterDefinition(const nxKestrumParameterDefinition&) = default;
    nxKestrumParameterDefinition(nxKestrumParameterDefinition&&) noexcept = default;
    nxKestrumParameterDefinition& operator=(const nxKestrumParameterDefinition&) = default;
    nxKestrumParameterDefinition& operator=(nxKestrumParameterDefinition&&) noexcept = default;
    virtual ~nxKestrumParameterDefinition();
    bool operator==(const nxKestrumParameterDefinition&) const = default;

    // A copy, which the caller owns.
    nxKestrumParameterDefinition* CopyInstance() const;

    const std::string& GetName() const { return _name; }
    const nxKestrumParameterTypeEnum& GetParameterType() const { return _parameterType; }
    bool GetOptional() const { return _optional; }
    bool GetIsSystemParameter() const { return _isSystemParameter; }
    bool GetReadOnly() const { return _readOnly; }
    const std::string& GetDescription() const { return _description; }
    // The only values allowed, in order; empty when any value is.
    const std::vector<std::string>& GetValidValues() const { return _validValues; }

    void SetName(const std::string& name) {
        _nameWatch.Report();
        _name = name;
    }
    void SetParameterType(const nxKestrumParameterTypeEnum& type) { _parameterType = type; }
    void SetOptional(bool optional) { _optional = optional; }
    void SetReadOnly(bool readOnly) { _readOnly = readOnly; }
    void SetDescription(const std::string& description) { _description = description; }
    void SetValidValues(const std::vector<std::string>& validValues) { _validValues = validValues; }

    // The definition as child elements of `element`. Stops at the first child that cannot be added, and
    // returns why.
    [[nodiscard]] nxErrorEnum ConvertToXML(nxXMLElement& element) const;
    // Name, type and "Optional" must be there: without one of them nxErrorEnum::ValueNotFound or
    // ValueNotParsed is returned, with the fields before it taken. Other fields keep their value where their
    // element is missing or malformed; valid values are added to those held.
    [[nodiscard]] nxErrorEnum ConvertFromXML(nxXMLElement& element);

protected:
    friend class nxKestrumAlgorithmSpec; // it knows the system parameters
    nxKestrumParameterDefinition(const std::string& name, const nxKestrumParameterTypeEnum& type,
                                 bool optional, bool isSystemParameter);

private:
    friend class nxKestrumDefinitionList; // it finds definitions by name
    friend nxXMLItem;
    struct Fields;

    nxErrorEnum _Read(const nxXMLNode& node, const nxXMLReadContext& context);
    void _Write(nxXMLSink& sink) const;
    static std::vector<nxXMLFieldDescription> _Describe();

    // Tells the index that has the definition under its name that this may not be its name any more. It
    // belongs to the object and not to its value: it is not copied, and all are equal.
    class NameWatch {
    public:
        // Atomic, since a definition that has left its list may be changed on another thread.
        using Flag = std::atomic<bool>;

        NameWatch() = default;
        NameWatch(const NameWatch&) noexcept {}
        NameWatch(NameWatch&& other) noexcept { other.Report(); }
        NameWatch& operator=(const NameWatch& other) noexcept {
            if (this != &other)
                Report();
            return *this;
        }
        NameWatch& operator=(NameWatch&& other) noexcept {
            Report();
            other.Report();
            return *this;
        }
        ~NameWatch() { Report(); }
        bool operator==(const NameWatch& /*other*/) const { return true; }

        // The flag is set from the next report on. An index that watched so far gets its report now.
        void Start(std::shared_ptr<Flag> isOutdated) noexcept {
            Report();
            _isOutdated = std::move(isOutdated);
        }
        void Report() noexcept {
            if (_isOutdated)
                _isOutdated->store(true, std::memory_order_relaxed);
        }

    private:
        std::shared_ptr<Flag> _isOutdated; // null: in no index
    };

    NameWatch _nameWatch; // the first member: its report goes before any change
    std::string _name;
    nxKestrumParameterTypeEnum _parameterType;
    bool _optional = true;
    bool _isSystemParameter = false;
    bool _readOnly = true;
    std::string _description;
    std::vector<std::string> _validValues;
};
