// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <xercesc/util/XMLString.hpp>

// Owns a text that the parser transcoded to the local code page. For the parser's own messages only: the
// transcoder replaces what it cannot convert, so data goes through nxXMLText.
class StrX {
public:
    explicit StrX(const XMLCh* text) : _text(xercesc::XMLString::transcode(text)) {}
    ~StrX() { xercesc::XMLString::release(&_text); }
    StrX(const StrX&) = delete;
    StrX& operator=(const StrX&) = delete;

    const char* Get() const { return _text ? _text : "NULL"; }

private:
    char* _text;
};
