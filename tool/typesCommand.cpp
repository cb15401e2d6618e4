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
        Table table({"CODE", "CLASS", "ROOT ELEMENT"});
        for (const RecordKind& kind : RecordKinds()) {
            if (kind.isRegistered)
                table.AddRow({kind.code, std::string(kind.className), kind.root});
        }
        std::cout << table.Format();
        return AllGood;
    }
} // namespace

void tool::AddTypesCommand(CLI::App& program, Command& chosen) {
    program.add_subcommand("types", "List the registered records")->callback([&chosen] {
        chosen = PrintTypes;
    });
}
