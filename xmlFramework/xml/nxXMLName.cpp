// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLName.h"

#include "xmlFramework/xml/nxXMLText.h"

#include <xercesc/util/XMLChar.hpp>

#include <algorithm>
#include <string>

namespace {
    constexpr bool IsLetter(char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    }
    constexpr bool IsNameStart(char c) {
        return IsLetter(c) || c == '_' || c == ':';
    }
    constexpr bool IsNamePart(char c) {
        return IsNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
    }
} // namespace

bool nxXMLName::IsValid(std::string_view utf8) {
    if (!utf8.empty() && IsNameStart(utf8.front()) && std::ranges::all_of(utf8, IsNamePart))
        return true;
    // The parser knows the rest, ASCII that is no name included.
    const nxXMLText name(utf8);
    return !name.GetProblem() && xercesc::XMLChar1_0::isValidName(name.Get());
}
