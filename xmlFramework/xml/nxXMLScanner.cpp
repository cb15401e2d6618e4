// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLScanner.h"

#include "xmlFramework/xml/nxXMLCharacters.h"

#include <experimental/simd>
#include <xercesc/util/XMLChar.hpp>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>
#include <vector>

namespace {
    // ---- Bytes, many at a time

    using Bytes = std::experimental::native_simd<unsigned char>;

    Bytes Load(const char* from) {
        return {reinterpret_cast<const unsigned char*>(from), std::experimental::element_aligned};
    }

    // What follows is asked of one byte, and of many at a time.

    template <char... Chars, class Byte>
    auto IsAnyOf(const Byte& byte) {
        return ((byte == Byte(static_cast<unsigned char>(Chars))) || ...);
    }

    template <char First, char Last, class Byte>
    auto IsWithin(const Byte& byte) {
        constexpr unsigned char Span = Last - First;
        return static_cast<Byte>(byte - Byte(static_cast<unsigned char>(First))) <= Byte(Span);
    }

    // XML 1.0, production 4a (NameChar), as far as it is ASCII.
    template <class Byte>
    auto IsNameByte(const Byte& byte) {
        const auto lower = static_cast<Byte>(byte | Byte(static_cast<unsigned char>(0x20)));
        return IsWithin<'a', 'z'>(lower) || IsWithin<'0', ':'>(byte) || IsAnyOf<'-', '.', '_'>(byte);
    }

    bool IsNameStart(char c) {
        const auto byte = static_cast<unsigned char>(c);
        return IsNameByte(byte) && !IsWithin<'0', '9'>(byte) && !IsAnyOf<'-', '.'>(byte);
    }

    bool IsSpace(char c) {
        return IsAnyOf<' ', '\t', '\n', '\r'>(static_cast<unsigned char>(c));
    }

    bool IsASCII(char c) {
        return static_cast<signed char>(c) >= 0;
    }

    // One bit a byte, as to_ullong of C++26 gives it. Until then the library calls it so.
    [[gnu::always_inline]] inline std::uint64_t Bits(const Bytes::mask_type& mask) {
        return mask.__to_bitset().to_ullong();
    }

    // Finds wanted bytes in a text, by one bit a byte for 64 bytes at a time: what lies close together, as in
    // markup, is found without a loop.
    template <class Wanted>
    class Marks {
    public:
        explicit Marks(std::string_view text) : _text(text) {}

        // The first wanted byte, or the end.
        const char* Next(const char* at) {
            const std::size_t offset = static_cast<std::size_t>(at - _text.data()) - _block;
            if (offset < Size) {
                if (const std::uint64_t bits = _bits >> offset; bits != 0)
                    return at + std::countr_zero(bits);
            }
            return _NextBehindBlock(at);
        }

    private:
        static constexpr std::size_t Size = 64;

        const char* _NextBehindBlock(const char* at) {
            auto place = static_cast<std::size_t>(at - _text.data());
            if (place - _block < Size)
                place = _block + Size;
            while (place < _text.size()) {
                const std::size_t offset = place % Size;
                _block = place - offset;
                _bits = _Load();
                if (const std::uint64_t bits = _bits >> offset; bits != 0)
                    return _text.data() + place + std::countr_zero(bits);
                place = _block + Size;
            }
            return _text.data() + _text.size();
        }

        // NUL stands for what is behind the end: wanted as the end of a name, and not wanted otherwise.
        std::uint64_t _Load() const {
            const std::size_t left = _text.size() - _block;
            if (left >= Size)
                return _LoadFrom(_text.data() + _block);
            std::array<char, Size> padded{};
            _text.copy(padded.data(), left, _block);
            return _LoadFrom(padded.data());
        }

        static std::uint64_t _LoadFrom(const char* from) {
            std::uint64_t bits = 0;
            for (std::size_t i = 0; i < Size; i += Bytes::size())
                bits |= Bits(Wanted()(Load(from + i))) << i;
            return bits;
        }

