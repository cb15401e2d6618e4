// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// The program that a developer with the Xerces-C manual at hand would write: a parser for each document,
// every name and text through XMLString::transcode, strings compared; a DOM built node by node, and the
// serialiser.

#include "bench/job.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XercesVersion.hpp>

#include <memory>
#include <string>

namespace {
    using xercesc::DOMDocument;
    using xercesc::DOMElement;
    using xercesc::DOMNode;
    using xercesc::XMLString;

    struct Release {
        template <class Resource>
        void operator()(Resource* resource) const {
            resource->release();
        }
        void operator()(char* text) const { XMLString::release(&text); }
        void operator()(XMLCh* text) const { XMLString::release(&text); }
    };

    std::string ToString(const XMLCh* text) {
        const std::unique_ptr<char, Release> transcoded(XMLString::transcode(text));
        return transcoded.get();
    }

    std::unique_ptr<XMLCh, Release> ToXML(const std::string& text) {
        return std::unique_ptr<XMLCh, Release>(XMLString::transcode(text.c_str()));
    }

    class Node {
    public:
        explicit Node(DOMElement& element) : _element(&element) {}

        template <class Visit>
        void ForEachChild(Visit visit) const {
            for (DOMNode* child = _element->getFirstChild(); child != nullptr;
                 child = child->getNextSibling())
                if (child->getNodeType() == DOMNode::ELEMENT_NODE)
                    visit(Node(static_cast<DOMElement&>(*child)), ToString(child->getNodeName()));
        }

        std::string GetText() const {
            const DOMNode* child = _element->getFirstChild();
            const bool isText = child != nullptr && child->getNodeType() == DOMNode::TEXT_NODE;
            return isText ? ToString(child->getNodeValue()) : std::string();
        }
        std::string GetAttribute(const char* name) const {
            return ToString(_element->getAttribute(ToXML(name).get()));
        }

        Node Append(const char* name) {
            DOMElement* child = _Document().createElement(ToXML(name).get());
            _element->appendChild(child);
            return Node(*child);
        }
        void SetText(const std::string& text) {
            _element->appendChild(_Document().createTextNode(ToXML(text).get()));
        }
        void SetAttribute(const char* name, const std::string& text) {
            _element->setAttribute(ToXML(name).get(), ToXML(text).get());
        }

    private:
        DOMDocument& _Document() const { return *_element->getOwnerDocument(); }

        DOMElement* _element;
    };

    struct XercesPlain {
        template <class Visit>
        static void Parse(const std::string& text, Visit visit) {
            xercesc::XercesDOMParser parser;
            xercesc::HandlerBase throwing;
            parser.setErrorHandler(&throwing);
            const xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(text.data()),
                                                    text.size(), "document");
            parser.parse(source);
            visit(Node(*parser.getDocument()->getDocumentElement()));
        }

        template <class Fill>
        static void Build(const char* name, std::string& text, Fill fill) {
            xercesc::DOMImplementation* implementation =
                xercesc::DOMImplementationRegistry::getDOMImplementation(ToXML("LS").get());
            const std::unique_ptr<DOMDocument, Release> document(
                implementation->createDocument(nullptr, ToXML(name).get(), nullptr));
            DOMElement& root = *document->getDocumentElement();
            fill(Node(root));

            const std::unique_ptr<xercesc::DOMLSSerializer, Release> serialiser(
                implementation->createLSSerializer());
            const std::unique_ptr<XMLCh, Release> written(serialiser->writeToString(&root));
            text = ToString(written.get());
        }
    };
} // namespace

int main(int argc, char** argv) {
    xercesc::XMLPlatformUtils::Initialize();
    const int status = bench::RunStack(argc, argv, "Xerces-C " XERCES_FULLVERSIONDOT,
                                       bench::MakeJobs<bench::PeerCodec<XercesPlain>>());
    xercesc::XMLPlatformUtils::Terminate();
    return status;
}
