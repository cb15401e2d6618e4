// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/printable.h"

#include <algorithm>

namespace {
    constexpr unsigned char Delete = 0x7F;

    bool IsContinuation(char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
    }

    std::size_t LengthByFirstByte(unsigned char byte) {
        if (byte < 0x80)
            return 1;
        if (byte >= 0xC2 && byte <= 0xDF)
            return 2;
        if (byte >= 0xE0 && byte <= 0xEF)
            return 3;
        return byte >= 0xF0 && byte <= 0xF4 ? 4 : 0;
    }

    // The bytes of the first character; empty when they are no UTF-8.
    std::string_view FirstCharacter(std::string_view text) {
        const std::string_view character =
            text.substr(0, LengthByFirstByte(static_cast<unsigned char>(text.front())));
        const bool whole = character.size() == LengthByFirstByte(static_cast<unsigned char>(text.front()));
        return whole && std::ranges::all_of(character.substr(std::min<std::size_t>(1, character.size())),
                                            IsContinuation)
                   ? character
                   : std::string_view();
    }

    std::string Escaped(std::string_view bytes) {
        constexpr std::string_view Digits = "0123456789ABCDEF";
        std::string escaped;
        for (const char c : bytes) {
            const auto byte = static_cast<unsigned char>(c);
            escaped.append("\\x").append(1, Digits[byte >> 4U]).append(1, Digits[byte & 0xFU]);
        }
        return escaped;
    }

    // U+2400 to U+241F picture the characters 0 to 31, U+2421 the one behind the last ASCII letter.
    std::string Picture(unsigned char control) {
        const int offset = control == Delete ? 0x21 : control;
        return "\xE2\x90" + std::string(1, static_cast<char>(0x80 + offset));
    }

    std::string PrintableCharacter(std::string_view character) {
        const auto first = static_cast<unsigned char>(character.front());
        if (first < ' ' || first == Delete)
            return Picture(first);
        if (first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0) // U+0080 to U+009F
            return Escaped(character);
        return std::string(character);
    }
} // namespace

std::string tool::Printable(std::string_view text) {
    std::string printable;
    printable.reserve(text.size());
    while (!text.empty()) {
        const std::string_view character = FirstCharacter(text);
        printable += character.empty() ? Escaped(text.substr(0, 1)) : PrintableCharacter(character);
        text.remove_prefix(std::max<std::size_t>(1, character.size()));
    }
    return printable;
}

std::size_t tool::CountCharacters(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, [](char c) { return !IsContinuation(c); }));
}

std::string_view tool::FirstCharacters(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    for (; end < text.size(); ++end) {
        if (!IsContinuation(text[end]) && count-- == 0)
            break;
    }
    return text.substr(0, end);
}
