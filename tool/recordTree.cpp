// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/recordTree.h"

#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>

namespace {
    using namespace tool;
    using Kind = nxXMLFieldDescription::Kind;
    using Tree = nlohmann::ordered_json;

    Tree ItemTree(const nxXMLNode& node, const Fields& fields);

    // Items without an element around them stand among the record's other fields.
    Tree ItemTrees(const nxXMLNode& parent, const nxXMLFieldDescription& list, const Fields& others) {
        Tree items = Tree::array();
        for (nxXMLNode child = parent.GetFirstChild(); child.IsValid(); child = child.GetNext()) {
            if (std::ranges::find(others, child.GetName(), &nxXMLFieldDescription::name) == others.end())
                items.push_back(ItemTree(child, list.itemFields));
        }
        return items;
    }

    std::optional<Tree> AttributeTree(const nxXMLNode& node, const std::string& name) {
        std::optional<Tree> tree;
        node.ForEachAttribute([&](std::string_view other, std::string_view value) {
            if (other == name)
                tree = value;
        });
        return tree;
    }

    // Nothing for a field that is not written.
    std::optional<Tree> FieldTree(const nxXMLNode& node, const nxXMLFieldDescription& field,
                                  const Fields& fields) {
        if (field.kind == Kind::Items)
            return ItemTrees(node, field, fields);
        if (field.kind == Kind::Attribute)
            return AttributeTree(node, field.name);
        const nxXMLNode child = node.FindChild(field.name);
        if (!child.IsValid())
            return std::nullopt;
        return field.kind == Kind::List ? ItemTrees(child, field, {}) : Tree(child.GetText());
    }

    Tree ItemTree(const nxXMLNode& node, const Fields& fields) {
        if (fields.empty())
            return node.GetText();
        if (const auto* const items = FindSoleItems(fields))
            return ItemTrees(node, *items, {});
        Tree tree = Tree::object();
        for (const nxXMLFieldDescription& field : fields) {
            if (std::optional<Tree> member = FieldTree(node, field, fields))
                tree[GetNameInTree(field)] = *std::move(member);
        }
        return tree;
    }
} // namespace

std::optional<Tree> tool::MakeTreeOrComplain(const std::string& path, const RecordFile& file) {
    std::string xml;
    nxErrorEnum result = file.record->ConvertToXML(xml);
    if (result.IsOK()) {
        const std::string noPrefix;
        const nxXMLConversion::Source source{"", {nxLogLevels::Error, "tool/recordTree"}, noPrefix, ""};
        const nxXMLConversion::Reading reading(xml, source);
        result = reading.GetResult();
        if (result.IsOK())
            return ItemTree(reading.GetRoot(), file.kind->description.fields);
    }
    std::cerr << FailureLines(path, result, "the record cannot be written") << Format(TakeLog().shown);
    return std::nullopt;
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
