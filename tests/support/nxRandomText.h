// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <initializer_list>
#include <random>
#include <string>
#include <string_view>

// Texts that an XML document can carry, in UTF-8, and hard ones more often than chance would give them. The
// same sequence in every run.
class nxRandomText {
public:
    explicit nxRandomText(unsigned int seed) : _random(seed) {}

    unsigned int Below(unsigned int bound) { return static_cast<unsigned int>(_random() % bound); }
    bool Flag() { return Below(2) == 1; }

    std::string Text() {
        constexpr std::string_view Hard[] = {"\r",  "\r\n", "\n",    "\t", " ",
                                             "]]>", "<!--", "&amp;", "\"", ","};
        std::string text;
        for (unsigned int pieces = Below(8); pieces > 0; --pieces) {
            if (Flag())
                text += Hard[Below(std::size(Hard))];
            else
                _AppendCharacter(text);
        }
        return text;
    }

    std::string Key() {
        std::string key;
        while (key.size() < 4)
            key += static_cast<char>('A' + Below(26));
        return key;
    }

private:
    void _AppendCharacter(std::string& text) {
        struct Range {
            char32_t first;
            char32_t last;
        };
        constexpr Range Ranges[] = {{0x20, 0x7E},     {0x7F, 0xFF},        {0x100, 0xD7FF},
                                    {0xE000, 0xFFFD}, {0x10000, 0x10FFFF}, {0x2028, 0x2029}};
        const Range range = Ranges[Below(std::size(Ranges))];
        const char32_t c = range.first + Below(range.last - range.first + 1);
        const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
        const auto appendRest = [&](std::initializer_list<unsigned int> shifts) {
            for (const unsigned int shift : shifts)
                append(0x80 | (c >> shift & 0x3F));
        };
        if (c < 0x80) {
            append(c);
        } else if (c < 0x800) {
            append(0xC0 | c >> 6);
            appendRest({0});
        } else if (c < 0x10000) {
            append(0xE0 | c >> 12);
            appendRest({6, 0});
        } else {
            append(0xF0 | c >> 18);
            appendRest({12, 6, 0});
        }
    }

    std::mt19937 _random;
};
