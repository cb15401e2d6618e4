// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLDocument.h"

#include "core/nxFileHelper.h"
#include "core/nxStringHelper.h"
#include "include/nxLogLevels.h"
#include "include/nxWriteLog.h"
#include "xmlFramework/xml/StrX.h"
#include "xmlFramework/xml/XStr.h"
#include "xmlFramework/xml/nxDOMErrorHandler.h"
#include "xmlFramework/xml/nxFilePath.h"
#include "xmlFramework/xml/nxXMLEncoding.h"
#include "xmlFramework/xml/nxXMLLimits.h"
#include "xmlFramework/xml/nxXMLMemory.h"
#include "xmlFramework/xml/nxXMLNotCarried.h"
#include "xmlFramework/xml/nxXMLReport.h"
#include "xmlFramework/xml/nxXMLSession.h"
#include "xmlFramework/xml/nxXMLText.h"
#include "xmlFramework/xml/nxXMLTreeParser.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/Wrapper4InputSource.hpp>
#include <xercesc/framework/XMLFormatter.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <algorithm>
#include <array>
#include <string_view>

using namespace xercesc;

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxXMLDocument";

    struct Releaser {
        template <class Node>
        void operator()(Node* node) const {
            node->release();
        }
    };
    template <class Node>
    using Released = std::unique_ptr<Node, Releaser>;

    // What a failed operation says in the log, around the file name or the text that it worked on.
    struct FailureTexts {
        const char* operation;
        const char* open;
        const char* closeXML;
        const char* closeDOM;
        const char* closeOther;
    };
    constexpr FailureTexts ParsingFile{"during parsing", ": '", "'\n", "'\n", "'"};
    constexpr FailureTexts ParsingString{"during parsing of string", ": ", " \n", "\n", "\n"};
    constexpr FailureTexts Saving{"saving document", ": ", " \n", "\n", "\n"};
    constexpr char NoPath[] = "the path is no Unicode text";

    // What a load parses.
    struct Input {
        const std::string& text;
        const std::string& name;    // what the parser's messages call it
        const std::string& subject; // what the log shows when the parser throws
        const FailureTexts& texts;
        bool isFile;
    };

    template <class Message>
    void LogFailure(const FailureTexts& texts, const std::string& subject, const Message& message) {
        nxWriteLog({nxLogLevels::Error, SourceFile}, "Error ", texts.operation, texts.open, subject,
                   texts.closeXML, "Exception message is:  \n", message, "\n");
    }

    void LogDOMFailure(const FailureTexts& texts, const std::string& subject, const DOMException& error) {
        nxWriteLog({nxLogLevels::Error, SourceFile}, "\nDOM Error ", texts.operation, texts.open, subject,
                   texts.closeDOM, "DOMException code is:  ", error.code);

        std::array<XMLCh, 2048> text{};
        if (nxLogManager::ShouldLog(nxLogLevels::Error) &&
            DOMImplementation::loadDOMExceptionMsg(error.code, text.data(), text.size() - 1))
            nxWriteLog({nxLogLevels::Error, SourceFile}, "Message is: ", StrX(text.data()).Get());
    }

    // To be called in a handler: says what was thrown. Exhausted memory is not for the log to say.
    void LogCurrentException(const FailureTexts& texts, const std::string& subject) {
        try {
            throw;
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const OutOfMemoryException&) {
            throw;
        } catch (const XMLException& error) {
            LogFailure(texts, subject, [&error] { return std::string(StrX(error.getMessage()).Get()); });
        } catch (const DOMException& error) {
            LogDOMFailure(texts, subject, error);
        } catch (...) {
            nxWriteLog({nxLogLevels::Error, SourceFile}, "\nUnexpected exception ", texts.operation,
                       texts.open, subject, texts.closeOther);
        }
    }

    DOMImplementation* Implementation(const XMLCh* feature) {
        return DOMImplementationRegistry::getDOMImplementation(feature);
    }

    void Configure(const Released<DOMLSParser>& parser, nxDOMErrorHandler& handler) {
        DOMConfiguration* const configuration = parser->getDomConfig();
        configuration->setParameter(XMLUni::fgDOMNamespaces, false);
        configuration->setParameter(XMLUni::fgXercesSchema, false);
        configuration->setParameter(XMLUni::fgXercesSchemaFullChecking, false);
        configuration->setParameter(XMLUni::fgDOMValidateIfSchema, true);
        configuration->setParameter(XMLUni::fgDOMDatatypeNormalization, true);
        // The library reads what it is handed and nothing else; no platform document has a DOCTYPE.
        configuration->setParameter(XMLUni::fgDOMDisallowDoctype, true);
        configuration->setParameter(XMLUni::fgXercesDisableDefaultEntityResolution, true);
        // So that the document outlives its parser.
        configuration->setParameter(XMLUni::fgXercesUserAdoptsDOMDocument, true);
        configuration->setParameter(XMLUni::fgDOMErrorHandler, &handler);
    }

    // Whether elements are nested more than `levels` deep. Goes no deeper itself.
    bool IsNestedDeeper(const DOMNode& element, unsigned int levels) {
        if (levels == 0)
            return true;
        for (const DOMNode* child = element.getFirstChild(); child; child = child->getNextSibling()) {
            if (child->getNodeType() == DOMNode::ELEMENT_NODE && IsNestedDeeper(*child, levels - 1))
                return true;
        }
        return false;
    }

    // The parser counts columns in UTF-16, where a character may be two of them.
    std::size_t ColumnInCharacters(std::string_view text, std::size_t line, std::size_t column) {
        for (; line > 1 && !text.empty(); --line) {
            text.remove_prefix(std::min(text.find_first_of("\r\n"), text.size()));
            text.remove_prefix(std::min<std::size_t>(text.starts_with("\r\n") ? 2 : 1, text.size()));
        }
        std::size_t units = 1;
        std::size_t characters = 1;
        for (const char c : text.substr(0, 3 * column)) { // three bytes a unit at most
            const auto byte = static_cast<unsigned char>(c);
            if (units >= column)
                break;
            if ((byte & 0xC0U) == 0x80U) // within a character
                continue;
            units += byte >= 0xF0 ? 2U : 1U;
            ++characters;
        }
        return units >= column ? characters : column;
    }

    // Tells who listens what the parser's own words leave open of a text that is no document.
    void Explain(nxXMLReport& report, std::string_view text) {
        if (report.GetFindings().empty()) // something was thrown
            return report.AddNotWellFormed(1, 1, "the parser refuses the document: see the log");
        const std::vector<nxXMLFinding> findings = report.GetFindings();
        report.Clear();
        for (nxXMLFinding finding : findings) {
            if (finding.line > 0) // else its place is not known
                finding.column = ColumnInCharacters(text, finding.line, finding.column);
            report.Add(std::move(finding));
        }
        // The parser calls it an invalid structure, and stands behind the word.
        constexpr std::string_view Doctype = "<!DOCTYPE";
        const std::size_t found = text.find(Doctype);
        if (found == std::string_view::npos || report.GetFindings().size() > 1)
            return;
        const nxXMLPlace behind = nxXMLPlaces(text).Of(text.data() + found + Doctype.size());
        const nxXMLFinding finding = report.GetFindings().front();
        if (finding.line != behind.line || finding.column != behind.column)
            return;
        report.Clear();
        report.AddNotWellFormed(finding.line, finding.column - Doctype.size(), "a DOCTYPE is not allowed");
    }

    nxErrorEnum WriteFile(const std::string& path, const std::string& utf8) {
        std::string problem;
        if (nxFileHelper::Write(path, utf8, problem).IsOK())
            return nxErrorEnum::OK;
        LogFailure(Saving, path, problem);
        return nxErrorEnum::XMLWriteFailed;
    }

    // Collects what the serialiser writes.
    class StringTarget final : public XMLFormatTarget {
    public:
        void writeChars(const XMLByte* bytes, XMLSize_t count, XMLFormatter* /*formatter*/) override {
            _text.append(reinterpret_cast<const char*>(bytes), count);
        }
        void Write(std::string_view utf8) { _text += utf8; }
        std::string Take() { return std::move(_text); }

    private:
        std::string _text;
    };

    // Writes comments in the serialiser's place, which looks through all siblings of each, and refuses what
    // it would write although no document of XML 1.0 can hold it.
    class NodeFilter final : public DOMLSSerializerFilter {
    public:
        explicit NodeFilter(StringTarget& target) : _target(target) {}

        FilterAction acceptNode(const DOMNode* node) const override {
            if (node->getNodeType() != DOMNode::COMMENT_NODE)
                return AcceptInstruction(*node);
            std::string utf8;
            if (!nxXMLTextOut::Convert(node->getNodeValue(), utf8) || nxXMLText(utf8).GetProblem())
                _problem = "a comment cannot be carried by XML";
            _target.Write("<!--" + utf8 + "-->");
            return FILTER_REJECT;
        }
        ShowType getWhatToShow() const override {
            return DOMNodeFilter::SHOW_COMMENT | DOMNodeFilter::SHOW_PROCESSING_INSTRUCTION;
        }

        // Null, or what XML cannot carry.
        const char* GetProblem() const { return _problem; }

    private:
        // From a document of XML 1.1: as a target, the parser takes such a character there only.
        FilterAction AcceptInstruction(const DOMNode& instruction) const {
            const std::u16string_view target = instruction.getNodeName();
            if (std::ranges::any_of(target, [](char16_t unit) { return (unit & 0xF800U) == 0xD800U; }))
                _problem = "the name of an instruction cannot be carried by XML 1.0";
            return FILTER_ACCEPT;
        }

        StringTarget& _target;
        mutable const char* _problem = nullptr; // the parser library has acceptNode const
    };

    Released<DOMLSSerializer> CreateDOMSerialiser(DOMImplementation& implementation,
                                                  nxDOMErrorHandler& handler, NodeFilter& filter) {
        Released<DOMLSSerializer> serialiser(implementation.createLSSerializer());
        serialiser->setFilter(&filter);
        DOMConfiguration* const configuration = serialiser->getDomConfig();
        configuration->setParameter(XMLUni::fgDOMErrorHandler, &handler);

        constexpr std::pair<const XMLCh*, bool> Settings[] = {
            {XMLUni::fgDOMWRTSplitCdataSections, true},
            {XMLUni::fgDOMWRTDiscardDefaultContent, true},
            {XMLUni::fgDOMWRTFormatPrettyPrint, false},
            {XMLUni::fgDOMWRTBOM, false},
        };
        for (const auto& [parameter, value] : Settings) {
            if (configuration->canSetParameter(parameter, value))
                configuration->setParameter(parameter, value);
        }
        return serialiser;
    }
} // namespace

