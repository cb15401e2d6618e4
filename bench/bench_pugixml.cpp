// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// pugixml through its tree.

#include "bench/job.h"

#include <pugixml.hpp>

#include <stdexcept>
#include <string>
#include <string_view>

namespace {
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

    class Node {
    public:
        explicit Node(pugi::xml_node element) : _element(element) {}

        template <class Visit>
        void ForEachChild(Visit visit) const {
            for (const pugi::xml_node child : _element.children())
                visit(Node(child), std::string_view(child.name()));
        }

        std::string_view GetText() const { return _element.child_value(); }
        std::string_view GetAttribute(const char* name) const { return _element.attribute(name).value(); }

        Node Append(const char* name) { return Node(_element.append_child(name)); }
        void SetText(const std::string& text) { _element.text().set(text.c_str()); }
        void SetAttribute(const char* name, const std::string& text) {
            _element.append_attribute(name).set_value(text.c_str());
        }

    private:
        pugi::xml_node _element;
    };

    struct Pugixml {
        template <class Visit>
        static void Parse(const std::string& text, Visit visit) {
            pugi::xml_document document;
            if (!document.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8))
                throw std::runtime_error("pugixml refuses the document");
            visit(Node(document.document_element()));
        }

        template <class Fill>
        static void Build(const char* name, std::string& text, Fill fill) {
            pugi::xml_document document;
            fill(Node(document.append_child(name)));

            constexpr unsigned int Form =
                pugi::format_raw | pugi::format_no_declaration | pugi::format_no_empty_element_tags;
            StringWriter writer(text);
            document.save(writer, "", Form, pugi::encoding_utf8);
        }
    };
} // namespace

int main(int argc, char** argv) {
    const std::string version =
        std::to_string(PUGIXML_VERSION / 1000) + "." + std::to_string(PUGIXML_VERSION / 10 % 100);
    return bench::RunStack(argc, argv, "pugixml " + version, bench::MakeJobs<bench::PeerCodec<Pugixml>>());
}
