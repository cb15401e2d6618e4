// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXMLReport.h"

#include <string>
#include <string_view>
#include <vector>

namespace tool {
    // For people: "job.xml:5:3: /KestrumJobSpec/Limts: unknown element 'Limts'", and below it the line of the
    // document with a mark under the place, where the document is one of bytes that are characters.
    std::string FindingLine(const std::string& path, std::string_view contents, const nxXMLFinding& finding);

    // All that are a loss.
    std::string FindingLines(const std::string& path, std::string_view contents,
                             const std::vector<nxXMLFinding>& findings);
} // namespace tool
