// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"
#include "include/nxWriteLog.h"
#include "xmlFramework/nxXMLFrameworkExport.h"
#include "xmlFramework/xml/nxXMLDescription.h"
#include "xmlFramework/xml/nxXMLItem.h"
#include "xmlFramework/xml/nxXMLSink.h"
#include "xmlFramework/xml/nxXMLTree.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

class nxXMLElement;
class nxXMLNotes;

// Between records and what their texts come from and go to. For records: see nxXMLRecord.h.
namespace nxXMLConversion {
    // What a record says of itself where it reads a document.
    struct Source {
        const char* root; // its document element's name
        nxLogSite site;
        const std::string& logPrefix; // for the record's own messages
        const char* message;          // logged, behind the prefix, when the text is no document
    };

    // A document while a record is read from it.
    class XMLFRAMEWORK_API Reading {
    public:
        Reading(const std::string& xml, const Source& source);
        ~Reading();
        Reading(const Reading&) = delete;
        Reading& operator=(const Reading&) = delete;

        const nxErrorEnum& GetResult() const { return _result; } // of parsing the text
        nxXMLNode GetRoot() const { return _tree.GetRoot(); }
        const nxXMLReadContext& GetContext() const { return _context; }
        // Tells what came of it to who listens.
        void Report() const;

    private:
        const Source& _source;
        nxXMLTree _tree;
        std::unique_ptr<nxXMLNotes> _notes; // when somebody listens
        nxXMLReadContext _context;
        nxErrorEnum _result;
    };

    // Reads a record: parses the text and hands the root to read(node, context), whose result it is. For a
    // text that is no document, `failed(result)`, nothing having been read.
    template <class Read, class Failed>
    nxErrorEnum ReadDocument(const std::string& xml, const Source& source, Read read, Failed failed) {
        const Reading reading(xml, source);
        if (!reading.GetResult().IsOK())
            return failed(reading.GetResult());
        const nxErrorEnum result = read(reading.GetRoot(), reading.GetContext());
        reading.Report();
        return result;
    }
    // The same, with nxErrorEnum::InvalidData for a text that is no document.
    template <class Read>
    nxErrorEnum ReadDocument(const std::string& xml, const Source& source, Read read) {
        return ReadDocument(xml, source, read,
                            [](const nxErrorEnum&) -> nxErrorEnum { return nxErrorEnum::InvalidData; });
    }

    // Writes a document to `xmlOut`: a root element of that name with what `fill` writes in it. On failure
    // `xmlOut` is untouched: nxErrorEnum::XMLTextNotCarried, logged, when something cannot be carried.
    XMLFRAMEWORK_API nxErrorEnum Save(std::string_view rootName, std::string& xmlOut,
                                      const std::function<void(nxXMLSink& sink)>& fill);

    // An element of a user's as a tree, and what writes below it.
    XMLFRAMEWORK_API void LoadElement(nxXMLTree& tree, const nxXMLElement& element);
    XMLFRAMEWORK_API nxErrorEnum SaveBelow(const nxXMLElement& element,
                                           const std::function<void(nxXMLSink& sink)>& fill);

    // Items that users read from and write to elements of their own.
    template <class Item>
    nxErrorEnum ReadElement(Item& item, const nxXMLElement& element, const std::string& logPrefix) {
        nxXMLTree tree;
        LoadElement(tree, element);
        return nxXMLItem::Read(item, tree.GetRoot(), {logPrefix});
    }
    template <class Item>
    nxErrorEnum WriteElement(Item& item, const nxXMLElement& element) {
        return SaveBelow(element, [&item](nxXMLSink& sink) { nxXMLItem::Write(item, sink); });
    }
} // namespace nxXMLConversion
