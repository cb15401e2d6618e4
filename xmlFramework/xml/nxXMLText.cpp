// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLText.h"

#include <unicode/ustring.h>

#include <algorithm>

namespace {
    constexpr const char* NotUnicode = "it is not valid UTF-8";
    constexpr const char* NotXML = "it holds a character that XML 1.0 does not allow";
    constexpr const char* TooLong = "it is too long";

    // XML 1.0, production 2 (Char). Surrogates are not looked at: the strict conversions leave none unpaired.
    constexpr bool IsForbidden(char16_t unit) {
        const bool control = unit < 0x20 && unit != u'\t' && unit != u'\n' && unit != u'\r';
        return control || unit >= 0xFFFE;
    }

    // Copies while converting character by character, without a branch in the loop, so that the compiler can
    // use vector instructions. The result tells whether all were ASCII; if not, what was copied is of no use.
    template <class From, class To>
    bool CopyASCII(const From* from, std::size_t length, To* to) {
        using Unsigned = std::make_unsigned_t<From>;
        unsigned int seen = 0;
        for (std::size_t i = 0; i < length; ++i) {
            const auto unit = static_cast<Unsigned>(from[i]);
            seen |= unit;
            to[i] = static_cast<To>(unit);
        }
        return seen < 0x80;
    }

    bool HasForbidden(std::u16string_view text) {
        bool forbidden = false;
        for (const char16_t unit : text)
            forbidden |= IsForbidden(unit);
        return forbidden;
    }
} // namespace

nxXMLText::nxXMLText(std::string_view utf8) {
    if (utf8.size() > MaxSize) {
        _Refuse(TooLong);
        return;
    }

    char16_t* const units = _Reserve(utf8.size()); // UTF-16 never takes more units than UTF-8 takes bytes
    std::size_t length = utf8.size();
    if (!CopyASCII(utf8.data(), utf8.size(), units)) {
        UErrorCode status = U_ZERO_ERROR;
        int32_t converted = 0;
        const auto bytes = static_cast<int32_t>(utf8.size());
        u_strFromUTF8(units, bytes, &converted, utf8.data(), bytes, &status);
        if (U_FAILURE(status)) {
            _Refuse(NotUnicode);
            return;
        }
        length = static_cast<std::size_t>(converted);
    }
    units[length] = 0;
    if (HasForbidden({units, length}))
        _Refuse(NotXML);
}

nxXMLText::nxXMLText(const std::wstring& wide) {
    static_assert(sizeof(wchar_t) == sizeof(UChar32));
    if (wide.size() > MaxSize / 2) {
        _Refuse(TooLong);
        return;
    }

    const std::size_t capacity = wide.size() * 2;
    char16_t* const units = _Reserve(capacity);
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    u_strFromUTF32(units, static_cast<int32_t>(capacity) + 1, &length,
                   reinterpret_cast<const UChar32*>(wide.data()), static_cast<int32_t>(wide.size()), &status);
    if (U_FAILURE(status)) {
        _Refuse(NotUnicode);
        return;
    }
    if (HasForbidden({units, static_cast<std::size_t>(length)}))
        _Refuse(NotXML);
}

char16_t* nxXMLText::_Reserve(std::size_t units) {
    if (units + 1 > _inline.size()) {
        _heap = std::make_unique_for_overwrite<char16_t[]>(units + 1);
        _units = _heap.get();
    }
    return _units;
}

void nxXMLText::_Refuse(const char* problem) {
    _problem = problem;
    _units[0] = 0;
}

bool nxXMLTextOut::Convert(std::u16string_view text, std::string& utf8) {
    std::string converted(text.size(), '\0');
    if (!CopyASCII(text.data(), text.size(), converted.data())) {
        if (text.size() > nxXMLText::MaxSize)
            return false;
        converted.resize(text.size() * 3);
        UErrorCode status = U_ZERO_ERROR;
        int32_t length = 0;
        u_strToUTF8(converted.data(), static_cast<int32_t>(converted.size()), &length, text.data(),
                    static_cast<int32_t>(text.size()), &status);
        if (U_FAILURE(status))
            return false;
        converted.resize(static_cast<std::size_t>(length));
    }
    utf8 = std::move(converted);
    return true;
}

bool nxXMLTextOut::Convert(std::u16string_view text, std::wstring& wide) {
    if (text.size() > nxXMLText::MaxSize)
        return false;

    std::wstring converted(text.size(), L'\0');
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    const auto units = static_cast<int32_t>(text.size());
    u_strToUTF32(reinterpret_cast<UChar32*>(converted.data()), units, &length, text.data(), units, &status);
    if (U_FAILURE(status))
        return false;
    converted.resize(static_cast<std::size_t>(length));
    wide = std::move(converted);
    return true;
}

bool nxXMLTextOut::Equals(const char16_t* name, std::string_view utf8) {
    // Names are ASCII but for the keys of items, so nothing is converted as long as they agree.
    const char16_t* const start = name;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x80) {
            const nxXMLText converted(utf8);
            return !converted.GetProblem() && std::u16string_view(start) == converted.Get();
        }
        if (*name != byte || byte == 0)
            return false;
        ++name;
    }
    return *name == 0;
}
