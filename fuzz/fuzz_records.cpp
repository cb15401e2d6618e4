// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// The category code of a record in four characters, and a text for it to read. What a record read from
// any text, it writes to a text that reads and writes back the same.

#include "core/nxDataCategoryEnum.h"
#include "fuzz/nxFuzz.h"
#include "xmlFramework/market/nxExchangeDefinitionList.h"
#include "xmlFramework/market/nxMICDefinitionList.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>

namespace {
    using nxFuzz::Require;

    constexpr std::size_t CodeLength = 4;

    // An item without a key is written as an element that ends the list when it is read.
    bool HasAllKeys(const nxXMLDataObject& record) {
        if (const auto* const mics = dynamic_cast<const nxMICDefinitionList*>(&record))
            return mics->IsValid().IsOK();
        if (const auto* const exchanges = dynamic_cast<const nxExchangeDefinitionList*>(&record))
            return exchanges->IsValid().IsOK();
        return true;
    }

    bool IsFailureOfReading(const nxErrorEnum& result) {
        constexpr unsigned int Failures[] = {nxErrorEnum::InvalidData, nxErrorEnum::ValueNotFound,
                                             nxErrorEnum::ValueNotParsed, nxErrorEnum::XMLParseFailed};
        return std::ranges::find(Failures, result.GetEnumValue()) != std::end(Failures);
    }
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    if (input.size() < CodeLength)
        return 0;
    nxDataCategoryEnum category;
    if (!category.SetFromString(input.substr(0, CodeLength)))
        return 0;
    const std::unique_ptr<nxXMLDataObject> record(nxXMLDataObject::CreateInstance(category.GetEnumValue()));
    if (!record)
        return 0;
    const nxErrorEnum read = record->ConvertFromXML(input.substr(CodeLength), "");
    Require(read.IsOK() || IsFailureOfReading(read));
    if (!read.IsOK() || !HasAllKeys(*record))
        return 0;

    // A key may be no XML name, which is the one thing that is read but not written.
    std::string written = "untouched";
    if (const nxErrorEnum result = record->ConvertToXML(written, ""); !result.IsOK()) {
        Require(result == nxErrorEnum(nxErrorEnum::XMLTextNotCarried) && written == "untouched");
        return 0;
    }

    const std::unique_ptr<nxXMLDataObject> again(record->CreateInstance());
    Require(again->ConvertFromXML(written, "").IsOK());
    std::string rewritten;
    Require(again->ConvertToXML(rewritten, "").IsOK());
    Require(rewritten == written);

    const std::unique_ptr<nxXMLDataObject> copy(record->CopyInstance());
    Require(copy->ConvertToXML(rewritten, "").IsOK());
    Require(rewritten == written);
    return 0;
}
