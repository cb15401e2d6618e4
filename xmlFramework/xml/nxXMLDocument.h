// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"
#include "xmlFramework/nxXMLFrameworkExport.h"
#include "xmlFramework/xml/nxXMLElement.h"

#include <memory>
#include <string>

class nxXMLTree;

// One XML 1.0 document: empty at first, then loaded or created, read and built through its elements, and
// saved.
//
// Texts are UTF-8, whatever the locale. Nothing from outside is read: a document with a DOCTYPE of any kind
// is refused, and so is a path that names something else than a local file. Problems are logged at
// nxLogLevelEnum::Error where they are found; nothing is thrown but std::bad_alloc, after which the document
// is as it was. Used by one thread at a time; different documents are independent.
class XMLFRAMEWORK_API nxXMLDocument {
public:
    // Elements nested more deeply than this are loaded, but not saved: the serialiser works recursively.
    static constexpr unsigned int MaxSavedDepth = 1024;

    nxXMLDocument();
    virtual ~nxXMLDocument();
    nxXMLDocument(const nxXMLDocument&) = delete;
    nxXMLDocument& operator=(const nxXMLDocument&) = delete;

    // Loads replace the document when they succeed, and leave it, and all handles on it, as they were when
    // they fail. Once anything was reported against a text on this object, every later load fails: use a
    // fresh object each time. A text may be in any encoding that its byte-order mark or its XML declaration
    // tells.
    //
    // nxErrorEnum::XMLParseFailed: the bytes are no text in their encoding, the text is not well-formed, the
    // parser had something to say against it, or it would take the parser minutes (see docs/xml.md). Also
    // when the process is ending and the parser is gone, which a thread that goes on may see.
    // nxErrorEnum::XMLNoDocumentParsed: the file could not be read, or the parser gave it up at once and
    // there was no document before. `path` is a file name or a "file:///" URI.
    [[nodiscard]] nxErrorEnum LoadFromFile(const std::string& path);
    [[nodiscard]] nxErrorEnum LoadFromFile(const std::wstring& path);
    [[nodiscard]] nxErrorEnum LoadFromString(const std::string& xml);
    // Reads the whole file into `contents`, with CR LF made LF, and loads that. nxErrorEnum::InputNotUsable,
    // with `contents` empty and nothing logged, when the file cannot be opened. It must not be the path.
    [[nodiscard]] nxErrorEnum LoadFromFileViaString(const std::string& path, std::string& contents);

    // Makes a document with an empty root element. nxErrorEnum::XMLDocumentNotCreatable when there is a
    // document already, or the process is ending and the parser is gone; nxErrorEnum::XMLTextNotCarried for a
    // root name that is no XML name.
    [[nodiscard]] nxErrorEnum CreateDocument(const std::string& rootName);

    // A handle on the root element; invalid when there is no document.
    nxXMLElement GetRootElement() const;

    // The root element without XML declaration, byte-order mark, indentation, or line ends other than those
    // within its texts and comments. What it says reads back the same, line ends and blanks included.
    //
    // nxErrorEnum::XMLDocumentMissing: there is nothing to save.
    // nxErrorEnum::XMLTextNotCarried: the document was given a text that XML cannot carry (see nxXMLElement).
    // nxErrorEnum::XMLTooDeep: the elements are nested more than MaxSavedDepth deep.
    // nxErrorEnum::XMLWriteFailed: the file could not be written.
    // On failure `xmlOut` is untouched, and so is a file that was there before.
    [[nodiscard]] nxErrorEnum SaveToString(std::string& xmlOut);
    [[nodiscard]] nxErrorEnum SaveToFile(const std::string& path);
    [[nodiscard]] nxErrorEnum SaveToFile(const std::wstring& path);
    // SaveToString into `contents`, which must not be the path, then SaveToFileViaExistingString.
    [[nodiscard]] nxErrorEnum SaveToFileViaString(const std::string& path, std::string& contents);
    // Writes `contents` to the file as it stands; nxErrorEnum::XMLTextNotCarried when it is no UTF-8 text
    // that XML can carry.
    [[nodiscard]] nxErrorEnum SaveToFileViaExistingString(const std::string& path,
                                                          const std::string& contents);

private:
    friend struct nxXMLTreeLoader;
    struct State;

    // As LoadFromString, but into a tree; the document held stays.
    nxErrorEnum _LoadTree(const std::string& xml, nxXMLTree& tree);

    std::unique_ptr<State> _state;
};
