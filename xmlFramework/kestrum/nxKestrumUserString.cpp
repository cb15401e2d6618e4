// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumUserString.h"

#include "core/nxStringHelper.h"
#include "include/nxLogLevels.h"
#include "include/nxWriteLog.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxKestrumAlgorithmSpec";
    constexpr char PairEnd = '\x01';
    constexpr std::string_view PairEndText("\x01", 1);
    constexpr std::string_view DocumentPairEnd = "^^|^^";
} // namespace

nxErrorEnum
nxKestrumUserString::ForEachPair(std::string_view text,
                                 const std::function<nxErrorEnum(std::string name, std::string value)>& use) {
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t equals = text.find('=', start);
        if (equals == std::string_view::npos || equals == 0)
            return nxErrorEnum::InvalidData;
        const std::size_t end = text.find(PairEnd, equals + 1);
        if (end == std::string_view::npos)
            return nxErrorEnum::InvalidData;

        std::string name(text.substr(start, equals - start));
        std::string value(text.substr(equals + 1, end - equals - 1));
        nxWriteLog({nxLogLevels::Trace, SourceFile}, "fieldName: ", name, " value: ", value);
        const nxErrorEnum result = use(std::move(name), std::move(value));
        if (!result.IsOK())
            return result;
        start = end + 1;
    }
    return nxErrorEnum::OK;
}

void nxKestrumUserString::AppendPair(std::string& text, std::string_view name, std::string_view value) {
    text.append(name).append(1, '=').append(value).append(1, PairEnd);
}

std::string nxKestrumUserString::ToDocument(std::string userString) {
    nxStringHelper::Replace(userString, PairEndText, DocumentPairEnd);
    return userString;
}

std::string nxKestrumUserString::FromDocument(std::string text) {
    nxStringHelper::Replace(text, DocumentPairEnd, PairEndText);
    return text;
}
