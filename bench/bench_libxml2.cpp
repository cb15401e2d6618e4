// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// libxml2 through its tree.

#include "bench/job.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlsave.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {
    struct Release {
        void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
        void operator()(xmlBuffer* buffer) const { xmlBufferFree(buffer); }
    };

    std::string_view ToView(const xmlChar* text) {
        return reinterpret_cast<const char*>(text);
    }

    const xmlChar* ToXML(const char* text) {
        return reinterpret_cast<const xmlChar*>(text);
    }

    std::string_view TextIn(const xmlNode* child) {
        const bool isText = child != nullptr && child->type == XML_TEXT_NODE;
        return isText ? ToView(child->content) : std::string_view();
    }

    class Node {
    public:
        explicit Node(xmlNode* element) : _element(element) {}

        template <class Visit>
        void ForEachChild(Visit visit) const {
            for (xmlNode* child = _element->children; child != nullptr; child = child->next)
                if (child->type == XML_ELEMENT_NODE)
                    visit(Node(child), ToView(child->name));
        }

        std::string_view GetText() const { return TextIn(_element->children); }
        std::string_view GetAttribute(const char* name) const {
            const xmlAttr* attribute = xmlHasProp(_element, ToXML(name));
            return attribute != nullptr ? TextIn(attribute->children) : std::string_view();
        }

        Node Append(const char* name) const {
            return Node(xmlNewChild(_element, nullptr, ToXML(name), nullptr));
        }
        void SetText(const std::string& text) const { xmlNodeAddContent(_element, ToXML(text.c_str())); }
        void SetAttribute(const char* name, const std::string& text) const {
            xmlNewProp(_element, ToXML(name), ToXML(text.c_str()));
        }

    private:
        xmlNode* _element;
    };

    struct LibXML2 {
        template <class Visit>
        static void Parse(const std::string& text, Visit visit) {
            const std::unique_ptr<xmlDoc, Release> document(xmlReadMemory(
                text.data(), static_cast<int>(text.size()), "document", nullptr, XML_PARSE_NONET));
            if (document == nullptr)
                throw std::runtime_error("libxml2 refuses the document");
            visit(Node(xmlDocGetRootElement(document.get())));
        }

        template <class Fill>
        static void Build(const char* name, std::string& text, Fill fill) {
            const std::unique_ptr<xmlDoc, Release> document(xmlNewDoc(ToXML("1.0")));
            xmlNode* root = xmlNewDocNode(document.get(), nullptr, ToXML(name), nullptr);
            xmlDocSetRootElement(document.get(), root);
            fill(Node(root));

            const std::unique_ptr<xmlBuffer, Release> buffer(xmlBufferCreate());
            xmlSaveCtxt* saving = xmlSaveToBuffer(buffer.get(), "UTF-8", XML_SAVE_NO_DECL);
            xmlSaveTree(saving, root);
            if (xmlSaveClose(saving) < 0)
                throw std::runtime_error("libxml2 cannot write the document");
            text = ToView(xmlBufferContent(buffer.get()));
        }
    };
} // namespace

int main(int argc, char** argv) {
    xmlInitParser();
    const int status = bench::RunStack(argc, argv, "libxml2 " LIBXML_DOTTED_VERSION,
                                       bench::MakeJobs<bench::PeerCodec<LibXML2>>());
    xmlCleanupParser();
    return status;
}
