// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/usage.h"

#include "tool/nearest.h"
#include "tool/printable.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <string_view>
#include <vector>

namespace {
    using namespace tool;

    struct Footer {
        std::string_view command; // empty: the program
        std::string_view statuses;
        std::string_view example;
    };
    constexpr std::string_view Usual = "0 all is well, 1 something could not be used or written, 2 wrong use";
    constexpr std::string_view Writing =
        "0 all is written, 1 nothing is written, 2 wrong use, 3 written, but "
        "something was left out, which is named";
    constexpr Footer Footers[] = {
        {"", Usual, "xmlframework check --strict *.xml"},
        {"types", Usual, "xmlframework types"},
        {"check", "0 all files are good, 1 some are not, 2 wrong use",
         "find . -name '*.xml' | xmlframework check --strict --jobs 0 --quiet @-"},
        {"convert", Writing, "xmlframework convert --pretty job.xml"},
        {"show", Usual, "xmlframework show mics.xml --filter oslo"},
        {"diff", "0 no difference, 1 some, 2 trouble", "xmlframework diff old.xml new.xml"},
        {"schema", Usual, "xmlframework schema KJOB -o job.xsd"},
        {"mic", Usual, "xmlframework mic import ISO10383_MIC.csv -o mics.xml"},
        {"import", Writing, "xmlframework mic import ISO10383_MIC.csv -o mics.xml"},
        {"update", Writing, "xmlframework mic update mics.xml ISO10383_MIC.csv -o mics.xml"},
        {"export", Writing, "xmlframework mic export mics.xml -o register.csv"},
    };

    void AddFooter(CLI::App& app, std::string_view name) {
        const auto* const footer = std::ranges::find(Footers, name, &Footer::command);
        const std::string statuses(footer == std::end(Footers) ? Usual : footer->statuses);
        const std::string example(footer == std::end(Footers)
                                      ? "xmlframework " + std::string(name) + " --help"
                                      : std::string(footer->example));
        app.footer("Exit status: " + statuses + "\nExample: " + example);
    }

    void AddFootersBelow(CLI::App& app) {
        for (CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; })) {
            AddFooter(*command, command->get_name());
            AddFootersBelow(*command);
        }
    }

    std::vector<std::string> CommandsOf(const CLI::App& app) {
        std::vector<std::string> names;
        for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; }))
            names.push_back(command->get_name());
        return names;
    }

    void AddOptionsOf(const CLI::App& app, std::vector<std::string>& names) {
        for (const CLI::Option* const option : app.get_options()) {
            for (const std::string& name : option->get_lnames())
                names.push_back("--" + name);
            for (const std::string& name : option->get_snames())
                names.push_back("-" + name);
        }
    }

    // Any letter is near to any other: only the same one in the other case is probably meant.
    bool IsLetterInOtherCase(std::string_view option, std::string_view other) {
        constexpr auto CaseBit = 0x20;
        return option.size() == 2 && other.size() == 2 && (option[1] ^ other[1]) == CaseBit;
    }

    std::string SuggestOption(const std::string& option, std::vector<std::string> known) {
        if (option.size() == 2)
            std::erase_if(known, [&](const auto& other) { return !IsLetterInOtherCase(option, other); });
        return SuggestName(option, known);
    }

    std::string Unknown(const char* what, const std::string& name, const std::string& suggestion) {
        return std::string("unknown ") + what + " '" + Printable(name) + "'" + suggestion;
    }

    const CLI::App* FindNamedCommand(const CLI::App& app) {
        const auto named = app.get_subcommands();
        return named.empty() ? nullptr : named.front();
    }

    // The command behind whose name the argument stands; the program is one as well.
    const CLI::App& FindCommandBefore(const std::string& argument, const CLI::App& program,
                                      const std::vector<const char*>& arguments) {
        const auto place = [&](const std::string& text) { return std::ranges::find(arguments, text); };
        const CLI::App* command = &program;
        for (const CLI::App* next; (next = FindNamedCommand(*command)); command = next) {
            if (place(next->get_name()) > place(argument))
                break;
        }
        return *command;
    }
} // namespace

void tool::AddFooters(CLI::App& program) {
    AddFooter(program, {});
    AddFootersBelow(program);
}

std::string tool::DescribeUnknown(const CLI::App& program, const std::vector<const char*>& arguments) {
    std::vector<std::string> options;
    for (const CLI::App* command = &program; command; command = FindNamedCommand(*command))
        AddOptionsOf(*command, options);

    for (const std::string& argument : program.remaining(true)) {
        const std::string option = argument.substr(0, argument.find('='));
        if (std::ranges::find(options, option) != options.end())
            return {}; // in the wrong place
        if (option.size() > 1 && option.starts_with('-'))
            return Unknown("option", option, SuggestOption(option, options));
        const std::vector<std::string> commands = CommandsOf(FindCommandBefore(argument, program, arguments));
        if (!commands.empty())
            return Unknown("command", argument, SuggestName(argument, commands));
    }
    return {};
}
