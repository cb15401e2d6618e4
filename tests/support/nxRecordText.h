// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxPrint.h"
#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <gtest/gtest.h>

#include <string>

// Top-level records and item records by way of their texts.
namespace nxRecordText {
    inline std::string Written(nxXMLDataObject& record) {
        std::string xml = "not written";
        EXPECT_EQ(record.ConvertToXML(xml, "ignored"), nxErrorEnum::OK);
        return xml;
    }

    // Reading goes well, and nothing is logged.
    inline void Read(nxXMLDataObject& record, const std::string& xml) {
        const nxCollectedLog log;
        EXPECT_EQ(record.ConvertFromXML(xml, "prefix: "), nxErrorEnum::OK) << xml;
        EXPECT_TRUE(log.Records().empty()) << xml << '\n' << log.Entries().front();
    }

    // The record refuses the document with this message of its own, and keeps what it holds.
    inline void ExpectRefused(nxXMLDataObject& record, const std::string& xml, const std::string& message,
                              const std::string& sourceFile) {
        const std::string before = Written(record);
        const nxCollectedLog log;
        EXPECT_EQ(record.ConvertFromXML(xml, "prefix: "), nxErrorEnum::InvalidData) << xml;
        ASSERT_FALSE(log.Records().empty()) << xml;
        EXPECT_EQ(log.Records().back().entry, "prefix: " + message);
        EXPECT_EQ(log.Records().back().level, nxLogLevelEnum::Error);
        EXPECT_EQ(log.Records().back().sourceFile, "xmlFramework/trunk/" + sourceFile);
        EXPECT_EQ(Written(record), before) << xml;
    }

    // An item record, read from an element with these children, and the children that it writes.
    template <class Item>
    void ReadItem(Item& item, const std::string& children) {
        nxXMLDocument document;
        ASSERT_EQ(document.LoadFromString("<item>" + children + "</item>"), nxErrorEnum::OK) << children;
        nxXMLElement element = document.GetRootElement();
        EXPECT_EQ(item.ConvertFromXML(element, "ignored"), nxErrorEnum::OK) << children;
    }
    template <class Item>
    std::string WrittenItem(const Item& item) {
        nxXMLDocument document;
        document.CreateDocument("item");
        nxXMLElement element = document.GetRootElement();
        EXPECT_EQ(item.ConvertToXML(element, "ignored"), nxErrorEnum::OK);
        std::string xml;
        EXPECT_EQ(document.SaveToString(xml), nxErrorEnum::OK);
        return xml.substr(6, xml.size() - 13); // without "<item>" and "</item>"
    }
} // namespace nxRecordText
