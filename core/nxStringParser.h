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

    // Splits `text` at every `separator` and calls use(part), a std::string_view, for each part in order.
    // Parts may be empty, and a separator at the end is followed by an empty part; but an empty text has no
    // part at all.
    template <class Use>
    static void ForEachSubstring(std::string_view text, char separator, Use&& use) {
        if (text.empty())
            return;

        for (std::size_t end = text.find(separator); end != std::string_view::npos;
             end = text.find(separator)) {
            use(text.substr(0, end));
            text.remove_prefix(end + 1);
        }
        use(text);
    }

    // The parts of `text` from `start` to its end, put into `parts` in place of what was there. None for a
    // start at or past the end. The text must not be one of `parts`.
    static void ExtractAllSubstrings(std::string_view text, std::vector<std::string>& parts,
                                     std::size_t start, char separator);
};
