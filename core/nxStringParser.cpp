// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxStringParser.h"

#include <algorithm>

void nxStringParser::ExtractAllSubstrings(std::string_view text, std::vector<std::string>& parts,
                                          std::size_t start, char separator) {
    parts.clear();
    ForEachSubstring(text.substr(std::min(start, text.size())), separator,
                     [&parts](std::string_view part) { parts.emplace_back(part); });
}
