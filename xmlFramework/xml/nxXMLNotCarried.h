// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <xercesc/dom/DOMElement.hpp>

#include <string>

// What could not be put into a document. Records mostly ignore the result of a single add, so the document
// remembers it and says so when it is saved.
namespace nxXMLNotCarried {
    // Remembers, in the element's document, that something for `element` was refused. The first note stays.
    void Note(const xercesc::DOMElement& element, const std::string& description);
    // The note; empty when nothing was refused.
    std::string Find(const xercesc::DOMDocument& document);
} // namespace nxXMLNotCarried
