// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxDecimal.h"
#include "tool/color.h"
#include "tool/commands.h"
#include "tool/printable.h"
#include "tool/recordFile.h"
#include "tool/recordTree.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <iostream>
#include <map>
#include <optional>

namespace {
    using namespace tool;
    using Tree = nlohmann::ordered_json;

    // As diff(1) has them.
    constexpr auto Same = AllGood;
    constexpr auto Different = SomethingBad;
    constexpr auto Trouble = WrongUse;

    struct Options {
        std::string left;
        std::string right;
        std::string format{"text"};
    };

    // Told as soon as it is found, since a path may be long.
    struct Difference {
        enum Kind : std::size_t { Added, Removed, Changed };
        static constexpr std::size_t KindCount = 3;

        Kind kind;
        const std::vector<std::string>* path; // names of fields, keys or places of items
        const Tree* left;                     // of what is removed or changed
        const Tree* right;                    // of what is added or changed
    };

    // What a text stands for: null for none, and a number's states by their names.
    Tree Value(const nxXMLValueDescription& description, const Tree& text) {
        using Type = nxXMLValueDescription::Type;
        switch (description.type) {
        case Type::Decimal:
        case Type::Time:
            return text.is_string() && text.get_ref<const std::string&>().empty() ? Tree() : text;
        case Type::Number:
            if (text == "NULL" || (text == description.null && !description.null.empty()))
                return nullptr;
            return text == description.noChange && !description.noChange.empty() ? Tree("NO_CHANGE") : text;
        default:
            return text;
        }
    }

    bool AreSame(const nxXMLValueDescription& description, const Tree& left, const Tree& right) {
        if (description.type != nxXMLValueDescription::Type::Decimal || left.is_null() || right.is_null())
            return left == right;
        nxDecimal leftNumber; // 1.5 is 1.50
        nxDecimal rightNumber;
        leftNumber.SetFromString(left.get_ref<const std::string&>(), '.');
        rightNumber.SetFromString(right.get_ref<const std::string&>(), '.');
        return leftNumber == rightNumber;
    }

    // A field that is not written is null.
    const Tree& Member(const Tree& object, const std::string& name) {
        static const Tree null;
        const auto member = object.find(name);
        return member == object.end() ? null : *member;
    }

    // Finds how two trees of one class of records differ, by the description of the class.
    class Comparison {
    public:
        using Tell = void (*)(const Difference& difference);

        Comparison(const RecordKind& kind, const Tree& left, const Tree& right, Tell tell) : _tell(tell) {
            CompareRecords(kind.description.fields, left, right);
        }

        std::size_t Count(Difference::Kind kind) const { return _counts[kind]; }
        bool IsEmpty() const {
            return std::ranges::all_of(_counts, [](std::size_t count) { return count == 0; });
        }

    private:
        struct Item {
            std::string name;
            const Tree* tree;
        };
        using Items = std::vector<Item>;

        void CompareRecords(const Fields& fields, const Tree& left, const Tree& right) {
            if (const auto* const items = FindSoleItems(fields))
                return CompareLists(*items, left, right);
            for (const nxXMLFieldDescription& field : fields) {
                const std::string& name = GetNameInTree(field);
                _path.push_back(name);
                if (IsList(field))
                    CompareLists(field, Member(left, name), Member(right, name));
                else
                    CompareTexts(field.value, Member(left, name), Member(right, name));
                _path.pop_back();
            }
        }

        void CompareTexts(const nxXMLValueDescription& description, const Tree& left, const Tree& right) {
            const Tree leftValue = Value(description, left);
            const Tree rightValue = Value(description, right);
            if (!AreSame(description, leftValue, rightValue))
                Add(Difference::Changed, &leftValue, &rightValue);
        }

        void CompareLists(const nxXMLFieldDescription& list, const Tree& left, const Tree& right) {
            const Items rightItems = NamedItems(list, right);
            std::map<std::string_view, const Tree*> rightByName;
            for (const Item& item : rightItems)
                rightByName.emplace(item.name, item.tree);

            for (const Item& item : NamedItems(list, left)) {
                _path.push_back(item.name);
                const auto other = rightByName.find(item.name);
                if (other == rightByName.end())
                    Add(Difference::Removed, item.tree, nullptr);
                else {
                    CompareItems(list, *item.tree, *other->second);
                    rightByName.erase(other);
                }
                _path.pop_back();
            }
            for (const Item& item : rightItems) {
                if (!rightByName.contains(item.name))
                    continue;
                _path.push_back(item.name);
                Add(Difference::Added, nullptr, item.tree);
                _path.pop_back();
            }
        }

        void CompareItems(const nxXMLFieldDescription& list, const Tree& left, const Tree& right) {
            if (list.itemFields.empty())
                CompareTexts(list.value, left, right);
            else
                CompareRecords(list.itemFields, left, right);
        }

