// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCSVFileRow.h"
#include "tool/textDecoder.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class nxMICDefinitionList;

namespace tool {
    // A register of market identifier codes as ISO 10383 is published: CSV in one of two layouts, the older
    // with 13 columns or the newer with 17. Columns are found by their headings, in any order.
    struct MICRegister {
        // In the columns of nxMICDefinition, its texts in UTF-8 and such that XML can carry them. Each row
        // has a MIC of its own. Country, marker and status may be empty.
        struct Row {
            nxCSVFileRow columns;
            unsigned int line;
        };
        struct UnusableRow {
            unsigned int line;
            std::string reason;
            std::string mic; // where it could be read
        };

        std::string problem; // not empty: this is no register, and no row was looked at
        TextEncoding encoding = TextEncoding::UTF8;
        std::vector<std::string> headingsNotHeld; // columns for which a definition has no place
        bool hasCountry = false;
        std::vector<Row> rows;
        std::vector<UnusableRow> unusableRows;
    };

    // Without `encoding` it is detected.
    MICRegister ReadMICRegister(std::string_view csv, std::optional<TextEncoding> encoding);

    // A full row, as a new definition needs it, has a marker and a status. Says what is missing, else
    // nothing.
    std::string FindMissingValue(const MICRegister::Row& row);

    // The older layout, in UTF-8, with lines ended by CR LF.
    std::string WriteMICRegister(const nxMICDefinitionList& list);
} // namespace tool
