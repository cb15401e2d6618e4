// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/recordTree.h"

#include "xmlFramework/xml/nxXMLDocument.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <stdexcept>

namespace {
    using namespace tool;
    using Tree = nlohmann::ordered_json;

    const ListShape* FindList(const RecordKind& kind, std::string_view name) {
        const auto found = std::ranges::find(kind.lists, name, &ListShape::name);
        return found == kind.lists.end() ? nullptr : &*found;
    }

    Tree ElementTree(nxXMLElement element, const RecordKind& kind);

    Tree ListTree(nxXMLElement& list, const RecordKind& kind) {
        Tree items = Tree::array();
        for (nxXMLElement child = list.GetNextChildElement(); child.IsValid();
             child = list.GetNextChildElement())
            items.push_back(ElementTree(child, kind));
        return items;
    }

    // Children of the name of a list stand for its items where the record has no element around them.
    Tree ObjectTree(nxXMLElement& element, const RecordKind& kind, Tree fields) {
        for (nxXMLElement child = element.GetNextChildElement(); child.IsValid();
             child = element.GetNextChildElement()) {
            const std::string name = child.GetName();
            const ListShape* const list = FindList(kind, name);
            if (list && list->isBare)
                fields[name].push_back(ElementTree(child, kind));
            else
                fields[name] = ElementTree(child, kind);
        }
        return fields;
    }

    Tree Attributes(const nxXMLElement& element, const RecordKind& kind) {
        Tree fields = Tree::object();
        for (const std::string_view name : kind.attributes) {
            if (!element.HasAttribute(name))
                continue;
            std::string value;
            element.GetAttribute(name, value);
            fields[std::string(name)] = value;
        }
        return fields;
    }

    Tree ElementTree(nxXMLElement element, const RecordKind& kind) {
        const ListShape* const list = FindList(kind, element.GetName());
        if (list && !list->isBare)
            return ListTree(element, kind);
        Tree fields = Attributes(element, kind);
        if (fields.empty() && !nxXMLElement(element).GetFirstChildElement().IsValid())
            return element.GetTextValue();
        return ObjectTree(element, kind, std::move(fields));
    }
} // namespace

Tree tool::MakeTree(Record& record, const RecordKind& kind) {
    std::string xml;
    nxXMLDocument document;
    if (!record.ConvertToXML(xml).IsOK() || !document.LoadFromString(xml).IsOK())
        throw std::runtime_error("the record cannot be written");
    return ElementTree(document.GetRootElement(), kind);
}

std::string tool::ItemKey(const RecordKind& kind, std::string_view listName, const Tree& item,
                          std::size_t place) {
    const ListShape* const list = FindList(kind, listName);
    if (list && !list->keyField.empty() && item.is_object()) {
        const auto key = item.find(std::string(list->keyField));
        if (key != item.end() && key->is_string())
            return key->get<std::string>();
    }
    return "#" + std::to_string(place + 1);
}
