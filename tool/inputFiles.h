// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <vector>

namespace tool {
    struct InputFiles {
        std::vector<std::string> paths;
        std::vector<std::string> problems; // of arguments that name no files, for people
    };

    // What arguments stand for: a folder for all "*.xml" in it and in the folders below, in the order of
    // their paths; "@LIST" for the paths in that file, one a line, of which each may be a folder; "@-" for
    // those on standard input; any other for itself.
    InputFiles FindInputFiles(const std::vector<std::string>& arguments);
} // namespace tool
