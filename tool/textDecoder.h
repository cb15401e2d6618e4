// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <iconv.h>

#include <optional>
#include <string>
#include <string_view>

namespace tool {
    enum class TextEncoding { UTF8, Windows1252 };

    std::string_view GetName(TextEncoding encoding);

    // UTF-8 where all of the text is that, else Windows-1252.
    TextEncoding DetectEncoding(std::string_view text);

    // Makes UTF-8 of texts in one encoding.
    class TextDecoder {
    public:
        // Throws std::runtime_error where the system cannot convert the encoding.
        explicit TextDecoder(TextEncoding encoding);
        ~TextDecoder();
        TextDecoder(const TextDecoder&) = delete;
        TextDecoder& operator=(const TextDecoder&) = delete;

        // Nothing for bytes that the encoding gives no meaning.
        std::optional<std::string> Decode(std::string_view text) const;

    private:
        TextEncoding _encoding;
        iconv_t _converter;
    };
} // namespace tool
