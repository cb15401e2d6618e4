// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"

#include <string>
#include <string_view>
#include <vector>

class NXCORE_API nxStringParser {
public:
    nxStringParser() = delete;

    // Splits `text`, from `start` to its end, at every `separator` and puts the parts into `parts` in order,
    // replacing what was there. Parts may be empty, and a separator at the end is followed by an empty part;
    // but where nothing is left to split (an empty text, a start at or past the end) there is no part at all.
    static void ExtractAllSubstrings(std::string_view text, std::vector<std::string>& parts,
                                     std::size_t start, char separator);
};
