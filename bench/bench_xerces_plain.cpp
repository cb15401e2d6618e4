// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// The program that a developer with the Xerces-C manual at hand would write: a parser for each document,
// every name and text through XMLString::transcode, strings compared; a DOM built node by node, and the
// serialiser.

#include "bench/job.h"
#include "bench/mics.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XercesVersion.hpp>

#include <memory>
#include <utility>

namespace {
    using bench::Mic;
    using bench::Mics;
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

    std::string TextOf(const DOMNode& element) {
        const DOMNode* child = element.getFirstChild();
        const bool isText = child != nullptr && child->getNodeType() == DOMNode::TEXT_NODE;
        return isText ? ToString(child->getNodeValue()) : std::string();
    }

    // Calls visit(element, name) for the element children of `parent`.
    template <class Visit>
    void ForEachElement(const DOMNode& parent, Visit visit) {
        for (const DOMNode* child = parent.getFirstChild(); child != nullptr; child = child->getNextSibling())
            if (child->getNodeType() == DOMNode::ELEMENT_NODE)
                visit(*child, ToString(child->getNodeName()));
    }

    Mic ReadMic(const DOMNode& item) {
        Mic mic;
        ForEachElement(item, [&mic](const DOMNode& element, const std::string& name) {
            if (const bench::MicField* field = bench::FindMicField(name))
                bench::SetMicField(mic, *field, TextOf(element));
        });
        return mic;
    }

    void ReadMics(const std::string& text, Mics& mics) {
        xercesc::XercesDOMParser parser;
        xercesc::HandlerBase throwing;
        parser.setErrorHandler(&throwing);
        const xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(text.data()), text.size(),
                                                "mics");
        parser.parse(source);

        ForEachElement(*parser.getDocument()->getDocumentElement(),
                       [&](const DOMNode& list, const std::string& name) {
                           if (name != bench::MicContainerName)
                               return;
                           ForEachElement(list, [&](const DOMNode& item, const std::string& itemName) {
                               if (!bench::IsMicItemName(itemName))
                                   return;
                               Mic mic = ReadMic(item);
                               mics.try_emplace(mic.mic, std::move(mic));
                           });
                       });
    }

    DOMElement& Append(DOMElement& parent, const std::string& name) {
        DOMElement* child = parent.getOwnerDocument()->createElement(ToXML(name).get());
        parent.appendChild(child);
        return *child;
    }

    void AppendWithText(DOMElement& parent, const std::string& name, const std::string& text) {
        DOMElement& child = Append(parent, name);
        child.appendChild(parent.getOwnerDocument()->createTextNode(ToXML(text).get()));
    }

    void WriteMics(Mics& mics, std::string& text) {
        xercesc::DOMImplementation* implementation =
            xercesc::DOMImplementationRegistry::getDOMImplementation(ToXML("LS").get());
        const std::unique_ptr<DOMDocument, Release> document(
            implementation->createDocument(nullptr, ToXML(bench::MicRootName).get(), nullptr));
        DOMElement& root = *document->getDocumentElement();
        DOMElement& list = Append(root, bench::MicContainerName);
        for (const auto& [code, mic] : mics) {
            DOMElement& item = Append(list, std::string(bench::MicItemPrefix) + code);
            for (const bench::MicField& field : bench::MicFields)
                AppendWithText(item, field.name, bench::MicFieldText(mic, field));
        }
        const std::unique_ptr<xercesc::DOMLSSerializer, Release> serialiser(
            implementation->createLSSerializer());
        const std::unique_ptr<XMLCh, Release> written(serialiser->writeToString(&root));
        text = ToString(written.get());
    }
} // namespace

int main(int argc, char** argv) {
    xercesc::XMLPlatformUtils::Initialize();
    std::vector<bench::Job> jobs;
    for (const auto& document : bench::MicDocuments())
        jobs.push_back(bench::MakeJob(document, bench::Codec<Mics>{ReadMics, WriteMics}));
    const int status = bench::RunStack(argc, argv, "Xerces-C " XERCES_FULLVERSIONDOT, jobs);
    xercesc::XMLPlatformUtils::Terminate();
    return status;
}
