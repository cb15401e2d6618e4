// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// The command `xmlframework`: looks at the library's records, converts them, and keeps the register of market
// identifier codes. docs/tool.md describes it.

#include "core/nxLogLevelEnum.h"
#include "core/nxVersion.h"
#include "tool/collectedLog.h"
#include "tool/color.h"
#include "tool/commands.h"
#include "tool/printable.h"
#include "tool/usage.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace {
    using namespace tool;

    std::vector<std::string> LogLevelNames() {
        std::vector<std::string> names;
        for (const nxEnumRow& row : nxLogLevelEnum::Rows()) {
            if (row.value != nxEnum::UndefinedValue && row.value != nxEnum::NoChangeValue)
                names.emplace_back(row.shortDescription);
        }
        return names;
    }

    nxLogLevelEnum LogLevel(const std::string& name) {
        nxLogLevelEnum level;
        level.SetFromShortDescriptionString(name);
        return level;
    }

    // `help COMMAND` is `COMMAND --help`.
    bool AsksForHelp(int argc, const char* const* argv) {
        return argc > 1 && argv[1] == std::string_view("help") && (argc == 2 || *argv[2] != '-');
    }
    std::vector<const char*> TakeArguments(int argc, const char* const* argv) {
        std::vector<const char*> arguments(argv, argv + argc);
        if (AsksForHelp(argc, argv)) {
            arguments.erase(arguments.begin() + 1);
            arguments.push_back("--help");
        }
        return arguments;
    }

    // --help and --version come here as well.
    ExitStatus EndEarly(const CLI::App& program, const CLI::ParseError& asked, const std::string& unknown) {
        if (unknown.empty() && asked.get_exit_code() == 0) {
            program.exit(asked);
            return AllGood;
        }
        std::cerr << "xmlframework: " << (unknown.empty() ? Printable(asked.what()) : unknown)
                  << "\nRun with --help for more information.\n";
        return WrongUse;
    }

    ExitStatus RunCommandLine(int argc, const char* const* argv, Command& chosen) {
        CLI::App program("Looks at exchange reference data and specification records in XML.",
                         "xmlframework");
        program.set_version_flag("--version", std::string("xmlframework ") + nxVersion::GetLoadedText());
        program.require_subcommand(1);
        program.fallthrough();
        std::string logLevel = nxLogLevelEnum(nxLogLevelEnum::Warning).GetShortDescription();
        program.add_option("--log-level", logLevel, "The least level of log lines to show")
            ->check(CLI::IsMember(LogLevelNames()))
            ->capture_default_str();
        std::string color = ColorChoices().front();
        program.add_option("--color", color, "Whether to use colours; auto: on a terminal without NO_COLOR")
            ->check(CLI::IsMember(ColorChoices()))
            ->capture_default_str();

        AddTypesCommand(program, chosen);
        AddCheckCommand(program, chosen);
        AddConvertCommand(program, chosen);
        AddShowCommand(program, chosen);
        AddDiffCommand(program, chosen);
        AddSchemaCommand(program, chosen);
        AddMICCommands(program, chosen);
        AddGenerateCommand(program, chosen);
        AddFooters(program);
        const std::vector<const char*> arguments = TakeArguments(argc, argv);
        try {
            program.parse(static_cast<int>(arguments.size()), arguments.data());
        } catch (const CLI::ParseError& asked) {
            const bool isAnswered = asked.get_exit_code() == 0 && !AsksForHelp(argc, argv);
            return EndEarly(program, asked, isAnswered ? std::string() : DescribeUnknown(program, arguments));
        }

        CollectLog(LogLevel(logLevel));
        ChooseColor(color);
        return chosen.run();
    }

    ExitStatus RunAndFlush(int argc, const char* const* argv, Command& chosen) {
        const ExitStatus status = RunCommandLine(argc, argv, chosen);
        if (std::cout.flush())
            return status;
        std::cerr << "xmlframework: cannot write to standard output\n";
        return chosen.trouble;
    }
} // namespace

int main(int argc, char** argv) {
    tool::Command chosen;
    try {
        return RunAndFlush(argc, argv, chosen);
    } catch (const std::bad_alloc&) {
        std::cerr << "xmlframework: there is not enough memory\n";
    } catch (const std::exception& error) {
        std::cerr << "xmlframework: " << Printable(error.what()) << '\n';
    } catch (...) {
        std::cerr << "xmlframework: unexpected exception\n";
    }
    return chosen.trouble;
}
