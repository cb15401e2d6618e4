// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXMLDescription.h"
#include "xmlFramework/xml/nxXMLReport.h"
#include "xmlFramework/xml/nxXMLTree.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// What is noted of the elements of a tree while a record is read from them, when somebody wants to know. From
// the notes follows what became of every element. The verbs take them; no record calls them.
class XMLFRAMEWORK_API nxXMLNotes {
public:
    using Kind = nxXMLFieldDescription::Kind;
    using ItemNames = nxXMLFieldDescription::ItemNames;

    // A field, or the items of a list, that is looked for among the children or attributes of an element.
    struct Field {
        std::string name;
        Kind kind = Kind::Element;
        ItemNames itemNames = ItemNames::Fixed;
        bool isAlwaysWritten = false;
        std::string held;                              // what the record holds without it
        nxXMLValueDescription (*describe)() = nullptr; // its value, if it has one
    };

    // As much of a text as a finding repeats.
    static std::string GetShortened(std::string_view text);

    // ---- While reading

    // Once for each field, however often it is called.
    void Asks(nxXMLNode parent, Field field);
    // The field reads the element.
    void Takes(nxXMLNode parent, std::string_view field, nxXMLNode node, bool readsText);
    // What has just been taken is no value of its field. `attribute` is empty for the element's own text.
    void IsNoValue(nxXMLNode node, std::string_view attribute, const nxXMLValueDescription& expected,
                   std::string held);
    void IsLeftOut(nxXMLNode item, std::string reason);
    void HasKey(nxXMLNode item, std::string key);
    // No further child of the element is looked at.
    void Ends(nxXMLNode parent, std::string reason);

    // ---- Afterwards

    // Appends the findings in the order of the document. `root` is the name that the record's root element
    // has.
    void Report(const nxXMLTree& tree, std::string_view root, nxXMLReport& report) const;

private:
    struct AttributeProblem {
        std::string name;
        std::string expected;
        std::string held;
    };
    struct AskedField : Field {
        nxXMLNode taken; // the last that was
    };
    // Of one element.
    struct Notes {
        std::vector<AskedField> fields;
        bool isTaken = false;
        bool readsText = false;
        const char* supersededBy = nullptr;  // why another of its name counts
        std::optional<std::string> expected; // it has no value of this kind,
        std::string nearest;                 // perhaps this was meant,
        std::string held;                    // and the record holds this
        std::vector<AttributeProblem> attributeProblems;
        std::string leftOut; // why
        std::string ending;  // why what is not read of its children is not
        std::string key;
        ItemNames takenAs = ItemNames::Fixed;
        std::string itemName; // the list's, for an item
    };
    class Reporter;

    Notes& _Of(nxXMLNode node) { return _notes[node.GetIdentity()]; }

    std::unordered_map<const void*, Notes> _notes;
};