struct nxXMLDocument::State {
    // Loads the input in place of the document held, or into a tree.
    nxErrorEnum Load(const Input& input, nxXMLTree* tree = nullptr);
    nxErrorEnum ParseOrRefuse(const Input& input, nxXMLTree* tree);
    // Null when the parser threw, which is logged. Without an encoding the parser finds out by itself. A
    // document whose elements are in the tree has none.
    Released<DOMDocument> Parse(const Input& input, std::string_view bytes, const XMLCh* encoding,
                                nxXMLTree* tree);
    // What is found against an input before the parser sees it counts as if the parser had reported it.
    nxErrorEnum Refuse(const Input& input, const std::string& problem, const nxXMLPlace& place = {});
    // Says so in the log when there is one.
    nxErrorEnum StickyError() const;
    void Adopt(Released<DOMDocument> newDocument);
    nxErrorEnum Create(const std::string& rootName);
    nxErrorEnum Serialise(std::string& utf8, const std::string& subject);

    const nxXMLSession::Use parserUse; // before all that is the parser's
    nxDOMErrorHandler errorHandler;
    Released<DOMDocument> document;
    DOMElement* root = nullptr;
};

Released<DOMDocument> nxXMLDocument::State::Parse(const Input& input, std::string_view bytes,
                                                  const XMLCh* encoding, nxXMLTree* tree) {
    try {
        // A parser of its own for each load: one that has read XML 1.1 goes on with its rules.
        const Released<DOMLSParser> parser(
            tree ? new nxXMLTreeParser(*tree, bytes)
                 : Implementation(u"LS")->createLSParser(DOMImplementationLS::MODE_SYNCHRONOUS, nullptr));
        Configure(parser, errorHandler);
        MemBufInputSource buffer(reinterpret_cast<const XMLByte*>(bytes.data()), bytes.size(),
                                 XStr(input.name.c_str()).Get());
        if (encoding)
            buffer.setEncoding(encoding);
        const Wrapper4InputSource source(&buffer, false);
        return Released<DOMDocument>(parser->parse(&source));
    } catch (...) {
        LogCurrentException(input.texts, input.subject);
        return nullptr;
    }
}

