// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/textDecoder.h"

#include <stdexcept>

namespace {
    constexpr std::size_t LongestCharacter = 4; // in bytes, of any text that is converted to
} // namespace

std::string_view tool::GetName(TextEncoding encoding) {
    return encoding == TextEncoding::UTF8 ? "UTF-8" : "Windows-1252";
}

tool::TextEncoding tool::DetectEncoding(std::string_view text) {
    return TextDecoder(TextEncoding::UTF8).Decode(text) ? TextEncoding::UTF8 : TextEncoding::Windows1252;
}

// UTF-8 is checked by way of UTF-16, since to itself the system lets it pass beyond U+10FFFF.
tool::TextDecoder::TextDecoder(TextEncoding encoding)
    : _encoding(encoding), _converter(encoding == TextEncoding::UTF8 ? ::iconv_open("UTF-16LE", "UTF-8")
                                                                     : ::iconv_open("UTF-8", "CP1252")) {
    if (_converter == iconv_t(-1)) // NOLINT(performance-no-int-to-ptr): so POSIX says it
        throw std::runtime_error("this system cannot read " + std::string(GetName(encoding)) + " text");
}

tool::TextDecoder::~TextDecoder() {
    ::iconv_close(_converter);
}

std::optional<std::string> tool::TextDecoder::Decode(std::string_view text) const {
    std::string input(text);
    std::string output(LongestCharacter * text.size(), '\0');
    char* from = input.data();
    char* to = output.data();
    std::size_t fromLeft = input.size();
    std::size_t toLeft = output.size();
    ::iconv(_converter, nullptr, nullptr, nullptr, nullptr); // forget what the text before left
    if (::iconv(_converter, &from, &fromLeft, &to, &toLeft) == static_cast<std::size_t>(-1))
        return std::nullopt;
    if (_encoding == TextEncoding::UTF8)
        return input;
    output.resize(output.size() - toLeft);
    return output;
}
