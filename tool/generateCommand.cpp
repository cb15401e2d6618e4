// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// The manual page and the shells' completions, made from the definitions by which the command line is read.
// The build runs this command; people need not know it.

#include "tool/commands.h"
#include "tool/recordFile.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <map>

namespace {
    using namespace tool;
    using Texts = std::vector<std::string>;

    // ---- What there is

    struct Defined {
        Texts path; // of the names of commands, without the program's; empty for the program
        CLI::App* app;
    };

    void AddDefined(std::vector<Defined>& all, const Texts& path, CLI::App& app) {
        all.push_back({path, &app});
        for (CLI::App* const command :
             app.get_subcommands([](const CLI::App* command) { return !command->get_group().empty(); })) {
            Texts inner = path;
            inner.push_back(command->get_name());
            AddDefined(all, inner, *command);
        }
    }

    // The program first, each command before those within it.
    std::vector<Defined> AllDefined(CLI::App& program) {
        std::vector<Defined> all;
        AddDefined(all, {}, program);
        return all;
    }

    std::string Joined(const Texts& texts, const std::string& separator) {
        return CLI::detail::join(texts, separator);
    }

    std::vector<CLI::Option*> Options(CLI::App& app) {
        return app.get_options([](const CLI::Option* option) { return option->nonpositional(); });
    }
    std::vector<CLI::Option*> Positionals(CLI::App& app) {
        return app.get_options([](const CLI::Option* option) { return option->get_positional(); });
    }

    // "--format", "-o".
    Texts Spellings(const CLI::Option& option) {
        Texts spellings;
        for (const std::string& name : option.get_snames())
            spellings.push_back("-" + name);
        for (const std::string& name : option.get_lnames())
            spellings.push_back("--" + name);
        return spellings;
    }

    bool TakesValue(const CLI::Option& option) {
        return option.get_items_expected_max() > 0;
    }

    // The only values that an option takes; none when it takes any.
    Texts Values(CLI::Option& option) {
        const std::string type = option.get_type_name(); // "TEXT:{one,other}"
        const std::size_t begin = type.find('{');
        const std::size_t end = type.find('}', begin);
        return end == std::string::npos ? Texts()
                                        : CLI::detail::split(type.substr(begin + 1, end - begin - 1), ',');
    }

    std::string Placeholder(const CLI::Option& option) {
        const std::string type = option.get_type_name();
        return type.substr(0, type.find(':'));
    }

    Texts CommandNames(CLI::App& app) {
        Texts names;
        for (const CLI::App* const command :
             app.get_subcommands([](const CLI::App* command) { return !command->get_group().empty(); }))
            names.push_back(command->get_name());
        return names;
    }

    // ---- The manual page

    std::string Roff(const std::string& text) {
        std::string roff;
        for (const char c : text) {
            if (c == '\\')
                roff += "\\e";
            else if (c == '-')
                roff += "\\-";
            else
                roff += c;
        }
        return roff.starts_with('.') || roff.starts_with('\'') ? "\\&" + roff : roff;
    }
    std::string Sentence(const std::string& text) {
        return Roff(text) + (text.ends_with('.') ? "\n" : ".\n");
    }
    std::string Bold(const std::string& text) {
        return "\\fB" + Roff(text) + "\\fR";
    }
    std::string Italic(const std::string& text) {
        return "\\fI" + Roff(text) + "\\fR";
    }

    std::string Synopsis(const Defined& defined) {
        std::string line = Bold("xmlframework " + Joined(defined.path, " "));
        line += " [" + Italic("option") + "]...";
        for (const CLI::Option* const positional : Positionals(*defined.app)) {
            const bool isMany = positional->get_items_expected_max() > 1;
            const std::string name = Italic(positional->get_name(true)) + (isMany ? "..." : "");
            line += positional->get_required() ? " " + name : " [" + name + "]";
        }
        return line;
    }

