// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string_view>

// What UTF-8 text is made of. Private to the library.
namespace nxXMLCharacters {
    // Whether a text is valid UTF-8 and holds only characters that XML 1.0 allows (production 2, Char).
    bool AreAllowed(std::string_view utf8);
} // namespace nxXMLCharacters
