// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLEncoding.h"

#include "core/nxStringHelper.h"

#include <unicode/ucnv.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <memory>
#include <new>
#include <optional>

using namespace std::string_view_literals;

namespace {
    constexpr std::string_view WhiteSpace = " \t\r\n";
    constexpr char UTF8[] = "UTF-8";
    constexpr char EBCDIC[] = "ibm-37";
    constexpr std::string_view UTF8Mark = "\xEF\xBB\xBF";

    // How a document may begin, and what its first line can be read with then.
    struct Beginning {
        std::string_view bytes;
        bool isMark;
        const char* encoding;
        std::size_t unit;
        std::string_view emptyElement;
    };
    constexpr std::string_view Element8 = "<a/>"sv;
    constexpr std::string_view Element16BE = "\0<\0a\0/\0>"sv;
    constexpr std::string_view Element16LE = "<\0a\0/\0>\0"sv;
    constexpr std::string_view Element32BE = "\0\0\0<\0\0\0a\0\0\0/\0\0\0>"sv;
    constexpr std::string_view Element32LE = "<\0\0\0a\0\0\0/\0\0\0>\0\0\0"sv;
    constexpr Beginning Beginnings[] = {
        {"\0\0\xFE\xFF"sv, true, "UTF-32BE", 4, Element32BE},
        {"\xFF\xFE\0\0"sv, true, "UTF-32LE", 4, Element32LE}, // before that of UTF-16LE, which it begins with
        {"\xFE\xFF"sv, true, "UTF-16BE", 2, Element16BE},
        {"\xFF\xFE"sv, true, "UTF-16LE", 2, Element16LE},
        {UTF8Mark, true, UTF8, 1, Element8},
        {"\0\0\0<\0\0\0?\0\0\0x\0\0\0m\0\0\0l\0\0\0 "sv, false, "UTF-32BE", 4, Element32BE},
        {"<\0\0\0?\0\0\0x\0\0\0m\0\0\0l\0\0\0 \0\0\0"sv, false, "UTF-32LE", 4, Element32LE},
        {"\0<\0?\0x\0m\0l\0 "sv, false, "UTF-16BE", 2, Element16BE},
        {"<\0?\0x\0m\0l\0 \0"sv, false, "UTF-16LE", 2, Element16LE},
        {"\x4C\x6F\xA7\x94"sv, false, EBCDIC, 1, "\x4C\x81\x61\x6E"sv},
        {""sv, false, UTF8, 1, Element8}, // whatever has ASCII in it
    };

    const Beginning& BeginningOf(std::string_view bytes) {
        return *std::ranges::find_if(
            Beginnings, [bytes](const Beginning& beginning) { return bytes.starts_with(beginning.bytes); });
    }

    bool EqualIgnoringCase(std::string_view left, std::string_view right) {
        const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
        return std::ranges::equal(left, right, {}, lower, lower);
    }

    // ---- XML declarations

    // "<?xml ... ?>" at the start of the text; empty when there is none.
    std::string_view DeclarationOf(std::string_view text) {
        constexpr std::string_view Start = "<?xml";
        if (!text.starts_with(Start) || text.size() == Start.size() ||
            WhiteSpace.find(text[Start.size()]) == std::string_view::npos)
            return {};
        const std::size_t end = text.find("?>");
        return text.substr(0, end == std::string_view::npos ? text.size() : end + 2);
    }

    // The name that stands behind "encoding=". An ill-formed declaration has none: the parser refuses it.
    std::optional<std::string_view> DeclaredEncoding(std::string_view declaration) {
        std::string_view rest = declaration;
        const auto skipWhiteSpace = [&rest] {
            rest.remove_prefix(std::min(rest.find_first_not_of(WhiteSpace), rest.size()));
        };
        rest.remove_prefix(std::min(rest.find_first_of(WhiteSpace), rest.size()));
        for (;;) {
            skipWhiteSpace();
            const std::string_view name = rest.substr(0, rest.find_first_of("= \t\r\n"));
            rest.remove_prefix(name.size());
            skipWhiteSpace();
            if (!rest.starts_with('='))
                return std::nullopt;
            rest.remove_prefix(1);
            skipWhiteSpace();
            const std::size_t end = rest.empty() ? rest.npos : rest.find(rest.front(), 1);
            if (end == rest.npos || (rest.front() != '"' && rest.front() != '\''))
                return std::nullopt;
            if (name == "encoding")
                return rest.substr(1, end - 1);
            rest.remove_prefix(end + 1);
        }
    }

    // ---- UTF-8

    // Without a branch in the loop, so that the compiler can use vector instructions.
    constexpr std::size_t BlockSize = 64;
    bool IsBlockOfPlainASCII(const char* block) {
        unsigned char seen = 0;
        for (std::size_t i = 0; i < BlockSize; ++i) {
            const auto byte = static_cast<unsigned char>(block[i]);
            seen = static_cast<unsigned char>(
                seen | byte | static_cast<unsigned char>(byte - 1U)); // so that NUL sets the upper bit, too
        }
        return (seen & 0x80U) == 0;
    }

