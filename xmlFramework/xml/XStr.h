// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <xercesc/util/XMLString.hpp>

// Owns a text that the parser transcoded from the local code page. For names that only show up in messages:
// see StrX.
class XStr {
public:
    explicit XStr(const char* text) : _text(xercesc::XMLString::transcode(text)) {}
    ~XStr() { xercesc::XMLString::release(&_text); }
    XStr(const XStr&) = delete;
    XStr& operator=(const XStr&) = delete;

    const XMLCh* Get() const { return _text; }

private:
    XMLCh* _text;
};
