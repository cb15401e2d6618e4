// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string_view>

// What no document of the platform comes near, and what would keep the parser busy for minutes.
namespace nxXMLLimits {
    // Why the parser must not see the text, which is UTF-8 and need not be well-formed; null when it may.
    const char* FindProblem(std::string_view utf8);
} // namespace nxXMLLimits
