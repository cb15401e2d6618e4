// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"

#include <string>
#include <vector>

class nxXMLNode;
class nxXMLNotes;
class nxXMLSink;
struct nxXMLFieldDescription;

// What reading a record needs besides its node.
struct nxXMLReadContext {
    const std::string& logPrefix; // for the record's own messages
    nxXMLNotes* notes = nullptr;  // when somebody wants to know what becomes of each element
};

// The way from a list to its items, which keep these to themselves and have this as a friend. For records:
// see nxXMLRecord.h.
struct nxXMLItem {
    template <class Item>
    static nxErrorEnum Read(Item& item, const nxXMLNode& node, const nxXMLReadContext& context) {
        return item._Read(node, context);
    }
    template <class Item>
    static void Write(Item& item, nxXMLSink& sink) {
        item._Write(sink);
    }
    template <class Item>
    static std::vector<nxXMLFieldDescription> Describe() {
        return Item::_Describe();
    }
};
