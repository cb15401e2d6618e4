// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxAlgoIDMappingList.h"

#include "tests/support/nxRandomText.h"
#include "tests/support/nxRecordText.h"

#include <memory>
#include <vector>

namespace {
    using nxRecordText::Read;
    using nxRecordText::Written;
    using Mappings = nxAlgoIDMappingList::Mappings;
    using Strings = std::vector<std::string>;

    std::string InList(const std::string& mappings) {
        return "<AlgoIDMappingList><AlgoIDMappings>" + mappings + "</AlgoIDMappings></AlgoIDMappingList>";
    }
    std::string Mapping(const std::string& path, const std::string& id) {
        return "<AlgoMapping><AlgoPath>" + path + "</AlgoPath><AlgoID>" + id + "</AlgoID></AlgoMapping>";
    }
} // namespace

TEST(nxAlgoIDMappingListConvertToXML, WritesTheMappingsInByteOrderOfTheirPaths) {
    const struct {
        Mappings mappings;
        std::string xml;
    } cases[] = {
        {{}, "<AlgoIDMappingList><AlgoIDMappings/></AlgoIDMappingList>"},
        {{{"b/<x>", 1}, {"B", 0}, {"\u00E9", 4294967293}, {"", 7}},
         InList(Mapping("", "7") + Mapping("B", "0") + Mapping("b/&lt;x&gt;", "1") +
                Mapping("\u00E9", "4294967293"))},
    };
    for (const auto& [mappings, xml] : cases) {
        nxAlgoIDMappingList list;
        list.GetAlgoIDMappings() = mappings;
        EXPECT_EQ(Written(list), xml);
        nxAlgoIDMappingList read;
        Read(read, xml);
        EXPECT_EQ(read.GetAlgoIDMappings(), mappings);
    }
}

TEST(nxAlgoIDMappingListConvertFromXML, TakesMappingsWhereverTheyMayStand) {
    const struct {
        std::string xml;
        Mappings mappings;
    } cases[] = {
        {"<a/>", {}},
        {"<a><AlgoIDMapping>" + Mapping("p", "1") + "</AlgoIDMapping>" + Mapping("p", "1") + "</a>", {}},
        {"<a><AlgoIDMappings>" + Mapping("p", "1") + "<x/>" + Mapping("q", "2") +
             "</AlgoIDMappings>text<x/>" + "<AlgoIDMappings>" + Mapping("r", "3") + "</AlgoIDMappings></a>",
         {{"p", 1}, {"q", 2}, {"r", 3}}},
        {InList("<AlgoMapping><x/><AlgoID>1</AlgoID><AlgoPath>p</AlgoPath></AlgoMapping>"), {{"p", 1}}},
        {InList("<AlgoMapping><AlgoID>1</AlgoID><AlgoPath/></AlgoMapping>"), {{"", 1}}},
        {InList(
             "<AlgoMapping><AlgoPath>p</AlgoPath><AlgoID>x</AlgoID><AlgoPath>q</AlgoPath><AlgoID>2</AlgoID>"
             "</AlgoMapping>"),
         {{"q", 2}}},
        {InList(Mapping(" p\n", "0")), {{" p\n", 0}}},
    };
    for (const auto& [xml, mappings] : cases) {
        nxAlgoIDMappingList list;
        Read(list, xml);
        EXPECT_EQ(list.GetAlgoIDMappings(), mappings) << xml;
    }
}

