// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// pugixml through its tree.

#include "bench/job.h"
#include "bench/mics.h"

#include <pugixml.hpp>

#include <stdexcept>
#include <utility>

namespace {
    using bench::Mic;
    using bench::Mics;

    // Appends what pugixml writes to a string.
    class StringWriter : public pugi::xml_writer {
    public:
        explicit StringWriter(std::string& text) : _text(text) {}

        void write(const void* data, std::size_t size) override {
            _text.append(static_cast<const char*>(data), size);
        }

    private:
        std::string& _text;
    };

    Mic ReadMic(const pugi::xml_node& item) {
        Mic mic;
        for (const pugi::xml_node element : item.children())
            if (const bench::MicField* field = bench::FindMicField(element.name()))
                bench::SetMicField(mic, *field, element.child_value());
        return mic;
    }

    void ReadMics(const std::string& text, Mics& mics) {
        pugi::xml_document document;
        if (!document.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8))
            throw std::runtime_error("pugixml refuses the document");

        for (const pugi::xml_node list : document.document_element().children(bench::MicContainerName)) {
            for (const pugi::xml_node item : list.children()) {
                if (!bench::IsMicItemName(item.name()))
                    continue;
                Mic mic = ReadMic(item);
                mics.try_emplace(mic.mic, std::move(mic));
            }
        }
    }

    void WriteMics(Mics& mics, std::string& text) {
        pugi::xml_document document;
        pugi::xml_node list = document.append_child(bench::MicRootName).append_child(bench::MicContainerName);
        for (const auto& [code, mic] : mics) {
            const std::string itemName = std::string(bench::MicItemPrefix) + code;
            pugi::xml_node item = list.append_child(itemName.c_str());
            for (const bench::MicField& field : bench::MicFields)
                item.append_child(field.name).text().set(bench::MicFieldText(mic, field));
        }

        constexpr unsigned int Form =
            pugi::format_raw | pugi::format_no_declaration | pugi::format_no_empty_element_tags;
        StringWriter writer(text);
        document.save(writer, "", Form, pugi::encoding_utf8);
    }
} // namespace

int main(int argc, char** argv) {
    std::vector<bench::Job> jobs;
    for (const auto& document : bench::MicDocuments())
        jobs.push_back(bench::MakeJob(document, bench::Codec<Mics>{ReadMics, WriteMics}));
    const std::string version =
        std::to_string(PUGIXML_VERSION / 1000) + "." + std::to_string(PUGIXML_VERSION / 10 % 100);
    return bench::RunStack(argc, argv, "pugixml " + version, jobs);
}
