// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxLogLevelEnum.h"

#include <string>
#include <vector>

namespace tool {
    struct LogLine {
        nxLogLevelEnum level;
        std::string text; // without empty lines around it; may hold line ends; what is very long is cut
    };
    struct LogLines {
        std::vector<LogLine> shown;
        bool hasErrors = false; // whether shown or not
    };

    // From now on log records are kept, each by the thread that logs it, and written nowhere else. Those
    // below `threshold` are not shown.
    void CollectLog(const nxLogLevelEnum& threshold);

    // What this thread has logged since the last call.
    LogLines TakeLog();

    // For people: indented lines "level: text", each with its line end.
    std::string Format(const std::vector<LogLine>& lines);
} // namespace tool