    bool IsPlainASCII(char byte) {
        return static_cast<signed char>(byte) > 0;
    }

    constexpr bool IsContinuation(unsigned int byte) {
        return (byte & 0xC0U) == 0x80U;
    }

    // The size of the character behind ASCII that the text begins with; 0 for what is no valid one.
    std::size_t LongCharacterSize(std::string_view text) {
        const auto byteAt = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
        const unsigned int lead = byteAt(0);
        const std::size_t size = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        if (lead < 0xC2 || lead > 0xF4 || text.size() < size)
            return 0;

        // The range of the second byte rules out overlong forms, surrogates and what lies beyond Unicode.
        const unsigned int low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
        const unsigned int high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
        const bool valid = byteAt(1) >= low && byteAt(1) <= high && (size < 3 || IsContinuation(byteAt(2))) &&
                           (size < 4 || IsContinuation(byteAt(3)));
        return valid ? size : 0;
    }

    // Where the valid characters other than NUL end.
    std::size_t ValidSize(std::string_view text) {
        std::size_t i = 0;
        while (i < text.size()) {
            if (text.size() - i >= BlockSize && IsBlockOfPlainASCII(text.data() + i)) {
                i += BlockSize;
                continue;
            }
            for (const std::size_t end = std::min(i + BlockSize, text.size()); i < end;) {
                const std::size_t size = IsPlainASCII(text[i]) ? 1 : LongCharacterSize(text.substr(i));
                if (size == 0)
                    return i;
                i += size;
            }
        }
        return i;
    }

    // ---- Everything else

    struct CloseConverter {
        void operator()(UConverter* converter) const { ucnv_close(converter); }
    };
    using Converter = std::unique_ptr<UConverter, CloseConverter>;

    // Null for a name that is not known, or no name.
    Converter Open(const std::string& name) {
        constexpr std::string_view Letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
        constexpr std::string_view Others = "0123456789._-"; // a comma would begin options of ICU's
        const auto isIn = [](std::string_view set) {
            return [set](char c) { return set.find(c) != std::string_view::npos; };
        };
        if (name.empty() || !isIn(Letters)(name.front()) ||
            !std::ranges::all_of(name, [&](char c) { return isIn(Letters)(c) || isIn(Others)(c); }))
            return nullptr;

        // Names that the parser has always known, and ICU has not.
        std::string known = name;
        for (const auto& [alias, meant] :
             {std::pair("UCS-4LE", "UTF-32LE"), std::pair("UCS-4BE", "UTF-32BE")}) {
            if (ucnv_compareNames(name.c_str(), alias) == 0)
                known = meant;
        }
        UErrorCode status = U_ZERO_ERROR;
        Converter converter(ucnv_open(known.c_str(), &status));
        ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
        if (status == U_MEMORY_ALLOCATION_ERROR)
            throw std::bad_alloc();
        return U_SUCCESS(status) ? std::move(converter) : nullptr;
    }

    std::string_view NameOf(const Converter& converter) {
        UErrorCode status = U_ZERO_ERROR;
        return ucnv_getName(converter.get(), &status);
    }

    struct Fault {
        const char* what;
        std::size_t offset;
    };
    constexpr char NotValid[] = "no valid character";
    constexpr char SecondMark[] = "a second byte-order mark";

    // Character by character, so that a fault is found where it is. `utf8` has the characters before it then.
    std::optional<Fault> Convert(UConverter& converter, std::string_view bytes, std::string& utf8) {
        ucnv_reset(&converter);
        utf8.clear();
        const char* const end = bytes.data() + bytes.size();
        for (const char* next = bytes.data(); next < end;) {
            const auto offset = static_cast<std::size_t>(next - bytes.data());
            UErrorCode status = U_ZERO_ERROR;
            const UChar32 character = ucnv_getNextUChar(&converter, &next, end, &status);
            if (status == U_INDEX_OUTOFBOUNDS_ERROR) // a shift, and no character behind it
                break;
            if (status == U_TRUNCATED_CHAR_FOUND)
                return Fault{"a character cut off by the end", offset};
            if (U_FAILURE(status) || U_IS_SURROGATE(character))
                return Fault{NotValid, offset};
            if (character == 0)
                return Fault{"NUL", offset};

            char units[U8_MAX_LENGTH];
            std::size_t size = 0;
            U8_APPEND_UNSAFE(units, size, character);
            utf8.append(units, size);
        }
        return std::nullopt;
    }

    // ---- All together

    class Reader {
    public:
        Reader(std::string_view bytes, std::string& converted, nxXMLEncoding::Problem& problem)
            : _beginning(BeginningOf(bytes)), _bytes(bytes),
              _markSize(_beginning.isMark ? _beginning.bytes.size() : 0), _text(bytes.substr(_markSize)),
              _converted(converted), _problem(problem) {}