nxErrorEnum nxXMLDocument::State::Refuse(const Input& input, const std::string& problem,
                                         const nxXMLPlace& place) {
    if (nxXMLReport* const report = nxXMLReport::GetListening())
        report->AddNotWellFormed(place.line, place.column, problem);
    LogFailure(input.texts, input.subject, problem);
    errorHandler.Remember();
    return StickyError();
}

nxErrorEnum nxXMLDocument::State::StickyError() const {
    if (!errorHandler.GetStickyError().IsOK())
        nxWriteLog({nxLogLevels::Error, SourceFile}, "Errors occurred, no output available");
    return errorHandler.GetStickyError();
}

nxErrorEnum nxXMLDocument::State::Load(const Input& input, nxXMLTree* tree) {
    const nxErrorEnum result = ParseOrRefuse(input, tree);
    nxXMLReport* const report = result.IsOK() ? nullptr : nxXMLReport::GetListening();
    if (report)
        Explain(*report, input.text);
    return result;
}

nxErrorEnum nxXMLDocument::State::ParseOrRefuse(const Input& input, nxXMLTree* tree) {
    if (!parserUse.IsGranted())
        return Refuse(input, "the process is ending");
    std::string converted;
    std::string_view utf8;
    nxXMLEncoding::Problem problem;
    const bool isText = nxXMLEncoding::ToUTF8(input.text, converted, utf8, problem);
    if (!isText && problem.declaration.empty())
        return Refuse(input, problem.description, problem.place);
    if (const char* const limit = nxXMLLimits::FindProblem(utf8))
        return Refuse(input, limit);

    if (tree)
        tree->Clear();
    if (tree && !converted.empty())
        utf8 = tree->Keep(utf8);
    Released<DOMDocument> parsed = isText ? Parse(input, utf8, XMLUni::fgUTF8EncodingString, tree)
                                          : Parse(input, problem.declaration, nullptr, nullptr);
    if (!parsed && input.isFile)
        return document ? nxErrorEnum::XMLParseFailed : nxErrorEnum::XMLNoDocumentParsed;
    if (const nxErrorEnum error = StickyError(); !error.IsOK())
        return error;
    if (!parsed)
        return nxErrorEnum::XMLParseFailed;
    if (!isText) // and the parser has no word against it
        return Refuse(input, problem.description);
    if (!tree)
        Adopt(std::move(parsed));
    return nxErrorEnum::OK;
}

