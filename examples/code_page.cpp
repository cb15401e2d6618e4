// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Takes a name from a system whose texts are in Windows-1252 and writes it in a record.

#include "xmlFramework/market/nxBrokerMap.h"

#include <iconv.h>

#include <iostream>
#include <optional>
#include <string>

namespace {
    // The text in UTF-8; nothing when the code page has no such text. Programs know what their texts are in:
    // the library never guesses.
    std::optional<std::string> ToUTF8(std::string text, const char* codePage) {
        auto* const converter = ::iconv_open("UTF-8", codePage);
        if (converter == reinterpret_cast<iconv_t>(-1)) // NOLINT(performance-no-int-to-ptr): as POSIX has it
            return std::nullopt;
        std::string utf8(4 * text.size(), '\0'); // no character takes more
        char* in = text.data();
        char* out = utf8.data();
        std::size_t inLeft = text.size();
        std::size_t outLeft = utf8.size();
        const bool converted =
            ::iconv(converter, &in, &inLeft, &out, &outLeft) != static_cast<std::size_t>(-1);
        ::iconv_close(converter);
        utf8.resize(utf8.size() - outLeft);
        return converted ? std::optional(utf8) : std::nullopt;
    }
} // namespace

int main() {
    const std::string fromElsewhere = "Caf\xE9 & S\xF8nner";
    nxBrokerMap brokers;
    brokers.SetBrokerIDAndName(9, fromElsewhere);
    std::string xml;
    nxErrorEnum result = brokers.ConvertToXML(xml, "");
    std::cout << result.GetShortDescription() << '\n'; // no UTF-8, so nothing is written

    const std::optional<std::string> name = ToUTF8(fromElsewhere, "WINDOWS-1252");
    if (!name)
        return 1;
    brokers.SetBrokerIDAndName(9, *name);
    result = brokers.ConvertToXML(xml, "");
    std::cout << result.GetShortDescription() << '\n' << xml << '\n';
    return result.IsOK() ? 0 : 1;
}
