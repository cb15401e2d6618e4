// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <string_view>

namespace tool {
    // The XML form of a record, with each element in a line of its own. An element has a text or elements in
    // it, so a line end between two tags is in nobody's text, unless they are the tags of one empty element.
    std::string PrettyXML(std::string_view xml);
} // namespace tool