void nxXMLDocument::State::Adopt(Released<DOMDocument> newDocument) {
    document = std::move(newDocument);
    root = document->getDocumentElement();
}

nxErrorEnum nxXMLDocument::State::Create(const std::string& rootName) {
    DOMImplementation* const implementation = parserUse.IsGranted() ? Implementation(u"Core") : nullptr;
    if (!implementation || document)
        return nxErrorEnum::XMLDocumentNotCreatable;

    const auto refuse = [&rootName] {
        nxWriteLog({nxLogLevels::Error, SourceFile}, "Error creating document '", rootName,
                   "': the name cannot be carried by XML");
        return nxErrorEnum::XMLTextNotCarried;
    };
    const nxXMLText name(rootName);
    if (name.GetProblem())
        return refuse();
    try {
        Released<DOMDocument> created(implementation->createDocument(nullptr, name.Get(), nullptr));
        if (!created)
            return nxErrorEnum::XMLDocumentNotCreated;
        Adopt(std::move(created));
        return nxErrorEnum::OK;
    } catch (const DOMException&) {
        return refuse();
    }
}

nxErrorEnum nxXMLDocument::State::Serialise(std::string& utf8, const std::string& subject) {
    if (!document || !root)
        return nxErrorEnum::XMLDocumentMissing;
    if (const std::string note = nxXMLNotCarried::Find(*document); !note.empty()) {
        LogFailure(Saving, subject, note);
        return nxErrorEnum::XMLTextNotCarried;
    }
    if (IsNestedDeeper(*root, MaxSavedDepth)) {
        LogFailure(Saving, subject, "the elements are nested too deeply");
        return nxErrorEnum::XMLTooDeep;
    }

    try {
        DOMImplementation& implementation = *Implementation(u"Core");
        StringTarget target;
        NodeFilter filter(target);
        const Released<DOMLSSerializer> serialiser =
            CreateDOMSerialiser(implementation, errorHandler, filter);
        const Released<DOMLSOutput> output(implementation.createLSOutput());
        output->setEncoding(XMLUni::fgUTF8EncodingString);
        output->setByteStream(&target);
        if (!serialiser->write(root, output.get()))
            return nxErrorEnum::XMLTextNotCarried; // the handler has said why
        if (filter.GetProblem()) {
            LogFailure(Saving, subject, filter.GetProblem());
            return nxErrorEnum::XMLTextNotCarried;
        }
        utf8 = target.Take();
        return nxErrorEnum::OK;
    } catch (const DOMLSException& error) { // something in the document is no XML 1.0
        LogDOMFailure(Saving, subject, error);
        return nxErrorEnum::XMLTextNotCarried;
    } catch (...) {
        LogCurrentException(Saving, subject);
        return nxErrorEnum::XMLWriteFailed;
    }
}

