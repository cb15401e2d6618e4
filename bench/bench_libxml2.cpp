// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// libxml2 through its tree.

#include "bench/job.h"
#include "bench/mics.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlsave.h>

#include <memory>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace {
    using bench::Mic;
    using bench::Mics;

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

    std::string_view TextOf(const xmlNode& element) {
        const bool isText = element.children != nullptr && element.children->type == XML_TEXT_NODE;
        return isText ? ToView(element.children->content) : std::string_view();
    }

    // Calls visit(element, name) for the element children of `parent`.
    template <class Visit>
    void ForEachElement(const xmlNode& parent, Visit visit) {
        for (const xmlNode* child = parent.children; child != nullptr; child = child->next)
            if (child->type == XML_ELEMENT_NODE)
                visit(*child, ToView(child->name));
    }

    Mic ReadMic(const xmlNode& item) {
        Mic mic;
        ForEachElement(item, [&mic](const xmlNode& element, std::string_view name) {
            if (const bench::MicField* field = bench::FindMicField(name))
                bench::SetMicField(mic, *field, TextOf(element));
        });
        return mic;
    }

    void ReadMics(const std::string& text, Mics& mics) {
        const std::unique_ptr<xmlDoc, Release> document(
            xmlReadMemory(text.data(), static_cast<int>(text.size()), "mics", nullptr, XML_PARSE_NONET));
        if (document == nullptr)
            throw std::runtime_error("libxml2 refuses the document");

        ForEachElement(*xmlDocGetRootElement(document.get()),
                       [&](const xmlNode& list, std::string_view name) {
                           if (name != bench::MicContainerName)
                               return;
                           ForEachElement(list, [&](const xmlNode& item, std::string_view itemName) {
                               if (!bench::IsMicItemName(itemName))
                                   return;
                               Mic mic = ReadMic(item);
                               mics.try_emplace(mic.mic, std::move(mic));
                           });
                       });
    }

    void WriteMics(Mics& mics, std::string& text) {
        const std::unique_ptr<xmlDoc, Release> document(xmlNewDoc(ToXML("1.0")));
        xmlNode* root = xmlNewDocNode(document.get(), nullptr, ToXML(bench::MicRootName), nullptr);
        xmlDocSetRootElement(document.get(), root);
        xmlNode* list = xmlNewChild(root, nullptr, ToXML(bench::MicContainerName), nullptr);
        for (const auto& [code, mic] : mics) {
            const std::string itemName = std::string(bench::MicItemPrefix) + code;
            xmlNode* item = xmlNewChild(list, nullptr, ToXML(itemName.c_str()), nullptr);
            for (const bench::MicField& field : bench::MicFields)
                xmlNewTextChild(item, nullptr, ToXML(field.name), ToXML(bench::MicFieldText(mic, field)));
        }

        const std::unique_ptr<xmlBuffer, Release> buffer(xmlBufferCreate());
        xmlSaveCtxt* saving = xmlSaveToBuffer(buffer.get(), "UTF-8", XML_SAVE_NO_DECL);
        xmlSaveTree(saving, root);
        if (xmlSaveClose(saving) < 0)
            throw std::runtime_error("libxml2 cannot write the document");
        text = ToView(xmlBufferContent(buffer.get()));
    }
} // namespace

int main(int argc, char** argv) {
    xmlInitParser();
    std::vector<bench::Job> jobs;
    for (const auto& document : bench::MicDocuments())
        jobs.push_back(bench::MakeJob(document, bench::Codec<Mics>{ReadMics, WriteMics}));
    const int status = bench::RunStack(argc, argv, "libxml2 " LIBXML_DOTTED_VERSION, jobs);
    xmlCleanupParser();
    return status;
}
