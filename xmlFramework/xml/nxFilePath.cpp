// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxFilePath.h"

#include <unicode/uchar.h>

#include <array>
#include <charconv>
#include <cstdio>

std::optional<std::string> nxFilePath::FromURI(std::string_view uri) {
    constexpr std::string_view Scheme = "file://";
    constexpr std::string_view ThisHost = "localhost";
    if (!uri.starts_with(Scheme))
        return std::nullopt;
    uri.remove_prefix(Scheme.size());
    if (uri.starts_with(ThisHost))
        uri.remove_prefix(ThisHost.size());
    if (!uri.starts_with('/'))
        return std::nullopt;

    std::string path;
    for (std::size_t i = 0; i < uri.size(); ++i) {
        auto byte = static_cast<unsigned char>(uri[i]);
        if (byte == '%') {
            const std::string_view digits = uri.substr(i + 1, 2);
            const char* const end = digits.data() + digits.size();
            if (digits.size() != 2 || std::from_chars(digits.data(), end, byte, 16).ptr != end)
                return std::nullopt;
            i += 2;
        }
        path += static_cast<char>(byte);
    }
    return path;
}

bool nxFilePath::FromWide(const std::wstring& wide, std::string& path) {
    bool isText = true;
    path.clear();
    for (const wchar_t unit : wide) {
        const auto character = static_cast<char32_t>(unit);
        std::array<char, 16> buffer{};
        std::size_t size = 0;
        if (character <= UCHAR_MAX_VALUE && !U_IS_SURROGATE(character)) {
            U8_APPEND_UNSAFE(buffer, size, character);
            path.append(buffer.data(), size);
        } else {
            isText = false;
            std::snprintf(buffer.data(), buffer.size(), "\\u{%X}", static_cast<unsigned int>(character));
            path += buffer.data();
        }
    }
    return isText;
}
