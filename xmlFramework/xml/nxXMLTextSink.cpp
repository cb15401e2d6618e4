// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLTextSink.h"

#include "core/nxLogManager.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLCharacters.h"
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

    // The high bits of the bytes that are zero, or below a limit. All bytes are ASCII, so no carry leaves its
    // byte.
    constexpr Word ZeroBytes(Word ascii) {
        return ~(ascii + ~HighBits) & HighBits;
    }
    constexpr Word BytesEqual(Word ascii, unsigned char byte) {
        return ZeroBytes(ascii ^ Repeated(byte));
    }
    constexpr Word BytesBelow(Word ascii, unsigned char limit) {
        return ~(ascii + Repeated(static_cast<unsigned char>(0x80 - limit))) & HighBits;
    }

    // What XML has to write otherwise: markup, and the white space that a parser would change.
    struct InText {
        static constexpr std::string_view EscapeOf(char c) {
            switch (c) {
            case '&':
                return "&amp;";
            case '<':
                return "&lt;";
            case '>':
                return "&gt;";
            case '\r':
                return "&#xD;";
            default:
                return {};
            }
        }
        // The high bits of those of eight bytes that may not stand as they are. Other bytes than ASCII are
        // not looked at.
        static constexpr Word Escaped(Word ascii) {
            const Word angles = BytesEqual(ascii | Repeated('<' ^ '>'), '<' | '>');
            return BytesEqual(ascii, '&') | angles | BytesEqual(ascii, '\r');
        }
        static constexpr Word Controls(Word ascii) {
            return BytesBelow(ascii, ' ') & ~(BytesEqual(ascii, '\n') | BytesEqual(ascii, '\t'));
        }
    };
    struct InAttribute {
        static constexpr std::string_view EscapeOf(char c) {
            switch (c) {
            case '"':
                return "&quot;";
            case '>':
                return {};
            case '\t':
                return "&#x9;";
            case '\n':
                return "&#xA;";
            default:
                return InText::EscapeOf(c);
            }
        }
        static constexpr Word Escaped(Word ascii) {
            const Word ampersandOrQuote = BytesEqual(ascii | Repeated('&' ^ '"'), '&' | '"');
            return ampersandOrQuote | BytesEqual(ascii, '<') | Controls(ascii);
        }
        static constexpr Word Controls(Word ascii) { return BytesBelow(ascii, ' '); }
    };

    // Whether eight bytes are characters that may stand as they are.
    template <class Where>
    constexpr bool IsPlain(Word word) {
        const Word ascii = word & ~HighBits;
        return ((word & HighBits) | Where::Controls(ascii) | Where::Escaped(ascii)) == 0;
    }

    template <class Piece>
    Piece Load(const char* from) {
        Piece piece{};
        std::memcpy(&piece, from, sizeof piece);
        return piece;
    }
    template <class Piece>
    void Store(char* to, Piece piece) {
        std::memcpy(to, &piece, sizeof piece);
    }

    // Copies a text while `isPlain` holds for all of it, eight bytes at a time. The last eight may be copied
    // twice: most texts and names are short, and a call for each, or a loop over what is left, would take
    // longer than all else. False when something is not plain; what was copied is of no use then.
    template <class IsPlainWord>
    bool CopyPlain(char* to, const char* from, std::size_t size, IsPlainWord isPlain) {
        if (size >= sizeof(Word)) {
            const std::size_t last = size - sizeof(Word);
            for (std::size_t i = 0; i < last; i += sizeof(Word)) {
                const auto word = Load<Word>(from + i);
                if (!isPlain(word))
                    return false;
                Store(to + i, word);
            }
            const auto word = Load<Word>(from + last);
            Store(to + last, word);
            return isPlain(word);
        }
        if (size >= sizeof(std::uint32_t)) {
            const std::size_t last = size - sizeof(std::uint32_t);
            const auto first = Load<std::uint32_t>(from);
            const auto second = Load<std::uint32_t>(from + last);
            Store(to, first);
            Store(to + last, second);
            return isPlain(Word{first} << 32U | second);
        }
        Word word = Repeated(' '); // plain
        for (std::size_t i = 0; i < size; ++i) {
            to[i] = from[i];
            word = word << 8U | static_cast<unsigned char>(from[i]);
        }
        return isPlain(word);
    }

    // Copies a text of allowed characters with what has to be escaped, and returns where it ends.
    template <class Where>
    char* CopyEscaped(char* to, std::string_view text) {
        while (!text.empty()) {
            const std::string_view word = text.substr(0, sizeof(Word));
            text.remove_prefix(word.size());
            if (word.size() == sizeof(Word)) {
                const auto bytes = Load<Word>(word.data());
                if (Where::Escaped(bytes & ~HighBits) == 0) {
                    Store(to, bytes);
                    to += sizeof(Word);
                    continue;
                }
            }
            for (const char c : word) {
                const std::string_view escape = Where::EscapeOf(c);
                if (escape.empty())
                    *to++ = c;
                else
                    to = std::ranges::copy(escape, to).out;
            }
        }
        return to;
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
    CopyPlain(_next, name.data(), name.size(), [](Word) { return true; });
    _next += name.size();
}

void nxXMLTextSink::_CloseStartTag() {
    if (_isInStartTag)
        _Put('>');
    _isInStartTag = false;
}

// The problem is for the log, and made only where that will have it.
template <class Describe>
void nxXMLTextSink::_Refuse(std::string_view element, Describe describe) {
    if (nxLogManager::ShouldLog(nxLogLevels::Error))
        _problem.append(describe()).append(", in element '").append(element).append("'");
    _Fail(nxErrorEnum::XMLTextNotCarried);
}

void nxXMLTextSink::_RefuseText(const char* what, std::string_view text, std::string_view element) {
    _Refuse(element, [what, text] {
        return std::string(what) + " cannot be carried by XML: " + nxXMLText(text).GetProblem();
    });
}

// False when the text cannot be carried.
template <class Where>
bool nxXMLTextSink::_PutEscaped(std::string_view text) {
    if (text.size() <= MaxPiece) {
        _Reserve(text.size() * MaxEscaped + MaxMarkup);
        if (CopyPlain(_next, text.data(), text.size(), IsPlain<Where>)) {
            _next += text.size();
            return true;
        }
    }
    if (text.size() > nxXMLText::MaxSize || !nxXMLCharacters::AreAllowed(text))
        return false;
    while (!text.empty()) {
        const std::string_view piece = text.substr(0, MaxPiece);
        text.remove_prefix(piece.size());
        _Reserve(piece.size() * MaxEscaped + MaxMarkup);
        _next = CopyEscaped<Where>(_next, piece);
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
            _Refuse(_Parent(),
                    [name] { return "the name '" + std::string(name) + "' cannot be carried by XML"; });
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
    if (!_PutEscaped<InAttribute>(value))
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
    if (!_PutEscaped<InText>(text))
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
