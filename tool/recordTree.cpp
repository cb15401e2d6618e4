// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/recordTree.h"

#include "xmlFramework/xml/nxXMLDocument.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <optional>
#include <stdexcept>

namespace {
    using namespace tool;
    using Kind = nxXMLFieldDescription::Kind;
    using Tree = nlohmann::ordered_json;

    Tree ItemTree(const nxXMLElement& element, const Fields& fields);

    // Items without an element around them stand among the record's other fields.
    Tree ItemTrees(nxXMLElement element, const nxXMLFieldDescription& list, const Fields& others) {
        Tree items = Tree::array();
        for (nxXMLElement child = element.GetNextChildElement(); child.IsValid();
             child = element.GetNextChildElement()) {
            if (std::ranges::find(others, child.GetName(), &nxXMLFieldDescription::name) == others.end())
                items.push_back(ItemTree(child, list.itemFields));
        }
        return items;
    }

    // Nothing for a field that is not written.
    std::optional<Tree> FieldTree(const nxXMLElement& element, const nxXMLFieldDescription& field,
                                  const Fields& fields) {
        if (field.kind == Kind::Items)
            return ItemTrees(element, field, fields);
        if (field.kind == Kind::Attribute) {
            std::string text;
            return element.GetAttribute(field.name, text).IsOK() ? std::optional<Tree>(text) : std::nullopt;
        }
        const nxXMLElement child = element.FindChildElement(field.name);
        if (!child.IsValid())
            return std::nullopt;
        return field.kind == Kind::List ? ItemTrees(child, field, {}) : Tree(child.GetTextValue());
    }

    Tree ItemTree(const nxXMLElement& element, const Fields& fields) {
        if (fields.empty())
            return element.GetTextValue();
        if (const auto* const items = FindSoleItems(fields))
            return ItemTrees(element, *items, {});
        Tree tree = Tree::object();
        for (const nxXMLFieldDescription& field : fields) {
            if (std::optional<Tree> member = FieldTree(element, field, fields))
                tree[GetNameInTree(field)] = *std::move(member);
        }
        return tree;
    }
} // namespace

Tree tool::MakeTree(Record& record, const RecordKind& kind) {
    std::string xml;
    nxXMLDocument document;
    if (!record.ConvertToXML(xml).IsOK() || !document.LoadFromString(xml).IsOK())
        throw std::runtime_error("the record cannot be written");
    return ItemTree(document.GetRootElement(), kind.description.fields);
}

bool tool::IsList(const nxXMLFieldDescription& field) {
    return field.kind == Kind::List || field.kind == Kind::Items;
}

const std::string& tool::GetNameInTree(const nxXMLFieldDescription& field) {
    return field.name.empty() ? field.itemName : field.name;
}

const nxXMLFieldDescription* tool::FindSoleItems(const Fields& fields) {
    return fields.size() == 1 && fields.front().kind == Kind::Items ? &fields.front() : nullptr;
}
