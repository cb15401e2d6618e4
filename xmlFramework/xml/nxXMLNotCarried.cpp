// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLNotCarried.h"

#include "xmlFramework/xml/nxXMLMemory.h"
#include "xmlFramework/xml/nxXMLText.h"

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMText.hpp>

namespace {
    // The note is a text node outside the tree, which the document's own memory holds. It is only attached
    // when there is something to note: a document with user data takes many times as long to release.
    constexpr const XMLCh* Key = u"nxXMLNotCarried";
} // namespace

void nxXMLNotCarried::Note(const xercesc::DOMElement& element, const std::string& description) {
    xercesc::DOMDocument& document = *element.getOwnerDocument();
    if (document.getUserData(Key))
        return;

    std::string name;
    nxXMLTextOut::Convert(element.getTagName(), name);
    const nxXMLText note(description + ", in element '" + name + "'");
    nxXMLMemory::Guarded([&] { document.setUserData(Key, document.createTextNode(note.Get()), nullptr); });
}

std::string nxXMLNotCarried::Find(const xercesc::DOMDocument& document) {
    std::string note;
    if (const auto* const node = static_cast<const xercesc::DOMText*>(document.getUserData(Key)))
        nxXMLTextOut::Convert(node->getData(), note);
    return note;
}
