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
#include "xmlFramework/xml/nxXMLNotCarried.h"
#include "xmlFramework/xml/nxXMLSession.h"
#include "xmlFramework/xml/nxXMLText.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/Wrapper4InputSource.hpp>
#include <xercesc/framework/XMLFormatter.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <optional>

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

    // To be called in a handler: says what was thrown.
    void LogCurrentException(const FailureTexts& texts, const std::string& subject) {
        try {
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

    Released<DOMLSParser> MakeParser(nxDOMErrorHandler& handler) {
        Released<DOMLSParser> parser(
            Implementation(u"LS")->createLSParser(DOMImplementationLS::MODE_SYNCHRONOUS, nullptr));
        DOMConfiguration* const configuration = parser->getDomConfig();
        configuration->setParameter(XMLUni::fgDOMNamespaces, false);
        configuration->setParameter(XMLUni::fgXercesSchema, false);
        configuration->setParameter(XMLUni::fgXercesSchemaFullChecking, false);
        configuration->setParameter(XMLUni::fgDOMValidateIfSchema, true);
        configuration->setParameter(XMLUni::fgDOMDatatypeNormalization, true);
        // The library reads what it is handed and nothing else; no platform document has a DOCTYPE.
        configuration->setParameter(XMLUni::fgDOMDisallowDoctype, true);
        configuration->setParameter(XMLUni::fgXercesDisableDefaultEntityResolution, true);
        // So that a load that fails need not take the document before it along.
        configuration->setParameter(XMLUni::fgXercesUserAdoptsDOMDocument, true);
        configuration->setParameter(XMLUni::fgDOMErrorHandler, &handler);
        return parser;
    }

    // Whether the last character is cut off by the end of the text: a lead byte begins with as many ones as
    // its character has bytes.
    bool EndsInsideCharacter(std::string_view utf8) {
        const std::size_t longest = std::min<std::size_t>(utf8.size(), 8);
        for (std::size_t left = 1; left < longest; ++left) {
            const auto byte = static_cast<unsigned char>(utf8[utf8.size() - left]);
            if (std::countl_one(byte) > static_cast<int>(left))
                return true;
        }
        return false;
    }

    bool IsInUTF8(const DOMDocument& document) {
        return XMLString::compareIString(document.getInputEncoding(), XMLUni::fgUTF8EncodingString) == 0;
    }

    // A well-formed document ends with ">" or white space, and holds no NUL. The parser takes a NUL, or a
    // character cut off by the end of the text, for the end of the document and says nothing about what
    // stands behind.
    bool HasHiddenTail(std::string_view text, const DOMDocument& document) {
        const auto byteAt = [text](std::size_t i) {
            return i < text.size() ? static_cast<unsigned char>(text[i]) : 1;
        };
        const bool wide = (byteAt(0) == 0xFE && byteAt(1) == 0xFF) ||
                          (byteAt(0) == 0xFF && byteAt(1) == 0xFE) || byteAt(0) == 0 ||
                          byteAt(1) == 0; // UTF-16, or UCS-4
        if (!wide) {
            return text.find('\0') != std::string_view::npos || static_cast<signed char>(text.back()) < 0 ||
                   (IsInUTF8(document) && EndsInsideCharacter(text));
        }

        if (text.size() % 2 != 0)
            return true;
        const bool fourBytes = (byteAt(0) == 0 && byteAt(1) == 0) || (byteAt(2) == 0 && byteAt(3) == 0);
        const std::size_t unit = fourBytes ? 4 : 2;
        for (std::size_t i = 0; i < text.size(); i += unit) {
            if (text.substr(i, unit).find_first_not_of('\0') == std::string_view::npos)
                return true;
        }
        return text.size() % unit != 0;
    }

    // "file:///tmp/a%20b" as a path; nothing for what is no URI of a local file.
    std::optional<std::string> LocalPath(std::string_view uri) {
        constexpr std::string_view Scheme = "file://";
        constexpr std::string_view ThisHost = "localhost";
        if (!uri.starts_with(Scheme))
            return std::nullopt;
        uri.remove_prefix(Scheme.size());
        if (uri.starts_with(ThisHost))
            uri.remove_prefix(ThisHost.size());
        if (!uri.starts_with('/'))
            return std::nullopt;

        std::string path;
        for (std::size_t i = 0; i < uri.size(); ++i) {
            auto byte = static_cast<unsigned char>(uri[i]);
            if (byte == '%') {
                const std::string_view digits = uri.substr(i + 1, 2);
                const char* const end = digits.data() + digits.size();
                if (digits.size() != 2 || std::from_chars(digits.data(), end, byte, 16).ptr != end)
                    return std::nullopt;
                i += 2;
            }
            path += static_cast<char>(byte);
        }
        return path;
    }

    // The UTF-8 form of a wide path. A path that has none gets an empty one, which no file answers to.
    std::string NarrowPath(const std::wstring& path) {
        std::string narrow;
        nxXMLTextOut::Convert(nxXMLText(path).Get(), narrow);
        return narrow;
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
        std::string Take() { return std::move(_text); }

    private:
        std::string _text;
    };

    Released<DOMLSSerializer> CreateDOMSerialiser(DOMImplementation& implementation,
                                                  nxDOMErrorHandler& handler) {
        Released<DOMLSSerializer> serialiser(implementation.createLSSerializer());
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
    // Parses the input in place of the document held.
    nxErrorEnum Load(const Input& input);
    // Null when the parser threw, which is logged.
    Released<DOMDocument> Parse(const Input& input);
    void Adopt(Released<DOMDocument> newDocument);
    nxErrorEnum Serialise(std::string& utf8, const std::string& subject);

    nxDOMErrorHandler errorHandler;
    Released<DOMLSParser> parser; // made by the first load: documents that are only written need none
    Released<DOMDocument> document;
    DOMElement* root = nullptr;
};

Released<DOMDocument> nxXMLDocument::State::Parse(const Input& input) {
    try {
        if (!parser)
            parser = MakeParser(errorHandler);
        parser->resetDocumentPool(); // what a load left there that threw
        MemBufInputSource bytes(reinterpret_cast<const XMLByte*>(input.text.data()), input.text.size(),
                                XStr(input.name.c_str()).Get());
        const Wrapper4InputSource source(&bytes, false);
        return Released<DOMDocument>(parser->parse(&source));
    } catch (...) {
        LogCurrentException(input.texts, input.subject);
        return nullptr;
    }
}

nxErrorEnum nxXMLDocument::State::Load(const Input& input) {
    Released<DOMDocument> parsed = Parse(input);
    if (!parsed && input.isFile)
        return document ? nxErrorEnum::XMLParseFailed : nxErrorEnum::XMLNoDocumentParsed;
    if (!errorHandler.GetStickyError().IsOK()) {
        nxWriteLog({nxLogLevels::Error, SourceFile}, "Errors occurred, no output available");
        return errorHandler.GetStickyError();
    }
    if (!parsed)
        return nxErrorEnum::XMLParseFailed;
    if (HasHiddenTail(input.text, *parsed)) {
        LogFailure(input.texts, input.subject, "the text goes on behind the end of the document");
        return nxErrorEnum::XMLParseFailed;
    }
    Adopt(std::move(parsed));
    return nxErrorEnum::OK;
}

void nxXMLDocument::State::Adopt(Released<DOMDocument> newDocument) {
    document = std::move(newDocument);
    root = document->getDocumentElement();
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
        const Released<DOMLSSerializer> serialiser = CreateDOMSerialiser(implementation, errorHandler);
        const Released<DOMLSOutput> output(implementation.createLSOutput());
        StringTarget target;
        output->setEncoding(XMLUni::fgUTF8EncodingString);
        output->setByteStream(&target);
        if (!serialiser->write(root, output.get()))
            return nxErrorEnum::XMLTextNotCarried; // the handler has said why
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
    if (!nxFileHelper::Read(LocalPath(path).value_or(path), text, problem).IsOK()) {
        LogFailure(ParsingFile, path, problem);
        return nxErrorEnum::XMLNoDocumentParsed;
    }
    return _state->Load({text, path, path, ParsingFile, true});
}

nxErrorEnum nxXMLDocument::LoadFromFile(const std::wstring& path) {
    return LoadFromFile(NarrowPath(path));
}

nxErrorEnum nxXMLDocument::LoadFromString(const std::string& xml) {
    return _state->Load({xml, nxXMLSession::Get().NextBufferName(), xml, ParsingString, false});
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
    DOMImplementation* const implementation = Implementation(u"Core");
    if (!implementation || _state->document)
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
        _state->Adopt(std::move(created));
        return nxErrorEnum::OK;
    } catch (const DOMException&) {
        return refuse();
    }
}

nxXMLElement nxXMLDocument::GetRootElement() const {
    return nxXMLElement(_state->root);
}

nxErrorEnum nxXMLDocument::SaveToString(std::string& xmlOut) {
    return _state->Serialise(xmlOut, "in memory");
}

nxErrorEnum nxXMLDocument::SaveToFile(const std::string& path) {
    std::string utf8;
    const nxErrorEnum result = _state->Serialise(utf8, path);
    return result.IsOK() ? WriteFile(path, utf8) : result;
}

nxErrorEnum nxXMLDocument::SaveToFile(const std::wstring& path) {
    return SaveToFile(NarrowPath(path));
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
