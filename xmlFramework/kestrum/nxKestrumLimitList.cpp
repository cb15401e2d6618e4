// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumLimitList.h"

#include "xmlFramework/xml/nxXMLFields.h"

namespace {
    constexpr char List[] = "Limits";
    constexpr char Item[] = "Limit";
} // namespace

nxErrorEnum nxKestrumLimitList::Read(const nxXMLElement& root, nxOwnedItems<nxKestrumLimit>& limits) {
    return nxXMLFields::ReadList(root, List, Item, [&limits](nxXMLElement& element) {
        auto limit = std::make_unique<nxKestrumLimit>();
        const nxErrorEnum result = limit->ConvertFromXML(element);
        if (result.IsOK())
            limits.Add(std::move(limit));
        return result;
    });
}

nxErrorEnum nxKestrumLimitList::Write(nxXMLElement& root, const nxOwnedItems<nxKestrumLimit>& limits) {
    return nxXMLFields::WriteList(
        root, List, Item, limits.Get(),
        [](nxXMLElement& element, const auto& limit) { return limit->ConvertToXML(element); });
}
