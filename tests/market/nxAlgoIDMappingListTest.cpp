// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxAlgoIDMappingList.h"

#include "tests/support/nxRecordText.h"

#include <vector>

namespace {
    using namespace nxRecordText;
    using Mappings = nxAlgoIDMappingList::Mappings;
    using Strings = std::vector<std::string>;

    std::string InList(const std::string& mappings) {
        return Element("AlgoIDMappingList", Element("AlgoIDMappings", mappings));
    }
    std::string Mapping(const std::string& path, const std::string& id) {
        return Element("AlgoMapping", Element("AlgoPath", path) + Element("AlgoID", id));
    }
} // namespace

TEST(nxAlgoIDMappingListConvertToXML, WritesTheMappingsInByteOrderOfTheirPaths) {
    nxAlgoIDMappingList list;
    EXPECT_EQ(Written(list), "<AlgoIDMappingList><AlgoIDMappings/></AlgoIDMappingList>");
    list.GetAlgoIDMappings() = {{"b/<x>", 1}, {"B", 0}, {"\u00E9", 4294967293}, {"", 7}};
    EXPECT_EQ(Written(list), InList(Mapping("", "7") + Mapping("B", "0") + Mapping("b/&lt;x&gt;", "1") +
                                    Mapping("\u00E9", "4294967293")));
}

TEST(nxAlgoIDMappingListConvertFromXML, TakesMappingsWhereverTheyMayStandIntoAnEmptiedList) {
    const struct {
        std::string children;
        Mappings mappings;
    } cases[] = {
        {Element("AlgoIDMapping", Mapping("p", "1")) + Mapping("p", "1"), {}},
        {Element("AlgoIDMappings", Mapping("p", "1") + "<x/>" + Mapping("q", "2")) + "text<x/>" +
             Element("AlgoIDMappings", Mapping("r", "4294967293")),
         {{"p", 1}, {"q", 2}, {"r", 4294967293}}},
        {Element("AlgoIDMappings", "<AlgoMapping><x/><AlgoID>1</AlgoID><AlgoPath/></AlgoMapping>"),
         {{"", 1}}},
        {Element("AlgoIDMappings",
                 Element("AlgoMapping", Elements("AlgoPath=p AlgoID=x AlgoPath=q AlgoID=2"))),
         {{"q", 2}}},
    };
    for (const auto& [children, mappings] : cases) {
        nxAlgoIDMappingList list;
        list.GetAlgoIDMappings() = {{"before", 1}};
        Read(list, Element("any", children));
        EXPECT_EQ(list.GetAlgoIDMappings(), mappings) << children;
    }
}

TEST(nxAlgoIDMappingListConvertFromXML, LogsAndLeavesOutAMappingThatBreaksARule) {
    constexpr char NoPath[] = "Algo path element was not found";
    constexpr char NoID[] = "Algo ID is not specified or is not a valid number";
    const struct {
        std::string mapping;
        const char* problem;
    } cases[] = {
        {"<AlgoMapping/>", NoPath},
        {"<AlgoMapping><AlgoID>2</AlgoID></AlgoMapping>", NoPath},
        {"<AlgoMapping><AlgoPath>q</AlgoPath></AlgoMapping>", NoID},
        {Mapping("q", ""), NoID},
        {Mapping("q", "-1"), NoID},
        {Element("AlgoMapping", Elements("AlgoPath=q AlgoID=3 AlgoID=x")), NoID},
        {Mapping("q", "NULL"), NoID},
        {Mapping("q", "4294967294"), NoID},
        {Mapping("p", "4294967295"), NoID},
        {Mapping("p", "2"), "Algo path is duplicate. Algo path: p"},
        {Mapping("p", "1"), "Algo path is duplicate. Algo path: p"},
        {Mapping("q", "0001"), "Algo ID is duplicate. Algo ID: 1"},
    };
    for (const auto& [mapping, problem] : cases) {
        const nxCollectedLog log;
        nxAlgoIDMappingList list;
        EXPECT_EQ(list.ConvertFromXML(InList(Mapping("p", "1") + mapping + Mapping("z", "2")), "prefix: "),
                  nxErrorEnum::OK);
        EXPECT_EQ(list.GetAlgoIDMappings(), (Mappings{{"p", 1}, {"z", 2}})) << mapping;
        ASSERT_EQ(log.EntriesAt(nxLogLevelEnum::Error),
                  Strings{std::string("Failed to create algo mapping from XML element. ") + problem});
        EXPECT_EQ(log.Records().back().sourceFile, "xmlFramework/trunk/nxAlgoIDMappingList");
    }
}
