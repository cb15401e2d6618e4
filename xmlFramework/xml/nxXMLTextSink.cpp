// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLTextSink.h"

#include "xmlFramework/xml/nxXMLName.h"
#include "xmlFramework/xml/nxXMLText.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {
    using Word = std::uint64_t;

    constexpr std::size_t MaxEscaped = 6;  // bytes that take the place of one: "&quot;"
    constexpr std::size_t MaxMarkup = 8;   // what stands around a name or a text
    constexpr std::size_t MaxPiece = 1024; // of a text, between two looks at the room left

    constexpr Word Repeated(unsigned char byte) {
        return Word{0x0101010101010101U} * byte;
    }
    constexpr Word HighBits = Repeated(0x80);

    // These mark, by their high bits, at least the first byte that is meant. The bytes are ASCII.
    constexpr Word BytesBelow(Word word, unsigned char limit) {
        return (word - Repeated(limit)) & ~word & HighBits;
    }
    constexpr Word BytesEqual(Word word, unsigned char byte) {
        return BytesBelow(word ^ Repeated(byte), 1);
    }

    // Whether all eight bytes may stand as they are.
    constexpr bool IsPlainText(Word word) {
        const Word angles = BytesEqual(word | Repeated('<' ^ '>'), '<' | '>');
        return ((word & HighBits) | BytesBelow(word, ' ') | BytesEqual(word, '&') | angles) == 0;
    }
    constexpr bool IsPlainAttributeValue(Word word) {
        const Word ampersandOrQuote = BytesEqual(word | Repeated('&' ^ '"'), '&' | '"');
        return ((word & HighBits) | BytesBelow(word, ' ') | ampersandOrQuote | BytesEqual(word, '<')) == 0;
    }

    // What stands in a document for an ASCII character: the character itself where this is null, nothing that
    // XML could carry where it is empty. Line ends and tabs that a parser would change are written as
    // references.
    using Escapes = std::array<const char*, 128>;

    constexpr Escapes ControlsRefused() {
        Escapes escapes{};
        std::fill_n(escapes.begin(), ' ', "");
        escapes['&'] = "&amp;";
        escapes['<'] = "&lt;";
        escapes['\r'] = "&#xD;";
        return escapes;
    }
    constexpr Escapes TextEscapes = [] {
        Escapes escapes = ControlsRefused();
        escapes['\t'] = escapes['\n'] = nullptr;
        escapes['>'] = "&gt;";
        return escapes;
    }();
    constexpr Escapes AttributeEscapes = [] {
        Escapes escapes = ControlsRefused();
        escapes['\t'] = "&#x9;";
        escapes['\n'] = "&#xA;";
        escapes['"'] = "&quot;";
        return escapes;
    }();

    unsigned char ByteAt(const char* text) {
        return static_cast<unsigned char>(*text);
    }

    constexpr bool IsContinuation(unsigned char byte) {
        return (byte & 0xC0U) == 0x80U;
    }

    // The length in UTF-8 of the character at `text`, which is not ASCII; 0 when it is no character that
    // XML 1.0 allows.
    std::size_t CharacterLength(const char* text, const char* end) {
        const unsigned char first = ByteAt(text);
        const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
        if (first < 0xC2 || first > 0xF4 || static_cast<std::size_t>(end - text) < length)
            return 0;

        const unsigned char second = ByteAt(text + 1);
        // The first bytes that leave their second less than all continuations.
        const unsigned char low = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
        const unsigned char high = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
        if (second < low || second > high)
            return 0;
        for (std::size_t i = 2; i < length; ++i) {
            if (!IsContinuation(ByteAt(text + i)))
                return 0;
        }
        const bool isNoCharacter =
            first == 0xEF && second == 0xBF && ByteAt(text + 2) >= 0xBE; // U+FFFE, U+FFFF
        return isNoCharacter ? 0 : length;
    }
} // namespace

void nxXMLTextSink::Flush() {
    _text.append(_buffer.data(), _next);
    _next = _buffer.data();
}

void nxXMLTextSink::_Reserve(std::size_t size) {
    if (static_cast<std::size_t>(_buffer.data() + _buffer.size() - _next) < size)
        Flush();
}

