// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"
#include "include/nxWriteLog.h"
#include "xmlFramework/xml/nxXMLItem.h"
#include "xmlFramework/xml/nxXMLSink.h"
#include "xmlFramework/xml/nxXMLTree.h"

#include <functional>
#include <string>
#include <string_view>

class nxXMLElement;

// Between records and what their texts come from and go to. Private to the library.
namespace nxXMLConversion {
    // Loads `xml` into the tree. On failure logs the prefix and the record's message, and returns why.
    nxErrorEnum Load(nxXMLTree& tree, const std::string& xml, const nxLogSite& site,
                     const std::string& logPrefix, const char* message);

    // Writes a document to `xmlOut`: a root element of that name with what `fill` writes in it. On failure
    // `xmlOut` is untouched: nxErrorEnum::XMLTextNotCarried, logged, when something cannot be carried.
    nxErrorEnum Save(std::string_view rootName, std::string& xmlOut,
                     const std::function<void(nxXMLSink& sink)>& fill);

    // An element of a user's as a tree, and what writes below it.
    void LoadElement(nxXMLTree& tree, const nxXMLElement& element);
    nxErrorEnum SaveBelow(const nxXMLElement& element, const std::function<void(nxXMLSink& sink)>& fill);

    // Items that users read from and write to elements of their own.
    template <class Item>
    nxErrorEnum ReadElement(Item& item, const nxXMLElement& element, const std::string& logPrefix) {
        nxXMLTree tree;
        LoadElement(tree, element);
        return nxXMLItem::Read(item, tree.GetRoot(), {logPrefix});
    }
    template <class Item>
    nxErrorEnum WriteElement(Item& item, const nxXMLElement& element) {
        return SaveBelow(element, [&item](nxXMLSink& sink) { nxXMLItem::Write(item, sink); });
    }
} // namespace nxXMLConversion
