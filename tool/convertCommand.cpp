// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/commands.h"
#include "tool/recordFile.h"

#include <CLI/CLI.hpp>

#include <iostream>

namespace {
    using namespace tool;

    struct Options {
        std::string file;
        std::string output{StandardStream};
    };

    ExitStatus Convert(const Options& options) {
        const std::unique_ptr<Record> record = ReadRecordOrComplain(options.file).record;
        if (!record)
            return SomethingBad;

        std::string xml;
        const nxErrorEnum result = record->ConvertToXML(xml);
        if (!result.IsOK()) {
            std::cerr << FailureLines(options.file, result, "the record cannot be written");
            return SomethingBad;
        }
        return WriteOutput(options.output, xml) ? AllGood : SomethingBad;
    }
} // namespace

void tool::AddConvertCommand(CLI::App& program, Command& chosen) {
    auto* const command = program.add_subcommand("convert", "Read a record and write it in its own form");
    const auto options = std::make_shared<Options>();
    command->add_option("FILE", options->file, "Document; - is standard input")->required();
    command->add_option("-o,--output", options->output, "File to write instead of standard output");
    command->callback([options, &chosen] { chosen = [options] { return Convert(*options); }; });
}
