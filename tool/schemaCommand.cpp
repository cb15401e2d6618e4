// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/commands.h"
#include "tool/recordFile.h"
#include "tool/recordKinds.h"
#include "tool/schema.h"

#include <CLI/CLI.hpp>

namespace {
    using namespace tool;

    struct Options {
        std::string type;
        std::string output{StandardStream};
        std::string folder;
    };

    std::vector<std::string> CodesAndRoots() {
        std::vector<std::string> names;
        for (const RecordKind& kind : RecordKinds()) {
            if (!kind.code.empty())
                names.push_back(kind.code);
            names.push_back(kind.root);
        }
        return names;
    }

    ExitStatus WriteAll(const std::string& folder) {
        for (const RecordKind& kind : RecordKinds()) {
            if (!WriteOutput(folder + "/" + kind.root + ".xsd", MakeSchema(kind.description)))
                return SomethingBad;
        }
        return AllGood;
    }

    ExitStatus WriteSchema(const Options& options) {
        if (!options.folder.empty())
            return WriteAll(options.folder);
        const RecordKind* const byCode = FindKindByCode(options.type);
        const RecordKind* const kind = byCode ? byCode : FindKindByRoot(options.type);
        return WriteOutput(options.output, MakeSchema(kind->description)) ? AllGood : SomethingBad;
    }
} // namespace

void tool::AddSchemaCommand(CLI::App& program, Command& chosen) {
    auto* const command =
        program.add_subcommand("schema", "Write the XML Schema of a record's documents, or all schemas");
    const auto options = std::make_shared<Options>();
    auto* const type = command->add_option("TYPE", options->type, "Category code or root element")
                           ->check(CLI::IsMember(CodesAndRoots()));
    auto* const output =
        command->add_option("-o,--output", options->output, "File to write instead of standard output");
    auto* const all =
        command->add_option("--all", options->folder, "Folder in which to write all schemas, as ROOT.xsd")
            ->excludes(type)
            ->excludes(output);
    command->callback([options, type, all, &chosen] {
        if (type->empty() && all->empty())
            throw CLI::RequiredError("TYPE or --all");
        chosen.run = [options] { return WriteSchema(*options); };
    });
}
