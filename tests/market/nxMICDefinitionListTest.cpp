// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxMICDefinitionList.h"

#include "tests/support/nxMICSample.h"
#include "tests/support/nxRandomText.h"
#include "tests/support/nxRecordText.h"

#include <memory>
#include <vector>

namespace {
    using nxMICSample::Fields;
    using nxRecordText::Read;
    using nxRecordText::Written;
    using Strings = std::vector<std::string>;

    void Add(nxMICDefinitionList& list, const Fields& fields) {
        list.GetMICDefinitions().emplace(fields[0],
                                         std::make_shared<nxMICDefinition>(nxMICSample::Make(fields)));
    }

    // The names of the items, with their keys.
    Strings NamesByMIC(const nxMICDefinitionList& list) {
        Strings names;
        for (const auto& [mic, definition] : list.GetMICDefinitions())
            names.push_back(mic + "=" + definition->GetName());
        return names;
    }

    std::string Item(const std::string& suffix, const std::string& mic, const std::string& name) {
        return "<MICDefinition-" + suffix + "><MIC>" + mic + "</MIC><Name>" + name +
               "</Name></MICDefinition-" + suffix + ">";
    }
    std::string InList(const std::string& items) {
        return "<MICDefinitionList><MICDefinitions>" + items + "</MICDefinitions></MICDefinitionList>";
    }
} // namespace

TEST(nxMICDefinitionListConvertToXML, WritesTheItemsByTheirKeysAndLogsEach) {
    nxMICDefinitionList list;
    Add(list, {"XB", "", "", "", "false", "", "", "", "", "", "false", "", ""});
    list.GetMICDefinitions()["XA"] =
        std::make_shared<nxMICDefinition>(nxMICSample::Make(nxMICSample::Example));
    const nxCollectedLog log;
    EXPECT_EQ(
        Written(list),
        InList("<MICDefinition-XA><MIC>XABC</MIC><Country>UNITED KINGDOM</Country>"
               "<ISOCountryCode>GB</ISOCountryCode><OperatingMIC>XABC</OperatingMIC>"
               "<IsOperatingMIC>true</IsOperatingMIC><Name>Example &amp; Co</Name><Acronym>EXA</Acronym>"
               "<City>LONDON</City><Website>www.a.b</Website><StatusDate>20240101</StatusDate>"
               "<IsActive>true</IsActive><CreationDate>20050530</CreationDate><Comments>none</Comments>"
               "</MICDefinition-XA>"
               "<MICDefinition-XB><MIC>XB</MIC><Country></Country><ISOCountryCode></ISOCountryCode>"
               "<OperatingMIC></OperatingMIC><IsOperatingMIC>false</IsOperatingMIC><Name></Name>"
               "<Acronym></Acronym><City></City><Website></Website><StatusDate></StatusDate>"
               "<IsActive>false</IsActive><CreationDate></CreationDate><Comments></Comments>"
               "</MICDefinition-XB>"));
    EXPECT_EQ(log.Entries(), (Strings{"Converting MIC definition to XML. Element: MICDefinition-XA",
                                      "Converting MIC definition to XML. Element: MICDefinition-XB"}));
    EXPECT_EQ(log.Records().back().level.GetEnumValue(), 31U);
    EXPECT_EQ(log.Records().back().sourceFile, "xmlFramework/trunk/nxMICDefinitionList");
}

TEST(nxMICDefinitionListConvertToXML, LogsNothingForAnEmptyList) {
    const nxCollectedLog log;
    nxMICDefinitionList list;
    EXPECT_EQ(Written(list), "<MICDefinitionList><MICDefinitions/></MICDefinitionList>");
    EXPECT_TRUE(log.Entries().empty());
}

TEST(nxMICDefinitionListConvertFromXML, TakesTheItemsOfAllContainersByTheirOwnMIC) {
    const struct {
        std::string xml;
        Strings names;
    } cases[] = {
        {"<x/>", {}},
        {"<x>" + Item("A", "A", "a") + "</x>", {}},
        {"<x><MICDefinition>" + Item("A", "A", "a") + "</MICDefinition></x>", {}},
        {"<x><y/><MICDefinitions>" + Item("A", "A", "a") + "</MICDefinitions>text<MICDefinitions>" +
             Item("B", "B", "b") + "</MICDefinitions></x>",
         {"A=a", "B=b"}},
        {InList(Item("A", "B", "b") + Item("B", "A", "a")), {"A=a", "B=b"}},
        {InList(Item("A", "A", "first") + Item("A", "A", "second") + Item("C", "C", "c")),
         {"A=first", "C=c"}},
        {InList("<MICDefinition-A/>" + Item("B", "", "b")), {"="}},
        {InList(Item("A", "A", "a") + "<MICDefinition-/>" + Item("B", "B", "b")), {"A=a"}},
        {InList("<!---->text" + Item("A", "A", "a") + "<Other/>" + Item("B", "B", "b")), {"A=a"}},
        {"<x><MICDefinitions><other/>" + Item("A", "A", "a") + "</MICDefinitions><MICDefinitions>" +
             Item("B", "B", "b") + "</MICDefinitions></x>",
         {"B=b"}},
        {InList("<MICDEFINITION-A/>" + Item("B", "B", "b")), {}},
    };
    for (const auto& [xml, names] : cases) {
        nxMICDefinitionList list;
        Read(list, xml);
        EXPECT_EQ(NamesByMIC(list), names) << xml;
    }
}

