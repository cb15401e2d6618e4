// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/schema.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace {
    using Kind = nxXMLFieldDescription::Kind;
    using ItemNames = nxXMLFieldDescription::ItemNames;
    using Type = nxXMLValueDescription::Type;
    using Fields = std::vector<nxXMLFieldDescription>;

    std::string Escaped(std::string_view text) {
        std::string escaped;
        for (const char c : text) {
            if (c == '&')
                escaped += "&amp;";
            else if (c == '<')
                escaped += "&lt;";
            else if (c == '"')
                escaped += "&quot;";
            else
                escaped += c;
        }
        return escaped;
    }

    // Elements with line ends and indentation.
    class Writer {
    public:
        using Attributes = std::vector<std::pair<std::string_view, std::string>>;

        template <class WriteContent>
        void Element(std::string_view name, const Attributes& attributes, WriteContent writeContent) {
            Begin(name, attributes);
            text += ">\n";
            ++_depth;
            writeContent();
            --_depth;
            text.append(_depth * 2, ' ').append("</xs:").append(name).append(">\n");
        }
        void Element(std::string_view name, const Attributes& attributes) {
            Begin(name, attributes);
            text += "/>\n";
        }
        // An element with a text.
        void Text(std::string_view name, std::string_view content) {
            Begin(name, {});
            text.append(">").append(Escaped(content)).append("</xs:").append(name).append(">\n");
        }

        std::string text;

    private:
        void Begin(std::string_view name, const Attributes& attributes) {
            text.append(_depth * 2, ' ').append("<xs:").append(name);
            for (const auto& [attribute, value] : attributes)
                text.append(" ").append(attribute).append("=\"").append(Escaped(value)).append("\"");
        }

        std::size_t _depth = 0;
    };

    bool IsAnyTimes(const nxXMLFieldDescription& field) {
        return field.kind == Kind::Items;
    }
    // A schema cannot say which names such items have.
    bool HasNamesBeyondSchema(const nxXMLFieldDescription& list) {
        return list.itemNames == ItemNames::WithKey || list.itemNames == ItemNames::WithNumber;
    }

    class Schema {
    public:
        explicit Schema(const nxXMLDescription& description) {
            _writer.text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
            _writer.Element("schema", {{"xmlns:xs", "http://www.w3.org/2001/XMLSchema"}}, [&] {
                ElementOf(description.root, {}, description.fields);
                Elsewhere(description.fields);
            });
        }

        std::string Take() { return std::move(_writer.text); }

    private:
        using Attributes = Writer::Attributes;

        static Attributes Named(const std::string& name, Attributes others) {
            others.insert(others.begin(), {"name", name});
            return others;
        }

        void ElementOf(const std::string& name, const Attributes& occurs, const Fields& fields) {
            _writer.Element("element", Named(name, occurs),
                            [&] { _writer.Element("complexType", {}, [&] { Content(fields); }); });
        }

        // Children are found in any order, so the group is xs:all, in which no element may be repeated; where
        // items stand among the children, any number of any of them.
        void Content(const Fields& fields) {
            const bool isRepeated = std::ranges::any_of(fields, IsAnyTimes);
            if (isRepeated)
                _writer.Element("choice", {{"minOccurs", "0"}, {"maxOccurs", "unbounded"}},
                                [&] { Children(fields, {}); });
            else if (std::ranges::any_of(fields, [](auto& f) { return f.kind != Kind::Attribute; }))
                _writer.Element("all", {}, [&] { Children(fields, {{"minOccurs", "0"}}); });
            for (const nxXMLFieldDescription& field : fields) {
                if (field.kind != Kind::Attribute)
                    continue;
                const Attributes use{{"use", field.isRequired ? "required" : "optional"}};
                TypedAs("attribute", field.value, Named(field.name, use));
            }
        }

        void Children(const Fields& fields, const Attributes& unlessRequired) {
            for (const nxXMLFieldDescription& field : fields) {
                const Attributes occurs = field.isRequired ? Attributes() : unlessRequired;
                switch (field.kind) {
                case Kind::Attribute:
                    break;
                case Kind::Element:
                    TypedAs("element", field.value, Named(field.name, occurs));
                    break;
                case Kind::Items:
                    Items(field, occurs);
                    break;
                case Kind::List:
                    _writer.Element("element", Named(field.name, occurs),
                                    [&] { _writer.Element("complexType", {}, [&] { List(field); }); });
                    break;
                }
            }
        }

        void List(const nxXMLFieldDescription& list) {
            _writer.Element("sequence", {}, [&] {
                Items(list, {{"minOccurs", "0"}, {"maxOccurs", "unbounded"}});
            });
        }

        void Items(const nxXMLFieldDescription& list, const Attributes& occurs) {
            if (HasNamesBeyondSchema(list)) {
                Attributes wildcard{{"namespace", "##local"}, {"processContents", "lax"}};
                wildcard.insert(wildcard.end(), occurs.begin(), occurs.end());
                _writer.Element("any", wildcard, [&] {
                    _writer.Element("annotation", {}, [&] {
                        _writer.Text("documentation",
                                     "Names begin with \"" + list.itemName + "\", and " +
                                         (list.itemNames == ItemNames::WithKey ? "the item's key"
                                                                               : "a number from 0 on") +
                                         " follows.");
                    });
                });
            } else if (list.itemFields.empty())
                TypedAs("element", list.value, Named(list.itemName, occurs));
            else
                ElementOf(list.itemName, occurs, list.itemFields);
        }

        // The fields of items whose names a schema cannot say: a lax wildcard finds them here by their own
        // names.
        void Elsewhere(const Fields& fields) {
            for (const nxXMLFieldDescription& field : fields) {
                if (HasNamesBeyondSchema(field))
                    Children(field.itemFields, {});
                else
                    Elsewhere(field.itemFields);
            }
        }

        // An element or an attribute with a text.
        void TypedAs(std::string_view what, const nxXMLValueDescription& value, Attributes attributes) {
            if (value.type == Type::Text || value.type == Type::Texts) {
                attributes.emplace_back("type", "xs:string");
                _writer.Element(what, attributes);
                return;
            }
            _writer.Element(what, attributes, [&] {
                const std::vector<std::string> others = OtherTexts(value);
                if (others.empty())
                    SimpleType(value);
                else
                    Union(value, {Type::Enumeration, {}, {}, others});
            });
        }

        // The texts of a number that have no digits.
        static std::vector<std::string> OtherTexts(const nxXMLValueDescription& value) {
            if (value.type == Type::Decimal)
                return {""};
            return value.type == Type::Number ? value.texts : std::vector<std::string>();
        }

        void Union(const nxXMLValueDescription& one, const nxXMLValueDescription& other) {
            _writer.Element("simpleType", {}, [&] {
                _writer.Element("union", {}, [&] {
                    SimpleType(one);
                    SimpleType(other);
                });
            });
        }

        void SimpleType(const nxXMLValueDescription& value) {
            const char* const base = value.type == Type::Number    ? "xs:integer"
                                     : value.type == Type::Decimal ? "xs:decimal"
                                                                   : "xs:string";
            _writer.Element("simpleType", {}, [&] {
                _writer.Element("restriction", {{"base", base}}, [&] { Facets(value); });
            });
        }

        void Facets(const nxXMLValueDescription& value) {
            switch (value.type) {
            case Type::Text:
            case Type::Texts:
                break;
            case Type::Flag:
                Facet("pattern", "[Tt][Rr][Uu][Ee]|[Ff][Aa][Ll][Ss][Ee]|1|0");
                break;
            case Type::Number:
                Facet("pattern", value.minimum.starts_with('-') ? "-?[0-9]+" : "[0-9]+");
                Facet("minInclusive", value.minimum);
                Facet("maxInclusive", value.maximum);
                break;
            case Type::Decimal:
                Facet("pattern", "-?[0-9]+(\\.[0-9]+)?");
                Facet("totalDigits", "19"); // as many as nxDecimal holds at most
                break;
            case Type::Time:
                Facet("pattern", "(([01][0-9]|2[0-3]):[0-5][0-9]:[0-5][0-9](\\.[0-9]{1,9})?)?");
                break;
            case Type::Enumeration:
                for (const std::string& text : value.texts)
                    Facet("enumeration", text);
                break;
            }
        }
        void Facet(std::string_view name, const std::string& value) {
            _writer.Element(name, {{"value", value}});
        }

        Writer _writer;
    };
} // namespace

std::string tool::MakeSchema(const nxXMLDescription& description) {
    return Schema(description).Take();
}