        const std::string_view _text;
        std::size_t _block = 0 - Size; // where it begins: none yet
        std::uint64_t _bits = 0;
    };

    struct TextSpecial {
        auto operator()(const auto& byte) const { return IsAnyOf<'<', '&', '\r', ']'>(byte); }
    };
    struct NameEnd {
        auto operator()(const auto& byte) const { return !IsNameByte(byte); }
    };
    struct ValueSpecial {
        auto operator()(const auto& byte) const {
            return IsAnyOf<'"', '\'', '<', '&', '\t', '\n', '\r'>(byte);
        }
    };

    bool StartsWith(const char* at, const char* end, std::string_view text) {
        return static_cast<std::size_t>(end - at) >= text.size() &&
               std::memcmp(at, text.data(), text.size()) == 0;
    }

    // The same for a text that stands before `at` in the same memory.
    bool Repeats(const char* at, const char* end, std::string_view before) {
        if (before.size() > Bytes::size() || static_cast<std::size_t>(end - at) < Bytes::size())
            return StartsWith(at, end, before);
        const auto differs = Load(at) != Load(before.data());
        return none_of(differs) || static_cast<std::size_t>(find_first_set(differs)) >= before.size();
    }

    // ---- Characters

    // The character at `at` in valid UTF-8, and `at` behind it. 0 for a character beyond U+FFFF.
    char16_t TakeCharacter(const char*& at) {
        const auto lead = static_cast<unsigned char>(*at++);
        if (lead < 0x80)
            return lead;
        if (lead >= 0xF0) {
            at += 3;
            return 0;
        }
        const auto append = [&at](unsigned int bits) {
            return static_cast<char16_t>(bits << 6U | (static_cast<unsigned char>(*at++) & 0x3FU));
        };
        return lead < 0xE0 ? append(lead & 0x1FU) : append(append(lead & 0x0FU));
    }

    // XML 1.0, production 2 (Char).
    constexpr bool IsAllowed(std::uint32_t character) {
        return character < 0x20 ? character == '\t' || character == '\n' || character == '\r'
                                : (character < 0xD800 || character >= 0xE000) && character != 0xFFFE &&
                                      character != 0xFFFF && character <= 0x10FFFF;
    }

    char* PutCharacter(std::uint32_t character, char* to) {
        const auto put = [&to](std::uint32_t byte) { *to++ = static_cast<char>(byte); };
        const auto putRest = [&](unsigned int shift) { put(0x80 | (character >> shift & 0x3F)); };
        if (character < 0x80) {
            put(character);
        } else if (character < 0x800) {
            put(0xC0 | character >> 6);
            putRest(0);
        } else if (character < 0x10000) {
            put(0xE0 | character >> 12);
            putRest(6);
            putRest(0);
        } else {
            put(0xF0 | character >> 18);
            putRest(12);
            putRest(6);
            putRest(0);
        }
        return to;
    }

    // ---- The document

    // Each operation takes the place where something begins, and gives the place behind it, or null where it
    // is none that the scanner knows to be well-formed.
    class Scanner {
    public:
        Scanner(nxXMLTree& tree, std::string_view utf8)
            : _tree(tree), _begin(utf8.data()), _end(utf8.data() + utf8.size()), _textMarks(utf8),
              _nameMarks(utf8), _valueMarks(utf8) {
            _open.reserve(16);
        }

        bool Run() {
            const char* at = _Declaration(_begin);
            at = at ? _Miscellany(at) : nullptr;
            at = at ? _RootElement(at) : nullptr;
            at = at ? _Miscellany(at) : nullptr;
            return at && at == _end;
        }

    private:
        using Element = nxXMLTree::Element;
        using Attribute = nxXMLTree::Attribute;

        // An element whose end tag has not come yet.
        struct Open {
            Element* element;
            Element* lastChild;
            const Element* likely; // has mostly the next child's name: a child of the sibling before, or null
        };

        bool _IsAt(const char* at, char c) const { return at != _end && *at == c; }
        bool _IsAt(const char* at, std::string_view text) const { return StartsWith(at, _end, text); }

