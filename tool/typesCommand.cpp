// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/commands.h"
#include "tool/recordKinds.h"
#include "tool/table.h"

#include <CLI/CLI.hpp>

#include <iostream>

namespace {
    using namespace tool;

    ExitStatus PrintTypes() {
        Table table({"CODE", "CLASS", "ROOT ELEMENT", "REGISTERED"});
        for (const RecordKind& kind : RecordKinds())
            table.AddRow(
                {kind.code, std::string(kind.className), kind.root, kind.isRegistered ? "yes" : "no"});
        std::cout << table.Format();
        return AllGood;
    }
} // namespace

void tool::AddTypesCommand(CLI::App& program, Command& chosen) {
    program.add_subcommand("types", "List the classes of records, and which of them the registry makes")
        ->callback([&chosen] { chosen = PrintTypes; });
}