    std::string OptionParagraph(CLI::Option& option) {
        Texts spellings;
        for (const std::string& spelling : Spellings(option))
            spellings.push_back(Bold(spelling));
        const Texts values = Values(option);
        std::string text =
            ".TP\n" + (spellings.empty() ? Italic(option.get_name(true)) : Joined(spellings, ", "));
        if (!spellings.empty() && TakesValue(option))
            text += " " + (values.empty() ? Italic(Placeholder(option)) : Roff(Joined(values, "|")));
        text += "\n" + Sentence(option.get_description());
        if (spellings.empty() && !values.empty())
            text += "One of: " + Roff(Joined(values, ", ")) + ".\n";
        if (!option.get_default_str().empty())
            text += "Default: " + Roff(option.get_default_str()) + ".\n";
        return text;
    }

    std::string OptionParagraphs(CLI::App& app) {
        std::string text;
        for (CLI::Option* const positional : Positionals(app))
            text += OptionParagraph(*positional);
        for (CLI::Option* const option : Options(app))
            text += OptionParagraph(*option);
        return text;
    }

    std::string ManPage(CLI::App& program) {
        const std::string description = program.get_description();
        std::string page = R"(.TH XMLFRAMEWORK 1 "" ")" + program.version() + "\" \"User Commands\"\n" +
                           ".SH NAME\nxmlframework \\- " +
                           Roff(description.substr(0, description.find('.'))) + "\n.SH SYNOPSIS\n";
        Texts lines;
        std::string commands;
        for (const Defined& defined : AllDefined(program)) {
            if (CommandNames(*defined.app).empty())
                lines.push_back(Synopsis(defined) + "\n");
            if (!defined.path.empty())
                commands += ".SS " + Roff(Joined(defined.path, " ")) + "\n" +
                            Sentence(defined.app->get_description()) + OptionParagraphs(*defined.app);
        }
        return page + Joined(lines, ".br\n") + ".SH DESCRIPTION\n" + Sentence(description) +
               "A file \\- is standard input, or behind \\fB\\-o\\fR standard output.\n" + ".SH OPTIONS\n" +
               OptionParagraphs(program) + ".SH COMMANDS\n" + commands +
               ".SH EXIT STATUS\n"
               ".TP\n0\nAll is well.\n"
               ".TP\n1\nA file, or a part of it, could not be used, or the output could not be written.\n"
               ".TP\n2\nThe command line makes no sense.\n"
               ".SH ENVIRONMENT\n"
               ".TP\nNO_COLOR\nNo colours, unless an option asks for them.\n";
    }

    // ---- Completions

    std::string Quoted(const std::string& text) {
        std::string quoted;
        for (const char c : text)
            quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
        return "'" + quoted + "'";
    }

    // The command line up to the word to complete has a path of commands: " mic import".
    std::string Key(const Defined& defined) {
        return defined.path.empty() ? "" : " " + Joined(defined.path, " ");
    }

    // A branch that finds the path, in the syntax that both shells have.
    std::string PathPattern(CLI::App& program) {
        Texts patterns;
        for (const Defined& defined : AllDefined(program)) {
            if (!defined.path.empty())
                patterns.push_back(Quoted(Key(defined)));
        }
        return Joined(patterns, "|");
    }

    // One branch for each option that takes a value: `say` makes it of the only values there are, of which
    // there may be none. The program's own options stand behind any command.
    std::string ValueBranches(CLI::App& program, const std::function<std::string(const Texts&)>& say) {
        std::string branches;
        for (const Defined& defined : AllDefined(program)) {
            for (CLI::Option* const option : Options(*defined.app)) {
                if (!TakesValue(*option))
                    continue;
                Texts patterns;
                for (const std::string& spelling : Spellings(*option))
                    patterns.push_back((defined.path.empty() ? "*" : "") +
                                       Quoted(Key(defined) + " " + spelling));
                branches += "    " + Joined(patterns, "|") + ") " + say(Values(*option)) + " ;;\n";
            }
        }
        return branches;
    }

    // Commands, options and the values of arguments.
    Texts Words(CLI::App& app) {
        Texts words = CommandNames(app);
        for (CLI::Option* const positional : Positionals(app)) {
            for (const std::string& value : Values(*positional))
                words.push_back(value);
        }
        for (const CLI::Option* const option : Options(app)) {
            for (const std::string& spelling : Spellings(*option))
                words.push_back(spelling);
        }
        return words;
    }

    std::string BashCompletion(CLI::App& program) {
        std::string text = "# bash completion for xmlframework\n"
                           "_xmlframework() {\n"
                           "    local current=${COMP_WORDS[COMP_CWORD]} path= word words\n"
                           "    COMPREPLY=()\n"
                           "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
                           "        case \"$path $word\" in\n        " +
                           PathPattern(program) +
                           ") path+=\" $word\" ;;\n"
                           "        esac\n"
                           "    done\n"
                           "    case \"$path ${COMP_WORDS[COMP_CWORD-1]}\" in\n" +
                           ValueBranches(program,
                                         [](const Texts& values) {
                                             return values.empty() ? "return"
                                                                   : "COMPREPLY=($(compgen -W " +
                                                                         Quoted(Joined(values, " ")) +
                                                                         " -- \"$current\")); return";
                                         }) +
                           "    esac\n"
                           "    case $path in\n";
        for (const Defined& defined : AllDefined(program))
            text += "    " + Quoted(Key(defined)) + ") words=" + Quoted(Joined(Words(*defined.app), " ")) +
                    " ;;\n";
        return text + "    esac\n"
                      "    COMPREPLY=($(compgen -W \"$words\" -- \"$current\"))\n"
                      "}\n"
                      "complete -o default -F _xmlframework xmlframework\n";
    }

    std::string ZshWords(const std::string& name,
                         const std::vector<std::pair<std::string, std::string>>& words) {
        std::string text = name + "=(";
        for (const auto& [word, description] : words)
            text.append(" ").append(Quoted(Joined({word, description}, ":")));
        return text + " )";
    }

    std::string ZshBranch(const Defined& defined) {
        std::vector<std::pair<std::string, std::string>> commands;
        std::vector<std::pair<std::string, std::string>> options;
        for (const std::string& name : CommandNames(*defined.app))
            commands.emplace_back(name, defined.app->get_subcommand(name)->get_description());
        for (CLI::Option* const positional : Positionals(*defined.app)) {
            for (const std::string& value : Values(*positional))
                commands.emplace_back(value, positional->get_description());
        }
        for (const CLI::Option* const option : Options(*defined.app)) {
            for (const std::string& spelling : Spellings(*option))
                options.emplace_back(spelling, option->get_description());
        }
        return "    " + Quoted(Key(defined)) + ") " + ZshWords("commands", commands) + "; " +
               ZshWords("options", options) + " ;;\n";
    }

    std::string ZshCompletion(CLI::App& program) {
        std::string text = "#compdef xmlframework\n"
                           "_xmlframework() {\n"
                           "    local path_= word\n"
                           "    local -a commands options\n"
                           "    for word in ${words[2,CURRENT-1]}; do\n"
                           "        case \"$path_ $word\" in\n        " +
                           PathPattern(program) +
                           ") path_+=\" $word\" ;;\n"
                           "        esac\n"
                           "    done\n"
                           "    case \"$path_ ${words[CURRENT-1]}\" in\n" +
                           ValueBranches(program,
                                         [](const Texts& values) {
                                             return values.empty()
                                                        ? "_files; return"
                                                        : "compadd -- " + Joined(values, " ") + "; return";
                                         }) +
                           "    esac\n"
                           "    case $path_ in\n";
        for (const Defined& defined : AllDefined(program))
            text += ZshBranch(defined);
        return text + "    esac\n"
                      "    (( $#commands )) && _describe command commands || _files\n"
                      "    _describe -o option options\n"
                      "}\n"
                      "_xmlframework \"$@\"\n";
    }
} // namespace

void tool::AddGenerateCommand(CLI::App& program, Command& chosen) {
    using Make = std::string (*)(CLI::App&);
    static const std::map<std::string, Make> makers{
        {"bash", BashCompletion}, {"man", ManPage}, {"zsh", ZshCompletion}};

    struct Arguments {
        std::string what;
        std::string output{StandardStream};
    };
    auto* const command =
        program.add_subcommand("generate", "Write the manual page or a shell's completions");
    command->group(""); // not shown
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("WHAT", arguments->what, "What to write")
        ->required()
        ->check(CLI::IsMember({"bash", "man", "zsh"}));
    command->add_option("-o,--output", arguments->output, "File to write instead of standard output");
    command->callback([arguments, &program, &chosen] {
        chosen.run = [arguments, &program] {
            return WriteOutput(arguments->output, makers.at(arguments->what)(program)) ? AllGood
                                                                                       : SomethingBad;
        };
    });
}
