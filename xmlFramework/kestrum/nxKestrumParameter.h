// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxKestrumParameterTypeEnum.h"
#include "include/nxErrorEnum.h"
#include "xmlFramework/nxXMLFrameworkExport.h"

#include <string>

// One named value with which a Kestrum algorithm is started. The value's type follows from the parameter
// type; the value travels as text. Used by one thread at a time.
class XMLFRAMEWORK_API nxKestrumParameter {
public:
    nxKestrumParameter() = default;
    explicit nxKestrumParameter(const std::string& name) : _name(name) {}
    virtual ~nxKestrumParameter();

    // A copy, which the caller owns.
    virtual nxKestrumParameter* CopyInstance() const = 0;
    virtual nxKestrumParameterTypeEnum GetParameterType() const = 0;
    virtual bool IsNull() const = 0;
    virtual void SetNull() = 0;
    // The value's text; see nxKestrumParameterTemplate for the forms.
    virtual void PersistValueToString(std::string& out) const = 0;
    // Takes the value from its text. On failure the parameter is null, never half-set.
    virtual nxErrorEnum PersistValueFromString(const std::string& text) = 0;

    const std::string& GetName() const { return _name; }
    void SetName(const std::string& name) { _name = name; }
    // Whether the parameter is one of the engine's own ("$...").
    bool GetIsSystemParameter() const { return _isSystemParameter; }

    // A new parameter of the class for `type`, without name and null, which the caller owns. Null pointer,
    // with a line in the log, for a type without a class.
    static nxKestrumParameter* CreateInstance(const nxKestrumParameterTypeEnum& type);

protected:
    nxKestrumParameter(const nxKestrumParameter&) = default;
    nxKestrumParameter& operator=(const nxKestrumParameter&) = default;

    friend class nxKestrumAlgorithmSpec; // it knows the system parameters
    void SetIsSystemParameter(bool isSystemParameter) { _isSystemParameter = isSystemParameter; }

private:
    std::string _name;
    bool _isSystemParameter = false;
};
