// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "tool/commands.h"
#include "tool/recordFile.h"

#include <optional>
#include <string>

namespace tool {
    // A record that is to be written in place of the document that it was read from.
    struct Rewriting {
        std::string input;
        std::string output;
        bool isLossy = false; // losses are no reason against the input as output
    };

    // Says on standard error what of the document will not be in the output. The status for when that is
    // written; nothing, said as well, when it must not be.
    std::optional<ExitStatus> JudgeLosses(const Rewriting& rewriting, const RecordFile& file);

    // The record's XML form. False, said on standard error, when there is none, or none that a reader would
    // find the same record in.
    bool WriteXML(const std::string& path, Record& record, const RecordKind& kind, std::string& xml);
} // namespace tool
