// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <vector>

namespace CLI {
    class App;
} // namespace CLI

namespace tool {
    // Puts the exit statuses and an example below the help of the program and of each command.
    void AddFooters(CLI::App& program);

    // After a failed parse of the arguments: the command or option that is not known, and the one that was
    // probably meant. Nothing when something else is wrong.
    std::string DescribeUnknown(const CLI::App& program, const std::vector<const char*>& arguments);
} // namespace tool
