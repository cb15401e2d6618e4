// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/commands.h"
#include "tool/recordFile.h"
#include "tool/recordTree.h"
#include "tool/terminal.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <iostream>
#include <utility>

namespace {
    using namespace tool;

    struct Options {
        std::string file;
        std::string filter;
        std::string format{"table"};
    };

    ExitStatus Show(const Options& options) {
        const RecordFile file = ReadRecordOrComplain(options.file);
        if (!file.record)
            return SomethingBad;
        if (options.format == "json") {
            const auto tree = MakeTreeOrComplain(options.file, file);
            if (!tree)
                return SomethingBad;
            std::cout << tree->dump(2) << '\n';
            return AllGood;
        }

        const char* gap = "";
        for (Table& table : file.record->MakeView().tables) {
            table.KeepRowsWith(options.filter);
            std::cout << std::exchange(gap, "\n") << table.Format(OutputWidth());
        }
        return AllGood;
    }
} // namespace

void tool::AddShowCommand(CLI::App& program, Command& chosen) {
    auto* const command = program.add_subcommand("show", "Print a record for people, or for other programs");
    const auto options = std::make_shared<Options>();
    command->add_option("FILE", options->file, "Document; - is standard input")->required();
    command->add_option("--filter", options->filter,
                        "Show only the rows with this text, in whatever letter case");
    command->add_option("--format", options->format, "table, or json with everything that the record holds")
        ->check(CLI::IsMember({"table", "json"}))
        ->capture_default_str();
    command->callback([options, &chosen] { chosen.run = [options] { return Show(*options); }; });
}
