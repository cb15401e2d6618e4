// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXMLElement.h"
#include "xmlFramework/xml/nxXMLSink.h"

#include <vector>

// Adds to an element of a user's document. What cannot be carried is left out, the rest goes on, and the
// document remembers (see nxXMLElement). Below an invalid handle nothing is added:
// nxErrorEnum::ValueNotFound.
class nxXMLElementSink final : public nxXMLSink {
public:
    explicit nxXMLElementSink(const nxXMLElement& element) : _open{element} {}

    void Start(std::string_view name) override;
    void Attribute(std::string_view name, std::string_view value) override;
    void Field(std::string_view name, std::string_view text) override;
    void End() override;

private:
    void _Take(const nxErrorEnum& result);

    std::vector<nxXMLElement> _open; // the innermost last
};
