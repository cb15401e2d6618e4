// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxSyntheticPriceServerInstanceList.h"

#include "tests/support/nxRandomText.h"
#include "tests/support/nxRecordText.h"

namespace {
    using nxRecordText::Read;
    using nxRecordText::Written;
    using Strings = std::vector<std::string>;

    std::string List(const std::string& instances) {
        return "<SyntheticPriceServerInstances>" + instances + "</SyntheticPriceServerInstances>";
    }
} // namespace

TEST(nxSyntheticPriceServerInstanceListConvertFromXML, AddsEveryChildWithATextAsAName) {
    const struct {
        std::string children;
        Strings names;
    } cases[] = {
        {"<Instance>a</Instance><x>" + List("<Instance>b</Instance>") + "</x>", {"b"}},
        {List("text<Instance>b</Instance><Other> a </Other><Instance>b</Instance>"), {"b", "b", " a ", "b"}},
        {List("<Instance>a</Instance>") + "<x/>" + List("<Instance>b</Instance>"), {"b", "a", "b"}},
        {List(
             "<Instance/><Instance><x/>a</Instance><Instance><![CDATA[a]]></Instance><Instance>b</Instance>"),
         {"b", "b"}},
    };
    for (const auto& [children, names] : cases) {
        nxSyntheticPriceServerInstanceList list;
        list.GetSyntheticPriceServerInstances() = {"b"};
        nxRecordText::ExpectRefused(
            list, "<any>" + children,
            "Failed to convert XML data to spread spec. Unable to create XML document from XML string",
            "nxSyntheticPriceServerInstanceList");
        Read(list, "<any>" + children + "</any>");
        EXPECT_EQ(list.GetSyntheticPriceServerInstances(), names) << children;
    }
}

TEST(nxSyntheticPriceServerInstanceListConvertToXML, ReadsBackTheNamesThatAreNotEmpty) {
    nxSyntheticPriceServerInstanceList list;
    const std::string root = "SyntheticPriceServerInstanceList";
    EXPECT_EQ(Written(list), "<" + root + "><SyntheticPriceServerInstances/></" + root + ">");

    nxRandomText random(15);
    for (int round = 0; round < 200; ++round) {
        Strings& names = list.GetSyntheticPriceServerInstances();
        names = {"", "<" + random.Text(), random.Text() + ">"};
        nxSyntheticPriceServerInstanceList read;
        Read(read, Written(list));
        names.erase(names.begin());
        ASSERT_EQ(read.GetSyntheticPriceServerInstances(), names);
    }
}

TEST(nxSyntheticPriceServerInstanceListConvertToXML, NamesTheInstanceThatXMLCannotCarry) {
    nxSyntheticPriceServerInstanceList list;
    list.GetSyntheticPriceServerInstances() = {"good",
                                               "b\x01"
                                               "d",
                                               "\xFF"};
    const nxCollectedLog log;
    std::string xml = "before";
    EXPECT_EQ(list.ConvertToXML(xml, "ignored"), nxErrorEnum::XMLTextNotCarried);
    EXPECT_EQ(xml, "before");
    Strings own; // the document may add why
    for (const CollectedRecord& record : log.Records()) {
        EXPECT_EQ(record.level, nxLogLevelEnum::Error);
        if (record.sourceFile == "xmlFramework/trunk/nxSyntheticPriceServerInstanceList")
            own.push_back(record.entry);
    }
    EXPECT_EQ(own, Strings{"Failed to add synthetic price server instance as child element to XML document. "
                           "Synthetic price server instance: b\x01"
                           "d"});
}
