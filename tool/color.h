// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tool {
    enum class Color { Plain, Red, Green, Yellow, Bold };
    enum class Stream { Output, Error };

    // What --color may say; the first unless told.
    const std::vector<std::string>& ColorChoices();
    // "always", "never", or "auto": on a terminal, unless the environment has NO_COLOR (not empty) or TERM is
    // "dumb".
    void ChooseColor(std::string_view choice);

    // The text in the colour, for the stream that it goes to; as it stands where there are to be no colours.
    std::string Paint(Color color, std::string_view text, Stream stream = Stream::Output);
} // namespace tool
