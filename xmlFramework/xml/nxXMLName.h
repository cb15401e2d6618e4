// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string_view>

namespace nxXMLName {
    // Whether the text is a name by the parser's own table, which follows XML 1.0.
    bool IsValid(std::string_view utf8);
} // namespace nxXMLName