        // Items that share a name are told apart by their order.
        static Items NamedItems(const nxXMLFieldDescription& list, const Tree& trees) {
            Items items;
            std::map<std::string, std::size_t> seen;
            for (const Tree& tree : trees) {
                std::string name = Name(list, tree, items.size());
                const std::size_t count = ++seen[name];
                if (count > 1)
                    name += " (" + std::to_string(count) + ")";
                items.push_back({std::move(name), &tree});
            }
            return items;
        }

        // By its key, else by its place: as the document does where that numbers its items, else from 1.
        static std::string Name(const nxXMLFieldDescription& list, const Tree& item, std::size_t place) {
            const auto key = std::ranges::find_if(list.itemFields, &nxXMLFieldDescription::isKey);
            if (key != list.itemFields.end())
                return Member(item, key->name).get<std::string>();
            if (list.itemNames == nxXMLFieldDescription::ItemNames::WithNumber)
                return list.itemName + std::to_string(place);
            return list.itemName + "[" + std::to_string(place + 1) + "]";
        }

        void Add(Difference::Kind kind, const Tree* left, const Tree* right) {
            ++_counts[kind];
            _tell({kind, &_path, left, right});
        }

        Tell _tell;
        std::vector<std::string> _path;
        std::array<std::size_t, Difference::KindCount> _counts{};
    };

    std::string Text(const Tree& value) {
        return value.is_string() ? "'" + value.get<std::string>() + "'" : value.dump();
    }

    void PrintLine(const Difference& difference) {
        std::string path;
        for (const std::string& name : *difference.path)
            path.append(path.empty() ? "" : "/").append(Shortened(name));
        path += ": ";
        switch (difference.kind) {
        case Difference::Added:
            std::cout << Paint(Color::Green, Printable(path + "added")) << '\n';
            break;
        case Difference::Removed:
            std::cout << Paint(Color::Red, Printable(path + "removed")) << '\n';
            break;
        case Difference::Changed:
            std::cout << Printable(path) << Paint(Color::Red, Printable(Text(*difference.left))) << " -> "
                      << Paint(Color::Green, Printable(Text(*difference.right))) << '\n';
            break;
        }
    }

    void PrintJSON(const Difference& difference) {
        Tree line = Tree::object();
        const bool isAdded = difference.kind == Difference::Added;
        const bool isRemoved = difference.kind == Difference::Removed;
        line["change"] = isAdded ? "added" : isRemoved ? "removed" : "changed";
        line["path"] = *difference.path;
        if (!isAdded)
            line["left"] = *difference.left;
        if (!isRemoved)
            line["right"] = *difference.right;
        std::cout << line.dump() << '\n';
    }

    std::string Summary(const Comparison& comparison) {
        return std::to_string(comparison.Count(Difference::Added)) + " added, " +
               std::to_string(comparison.Count(Difference::Removed)) + " removed, " +
               std::to_string(comparison.Count(Difference::Changed)) + " changed";
    }

    ExitStatus Diff(const Options& options) {
        const RecordFile left = ReadRecordOrComplain(options.left);
        const RecordFile right = ReadRecordOrComplain(options.right);
        if (!left.record || !right.record)
            return Trouble;
        if (left.kind != right.kind) {
            std::cerr << "xmlframework: " << DisplayName(options.left) << " is a record of the class "
                      << left.kind->className << ", " << DisplayName(options.right) << " one of "
                      << right.kind->className << '\n';
            return Trouble;
        }

        const std::optional<Tree> leftTree = MakeTreeOrComplain(options.left, left);
        const std::optional<Tree> rightTree = MakeTreeOrComplain(options.right, right);
        if (!leftTree || !rightTree)
            return Trouble;
        const bool isJSON = options.format == "json";
        const Comparison comparison(*left.kind, *leftTree, *rightTree, isJSON ? PrintJSON : PrintLine);
        if (comparison.IsEmpty())
            return Same;
        if (!isJSON)
            std::cout << Summary(comparison) << '\n';
        return Different;
    }
} // namespace

void tool::AddDiffCommand(CLI::App& program, Command& chosen) {
    auto* const command = program.add_subcommand(
        "diff", "Say how two records differ; exit status 0: not at all, 1: they do, 2: trouble");
    const auto options = std::make_shared<Options>();
    command->add_option("A", options->left, "Document; - is standard input")->required();
    command->add_option("B", options->right, "Document of the same class")->required();
    command->add_option("--format", options->format, "text, or json with an object for each difference")
        ->check(CLI::IsMember({"text", "json"}))
        ->capture_default_str();
    command->callback([options, &chosen] {
        chosen.run = [options] { return Diff(*options); };
        chosen.trouble = Trouble;
    });
}
