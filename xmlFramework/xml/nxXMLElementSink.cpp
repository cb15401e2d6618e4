// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLElementSink.h"

void nxXMLElementSink::_Take(const nxErrorEnum& result) {
    if (!result.IsOK())
        _Fail(result);
}

void nxXMLElementSink::Start(std::string_view name) {
    _open.push_back(_open.back().AddChildElement(name));
    if (!_open.back().IsValid())
        _Fail(nxErrorEnum::ValueNotFound);
}

void nxXMLElementSink::Attribute(std::string_view name, std::string_view value) {
    _Take(_open.back().SetAttribute(name, value));
}

void nxXMLElementSink::Field(std::string_view name, std::string_view text) {
    _Take(_open.back().AddChildValue(name, text));
}

void nxXMLElementSink::End() {
    _open.pop_back();
}
