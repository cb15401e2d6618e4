// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxBitMask.h"

#include <array>
#include <bit>
#include <charconv>
#include <iterator>
#include <string_view>

namespace {
    struct BitTexts {
        std::string_view className; // empty: any class
        unsigned int bit;
        std::string_view shortText;
        std::string_view longText;
    };

    constexpr BitTexts Texts[] = {
        {"", nxBitMask::NullBit, "NULL", "Null, no flags were ever set"},
        {"", nxBitMask::NoChangeBit, "NO_CHANGE", "No change, the stored flags are left as they are"},
        {"nxKeyboardModifierBitMask", 0x1, "Shift", "Shift key held"},
        {"nxKeyboardModifierBitMask", 0x2, "Ctrl", "Control key held"},
        {"nxKeyboardModifierBitMask", 0x4, "Alt", "Alt key held"},
        {"nxKeyboardModifierBitMask", 0x8, "Meta", "Meta (Windows, command) key held"},
        {"nxSecurityNodeAccessBaseBitMask", 0x1, "Read", "Read access"},
        {"nxSecurityNodeAccessBaseBitMask", 0x2, "Write", "Write access"},
    };

    const BitTexts* FindTexts(std::string_view className, unsigned int bit) {
        const auto* texts = std::ranges::find_if(Texts, [&](const BitTexts& row) {
            return row.bit == bit && (row.className.empty() || row.className == className);
        });
        return texts != std::end(Texts) ? texts : nullptr;
    }

    std::string Flag(unsigned int bit) {
        return "Flag " + std::to_string(std::countr_zero(bit));
    }

    std::string Hexadecimal(unsigned int value) {
        std::array<char, 8> digits;
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16).ptr;
        return "0x" + std::string(digits.data(), end);
    }

    std::string ShortText(std::string_view className, unsigned int bit) {
        const BitTexts* texts = FindTexts(className, bit);
        return texts ? std::string(texts->shortText) : Flag(bit);
    }

    std::string LongText(std::string_view className, unsigned int bit) {
        const BitTexts* texts = FindTexts(className, bit);
        return texts ? std::string(texts->longText) : Flag(bit) + " (" + Hexadecimal(bit) + ")";
    }

    template <class TextOfBit>
    std::string Join(const nxBitMask& mask, const std::string& separator, TextOfBit textOfBit) {
        const std::string className = mask.GetClassName();
        std::string joined;
        for (unsigned int left = mask.GetValue(); left != 0; left &= left - 1) {
            if (!joined.empty())
                joined += separator;
            joined += textOfBit(className, left & ~(left - 1));
        }
        return joined;
    }
} // namespace

nxBitMask::~nxBitMask() = default;

bool nxBitMask::IsValid() const {
    return (_value & (NullBit | NoChangeBit)) == 0;
}

bool nxBitMask::IsNoChange() const {
    return (_value & NoChangeBit) != 0;
}

bool nxBitMask::IsNull() const {
    return (_value & NullBit) != 0;
}

void nxBitMask::SetBits(const nxBitMask& bits) {
    SetBits(bits._value);
}

void nxBitMask::SetBits(unsigned int bits) {
    _value |= bits;
}

void nxBitMask::SetNull() {
    _value = NullBit;
}

void nxBitMask::SetNoChange() {
    _value = NoChangeBit;
}

std::string nxBitMask::GetShortDescription(const std::string& separator) const {
    return Join(*this, separator, ShortText);
}

std::string nxBitMask::GetLongDescription(const std::string& separator) const {
    return Join(*this, separator, LongText);
}

nxBitMask& nxBitMask::operator|=(const nxBitMask& bits) {
    SetBits(bits);
    return *this;
}

nxBitMask& nxBitMask::operator|=(unsigned int bits) {
    SetBits(bits);
    return *this;
}
