// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"

#include <functional>
#include <string>
#include <string_view>

// The Kestrum user string: pairs of name "=" value, each ended by the byte 0x01. A name may hold anything but
// "=", and is empty only behind the first pair; a value may hold anything but 0x01. Private to the library.
namespace nxKestrumUserString {
    // Calls `use` with each pair, in order. nxErrorEnum::InvalidData where the text breaks the rules, with
    // the pairs before that used; a failure of `use` ends the walk and is returned. Takes time linear in the
    // text's length.
    nxErrorEnum ForEachPair(std::string_view text,
                            const std::function<nxErrorEnum(std::string name, std::string value)>& use);

    void AppendPair(std::string& text, std::string_view name, std::string_view value);

    // The user string as it stands in documents, which cannot hold the byte 0x01: with "^^|^^" instead. A
    // value that holds "^^|^^" itself comes back as two pairs, and one that ends in "^^|" or "^^|^" runs
    // into the mark behind it.
    std::string ToDocument(std::string userString);
    std::string FromDocument(std::string text);
} // namespace nxKestrumUserString
