// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"
#include "xmlFramework/nxXMLFrameworkExport.h"

#include <string_view>

// What records write themselves to, element by element in the order of their document. For records:
// see nxXMLRecord.h.
//
// Names of fields and attributes are the record's own and must be XML names. A name that is made of data may
// be none: it is Start that looks. Once something could not be carried, what follows may be dropped; nobody
// need ask before the end.
class XMLFRAMEWORK_API nxXMLSink {
public:
    nxXMLSink() = default;
    nxXMLSink(const nxXMLSink&) = delete;
    nxXMLSink& operator=(const nxXMLSink&) = delete;
    virtual ~nxXMLSink() = default;

    // Begins an element: all that follows, up to its End, stands in it. Attributes come first. The name must
    // stay where it is until then.
    virtual void Start(std::string_view name) = 0;
    virtual void Attribute(std::string_view name, std::string_view value) = 0;
    // An element with nothing but a text, which may be empty.
    virtual void Field(std::string_view name, std::string_view text) = 0;
    virtual void End() = 0;

    bool IsOK() const { return _isOK; }
    // nxErrorEnum::XMLTextNotCarried for a name or a text that XML cannot carry.
    const nxErrorEnum& GetResult() const { return _result; }

protected:
    // The first failure stays.
    void _Fail(const nxErrorEnum& result) {
        if (_isOK)
            _result = result;
        _isOK = false;
    }

private:
    bool _isOK = true;
    nxErrorEnum _result;
};
