// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXMLTree.h"

#include <string_view>

// A fast way into an nxXMLTree for the documents that there are nearly always: well-formed XML 1.0 in UTF-8
// without a DOCTYPE. The parser is the judge of everything else, of each error too: the scanner has no
// opinion on what it does not positively know to be well-formed. Private to the library.
namespace nxXMLScanner {
    // Fills the tree from a text that outlives it, as the parser would. False, with the tree empty, for a
    // text that only the parser can judge. After std::bad_alloc the tree holds a part of the document.
    bool Fill(nxXMLTree& tree, std::string_view utf8);
} // namespace nxXMLScanner
