// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/commands.h"
#include "tool/printable.h"
#include "tool/recordFile.h"
#include "tool/recordTree.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <iostream>
#include <map>

namespace {
    using namespace tool;
    using Tree = nlohmann::ordered_json;

    // As diff(1) has them.
    constexpr auto Same = AllGood;
    constexpr auto Different = SomethingBad;
    constexpr auto Trouble = WrongUse;

    // Prints how two trees of one class of records differ, one line a difference.
    class Comparison {
    public:
        explicit Comparison(const RecordKind& kind) : _kind(kind) {}

        void Compare(const std::string& path, std::string_view name, const Tree& left, const Tree& right) {
            if (left == right)
                return;
            if (left.is_array() && right.is_array())
                CompareMaps(path, KeyedItems(name, left), KeyedItems(name, right));
            else if (left.is_object() && right.is_object())
                CompareMaps(path, Fields(left), Fields(right));
            else
                PrintChange(path, left, right);
        }

        bool FoundNothing() const { return _added + _removed + _changed == 0; }
        std::string Summary() const {
            return std::to_string(_added) + " added, " + std::to_string(_removed) + " removed, " +
                   std::to_string(_changed) + " changed";
        }

    private:
        struct Part {
            std::string name;
            const Tree* tree;
        };
        using Parts = std::vector<Part>;

        // Items that share a key are told apart by their order.
        Parts KeyedItems(std::string_view listName, const Tree& list) const {
            Parts items;
            std::map<std::string, std::size_t> seen;
            for (std::size_t i = 0; i < list.size(); ++i) {
                std::string key = ItemKey(_kind, listName, list[i], i);
                const std::size_t count = ++seen[key];
                if (count > 1)
                    key += " (" + std::to_string(count) + ")";
                items.push_back({std::move(key), &list[i]});
            }
            return items;
        }

        static Parts Fields(const Tree& object) {
            Parts fields;
            for (const auto& [name, value] : object.items())
                fields.push_back({name, &value});
            return fields;
        }

        void CompareMaps(const std::string& path, const Parts& left, const Parts& right) {
            std::map<std::string_view, const Tree*> rightByName;
            for (const Part& part : right)
                rightByName.emplace(part.name, part.tree);

            for (const Part& part : left) {
                const auto other = rightByName.find(part.name);
                if (other == rightByName.end()) {
                    PrintLine(Join(path, part.name), "removed");
                    ++_removed;
                    continue;
                }
                Compare(Join(path, part.name), part.name, *part.tree, *other->second);
                rightByName.erase(other);
            }
            for (const Part& part : right) {
                if (!rightByName.contains(part.name))
                    continue;
                PrintLine(Join(path, part.name), "added");
                ++_added;
            }
        }

        void PrintChange(const std::string& path, const Tree& left, const Tree& right) {
            PrintLine(path, Text(left) + " -> " + Text(right));
            ++_changed;
        }

        static std::string Text(const Tree& tree) {
            return tree.is_string() ? "'" + tree.get<std::string>() + "'" : tree.dump();
        }
        static std::string Join(const std::string& path, const std::string& name) {
            return path.empty() ? name : path + "/" + name;
        }
        static void PrintLine(const std::string& path, const std::string& what) {
            std::cout << Printable(path + ": " + what) << '\n';
        }

        const RecordKind& _kind;
        std::size_t _added = 0;
        std::size_t _removed = 0;
        std::size_t _changed = 0;
    };

    ExitStatus Diff(const std::string& leftPath, const std::string& rightPath) {
        const RecordFile left = ReadRecordOrComplain(leftPath);
        const RecordFile right = ReadRecordOrComplain(rightPath);
        if (!left.record || !right.record)
            return Trouble;
        if (left.kind != right.kind) {
            std::cerr << "xmlframework: " << Printable(leftPath) << " is a record of the class "
                      << left.kind->className << ", " << Printable(rightPath) << " one of "
                      << right.kind->className << '\n';
            return Trouble;
        }

        Comparison comparison(*left.kind);
        comparison.Compare({}, left.kind->root, MakeTree(*left.record, *left.kind),
                           MakeTree(*right.record, *right.kind));
        if (comparison.FoundNothing())
            return Same;
        std::cout << comparison.Summary() << '\n';
        return Different;
    }
} // namespace

void tool::AddDiffCommand(CLI::App& program, Command& chosen) {
    auto* const command = program.add_subcommand(
        "diff", "Say how two records differ; exit status 0: not at all, 1: they do, 2: trouble");
    const auto left = std::make_shared<std::string>();
    const auto right = std::make_shared<std::string>();
    command->add_option("A", *left, "Document; - is standard input")->required();
    command->add_option("B", *right, "Document of the same class")->required();
    command->callback([left, right, &chosen] { chosen = [left, right] { return Diff(*left, *right); }; });
}
