// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/prettyXML.h"

namespace {
    constexpr std::size_t Indentation = 2;

    // The tag at the beginning of the text. A ">" in an attribute's value does not end it.
    std::string_view FirstTag(std::string_view text) {
        char quote = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const char c = text[i];
            if (c == quote)
                quote = 0;
            else if (quote != 0)
                continue;
            else if (c == '"' || c == '\'')
                quote = c;
            else if (c == '>')
                return text.substr(0, i + 1);
        }
        return text;
    }
} // namespace

std::string tool::PrettyXML(std::string_view xml) {
    std::string pretty;
    std::size_t depth = 0;
    bool startsLine = false; // the next tag, unless it ends the element that has just begun
    bool hasBegun = false;
    while (!xml.empty()) {
        const std::string_view tag = FirstTag(xml);
        xml.remove_prefix(tag.size());
        const std::string_view text = xml.substr(0, xml.find('<'));
        xml.remove_prefix(text.size());

        const bool ends = tag.starts_with("</");
        if (ends)
            --depth;
        if (startsLine && !(ends && hasBegun))
            pretty.append("\n").append(Indentation * depth, ' ');
        pretty.append(tag).append(text);
        hasBegun = !ends && !tag.ends_with("/>");
        if (hasBegun)
            ++depth;
        startsLine = text.empty();
    }
    return pretty + "\n";
}
