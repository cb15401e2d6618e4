// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLDescription.h"

namespace {
    std::string Joined(const std::vector<std::string>& texts) {
        std::string joined;
        for (const std::string& text : texts)
            joined.append(joined.empty() ? "" : ", ").append(text);
        return joined;
    }
} // namespace

std::string nxXMLValueDescription::GetAsString() const {
    switch (type) {
    case Type::Text:
        return "a text";
    case Type::Texts:
        return "texts with commas between them";
    case Type::Flag:
        return "true or false";
    case Type::Number:
        return "a whole number from " + minimum + " to " + maximum +
               (texts.empty() ? "" : ", or one of: " + Joined(texts));
    case Type::Decimal:
        return "a decimal number";
    case Type::Time:
        return "a time such as 08:30:00";
    case Type::Enumeration:
        return "one of: " + Joined(texts);
    }
    return {};
}
