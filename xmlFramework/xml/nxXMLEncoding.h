// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXMLTree.h"

#include <string>
#include <string_view>

// The encodings of documents, each of which becomes UTF-8 before anything else looks at it. Strict: what is
// not valid is refused, never replaced or passed over.
namespace nxXMLEncoding {
    struct Problem {
        std::string description;
        nxXMLPlace place; // of what is no text; zeros where it is the name of the encoding
        // Where the name of the encoding is at fault: a document of the same declaration, in the same bytes,
        // and an empty element. The parser has words of its own for most such names.
        std::string declaration;
    };

    // The text of a document in UTF-8, without byte-order mark: a part of `bytes` when these are UTF-8
    // already, else `converted`. What encoding they are in is told as appendix F of XML 1.0 has it: by a
    // byte-order mark, by the first characters, and by the XML declaration, which must not contradict.
    //
    // False, with `utf8` untouched, for an encoding that is not known or contradicted, for bytes that are no
    // valid text in it, its end included, for a second byte-order mark and for NUL, which no XML has.
    bool ToUTF8(std::string_view bytes, std::string& converted, std::string_view& utf8, Problem& problem);
} // namespace nxXMLEncoding
