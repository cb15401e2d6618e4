// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <optional>
#include <string>
#include <string_view>

// Paths as the operating system takes them, out of other forms.
namespace nxFilePath {
    // Of "file:///tmp/a%20b"; nothing for what is no URI of a local file.
    std::optional<std::string> FromURI(std::string_view uri);

    // In UTF-8. False for what is no Unicode text; `path` is for people then, with what is no character
    // escaped, as in "a\u{D800}".
    bool FromWide(const std::wstring& wide, std::string& path);
} // namespace nxFilePath
