// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCSVFileRow.h"
#include "xmlFramework/market/nxMICDefinition.h"

#include <array>
#include <string>

// One builder and one checker for the entries of the MIC register: an entry as the texts of its thirteen
// columns, in the order of the CSV row and of the XML elements, with "true" and "false" for the two flags.
namespace nxMICSample {
    using Fields = std::array<std::string, nxMICDefinition::CSVColumnCount>;

    inline const Fields Example{"XABC", "UNITED KINGDOM", "GB",      "XABC",     "true", "Example & Co",
                                "EXA",  "LONDON",         "www.a.b", "20240101", "true", "20050530",
                                "none"};

    inline nxMICDefinition Make(const Fields& fields) {
        nxMICDefinition definition;
        definition.SetMIC(fields[0]);
        definition.SetCountry(fields[1]);
        definition.SetIsoCountryCode(fields[2]);
        definition.SetOperatingMIC(fields[3]);
        definition.GetIsOperatingMIC(fields[4] == "true");
        definition.SetName(fields[5]);
        definition.SetAcronym(fields[6]);
        definition.SetCity(fields[7]);
        definition.SetWebsite(fields[8]);
        definition.SetStatusDate(fields[9]);
        definition.SetIsActive(fields[10] == "true");
        definition.SetCreationDate(fields[11]);
        definition.SetComments(fields[12]);
        return definition;
    }

    inline Fields Of(const nxMICDefinition& definition) {
        const auto text = [](bool flag) { return std::string(flag ? "true" : "false"); };
        return {definition.GetMIC(),
                definition.GetCountry(),
                definition.GetIsoCountryCode(),
                definition.GetOperatingMIC(),
                text(definition.GetIsOperatingMIC()),
                definition.GetName(),
                definition.GetAcronym(),
                definition.GetCity(),
                definition.GetWebsite(),
                definition.GetStatusDate(),
                text(definition.GetIsActive()),
                definition.GetCreationDate(),
                definition.GetComments()};
    }

    inline nxCSVFileRow Row(std::initializer_list<const char*> columns) {
        nxCSVFileRow row;
        for (const char* column : columns)
            row.AddColumn(column);
        return row;
    }
} // namespace nxMICSample
