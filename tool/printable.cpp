// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/printable.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace {
    constexpr UChar32 Delete = 0x7F;

    // The first character of a text that is not empty; negative when its bytes are no UTF-8. Takes its bytes
    // away from the text.
    UChar32 TakeCharacter(std::string_view& text) {
        std::size_t length = 0;
        UChar32 character = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion" // within ICU's own macro
        U8_NEXT(text, length, text.size(), character);
#pragma GCC diagnostic pop
        text.remove_prefix(length);
        return character;
    }

    std::string Escaped(const char* prefix, unsigned int number, unsigned int digits) {
        constexpr std::string_view Digits = "0123456789ABCDEF";
        std::string escaped(prefix);
        while (digits-- > 0)
            escaped += Digits[number >> (4 * digits) & 0xFU];
        return escaped;
    }

    std::string EscapedBytes(std::string_view bytes) {
        std::string escaped;
        for (const char byte : bytes)
            escaped += Escaped("\\x", static_cast<unsigned char>(byte), 2);
        return escaped;
    }

    // U+2400 to U+241F picture the characters 0 to 31, U+2421 the one behind the last ASCII letter.
    std::string Picture(UChar32 control) {
        const UChar32 offset = control == Delete ? 0x21 : control;
        return "\xE2\x90" + std::string(1, static_cast<char>(0x80 + offset));
    }

    bool DoesMoreThanAppear(UChar32 character) {
        switch (u_charType(character)) {
        case U_CONTROL_CHAR:
        case U_LINE_SEPARATOR:
        case U_PARAGRAPH_SEPARATOR:
            return true;
        default:
            return u_hasBinaryProperty(character, UCHAR_BIDI_CONTROL);
        }
    }

    std::string PrintableCharacter(UChar32 character, std::string_view bytes) {
        if (character < 0)
            return EscapedBytes(bytes);
        if (character < ' ' || character == Delete)
            return Picture(character);
        if (DoesMoreThanAppear(character))
            return Escaped("\\u", static_cast<unsigned int>(character), 4);
        return std::string(bytes);
    }

    std::size_t Columns(UChar32 character) {
        switch (u_charType(character)) {
        case U_NON_SPACING_MARK:
        case U_ENCLOSING_MARK:
        case U_FORMAT_CHAR:
            return 0;
        default:
            break;
        }
        const int syllable = u_getIntPropertyValue(character, UCHAR_HANGUL_SYLLABLE_TYPE);
        if (syllable == U_HST_VOWEL_JAMO || syllable == U_HST_TRAILING_JAMO) // part of the syllable before
            return 0;
        const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
        return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
    }
} // namespace

std::string tool::Printable(std::string_view text) {
    std::string printable;
    printable.reserve(text.size());
    while (!text.empty()) {
        const std::string_view before = text;
        const UChar32 character = TakeCharacter(text);
        printable += PrintableCharacter(character, before.substr(0, before.size() - text.size()));
    }
    return printable;
}

std::string tool::Shortened(std::string_view name) {
    constexpr std::size_t Longest = 100;
    std::string_view rest = name;
    for (std::size_t i = 0; i < Longest && !rest.empty(); ++i)
        static_cast<void>(TakeCharacter(rest));
    std::string shown(name.substr(0, name.size() - rest.size()));
    return rest.empty() ? shown : shown + "…";
}

std::size_t tool::CountColumns(std::string_view text) {
    std::size_t count = 0;
    while (!text.empty())
        count += Columns(TakeCharacter(text));
    return count;
}

std::string_view tool::FirstColumns(std::string_view text, std::size_t count) {
    std::string_view rest = text;
    while (!rest.empty()) {
        std::string_view next = rest;
        const std::size_t columns = Columns(TakeCharacter(next));
        if (columns > count)
            break;
        count -= columns;
        rest = next;
    }
    return text.substr(0, text.size() - rest.size());
}