TEST(nxAlgoIDMappingListConvertFromXML, LogsAndLeavesOutAMappingThatBreaksARule) {
    constexpr char NoID[] = "Algo ID is not specified or is not a valid number";
    const struct {
        std::string mappings;
        const char* problem;
    } cases[] = {
        {"<AlgoMapping/>", "Algo path element was not found"},
        {"<AlgoMapping><AlgoID>2</AlgoID></AlgoMapping>", "Algo path element was not found"},
        {"<AlgoMapping><AlgoPath>q</AlgoPath></AlgoMapping>", NoID},
        {Mapping("q", ""), NoID},
        {Mapping("q", "x"), NoID},
        {Mapping("q", "-1"), NoID},
        {Mapping("q", " 2"), NoID},
        {Mapping("q", "NULL"), NoID},
        {Mapping("q", "4294967294"), NoID},
        {Mapping("q", "4294967295"), NoID},
        {Mapping("q", "4294967296"), NoID},
        {Mapping("q", "<x/>2"), NoID},
        {Mapping("p", "NO_CHANGE"), NoID},
        {Mapping("p", "2"), "Algo path is duplicate. Algo path: p"},
        {Mapping("p", "1"), "Algo path is duplicate. Algo path: p"},
        {Mapping("q", "1"), "Algo ID is duplicate. Algo ID: 1"},
        {Mapping("q", "0001"), "Algo ID is duplicate. Algo ID: 1"},
    };
    for (const auto& [mappings, problem] : cases) {
        const nxCollectedLog log;
        nxAlgoIDMappingList list;
        EXPECT_EQ(list.ConvertFromXML(InList(Mapping("p", "1") + mappings + Mapping("z", "9")), "prefix: "),
                  nxErrorEnum::OK);
        EXPECT_EQ(list.GetAlgoIDMappings(), (Mappings{{"p", 1}, {"z", 9}})) << mappings;
        EXPECT_EQ(log.Entries(),
                  Strings{std::string("Failed to create algo mapping from XML element. ") + problem});
        EXPECT_EQ(log.Records().back().level, nxLogLevelEnum::Error);
        EXPECT_EQ(log.Records().back().sourceFile, "xmlFramework/trunk/nxAlgoIDMappingList");
    }
}

TEST(nxAlgoIDMappingListConvertFromXML, EmptiesTheListFirst) {
    nxAlgoIDMappingList list;
    Read(list, InList(Mapping("p", "1")));
    Read(list, InList(Mapping("q", "1")));
    EXPECT_EQ(list.GetAlgoIDMappings(), (Mappings{{"q", 1}}));

    const nxCollectedLog log;
    EXPECT_EQ(list.ConvertFromXML("<?xml version='1.2'?><a/>", "prefix: "), nxErrorEnum::InvalidData);
    EXPECT_EQ(list.GetAlgoIDMappings(), Mappings());
    EXPECT_EQ(log.Entries().back(),
              "prefix: Failed to convert XML data to algo mapping list. Unable to create XML "
              "document from XML string");
    EXPECT_EQ(log.Records().back().sourceFile, "xmlFramework/trunk/nxAlgoIDMappingList");
}

TEST(nxAlgoIDMappingListRoundTrip, KeepsAnyTextThatXMLCarries) {
    nxRandomText random(1);
    for (int round = 0; round < 200; ++round) {
        nxAlgoIDMappingList list;
        for (unsigned int id = random.Below(5); id > 0; --id)
            list.GetAlgoIDMappings().emplace(random.Text(), id * 0x33333331);
        nxAlgoIDMappingList read;
        Read(read, Written(list));
        ASSERT_EQ(read.GetAlgoIDMappings(), list.GetAlgoIDMappings()) << Written(list);
    }
}

TEST(nxAlgoIDMappingListCopyInstance, HasAMapOfItsOwn) {
    nxAlgoIDMappingList list;
    list.GetAlgoIDMappings()["p"] = 1;
    const std::unique_ptr<nxAlgoIDMappingList> copy(list.CopyInstance());
    nxAlgoIDMappingList assigned;
    assigned = list;
    list.GetAlgoIDMappings().clear();
    EXPECT_EQ(copy->GetAlgoIDMappings(), (Mappings{{"p", 1}}));
    EXPECT_EQ(assigned.GetAlgoIDMappings(), (Mappings{{"p", 1}}));
    EXPECT_EQ(list.IsValid(), nxErrorEnum::OK);
}
