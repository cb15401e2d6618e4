// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxStringParser.h"

void nxStringParser::ExtractAllSubstrings(std::string_view text, std::vector<std::string>& parts,
                                          std::size_t start, char separator) {
    parts.clear();
    if (start >= text.size())
        return;

    for (;;) {
        const std::size_t end = text.find(separator, start);
        parts.emplace_back(text.substr(start, end - start));
        if (end == std::string_view::npos)
            return;
        start = end + 1;
    }
}