        const char* _Spaces(const char* at) const {
            while (at != _end && IsSpace(*at))
                ++at;
            return at;
        }

        const char* _Behind(const char* at, std::string_view text) const {
            return at && _IsAt(at, text) ? at + text.size() : nullptr;
        }

        const char* _Next(const char* at, char c) const {
            const void* const found = std::memchr(at, c, static_cast<std::size_t>(_end - at));
            return found ? static_cast<const char*>(found) : _end;
        }

        const char* _BehindNext(const char* at, std::string_view text) const {
            const std::size_t found = std::string_view(at, static_cast<std::size_t>(_end - at)).find(text);
            return found == std::string_view::npos ? nullptr : at + found + text.size();
        }

        const char* _Declaration(const char* at) const;
        const char* _Setting(const char* at, std::string_view name,
                             std::initializer_list<std::string_view> values) const;
        const char* _Miscellany(const char* at);
        const char* _Comment(const char* at) const;
        const char* _Instruction(const char* at);
        const char* _RootElement(const char* at);
        const char* _Markup(const char* at);
        void _Lose(const char* text, const char* end);
        const char* _StartTag(const char* at);
        const char* _ElementName(const char* at);
        const char* _EndTag(const char* at, std::string_view name) const;
        const char* _Attributes(const char* at, Element& element);
        const char* _AttributeValue(const char* at, std::string_view& value);
        bool _AreUnique(const Attribute* attributes) const;
        const char* _Name(const char* at);
        const char* _NameBeyondASCII(const char* at) const;
        const char* _Text(const char* at, Element* element);
        const char* _SpecialText(const char* at, const char* special, Element* element);
        char* _Copy(const char* at, const char* behind, char* to) const;
        template <class Marks>
        bool _Decode(std::string_view& text, Marks& marks, char lineEnd);
        static const char* _Reference(const char* at, const char* end, char*& to);
        static const char* _CharacterReference(const char* at, const char* end, char*& to);

        nxXMLTree& _tree;
        const char* const _begin;
        const char* const _end;
        Marks<TextSpecial> _textMarks;
        Marks<NameEnd> _nameMarks;
        Marks<ValueSpecial> _valueMarks;
        std::vector<Open> _open;
    };

    const char* Scanner::_Declaration(const char* at) const {
        constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
        if (_IsAt(at, ByteOrderMark))
            at += ByteOrderMark.size();
        if (!_IsAt(at, "<?xml ")) // what else begins like this is none or, to _Instruction, not known
            return at;

        at += std::string_view("<?xml").size();
        at = _Setting(at, "version", {"1.0"});
        if (!at)
            return nullptr;
        if (const char* const behind = _Setting(at, "encoding", {"UTF-8", "utf-8"}))
            at = behind;
        if (const char* const behind = _Setting(at, "standalone", {"yes", "no"}))
            at = behind;
        return _Behind(_Spaces(at), "?>");
    }

    const char* Scanner::_Setting(const char* at, std::string_view name,
                                  std::initializer_list<std::string_view> values) const {
        const char* const nameAt = _Spaces(at);
        const char* const behindName = nameAt == at ? nullptr : _Behind(nameAt, name);
        const char* const equals = behindName ? _Spaces(behindName) : nullptr;
        if (!equals || !_IsAt(equals, '='))
            return nullptr;
        const char* const quote = _Spaces(equals + 1);
        if (!_IsAt(quote, '"') && !_IsAt(quote, '\''))
            return nullptr;
        for (const std::string_view value : values) {
            const char* const behind = _Behind(quote + 1, value);
            if (behind && _IsAt(behind, *quote))
                return behind + 1;
        }
        return nullptr;
    }

    // Comments, instructions and white space.
    const char* Scanner::_Miscellany(const char* at) {
        while (at) {
            at = _Spaces(at);
            if (_IsAt(at, "<!--"))
                at = _Comment(at);
            else if (_IsAt(at, "<?"))
                at = _Instruction(at);
            else
                break;
        }
        return at;
    }

