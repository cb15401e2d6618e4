// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLConversion.h"

#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLDOMTree.h"
#include "xmlFramework/xml/nxXMLDocument.h"
#include "xmlFramework/xml/nxXMLElementSink.h"
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

// The way from here into the document, which works with the parser.
struct nxXMLTreeLoader {
    static nxErrorEnum Load(const std::string& xml, nxXMLTree& tree) {
        return nxXMLDocument()._LoadTree(xml, tree);
    }
};

nxErrorEnum nxXMLConversion::Load(nxXMLTree& tree, const std::string& xml, const nxLogSite& site,
                                  const std::string& logPrefix, const char* message) {
    if (NX_HAS_SCANNER && nxXMLScanner::Fill(tree, xml)) {
        nxXMLSession::Get().NextBufferNumber(); // so that later messages of the parser have the same numbers
        return nxErrorEnum::OK;
    }

    const nxErrorEnum result = nxXMLTreeLoader::Load(xml, tree);
    if (!result.IsOK())
        nxWriteLog(site, logPrefix, message);
    return result;
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
