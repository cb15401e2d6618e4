// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

// The one place where text crosses between the library's UTF-8 and the parser's UTF-16. Strict both ways:
// what cannot be converted exactly is reported, never replaced or cut.

// A text on its way into a document.
class nxXMLText {
public:
    // In bytes. Sizes cross ICU's interface as int32_t; three bytes of UTF-8 at most come from one unit of
    // UTF-16.
    static constexpr std::size_t MaxSize = std::numeric_limits<std::int32_t>::max() / 3;

    explicit nxXMLText(std::string_view utf8);
    explicit nxXMLText(const std::wstring& wide); // UTF-32
    nxXMLText(const nxXMLText&) = delete;
    nxXMLText& operator=(const nxXMLText&) = delete;

    // Why an XML 1.0 document cannot carry the text; null when it can.
    const char* GetProblem() const { return _problem; }
    // Terminated UTF-16; the empty text when there is a problem.
    const char16_t* Get() const { return _units; }

private:
    char16_t* _Reserve(std::size_t units);
    void _Refuse(const char* problem);

    static constexpr std::size_t InlineUnits = 256; // most values; longer ones go to the heap

    std::array<char16_t, InlineUnits> _inline;
    std::unique_ptr<char16_t[]> _heap;
    char16_t* _units = _inline.data();
    const char* _problem = nullptr;
};

namespace nxXMLTextOut {
    // Out of a document. False, with the argument untouched, for text that is no valid UTF-16.
    bool Convert(std::u16string_view text, std::string& utf8);
    bool Convert(std::u16string_view text, std::wstring& wide);

    // Whether the two are the same name.
    bool Equals(const char16_t* name, std::string_view utf8);
} // namespace nxXMLTextOut
