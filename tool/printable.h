// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tool {
    // The text as one line that does nothing to a terminal but appear on it: control characters become their
    // pictures (a line feed becomes U+240A), and bytes that are no UTF-8 text become "\x" and two digits.
    std::string Printable(std::string_view text);

    // How many characters a text from Printable has. A terminal gives each one column, but for the wide
    // East-Asian ones.
    std::size_t CountCharacters(std::string_view text);

    // The first `count` characters of a text from Printable.
    std::string_view FirstCharacters(std::string_view text, std::size_t count);
} // namespace tool
