// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"

#include <string>

class nxXMLNode;
class nxXMLSink;

// What reading a record needs besides its node.
struct nxXMLReadContext {
    const std::string& logPrefix; // for the record's own messages
};

// The way from a list to its items, which keep these two to themselves. Private to the library.
struct nxXMLItem {
    template <class Item>
    static nxErrorEnum Read(Item& item, const nxXMLNode& node, const nxXMLReadContext& context) {
        return item._Read(node, context);
    }
    template <class Item>
    static void Write(Item& item, nxXMLSink& sink) {
        item._Write(sink);
    }
};
