// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLConversion.h"

#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLDOMTree.h"
#include "xmlFramework/xml/nxXMLDocument.h"
#include "xmlFramework/xml/nxXMLElementSink.h"
#include "xmlFramework/xml/nxXMLNotes.h"
#include "xmlFramework/xml/nxXMLReport.h"
#include "xmlFramework/xml/nxXMLScanner.h"
#include "xmlFramework/xml/nxXMLSession.h"
#include "xmlFramework/xml/nxXMLTextSink.h"

#include <sys/mman.h>

#include <memory>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxXMLDocument";

    // Makes room for a text. Much room is asked for in huge pages: of usual ones there are so many that it
    // takes a fifth of the time to write the text until the system has handed out all of them.
    void Reserve(std::string& text, std::size_t size) {
        text.reserve(size);
#ifdef MADV_HUGEPAGE
        constexpr std::size_t HugePage = std::size_t{2} << 20U;
        void* begin = text.data();
        std::size_t room = text.capacity();
        if (std::align(HugePage, HugePage, begin, room))
            madvise(begin, room, MADV_HUGEPAGE); // a hint: without them it goes on as usual
#endif
    }
} // namespace

namespace {
    // What the parser's own words leave open of a text that is no document.
    void Explain(nxXMLReport& report, std::string_view xml) {
        if (report.GetFindings().empty()) // something was thrown
            return report.AddNotWellFormed(1, 1, "the parser refuses the document: see the log");
        // The parser calls it an invalid structure, and stands behind the word.
        constexpr std::string_view Doctype = "<!DOCTYPE";
        const std::size_t found = xml.find(Doctype);
        if (found == std::string_view::npos || report.GetFindings().size() > 1)
            return;
        const nxXMLPlace behind = nxXMLPlaces(xml).Of(xml.data() + found + Doctype.size());
        const nxXMLFinding finding = report.GetFindings().front();
        if (finding.line != behind.line || finding.column != behind.column)
            return;
        report.Clear();
        report.AddNotWellFormed(finding.line, finding.column - Doctype.size(), "a DOCTYPE is not allowed");
    }
} // namespace

// The way from here into the document, which works with the parser.
struct nxXMLTreeLoader {
    static nxErrorEnum Load(const std::string& xml, nxXMLTree& tree) {
        return nxXMLDocument()._LoadTree(xml, tree);
    }
};

nxXMLConversion::Reading::Reading(const std::string& xml, const Source& source)
    : _source(source),
      _notes(nxXMLReport::GetListening() ? std::make_unique<nxXMLNotes>() : nullptr), _context{
                                                                                          source.logPrefix,
                                                                                          _notes.get()} {
    if (_notes)
        _tree.WatchLostTexts();
    if (NX_HAS_SCANNER && nxXMLScanner::Fill(_tree, xml)) {
        nxXMLSession::Get().NextBufferNumber(); // so that later messages of the parser have the same numbers
        return;
    }
    _result = nxXMLTreeLoader::Load(xml, _tree);
    if (_result.IsOK())
        return;
    nxWriteLog(source.site, source.logPrefix, source.message);
    if (nxXMLReport* const report = nxXMLReport::GetListening())
        Explain(*report, xml);
}

nxXMLConversion::Reading::~Reading() = default;

void nxXMLConversion::Reading::Report() const {
    if (_notes)
        _notes->Report(_tree, _source.root, *nxXMLReport::GetListening());
}

nxErrorEnum nxXMLConversion::Save(std::string_view rootName, std::string& xmlOut,
                                  const std::function<void(nxXMLSink& sink)>& fill) {
    std::string text;
    Reserve(text, xmlOut.size()); // mostly the same document again
    nxXMLTextSink sink(text);
    sink.Start(rootName);
    fill(sink);
    sink.End();
    if (!sink.IsOK()) {
        nxWriteLog({nxLogLevels::Error, SourceFile},
                   "Error saving document: in memory \nException message is:  \n", sink.GetProblem(), "\n");
        return sink.GetResult();
    }
    sink.Flush();
    xmlOut.swap(text);
    return nxErrorEnum::OK;
}

void nxXMLConversion::LoadElement(nxXMLTree& tree, const nxXMLElement& element) {
    nxXMLDOMTree::Fill(tree, element.GetElement());
}

nxErrorEnum nxXMLConversion::SaveBelow(const nxXMLElement& element,
                                       const std::function<void(nxXMLSink& sink)>& fill) {
    nxXMLElementSink sink(element);
    fill(sink);
    return sink.GetResult();
}
