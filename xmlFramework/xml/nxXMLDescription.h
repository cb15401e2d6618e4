// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/nxXMLFrameworkExport.h"

#include <string>
#include <vector>

// What a record's documents look like, as data: every record has one. It is made from the very list of fields
// by which the record reads and writes itself.

// What a text in a document may be.
struct XMLFRAMEWORK_API nxXMLValueDescription {
    enum class Type {
        Text,        // any
        Texts,       // any number of texts, with commas between them
        Flag,        // "true" or "false", in any case, "1" or "0"
        Number,      // decimal digits, with a minus sign where the minimum is negative
        Decimal,     // digits, and perhaps a point and digits behind it; empty for none
        Time,        // of a day: "08:30:00", and perhaps a point and up to nine digits; empty for none
        Enumeration, // one of the texts
    };

    Type type = Type::Text;
    std::string minimum; // of a number, as texts
    std::string maximum;
    // All that an enumeration knows, in ascending order of its values; of a number, those that stand for a
    // state without digits of its own ("NULL").
    std::vector<std::string> texts;
    // Of a number: the digits that stand for these states, empty for a number without them.
    std::string null = {};
    std::string noChange = {};

    // For people: "a whole number from 0 to 255".
    std::string GetAsString() const;
};

struct XMLFRAMEWORK_API nxXMLFieldDescription {
    enum class Kind {
        Element,   // a child element with a text
        Attribute, // of the record's own element
        List,      // a child element with the items in it
        Items,     // the items, among the record's own children
    };
    enum class ItemNames {
        Fixed,      // all items have the name
        Any,        // items are written under the name, and read under any
        WithKey,    // the name stands before each item's key: "MICDefinition-XLON"
        WithNumber, // the name stands before a number that counts from 0: "Leg-0"
    };

    std::string name; // of the element, the attribute or the list; empty for bare items
    Kind kind = Kind::Element;
    nxXMLValueDescription value;  // of an element, an attribute, or an item that is a text
    bool isKey = false;           // tells the item from others of its list
    bool isRequired = false;      // without it the record, or the item, is not read
    bool isAlwaysWritten = false; // else only when it is set
    bool isReadOnly = false;      // another name of a field, which is never written

    // Of lists and items:
    std::string itemName;
    ItemNames itemNames = ItemNames::Fixed;
    bool endsAtOthers = false;                     // the first child of another name ends the items
    std::vector<nxXMLFieldDescription> itemFields; // in order; none: an item is a text
};

struct XMLFRAMEWORK_API nxXMLDescription {
    std::string root; // the document element's name; empty for a record that describes nothing
    std::vector<nxXMLFieldDescription> fields; // in the order in which they are written
};