        bool Read();
        std::string_view GetText() const { return _text; }

    private:
        bool _ReadAs(const std::string& declared, std::size_t declarationSize);
        bool _Contradicts(const Converter& converter, std::string_view declared,
                          std::size_t declarationSize) const;
        bool _Convert(const Converter& converter, std::string_view encoding);
        bool _CheckUTF8();
        bool _Refuse(const Fault& fault, std::string_view before, std::string_view encoding);
        bool _RefuseName(const std::string& description, std::size_t declarationSize);

        const Beginning& _beginning;
        std::string_view _bytes;
        std::size_t _markSize;
        std::string_view _text; // behind the mark; in the end in UTF-8
        std::string& _converted;
        nxXMLEncoding::Problem& _problem;
    };

    bool Reader::Read() {
        const std::string_view encoding = _beginning.encoding;
        if (encoding != UTF8 && !_Convert(Open(_beginning.encoding), encoding))
            return false;

        const std::string_view declaration = DeclarationOf(_text);
        const std::optional<std::string_view> declared = DeclaredEncoding(declaration);
        if (encoding == UTF8 && (!declared || EqualIgnoringCase(*declared, UTF8)))
            return _CheckUTF8();
        if (declared)
            return _ReadAs(std::string(*declared), declaration.size());
        return encoding != EBCDIC || _RefuseName("EBCDIC without an encoding declared", declaration.size());
    }

    bool Reader::_ReadAs(const std::string& declared, std::size_t declarationSize) {
        const Converter converter = Open(declared);
        if (!converter)
            return _RefuseName("the encoding '" + declared + "' is not known", declarationSize);
        if (_Contradicts(converter, declared, declarationSize))
            return _RefuseName("the encoding '" + declared + "' is declared, but the bytes are in another",
                               declarationSize);
        if (NameOf(converter) == UTF8)
            return _CheckUTF8();
        if (_beginning.unit != 1) // converted already
            return true;
        if (!_Convert(converter, declared))
            return false;
        if (NameOf(converter).starts_with("ibm-1047")) { // where lines end with NEL
            nxStringHelper::Replace(_converted, "\u0085", "\n");
            _text = _converted;
        }
        return true;
    }

    // Read in the encoding that it names, the declaration must name that encoding again. A byte-order mark
    // says more.
    bool Reader::_Contradicts(const Converter& converter, std::string_view declared,
                              std::size_t declarationSize) const {
        const std::string_view encoding = _beginning.encoding;
        const std::string_view name = NameOf(converter);
        if (_beginning.bytes == UTF8Mark)
            return name != UTF8;
        if ((name == "UTF-16" || name == "UTF-32") && encoding.starts_with(name))
            return false; // in either order of bytes
        std::string declaration;
        Convert(*converter, _bytes.substr(_markSize, declarationSize * _beginning.unit), declaration);
        return DeclaredEncoding(declaration) != declared;
    }

    bool Reader::_Convert(const Converter& converter, std::string_view encoding) {
        const std::optional<Fault> fault = Convert(*converter, _bytes.substr(_markSize), _converted);
        if (fault)
            return _Refuse(*fault, _converted, encoding);
        _text = _converted;
        if (_text.starts_with(UTF8Mark))
            return _Refuse({SecondMark, 0}, {}, encoding);
        return true;
    }

    bool Reader::_CheckUTF8() {
        if (_beginning.isMark && _text.starts_with(UTF8Mark))
            return _Refuse({SecondMark, 0}, {}, UTF8);
        const std::size_t valid = ValidSize(_text);
        if (valid == _text.size())
            return true;
        std::string ignored;
        const std::optional<Fault> fault = Convert(*Open(UTF8), _text.substr(valid), ignored);
        return _Refuse({fault ? fault->what : NotValid, valid}, _text.substr(0, valid), UTF8);
    }

    // `before` is the text before the fault.
    bool Reader::_Refuse(const Fault& fault, std::string_view before, std::string_view encoding) {
        _problem.place = nxXMLPlaces(before).Of(before.data() + before.size());
        _problem.description = std::string(fault.what) + " at byte " +
                               std::to_string(_markSize + fault.offset) + " (from 0) in encoding '" +
                               std::string(encoding) + "'";
        return false;
    }

    bool Reader::_RefuseName(const std::string& description, std::size_t declarationSize) {
        _problem.description = description;
        _problem.declaration = _bytes.substr(0, _markSize + declarationSize * _beginning.unit);
        _problem.declaration += _beginning.emptyElement;
        return false;
    }
} // namespace

bool nxXMLEncoding::ToUTF8(std::string_view bytes, std::string& converted, std::string_view& utf8,
                           Problem& problem) {
    Reader reader(bytes, converted, problem);
    if (!reader.Read())
        return false;
    utf8 = reader.GetText();
    return true;
}