    const char* Scanner::_Comment(const char* at) const {
        const char* const dashes = _BehindNext(at + std::string_view("<!--").size(), "--");
        return _Behind(dashes, ">");
    }

    const char* Scanner::_Instruction(const char* at) {
        const char* const target = at + std::string_view("<?").size();
        const char* const behind = _Name(target);
        if (!behind)
            return nullptr;
        const auto isLetter = [target](std::ptrdiff_t i, char lower) { return (target[i] | 0x20) == lower; };
        if (behind - target == 3 && isLetter(0, 'x') && isLetter(1, 'm') && isLetter(2, 'l'))
            return nullptr;
        return behind != _end && IsSpace(*behind) ? _BehindNext(behind, "?>") : _Behind(behind, "?>");
    }

    const char* Scanner::_RootElement(const char* at) {
        if (!_IsAt(at, '<'))
            return nullptr;
        at = _StartTag(at);
        while (at && !_open.empty()) {
            const char* const text = at;
            at = _Text(text, nullptr);
            if (_tree.WatchesLostTexts()) [[unlikely]]
                _Lose(text, at);
            at = at ? _Markup(at) : nullptr;
        }
        return at;
    }

    const char* Scanner::_Markup(const char* at) {
        constexpr std::string_view Section = "<![CDATA[";
        constexpr std::string_view End = "]]>";
        if (_IsAt(at + 1, '/')) {
            const Element& element = *_open.back().element;
            _open.pop_back();
            return _EndTag(at, {element.name, element.nameSize});
        }
        if (_IsAt(at + 1, '?'))
            return _Instruction(at);
        if (!_IsAt(at + 1, '!'))
            return _StartTag(at);
        if (_IsAt(at, Section)) {
            const char* const behind = _BehindNext(at + Section.size(), End);
            if (_tree.WatchesLostTexts())
                _Lose(at + Section.size(), behind ? behind - End.size() : nullptr);
            return behind;
        }
        return _IsAt(at, "<!--") ? _Comment(at) : nullptr;
    }

    // The text belongs to the innermost element, but is not the one that it has.
    void Scanner::_Lose(const char* text, const char* end) {
        if (end && end != text)
            _tree.AddLostText(*_open.back().element, {text, static_cast<std::size_t>(end - text)});
    }

    // With the text behind it, which is the element's, and an end tag right behind that.
    const char* Scanner::_StartTag(const char* at) {
        const char* const nameAt = at + 1;
        at = _ElementName(nameAt);
        if (!at)
            return nullptr;
        const std::string_view name(nameAt, static_cast<std::size_t>(at - nameAt));
        Element* const parent = _open.empty() ? nullptr : _open.back().element;
        Element* const previous = _open.empty() ? nullptr : _open.back().lastChild;
        Element* const element = _tree.AddElement(parent, previous, name);
        if (parent)
            _open.back().lastChild = element;

        if (!_IsAt(at, '>')) {
            at = _Attributes(at, *element);
            if (!at)
                return nullptr;
            if (_IsAt(at, '/'))
                return _Behind(at + 1, ">");
            if (!_IsAt(at, '>'))
                return nullptr;
        }
        at = _Text(at + 1, element);
        if (at && _IsAt(at, "</")) // most elements hold nothing else
            return _EndTag(at, name);
        _open.push_back({element, nullptr, previous ? previous->firstChild : nullptr});
        return at;
    }

    // The items of a list have mostly the same elements in them.
    const char* Scanner::_ElementName(const char* at) {
        if (const Element* const likely = _open.empty() ? nullptr : _open.back().likely) {
            const std::string_view name(likely->name, likely->nameSize);
            if (Repeats(at, _end, name) && _IsAt(at + name.size(), '>')) {
                _open.back().likely = likely->next;
                return at + name.size();
            }
        }
        return _Name(at);
    }

    const char* Scanner::_EndTag(const char* at, std::string_view name) const {
        at += std::string_view("</").size();
        if (!Repeats(at, _end, name))
            return nullptr;
        at += name.size();
        return _IsAt(at, '>') ? at + 1 : _Behind(_Spaces(at), ">");
    }