// With room for the markup around it.
void nxXMLTextSink::_PutName(std::string_view name) {
    if (name.size() > MaxPiece) {
        Flush();
        _text.append(name);
        return;
    }
    std::memcpy(_next, name.data(), name.size());
    _next += name.size();
}

void nxXMLTextSink::_CloseStartTag() {
    if (_isInStartTag)
        _Put('>');
    _isInStartTag = false;
}

void nxXMLTextSink::_Refuse(const std::string& what, std::string_view element) {
    _problem.append(what).append(", in element '").append(element).append("'");
    _Fail(nxErrorEnum::XMLTextNotCarried);
}

void nxXMLTextSink::_RefuseText(const char* what, std::string_view text, std::string_view element) {
    _Refuse(std::string(what) + " cannot be carried by XML: " + nxXMLText(text).GetProblem(), element);
}

// False when the text cannot be carried.
template <nxXMLTextSink::Place Where>
bool nxXMLTextSink::_PutEscaped(std::string_view text) {
    constexpr const Escapes& EscapeOf = Where == Place::Text ? TextEscapes : AttributeEscapes;
    if (text.size() > nxXMLText::MaxSize)
        return false;

    const char* from = text.data();
    const char* const textEnd = from + text.size();
    while (from != textEnd) {
        const std::size_t piece = std::min(static_cast<std::size_t>(textEnd - from), MaxPiece);
        const char* const end = from + piece;
        _Reserve(piece * MaxEscaped + MaxMarkup);
        char* to = _next;
        while (from < end) {
            if (static_cast<std::size_t>(end - from) >= sizeof(Word)) {
                Word word = 0;
                std::memcpy(&word, from, sizeof word);
                if (Where == Place::Text ? IsPlainText(word) : IsPlainAttributeValue(word)) {
                    std::memcpy(to, &word, sizeof word);
                    from += sizeof word;
                    to += sizeof word;
                    continue;
                }
            }
            const unsigned char byte = ByteAt(from);
            if (byte < EscapeOf.size()) {
                const char* const escape = EscapeOf[byte];
                if (!escape)
                    *to++ = *from;
                else if (*escape == '\0')
                    return false;
                else
                    to = std::copy_n(escape, std::strlen(escape), to);
                ++from;
            } else {
                const std::size_t length = CharacterLength(from, textEnd);
                if (length == 0)
                    return false;
                to = std::copy_n(from, length, to);
                from += length;
            }
        }
        _next = to;
    }
    return true;
}

void nxXMLTextSink::Start(std::string_view name) {
    if (!IsOK())
        return;
    if (!nxXMLName::IsValid(name)) {
        if (nxXMLText(name).GetProblem())
            _RefuseText("a name", name, _Parent());
        else
            _Refuse("the name '" + std::string(name) + "' cannot be carried by XML", _Parent());
        return;
    }

    _Reserve(MaxMarkup + MaxPiece);
    _CloseStartTag();
    _Put('<');
    _PutName(name);
    _isInStartTag = true;
    _open.push_back(name);
}

void nxXMLTextSink::Attribute(std::string_view name, std::string_view value) {
    if (!IsOK())
        return;
    _Reserve(MaxMarkup + MaxPiece);
    _Put(' ');
    _PutName(name);
    _Put('=');
    _Put('"');
    if (!_PutEscaped<Place::AttributeValue>(value))
        return _RefuseText("an attribute's value", value, _Parent());
    _Reserve(MaxMarkup);
    _Put('"');
}

void nxXMLTextSink::Field(std::string_view name, std::string_view text) {
    if (!IsOK())
        return;
    _Reserve(MaxMarkup + MaxPiece);
    _CloseStartTag();
    _Put('<');
    _PutName(name);
    _Put('>');
    if (!_PutEscaped<Place::Text>(text))
        return _RefuseText("a text", text, name);
    _PutEndTag(name);
}

void nxXMLTextSink::End() {
    if (!IsOK())
        return;
    const std::string_view name = _open.back();
    _open.pop_back();
    if (!_isInStartTag)
        return _PutEndTag(name);
    _Reserve(MaxMarkup);
    _Put('/');
    _Put('>');
    _isInStartTag = false;
}

void nxXMLTextSink::_PutEndTag(std::string_view name) {
    _Reserve(MaxMarkup + MaxPiece);
    _Put('<');
    _Put('/');
    _PutName(name);
    _Reserve(MaxMarkup);
    _Put('>');
}
