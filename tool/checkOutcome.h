// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"
#include "tool/collectedLog.h"
#include "xmlFramework/xml/nxXMLReport.h"

#include <string>
#include <string_view>
#include <vector>

namespace tool {
    // What a check says of one file.
    struct CheckOutcome {
        std::string path;
        nxErrorEnum result;
        std::string kind;    // what people call such a record; empty when it is not known
        std::string summary; // how much there is in it: "20 items"
        std::vector<std::string> problems;
        std::vector<LogLine> log;
        std::vector<nxXMLFinding> findings; // all
        bool isStrict = false;              // findings that are a loss count,
        bool isComplete = false;            // and so do those that are none
        std::string contents;

        // Findings that make the file a bad one.
        bool Counts(const nxXMLFinding& finding) const;
    };

    // In lines, for people.
    std::string FormatText(const CheckOutcome& outcome);
    // One JSON object in one line, as docs/schemas/check.schema.json describes it.
    std::string FormatJSON(const CheckOutcome& outcome);
} // namespace tool
