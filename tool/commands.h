// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <functional>

namespace CLI {
    class App;
} // namespace CLI

namespace tool {
    enum ExitStatus : int {
        AllGood = 0,
        SomethingBad = 1, // a file could not be used or written, or a part of it
        WrongUse = 2,     // the command line makes no sense
        SomeLeftOut = 3,  // the output is written, but not all of the input is in it
    };

    // What a command line asks for.
    struct Command {
        std::function<ExitStatus()> run;
        ExitStatus trouble = SomethingBad; // when it does not come to its end, or its output is not written
    };

    // Each adds one command with its options to the program. When the command line names it, `chosen` becomes
    // what is to be done.
    void AddTypesCommand(CLI::App& program, Command& chosen);
    void AddCheckCommand(CLI::App& program, Command& chosen);
    void AddConvertCommand(CLI::App& program, Command& chosen);
    void AddShowCommand(CLI::App& program, Command& chosen);
    void AddDiffCommand(CLI::App& program, Command& chosen);
    void AddSchemaCommand(CLI::App& program, Command& chosen);
    void AddMICCommands(CLI::App& program, Command& chosen);
    void AddGenerateCommand(CLI::App& program, Command& chosen); // behind all others: it writes of them
} // namespace tool