nxXMLDocument::nxXMLDocument() : _state(std::make_unique<State>()) {}

nxXMLDocument::~nxXMLDocument() = default;

nxErrorEnum nxXMLDocument::LoadFromFile(const std::string& path) {
    std::string text;
    std::string problem;
    if (!nxFileHelper::Read(nxFilePath::FromURI(path).value_or(path), text, problem).IsOK()) {
        LogFailure(ParsingFile, path, problem);
        return nxErrorEnum::XMLNoDocumentParsed;
    }
    const Input input{text, path, path, ParsingFile, true};
    return nxXMLMemory::Guarded([&] { return _state->Load(input); });
}

nxErrorEnum nxXMLDocument::LoadFromFile(const std::wstring& path) {
    std::string narrow;
    if (nxFilePath::FromWide(path, narrow))
        return LoadFromFile(narrow);
    LogFailure(ParsingFile, narrow, NoPath);
    return nxErrorEnum::XMLNoDocumentParsed;
}

nxErrorEnum nxXMLDocument::LoadFromString(const std::string& xml) {
    const Input input{xml, nxXMLSession::NextBufferName(), xml, ParsingString, false};
    return nxXMLMemory::Guarded([&] { return _state->Load(input); });
}

nxErrorEnum nxXMLDocument::_LoadTree(const std::string& xml, nxXMLTree& tree) {
    const Input input{xml, nxXMLSession::NextBufferName(), xml, ParsingString, false};
    return nxXMLMemory::Guarded([&] { return _state->Load(input, &tree); });
}

nxErrorEnum nxXMLDocument::LoadFromFileViaString(const std::string& path, std::string& contents) {
    contents.clear();
    std::string problem;
    const nxErrorEnum result = nxFileHelper::Read(path, contents, problem);
    if (!result.IsOK())
        return result;

    nxStringHelper::Replace(contents, "\r\n", "\n"); // the file counts as text
    return LoadFromString(contents);
}

nxErrorEnum nxXMLDocument::CreateDocument(const std::string& rootName) {
    return nxXMLMemory::Guarded([&] { return _state->Create(rootName); });
}

nxXMLElement nxXMLDocument::GetRootElement() const {
    return nxXMLElement(_state->root);
}

nxErrorEnum nxXMLDocument::SaveToString(std::string& xmlOut) {
    return nxXMLMemory::Guarded([&] { return _state->Serialise(xmlOut, "in memory"); });
}

nxErrorEnum nxXMLDocument::SaveToFile(const std::string& path) {
    std::string utf8;
    const nxErrorEnum result = nxXMLMemory::Guarded([&] { return _state->Serialise(utf8, path); });
    return result.IsOK() ? WriteFile(path, utf8) : result;
}

nxErrorEnum nxXMLDocument::SaveToFile(const std::wstring& path) {
    std::string narrow;
    if (nxFilePath::FromWide(path, narrow))
        return SaveToFile(narrow);
    LogFailure(Saving, narrow, NoPath);
    return nxErrorEnum::XMLWriteFailed;
}

nxErrorEnum nxXMLDocument::SaveToFileViaString(const std::string& path, std::string& contents) {
    const nxErrorEnum result = SaveToString(contents);
    return result.IsOK() ? SaveToFileViaExistingString(path, contents) : result;
}

nxErrorEnum nxXMLDocument::SaveToFileViaExistingString(const std::string& path, const std::string& contents) {
    if (const char* const problem = nxXMLText(contents).GetProblem()) {
        LogFailure(Saving, path, problem);
        return nxErrorEnum::XMLTextNotCarried;
    }
    return WriteFile(path, contents);
}
