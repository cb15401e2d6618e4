// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/commands.h"
#include "tool/prettyXML.h"
#include "tool/recordFile.h"
#include "tool/rewriting.h"

#include <CLI/CLI.hpp>

namespace {
    using namespace tool;

    struct Options {
        Rewriting files{{}, std::string(StandardStream)};
        bool isPretty = false;
    };

    ExitStatus Convert(const Options& options) {
        const RecordFile file = ReadRecordOrComplain(options.files.input);
        if (!file.record)
            return SomethingBad;
        const std::optional<ExitStatus> status = JudgeLosses(options.files, file);
        std::string xml;
        if (!status || !WriteXML(options.files.input, *file.record, *file.kind, xml))
            return SomethingBad;
        if (options.isPretty)
            xml = PrettyXML(xml);
        return WriteOutput(options.files.output, xml) ? *status : SomethingBad;
    }
} // namespace

void tool::AddConvertCommand(CLI::App& program, Command& chosen) {
    auto* const command = program.add_subcommand("convert", "Read a record and write it in its own form");
    const auto options = std::make_shared<Options>();
    command->add_option("FILE", options->files.input, "Document; - is standard input")->required();
    command->add_option("-o,--output", options->files.output, "File to write instead of standard output");
    command->add_flag("--lossy", options->files.isLossy,
                      "Write over the input even where the record does not hold all of it");
    command->add_flag("--pretty", options->isPretty, "Write each element in a line of its own, indented");
    command->callback([options, &chosen] { chosen.run = [options] { return Convert(*options); }; });
}
