// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXercesForward.h"

class nxXMLTree;

namespace nxXMLDOMTree {
    // Fills the tree from an element of the parser's. Nothing of the element is needed afterwards. An empty
    // tree for null.
    void Fill(nxXMLTree& tree, const nxXerces::DOMElement* root);
} // namespace nxXMLDOMTree
