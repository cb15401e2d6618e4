// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxPrint.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

// Top-level records and item records by way of their texts.
namespace nxRecordText {
    inline std::string Element(const std::string& name, const std::string& content) {
        return "<" + name + ">" + content + "</" + name + ">";
    }

    // Elements from words "name=text": "A=1 B=" stands for "<A>1</A><B></B>".
    inline std::string Elements(const std::string& words) {
        std::istringstream stream(words);
        std::string elements;
        for (std::string word; stream >> word;) {
            const std::size_t equals = word.find('=');
            elements += Element(word.substr(0, equals), word.substr(equals + 1));
        }
        return elements;
    }

    template <class Record>
    std::string Written(Record&& record) {
        std::string xml = "not written";
        EXPECT_EQ(record.ConvertToXML(xml, "ignored"), nxErrorEnum::OK);
        return xml;
    }

    // Reading goes well, and nothing is logged.
    template <class Record>
    void Read(Record& record, const std::string& xml) {
        const nxCollectedLog log;
        EXPECT_EQ(record.ConvertFromXML(xml, "prefix: "), nxErrorEnum::OK) << xml;
        EXPECT_TRUE(log.Records().empty()) << xml << '\n' << log.Entries().front();
    }

    // The record refuses the document, and what it logs last is that it could not read its subject.
    template <class Record>
    void ExpectRefused(Record& record, const std::string& xml, const std::string& subject,
                       const std::string& sourceFile, nxErrorEnum expected = nxErrorEnum::InvalidData) {
        const nxCollectedLog log;
        EXPECT_EQ(record.ConvertFromXML(xml, "prefix: "), expected) << xml;
        ASSERT_FALSE(log.Records().empty()) << xml;
        EXPECT_EQ(log.Records().back().entry, "prefix: Failed to convert XML data to " + subject +
                                                  ". Unable to create XML document from XML string");
        EXPECT_EQ(log.Records().back().level, nxLogLevelEnum::Error);
        EXPECT_EQ(log.Records().back().sourceFile, "xmlFramework/trunk/" + sourceFile);
    }

    // An item record, read from an element with these children, and the children that it writes.
    template <class Item>
    nxErrorEnum ReadItem(Item& item, const std::string& children) {
        nxXMLDocument document;
        EXPECT_EQ(document.LoadFromString(Element("item", children)), nxErrorEnum::OK) << children;
        nxXMLElement element = document.GetRootElement();
        if constexpr (requires { item.ConvertFromXML(element); })
            return item.ConvertFromXML(element);
        else
            return item.ConvertFromXML(element, "ignored");
    }
    template <class Item>
    std::string WrittenItem(Item&& item) {
        nxXMLDocument document;
        EXPECT_EQ(document.CreateDocument("item"), nxErrorEnum::OK);
        nxXMLElement element = document.GetRootElement();
        if constexpr (requires { item.ConvertToXML(element); })
            EXPECT_EQ(item.ConvertToXML(element), nxErrorEnum::OK);
        else
            EXPECT_EQ(item.ConvertToXML(element, "ignored"), nxErrorEnum::OK);
        std::string xml;
        EXPECT_EQ(document.SaveToString(xml), nxErrorEnum::OK);
        return xml.substr(6, xml.size() - 13); // without "<item>" and "</item>"
    }
} // namespace nxRecordText
