// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxSyntheticPriceServerInstanceList.h"

#include "tests/support/nxRecordText.h"

namespace {
    using namespace nxRecordText;
    using Strings = std::vector<std::string>;

    std::string List(const std::string& instances) {
        return Element("SyntheticPriceServerInstances", instances);
    }
} // namespace

TEST(nxSyntheticPriceServerInstanceListConvertFromXML, AddsEveryChildWithATextAsAName) {
    const struct {
        std::string children;
        Strings names;
    } cases[] = {
        {Elements("Instance=a") + Element("x", List(Elements("Instance=a"))), {"b"}},
        {List("text<Instance>b</Instance><Other> a </Other><Instance>b</Instance>"), {"b", "b", " a ", "b"}},
        {List(Elements("Instance=a")) + "<x/>" + List(Elements("Instance=c")), {"b", "a", "c"}},
        {List("<Instance/><Instance><x/>a</Instance><Instance><![CDATA[a]]></Instance>"), {"b"}},
    };
    for (const auto& [children, names] : cases) {
        nxSyntheticPriceServerInstanceList list;
        list.GetSyntheticPriceServerInstances() = {"b"};
        Read(list, Element("any", children));
        EXPECT_EQ(list.GetSyntheticPriceServerInstances(), names) << children;
    }
}

TEST(nxSyntheticPriceServerInstanceListConvertToXML, NamesTheInstanceThatXMLCannotCarry) {
    nxSyntheticPriceServerInstanceList list;
    EXPECT_EQ(Written(list), Element("SyntheticPriceServerInstanceList", "<SyntheticPriceServerInstances/>"));
    list.GetSyntheticPriceServerInstances() = {"good", "\x01", "\xFF"};
    const nxCollectedLog log;
    std::string xml = "before";
    EXPECT_EQ(list.ConvertToXML(xml, "ignored"), nxErrorEnum::XMLTextNotCarried);
    EXPECT_EQ(xml, "before");
    Strings own; // the document adds why
    for (const CollectedRecord& record : log.Records()) {
        EXPECT_EQ(record.level, nxLogLevelEnum::Error);
        if (record.sourceFile == "xmlFramework/trunk/nxSyntheticPriceServerInstanceList")
            own.push_back(record.entry);
    }
    EXPECT_EQ(own, Strings{"Failed to add synthetic price server instance as child element to XML document. "
                           "Synthetic price server instance: \x01"});
}
