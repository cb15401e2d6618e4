// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tool {
    // The text as one line that does nothing to a terminal but appear on it, in its own order: ASCII control
    // characters become their pictures (a line feed becomes U+240A), other control characters, line
    // separators and those that turn the direction of writing "\u" and four digits, and bytes that are no
    // UTF-8 text "\x" and two.
    std::string Printable(std::string_view text);

    // A name that is told more than once: its first hundred characters, with a dot-dot-dot where that is not
    // all, so that a long one does not fill the page each time.
    std::string Shortened(std::string_view name);

    // How many columns of a terminal a text from Printable takes: East-Asian wide characters take two,
    // combining ones none.
    std::size_t CountColumns(std::string_view text);

    // As much of the beginning of a text from Printable as `count` columns hold, with what combines with it.
    std::string_view FirstColumns(std::string_view text, std::size_t count);
} // namespace tool