    // As far as white space, and attributes behind white space, go.
    const char* Scanner::_Attributes(const char* at, Element& element) {
        Attribute* last = nullptr;
        for (;;) {
            const char* const nameAt = _Spaces(at);
            if (nameAt == _end || *nameAt == '>' || *nameAt == '/')
                return _AreUnique(element.attributes) ? nameAt : nullptr;
            const char* const behindName = nameAt == at ? nullptr : _Name(nameAt);
            const char* const equals = behindName ? _Spaces(behindName) : nullptr;
            if (!equals || !_IsAt(equals, '='))
                return nullptr;
            std::string_view value;
            at = _AttributeValue(_Spaces(equals + 1), value);
            if (!at)
                return nullptr;
            const std::string_view name(nameAt, static_cast<std::size_t>(behindName - nameAt));
            last = _tree.AddAttribute(element, last, name, value);
        }
    }

    const char* Scanner::_AttributeValue(const char* at, std::string_view& value) {
        if (!_IsAt(at, '"') && !_IsAt(at, '\''))
            return nullptr;
        const char quote = *at++;
        const char* end = _valueMarks.Next(at);
        bool isChanged = false;
        while (end != _end && *end != quote) {
            if (*end == '<')
                return nullptr;
            isChanged |= *end != '"' && *end != '\'';
            end = _valueMarks.Next(end + 1);
        }
        if (end == _end)
            return nullptr;
        value = std::string_view(at, static_cast<std::size_t>(end - at));
        return !isChanged || _Decode(value, _valueMarks, ' ') ? end + 1 : nullptr;
    }

    bool Scanner::_AreUnique(const Attribute* attributes) const {
        constexpr std::size_t Few = 16;
        std::size_t count = 0;
        for (const Attribute* attribute = attributes; attribute; attribute = attribute->next, ++count) {
            for (const Attribute* other = attributes; count < Few && other != attribute;
                 other = other->next) {
                if (other->name == attribute->name)
                    return false;
            }
        }
        if (count <= Few)
            return true;

        std::vector<std::string_view> names;
        for (const Attribute* attribute = attributes; attribute; attribute = attribute->next)
            names.push_back(attribute->name);
        std::ranges::sort(names);
        return std::ranges::adjacent_find(names) == names.end();
    }

    const char* Scanner::_Name(const char* at) {
        const char* const behind = _nameMarks.Next(at);
        if (behind != _end && !IsASCII(*behind))
            return _NameBeyondASCII(at);
        return behind != at && IsNameStart(*at) ? behind : nullptr;
    }

    // What the parser takes for a name beyond U+FFFF it may judge itself.
    const char* Scanner::_NameBeyondASCII(const char* at) const {
        using xercesc::XMLChar1_0;
        if (!XMLChar1_0::isFirstNameChar(TakeCharacter(at)))
            return nullptr;
        for (const char* next = at; next != _end; at = next) {
            const char16_t character = TakeCharacter(next);
            if (!XMLChar1_0::isNameChar(character))
                return character == 0 ? nullptr : at;
        }
        return nullptr;
    }

    // Text, as far as the markup behind it. It goes to an element that is given.
    const char* Scanner::_Text(const char* at, Element* element) {
        const char* const end = _textMarks.Next(at);
        if (!_IsAt(end, '<'))
            return _SpecialText(at, end, element);
        if (element && end != at)
            nxXMLTree::SetText(*element, {at, static_cast<std::size_t>(end - at)});
        return end;
    }

    // The same, when the first special byte is not the markup behind the text.
    const char* Scanner::_SpecialText(const char* at, const char* special, Element* element) {
        const auto isChanged = [element](char c) { return c == '&' || (c == '\r' && element); };
        const char* end = special;
        for (; end != _end && *end != '<' && !isChanged(*end); end = _textMarks.Next(end + 1)) {
            if (_IsAt(end, "]]>"))
                return nullptr;
        }
        const bool isToDecode = end != _end && *end != '<';
        if (isToDecode)
            end = _Next(end, '<');
        if (end == _end)
            return nullptr;
        std::string_view text(at, static_cast<std::size_t>(end - at));
        if (isToDecode && !_Decode(text, _textMarks, '\n'))
            return nullptr;
        if (element)
            nxXMLTree::SetText(*element, text);
        return end;
    }

