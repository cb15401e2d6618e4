// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLCharacters.h"

#include <experimental/simd>

#include <array>
#include <cstdint>

namespace {
    // A state machine that reads bytes. The row of a byte holds, for each state, the state behind that byte
    // in six bits, and a state is the position of its bits: a step is one shift, without a branch.
    //
    // Eleven states do not fit side by side. But behind AfterEFBF there are only Refused and Whole, whose
    // numbers need no more than the four bits that are left at the top.
    enum State : unsigned int {
        Refused = 0, // for good: its bits are zero in every row
        Whole = 6,   // between two characters
        OneToGo = 12,
        TwoToGo = 18,
        ThreeToGo = 24,
        AfterE0 = 30, // no overlong forms
        AfterED = 36, // no surrogates
        AfterEF = 42,
        AfterF0 = 48,   // no overlong forms
        AfterF4 = 54,   // nothing beyond U+10FFFF
        AfterEFBF = 60, // neither U+FFFE nor U+FFFF
    };

    struct Transition {
        State from;
        unsigned int first; // byte
        unsigned int last;
        State to;
    };
    constexpr Transition Transitions[] = {
        {Whole, '\t', '\n', Whole},       {Whole, '\r', '\r', Whole},     {Whole, 0x20, 0x7F, Whole},
        {Whole, 0xC2, 0xDF, OneToGo},     {Whole, 0xE0, 0xE0, AfterE0},   {Whole, 0xE1, 0xEC, TwoToGo},
        {Whole, 0xED, 0xED, AfterED},     {Whole, 0xEE, 0xEE, TwoToGo},   {Whole, 0xEF, 0xEF, AfterEF},
        {Whole, 0xF0, 0xF0, AfterF0},     {Whole, 0xF1, 0xF3, ThreeToGo}, {Whole, 0xF4, 0xF4, AfterF4},
        {OneToGo, 0x80, 0xBF, Whole},     {TwoToGo, 0x80, 0xBF, OneToGo}, {ThreeToGo, 0x80, 0xBF, TwoToGo},
        {AfterE0, 0xA0, 0xBF, OneToGo},   {AfterED, 0x80, 0x9F, OneToGo}, {AfterEF, 0x80, 0xBE, OneToGo},
        {AfterEF, 0xBF, 0xBF, AfterEFBF}, {AfterF0, 0x90, 0xBF, TwoToGo}, {AfterF4, 0x80, 0x8F, TwoToGo},
        {AfterEFBF, 0x80, 0xBD, Whole},
    };

    constexpr auto Rows = [] {
        std::array<std::uint64_t, 256> rows{};
        for (const Transition& transition : Transitions) {
            for (unsigned int byte = transition.first; byte <= transition.last; ++byte)
                rows[byte] |= std::uint64_t{transition.to} << transition.from;
        }
        return rows;
    }();

    std::uint64_t Step(std::uint64_t state, char c) {
        return Rows[static_cast<unsigned char>(c)] >> (state & 63U);
    }

    using Bytes = std::experimental::native_simd<signed char>; // negative: not ASCII

    bool IsAllowedASCII(const char* text, std::size_t size) {
        Bytes::mask_type refused(false);
        for (std::size_t i = 0; i < size; i += Bytes::size()) {
            const Bytes bytes(text + i, std::experimental::element_aligned);
            refused |= bytes < 0x20 && bytes != Bytes('\t') && bytes != Bytes('\n') && bytes != Bytes('\r');
        }
        return none_of(refused);
    }
} // namespace

bool nxXMLCharacters::AreAllowed(std::string_view utf8) {
    constexpr std::size_t Stretch = 64;
    std::uint64_t state = Whole;
    while (utf8.size() >= Stretch) {
        if ((state & 63U) != Whole || !IsAllowedASCII(utf8.data(), Stretch)) {
            for (const char c : utf8.substr(0, Stretch))
                state = Step(state, c);
            if ((state & 63U) == Refused)
                return false;
        }
        utf8.remove_prefix(Stretch);
    }
    for (const char c : utf8)
        state = Step(state, c);
    return (state & 63U) == Whole;
}