TEST(nxMICDefinitionListConvertFromXML, AddsToWhatTheListHolds) {
    nxMICDefinitionList list;
    for (const char* name : {"first", "second"})
        Read(list, InList(Item("A", "A", name)));
    Read(list, InList(Item("B", "B", "b")));
    EXPECT_EQ(NamesByMIC(list), (Strings{"A=first", "B=b"}));

    nxRecordText::ExpectRefused(
        list, "<?xml version='1.2'?><a/>",
        "Failed to convert XML data to spread spec. Unable to create XML document from XML string",
        "nxMICDefinitionList");
    EXPECT_EQ(NamesByMIC(list), (Strings{"A=first", "B=b"}));
}

TEST(nxMICDefinitionListIsValid, GivesTheResultOfTheFirstItemThatIsNot) {
    nxMICDefinitionList list;
    EXPECT_EQ(list.IsValid(), nxErrorEnum::OK);
    Add(list, nxMICSample::Example);
    EXPECT_EQ(list.IsValid(), nxErrorEnum::OK);
    list.GetMICDefinitions()["Z"] = std::make_shared<nxMICDefinition>();
    EXPECT_EQ(list.IsValid(), nxErrorEnum::InvalidData);
}

TEST(nxMICDefinitionListCopy, HasItemsOfItsOwn) {
    nxMICDefinitionList list;
    Add(list, nxMICSample::Example);
    const nxMICDefinitionList constructed = list; // NOLINT(performance-unnecessary-copy-initialization)
    const std::unique_ptr<nxMICDefinitionList> copied(list.CopyInstance());
    list.GetMICDefinitions().at("XABC")->SetName("changed");
    EXPECT_EQ(NamesByMIC(constructed), Strings{"XABC=Example & Co"});
    EXPECT_EQ(NamesByMIC(*copied), Strings{"XABC=Example & Co"});
}

TEST(nxMICDefinitionListAssignment, SharesItemsThatLiveAsLongAsEitherList) {
    for (const bool destroyTheFirst : {true, false}) {
        auto first = std::make_unique<nxMICDefinitionList>();
        auto second = std::make_unique<nxMICDefinitionList>();
        Add(*first, nxMICSample::Example);
        Add(*second, {"GONE", "", "", "", "", "", "", "", "", "", "", "", ""});
        const std::weak_ptr<nxMICDefinition> replaced = second->GetMICDefinitions().at("GONE");
        *second = *first;
        EXPECT_TRUE(replaced.expired());

        first->GetMICDefinitions().at("XABC")->SetName("changed");
        EXPECT_EQ(NamesByMIC(*second), Strings{"XABC=changed"});
        (destroyTheFirst ? first : second).reset();
        const auto& left = destroyTheFirst ? second : first;
        EXPECT_EQ(NamesByMIC(*left), Strings{"XABC=changed"});
        *left = *&*left;
        EXPECT_EQ(NamesByMIC(*left), Strings{"XABC=changed"});
    }
}

TEST(nxMICDefinitionListRoundTrip, KeepsAnyTextThatXMLCarries) {
    nxRandomText random(3);
    for (int round = 0; round < 100; ++round) {
        nxMICDefinitionList list;
        for (unsigned int items = random.Below(4); items > 0; --items) {
            Fields fields;
            for (std::string& field : fields)
                field = random.Text();
            fields[0] = random.Key();
            fields[4] = random.Flag() ? "true" : "false";
            fields[10] = random.Flag() ? "true" : "false";
            Add(list, fields);
        }
        nxMICDefinitionList read;
        Read(read, Written(list));
        ASSERT_EQ(read.GetMICDefinitions().size(), list.GetMICDefinitions().size());
        for (const auto& [mic, definition] : list.GetMICDefinitions())
            ASSERT_EQ(nxMICSample::Of(*read.GetMICDefinitions().at(mic)), nxMICSample::Of(*definition))
                << Written(list);
    }
}
