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

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxXMLDocument";

    // Appends to a text what is to take its place. What stood there comes back unless the new text is kept:
    // so the memory of a text that is written again and again is used again.
    class Replacement {
    public:
        explicit Replacement(std::string& text) : _text(text), _oldSize(text.size()) {
            _replacement.swap(text);
        }
        ~Replacement() {
            if (!_isKept)
                _replacement.resize(_oldSize); // never grows
            _text.swap(_replacement);
        }
        Replacement(const Replacement&) = delete;
        Replacement& operator=(const Replacement&) = delete;

        std::string& Get() { return _replacement; }
        void Keep() {
            _replacement.erase(0, _oldSize);
            _isKept = true;
        }

    private:
        std::string& _text;
        std::string _replacement;
        std::size_t _oldSize;
        bool _isKept = false;
    };
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
        nxXMLSession::NextBufferNumber(); // so that later messages of the parser have the same numbers
        return;
    }
    _result = nxXMLTreeLoader::Load(xml, _tree);
    if (!_result.IsOK())
        nxWriteLog(source.site, source.logPrefix, source.message);
}

nxXMLConversion::Reading::~Reading() = default;

void nxXMLConversion::Reading::Report() const {
    if (_notes)
        _notes->Report(_tree, _source.root, *nxXMLReport::GetListening());
}

nxErrorEnum nxXMLConversion::Save(std::string_view rootName, std::string& xmlOut,
                                  const std::function<void(nxXMLSink& sink)>& fill) {
    Replacement text(xmlOut);
    nxXMLTextSink sink(text.Get());
    sink.Start(rootName);
    fill(sink);
    sink.End();
    if (!sink.IsOK()) {
        nxWriteLog({nxLogLevels::Error, SourceFile},
                   "Error saving document: in memory \nException message is:  \n", sink.GetProblem(), "\n");
        return sink.GetResult();
    }
    sink.Flush();
    text.Keep();
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
