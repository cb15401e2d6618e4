// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/commands.h"
#include "tool/recordKinds.h"
#include "tool/recordTree.h"
#include "tool/table.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <iostream>

namespace {
    using namespace tool;
    using Tree = nlohmann::ordered_json;

    ExitStatus PrintTable() {
        Table table({"CODE", "CLASS", "ROOT ELEMENT", "REGISTERED"});
        for (const RecordKind& kind : RecordKinds())
            table.AddRow(
                {kind.code, std::string(kind.className), kind.root, kind.isRegistered ? "yes" : "no"});
        std::cout << table.Format();
        return AllGood;
    }

    const char* NameOf(nxXMLValueDescription::Type type) {
        using Type = nxXMLValueDescription::Type;
        switch (type) {
        case Type::Text:
            return "text";
        case Type::Texts:
            return "texts";
        case Type::Flag:
            return "flag";
        case Type::Number:
            return "number";
        case Type::Decimal:
            return "decimal";
        case Type::Time:
            return "time";
        case Type::Enumeration:
            return "enumeration";
        }
        return "";
    }

    const char* NameOf(nxXMLFieldDescription::Kind kind) {
        using Kind = nxXMLFieldDescription::Kind;
        switch (kind) {
        case Kind::Element:
            return "element";
        case Kind::Attribute:
            return "attribute";
        case Kind::List:
            return "list";
        case Kind::Items:
            return "items";
        }
        return "";
    }

    const char* NameOf(nxXMLFieldDescription::ItemNames names) {
        using ItemNames = nxXMLFieldDescription::ItemNames;
        switch (names) {
        case ItemNames::Fixed:
            return "fixed";
        case ItemNames::Any:
            return "any";
        case ItemNames::WithKey:
            return "with-key";
        case ItemNames::WithNumber:
            return "with-number";
        }
        return "";
    }

    void AddUnlessEmpty(Tree& tree, const char* name, const auto& value) {
        if (!value.empty())
            tree[name] = value;
    }

    Tree Description(const nxXMLValueDescription& value) {
        Tree tree{{"type", NameOf(value.type)}};
        AddUnlessEmpty(tree, "minimum", value.minimum);
        AddUnlessEmpty(tree, "maximum", value.maximum);
        AddUnlessEmpty(tree, "texts", value.texts);
        AddUnlessEmpty(tree, "null", value.null);
        AddUnlessEmpty(tree, "noChange", value.noChange);
        return tree;
    }

    Tree Description(const std::vector<nxXMLFieldDescription>& fields);

    Tree ItemDescription(const nxXMLFieldDescription& list) {
        Tree tree{
            {"name", list.itemName}, {"names", NameOf(list.itemNames)}, {"endsAtOthers", list.endsAtOthers}};
        if (list.itemFields.empty())
            tree["value"] = Description(list.value);
        else
            tree["fields"] = Description(list.itemFields);
        return tree;
    }

    Tree Description(const nxXMLFieldDescription& field) {
        Tree tree{{"name", field.name.empty() ? Tree() : Tree(field.name)}, {"kind", NameOf(field.kind)}};
        if (IsList(field))
            tree["items"] = ItemDescription(field);
        else
            tree["value"] = Description(field.value);
        tree["isKey"] = field.isKey;
        tree["isRequired"] = field.isRequired;
        tree["isAlwaysWritten"] = field.isAlwaysWritten;
        tree["isReadOnly"] = field.isReadOnly;
        return tree;
    }

    Tree Description(const std::vector<nxXMLFieldDescription>& fields) {
        Tree trees = Tree::array();
        for (const nxXMLFieldDescription& field : fields)
            trees.push_back(Description(field));
        return trees;
    }

    ExitStatus PrintJSON() {
        Tree types = Tree::array();
        for (const RecordKind& kind : RecordKinds())
            types.push_back({{"code", kind.code.empty() ? Tree() : Tree(kind.code)},
                             {"class", kind.className},
                             {"title", kind.title},
                             {"isRegistered", kind.isRegistered},
                             {"root", kind.description.root},
                             {"fields", Description(kind.description.fields)}});
        std::cout << types.dump(2) << '\n';
        return AllGood;
    }
} // namespace

void tool::AddTypesCommand(CLI::App& program, Command& chosen) {
    auto* const command =
        program.add_subcommand("types", "List the classes of records, and which of them the registry makes");
    const auto format = std::make_shared<std::string>("table");
    command->add_option("--format", *format, "table, or json with everything about their documents")
        ->check(CLI::IsMember({"table", "json"}))
        ->capture_default_str();
    command->callback([format, &chosen] { chosen.run = *format == "json" ? PrintJSON : PrintTable; });
}