    // Puts what they stand for in place of references and line ends, in the tree's memory. What is marked and
    // neither of them nor white space stays.
    template <class Marks>
    bool Scanner::_Decode(std::string_view& text, Marks& marks, char lineEnd) {
        // Nothing becomes longer, but _Copy takes more room.
        char* const decoded = _tree.Allocate(text.size() + Bytes::size());
        char* to = decoded;
        const char* at = text.data();
        const char* const end = at + text.size();
        for (;;) {
            const char* const special = std::min(marks.Next(at), end);
            to = _Copy(at, special, to);
            if (special == end)
                break;
            if (*special == '&') {
                at = _Reference(special + 1, end, to);
                if (!at)
                    return false;
            } else if (StartsWith(special, end, "]]>")) {
                return false;
            } else {
                at = special + (StartsWith(special, end, "\r\n") ? 2 : 1);
                *to++ = IsSpace(*special) ? lineEnd : *special;
            }
        }
        text = std::string_view(decoded, static_cast<std::size_t>(to - decoded));
        return true;
    }

    // Copies a piece of the document, and overwrites up to Bytes::size() bytes behind the copy: pieces are
    // short, so that a call would take longer.
    char* Scanner::_Copy(const char* at, const char* behind, char* to) const {
        const std::ptrdiff_t size = behind - at;
        const bool isNearEnd = static_cast<std::size_t>(_end - behind) < Bytes::size();
        if (isNearEnd)
            return std::copy(at, behind, to);
        for (std::ptrdiff_t i = 0; i < size; i += std::ptrdiff_t{Bytes::size()})
            std::memcpy(to + i, at + i, Bytes::size());
        return to + size;
    }

    const char* Scanner::_Reference(const char* at, const char* end, char*& to) {
        struct Entity {
            std::string_view name;
            char character;
        };
        constexpr Entity Entities[] = {
            {"amp;", '&'}, {"lt;", '<'}, {"gt;", '>'}, {"quot;", '"'}, {"apos;", '\''}};
        if (at != end && *at == '#')
            return _CharacterReference(at + 1, end, to);
        for (const Entity& entity : Entities) {
            if (StartsWith(at, end, entity.name)) {
                *to++ = entity.character;
                return at + entity.name.size();
            }
        }
        return nullptr;
    }

    const char* Scanner::_CharacterReference(const char* at, const char* end, char*& to) {
        const unsigned int base = at != end && *at == 'x' ? 16 : 10;
        if (base == 16)
            ++at;
        std::uint32_t character = 0;
        const char* const digits = at;
        for (; at != end && *at != ';'; ++at) {
            const auto byte = static_cast<unsigned char>(*at);
            const auto lower = static_cast<unsigned char>(byte | 0x20U);
            const bool isLetter = base == 16 && IsWithin<'a', 'f'>(lower);
            if (!isLetter && !IsWithin<'0', '9'>(byte))
                return nullptr;
            character = character * base + (isLetter ? lower - 'a' + 10U : byte - '0' + 0U);
            if (character > 0x10FFFF)
                return nullptr;
        }
        if (at == end || at == digits || !IsAllowed(character))
            return nullptr;
        to = PutCharacter(character, to);
        return at + 1;
    }
} // namespace

bool nxXMLScanner::Fill(nxXMLTree& tree, std::string_view utf8) {
    tree.Clear();
    if (utf8.size() > std::numeric_limits<std::uint32_t>::max() || !nxXMLCharacters::AreAllowed(utf8))
        return false;
    tree.SetSource(utf8);
    if (Scanner(tree, utf8).Run())
        return true;
    tree.Clear();
    return false;
}
