// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// What `check` says of files.

#include "tests/support/nxIsSanitized.h"
#include "tests/support/nxToolProcess.h"
#include "tests/tool/nxToolDocuments.h"
#include "tool/parallel.h"

#include <pthread.h>
#include <sys/stat.h>

#include <cstdlib>
#include <numeric>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {
    struct Case {
        const char* document;
        const char* output; // of check, less its first line
    };

    std::string Spread(const std::string& firstLeg, const std::string& secondLeg) {
        const std::string both = "<OrderType>Limit</OrderType><RiskRatio>1</RiskRatio>";
        return "<SyntheticSpreadSpec><Legs><Leg-0><WorkingLeg>true</WorkingLeg>" + firstLeg + both +
               "</Leg-0><Leg-1><HedgeAggressionMethod>Market</HedgeAggressionMethod>" + secondLeg + both +
               "</Leg-1></Legs></SyntheticSpreadSpec>";
    }
    std::string Many(int count) {
        std::string text;
        while (count-- > 0)
            text += "\u00E9";
        return text;
    }
    std::string UTF16(const std::string& ascii) {
        std::string utf16 = "\xFE\xFF";
        for (const char c : ascii)
            utf16.append(1, '\0').append(1, c);
        return utf16;
    }
    std::string Hours(const std::string& periods, const std::string& name = "Night") {
        return "<TradingHoursSchemesList><TradingHoursSchemes><Scheme><SchemeName>" + name +
               "</SchemeName><Periods>" + periods +
               "</Periods></Scheme></TradingHoursSchemes></TradingHoursSchemesList>";
    }
    std::string Period(const std::string& startDay, const std::string& endDay) {
        return "<Period><SessionType>CONTINUOUS_TRADING</SessionType><StartTimeZoneRegion>Europe/Oslo"
               "</StartTimeZoneRegion><StartTime>21:00:00</StartTime><StartDay>" +
               startDay + "</StartDay><EndDay>" + endDay + "</EndDay></Period>";
    }
} // namespace

class nxToolCheck : public nxTool {
protected:
    // What check says of one file, less the line with its result.
    std::string _Check(const std::string& document, Arguments arguments = {"check"}) const {
        _Write("a.xml", document);
        arguments.emplace_back("a.xml");
        const Outcome outcome = _Run(arguments);
        const std::size_t firstLine = outcome.out.find('\n') + 1;
        EXPECT_EQ(outcome.status, outcome.out.starts_with("a.xml: OK") ? 0 : 1) << outcome.out;
        return outcome.out.substr(firstLine);
    }
};

TEST_F(nxToolCheck, SaysOfEachFileWhetherItIsGood) {
    _Write("good.xml", MappingList(Mapping("a", "1") + Mapping("b", "2")));
    _Write("dropped.xml", MappingList(Mapping("a", "1") + Mapping("a", "2")));
    _Write("cut.xml", "<AlgoIDMappingList>\n  <AlgoIDMappings></Algo");
    _Write("other.xml", "<AlgoIDMapingList/>");
    _Write("remarks.xml", "<AlgoIDMappingList><X/><AlgoIDMappings/></AlgoIDMappingList>");

    EXPECT_EQ(_Run({"check", "good.xml"}).out, "good.xml: OK (algo ID mapping list, 2 items)\n");
    const Outcome all =
        _Run({"check", "good.xml", "dropped.xml", "cut.xml", "other.xml", "remarks.xml", "gone.xml", "-"},
             MICList(""));
    EXPECT_EQ(all.status, 1);
    EXPECT_EQ(all.err, ""); // no progress bar where there is no terminal
    EXPECT_EQ(
        all.out,
        "good.xml: OK (algo ID mapping list, 2 items)\n"
        "dropped.xml: FAILED 1000002 Invalid data\n"
        "  the record is read, but does not hold just what the document says\n"
        "  error: Failed to create algo mapping from XML element. Algo path is duplicate. Algo path: a\n"
        "dropped.xml:1:103: /AlgoIDMappingList/AlgoIDMappings/AlgoMapping[2]: item 'AlgoMapping': Algo path "
        "is duplicate\n"
        "  1 | …lgoID>1</AlgoID></AlgoMapping><AlgoMapping><AlgoPath>a</AlgoPath><AlgoID>2</Algo…\n"
        "    |                                ^\n"
        "cut.xml: FAILED 1007000 XML parse failed\n"
        "cut.xml:2:21: expected end of tag 'AlgoIDMappings'\n"
        "  2 |   <AlgoIDMappings></Algo\n"
        "    |                     ^\n"
        "other.xml: FAILED 1000002 Invalid data\n"
        "  no record has the root element \"AlgoIDMapingList\": did you mean 'AlgoIDMappingList'?\n"
        "other.xml:1:1: /AlgoIDMapingList: unknown element 'AlgoIDMapingList'\n"
        "  1 | <AlgoIDMapingList/>\n"
        "    | ^\n"
        "remarks.xml: OK (algo ID mapping list, 0 items, 1 remark: see --strict)\n"
        "gone.xml: FAILED 1003000 Input not usable\n"
        "  No such file or directory\n"
        "<stdin>: OK (MIC definition list, 0 items)\n"
        "7 files: 3 OK, 4 FAILED\n");
    EXPECT_EQ(_Run({"check", "--quiet", "good.xml", "other.xml"}).out,
              "other.xml: FAILED 1000002 Invalid data\n"
              "  no record has the root element \"AlgoIDMapingList\": did you mean 'AlgoIDMappingList'?\n"
              "other.xml:1:1: /AlgoIDMapingList: unknown element 'AlgoIDMapingList'\n"
              "  1 | <AlgoIDMapingList/>\n"
              "    | ^\n"
              "2 files: 1 OK, 1 FAILED\n");
    EXPECT_EQ(_Run({"check", "--quiet", "good.xml", "remarks.xml"}).out, "");

    EXPECT_EQ(_Run({"check", "--strict", "--type", "XMIC", "other.xml"}).out,
              "other.xml: OK (MIC definition list, 0 items)\n"
              "  note: 1 element is not there and has its default: see --complete\n");
    const Outcome unlogged = _Run({"check", "dropped.xml", "--log-level", "fatal"});
    EXPECT_EQ(unlogged.status, 1);
    EXPECT_EQ(unlogged.out.find("error: "), std::string::npos);
}

TEST_F(nxToolCheck, NamesFileLineAndColumnOfWhatIsNoDocument) {
    const Case cases[] = {
        {"<MICDefinitionList>\n  <A>\xC2\xA2</B></MICDefinitionList>",
         "a.xml:2:9: expected end of tag 'A'\n"
         "  2 |   <A>¢</B></MICDefinitionList>\n"
         "    |         ^\n"},
        {"<MICDefinitionList>\n<!--\xF0\x9F\x98\x80\xF0\x9F\x98\x80-->\n  <A></B></MICDefinitionList>",
         "a.xml:3:8: expected end of tag 'A'\n"
         "  3 |   <A></B></MICDefinitionList>\n"
         "    |        ^\n"},
        {"<MICDefinitionList>\r\n  <MICDefinitions>\xFF</MICDefinitions></MICDefinitionList>",
         "a.xml:2:19: no valid character at byte 39 (from 0) in encoding 'UTF-8'\n"
         "  2 |   <MICDefinitions>\\xFF</MICDefinitions></MICDefinitionList>\n"
         "    |                   ^\n"},
        {"<?xml version='1.0'?>\n<!DOCTYPE MICDefinitionList>\n<MICDefinitionList/>",
         "a.xml:2:1: a DOCTYPE is not allowed\n"
         "  2 | <!DOCTYPE MICDefinitionList>\n"
         "    | ^\n"},
        {"<?xml version='1.0' encoding='ISO-8859-1'?><A>\xE9\xA3\xE9</B>",
         "a.xml:1:52: expected end of tag 'A'\n"
         "  1 | …encoding='ISO-8859-1'?><A>\\xE9\\xA3\\xE9</B>\n"
         "    |                                          ^\n"},
        {"<A>\n東𠀀<B>ก</C></A>", "a.xml:2:9: expected end of tag 'B'\n"
                                  "  2 | 東𠀀<B>ก</C></A>\n"
                                  "    |           ^\n"},
        {"<A>\r<B>\r\n\r</C>\r</A>", "a.xml:4:3: expected end of tag 'B'\n"
                                     "  4 | </C>\n"
                                     "    |   ^\n"},
        {"\xEF\xBB\xBF<Other/>", "  no record has the root element \"Other\"\n"
                                 "a.xml:1:1: /Other: unknown element 'Other'\n"
                                 "  1 | <Other/>\n"
                                 "    | ^\n"},
        {"<?xml version='1.0'?>\r\r<!DOCTYPE A>\r<A/>", "a.xml:3:1: a DOCTYPE is not allowed\n"
                                                        "  3 | <!DOCTYPE A>\n"
                                                        "    | ^\n"},
        {"<?xml version='1.0'?>\r\n\r <Other/>\r", "  no record has the root element \"Other\"\n"
                                                   "a.xml:3:2: /Other: unknown element 'Other'\n"
                                                   "  3 |  <Other/>\n"
                                                   "    |  ^\n"},
        {"<Other>", "a.xml:1:8: input ended before all started tags were ended; last tag started is 'Other'\n"
                    "  1 | <Other>\n"
                    "    |        ^\n"},
    };
    for (const Case& each : cases)
        EXPECT_EQ(_Check(each.document), each.output);
    EXPECT_EQ(_Check(UTF16("<A>\n</B>")), "a.xml:2:3: expected end of tag 'A'\n");
}

TEST_F(nxToolCheck, FindsTheRootElementBehindWhatMayStandBeforeIt) {
    const std::string documents[] = {
        "\xEF\xBB\xBF<?xml version='1.0'?><!-- -> <BrokerMap> --> <?a <BrokerMap>?>\n<MICDefinitionList\n/>",
        UTF16("<MICDefinitionList/>"),
        "<?xml version='1.0' encoding='ISO-8859-1'?><!-- \xE9 --><MICDefinitionList></MICDefinitionList>"};
    for (const std::string& document : documents) {
        _Write("a.xml", document);
        EXPECT_EQ(_Run({"check", "a.xml"}).out, "a.xml: OK (MIC definition list, 0 items)\n") << document;
    }
}

TEST_F(nxToolCheck, ShowsWhatIsLostInItsPlaceWhenItIsStrict) {
    const std::string document = "<KestrumJobSpec>\n"
                                 "  <Limts/>\n"
                                 "  <MaxTrans x='&#9;'>7 </MaxTrans><AlgorithmSpecName>\t" +
                                 std::string(60, 'n') + "é</AlgorithmSpecName>" + std::string(30, ' ') +
                                 "<X>\u0085</X>" + std::string(60, ' ') + "\n</KestrumJobSpec>";
    EXPECT_EQ(
        _Check(document, {"check", "--strict"}),
        "  the record is read, but does not hold just what the document says\n"
        "a.xml:2:3: /KestrumJobSpec/Limts: unknown element 'Limts': did you mean 'Limits'?\n"
        "  2 |   <Limts/>\n"
        "    |   ^\n"
        "a.xml:3:13: /KestrumJobSpec/MaxTrans/@x: unknown attribute 'x'\n"
        "  3 |   <MaxTrans x='&#9;'>7 </MaxTrans><AlgorithmSpecName>␉nnnnnnnn…\n"
        "    |             ^\n"
        "a.xml:3:22: /KestrumJobSpec/MaxTrans: found '7 ', expected a whole number from 0 to "
        "4294967295; the record holds '0'\n"
        "  3 |   <MaxTrans x='&#9;'>7 </MaxTrans><AlgorithmSpecName>␉nnnnnnnnnnnnnnnnn…\n"
        "    |                      ^\n"
        "a.xml:3:166: /KestrumJobSpec/X: unknown element 'X'\n"
        "  3 | …                              <X>\\u0085</X>                                          …\n"
        "    |                                ^\n"
        "  note: 8 elements are not there and have their defaults: see --complete\n");
    EXPECT_EQ(_Check("<BrokerMap>\r\n\r  <X/></BrokerMap>", {"check", "--log-level", "fatal"}),
              "a.xml:3:3: /BrokerMap/X: item 'X': left out, as it cannot be read: Value not parsed\n"
              "  3 |   <X/></BrokerMap>\n"
              "    |   ^\n"
              "  note: 1 remark: see --strict\n");
    EXPECT_EQ(_Check("<BrokerMap><Broker id='1'/></BrokerMap>", {"check", "--complete"}),
              "  the record is read, but does not hold just what the document says\n"
              "a.xml:1:12: /BrokerMap/Broker/@name: element 'name' is missing\n"
              "  1 | <BrokerMap><Broker id='1'/></BrokerMap>\n"
              "    |            ^\n");
    EXPECT_EQ(_Check(MICList("<MICDefinition-X><MIC>X</MIC></MICDefinition-X>"), {"check", "--strict"}),
              "  note: 12 elements are not there and have their defaults: see --complete\n");
}

// Were it gone through for each of its findings, this would take minutes.
TEST_F(nxToolCheck, GoesThroughALongLineOnce) {
    constexpr int Count = 30000;
    std::string items;
    for (int i = 0; i < Count; ++i) {
        const std::string mic = "M" + std::to_string(i);
        items += "<MICDefinition-" + mic + "><MIC>" + mic + "</MIC><X/></MICDefinition-" + mic + ">";
    }
    _Write("a.xml", MICList(items));
    const std::string command =
        "cd '" + _folder.string() + "' && ulimit -t 40 && " NX_TOOL_PATH " check --strict a.xml >out";
    EXPECT_EQ(std::system(command.c_str()), 256); // no signal: out of processor time
    EXPECT_EQ(std::ranges::count(_Read("out"), '\n'), 2 + 3 * Count + 1);
}

TEST_F(nxToolCheck, NamesTheItemThatIsNotValidAndWhy) {
    const std::pair<std::string, std::string> cases[] = {
        {MICList("<MICDefinition-X><MIC>X</MIC></MICDefinition-X><MICDefinition-Y/>"),
         "  MIC definition without MIC: item 2 of MICDefinitions, element 'MICDefinition-Y'\n"},
        {"<ExchangeDefinitionList><ExchangeDefinitions><ExchangeDefinition-Z/></ExchangeDefinitions>"
         "</ExchangeDefinitionList>",
         "  exchange definition without Mnemonic: item 1 of ExchangeDefinitions, element "
         "'ExchangeDefinition-Z'\n"},
        {"<TradingHoursSchemesList><TradingHoursSchemes><Scheme/></TradingHoursSchemes>"
         "</TradingHoursSchemesList>",
         "  trading hours scheme without SchemeName: item 1 of TradingHoursSchemes, element 'Scheme'\n"},
        {Hours(Period("0", "6") + "<Period/>"),
         "  trading hours scheme 'Night', period 2: no session type, no time zone region, no time, no start "
         "day, no end day\n"},
        {Hours(Period("5", "4") + Period("0", "7") + Period("9", "3")),
         "  trading hours scheme 'Night', period 1: start day 5 is behind end day 4\n"
         "  trading hours scheme 'Night', period 2: end day 7 is beyond 6\n"
         "  trading hours scheme 'Night', period 3: start day 9 is beyond 6\n"},
        {Hours(Period("5", "4"), Many(100)),
         "  trading hours scheme '" + Many(100) + "', period 1: start day 5 is behind end day 4\n"},
        {Hours(Period("5", "4"), Many(101)),
         "  trading hours scheme '" + Many(100) + "…', period 1: start day 5 is behind end day 4\n"},
        {"<OrvalenPriceStatistics/>", "  the user is not known: userID is NULL\n"},
        {"<SyntheticSpreadSpec/>", "  error: Spec must contain at least 2 legs\n"},
        {Spread("<ConditionalPayup>true</ConditionalPayup><PayupTicks>2</PayupTicks>",
                "<Finesse>true</Finesse>"),
         "  error: Leg-0: Conditional/cascade payup is enabled, but trigger volume is not set. Trigger "
         "volume: "
         "NULL, Payup method: Conditional payup\n"
         "  error: Leg-1: Finesse is enabled, but trigger volume is not set. Trigger volume: NULL\n"},
    };
    for (const auto& [document, reasons] : cases) {
        const std::string said = _Check(document);
        EXPECT_EQ(said.substr(0, 36 + reasons.size()), "  the record is read, but not valid\n" + reasons)
            << document;
    }
    EXPECT_EQ(_Check(Hours(Period("0", "6"))), "");
    EXPECT_EQ(_Check(Spread("", "")), "");
}

TEST_F(nxToolCheck, ReadsFoldersAndListsOfPaths) {
    std::filesystem::create_directories(_folder / "d/b.xml/deep");
    std::filesystem::create_directory(_folder / "empty");
    for (const char* const name : {"d/c.xml", "d/a.xml", "d/a.txt", "d/b.xml/deep/a.xml", "@odd"})
        _Write(name, MICList(""));
    _Write("list", "@odd\r\n\nd/b.xml");
    const std::string good = ": OK (MIC definition list, 0 items)\n";
    const std::string folder = "d/a.xml" + good + "d/b.xml/deep/a.xml" + good + "d/c.xml" + good;
    const struct {
        Arguments arguments;
        std::string in;
        int status;
        std::string out;
        std::string err;
    } cases[] = {
        {{"d"}, "", 0, folder + "3 files: 3 OK, 0 FAILED\n", ""},
        {{"@list"}, "", 0, "@odd" + good + "d/b.xml/deep/a.xml" + good + "2 files: 2 OK, 0 FAILED\n", ""},
        {{"@-", "./@odd"},
         "d/c.xml\n",
         0,
         "d/c.xml" + good + "./@odd" + good + "2 files: 2 OK, 0 FAILED\n",
         ""},
        {{"empty", "d/c.xml"},
         "",
         1,
         "d/c.xml" + good,
         "xmlframework: empty: there is no *.xml in this folder\n"},
        {{"@gone"}, "", 1, "", "xmlframework: gone: No such file or directory\n"},
    };
    for (const auto& each : cases) {
        Arguments arguments{"check"};
        arguments.insert(arguments.end(), each.arguments.begin(), each.arguments.end());
        const Outcome outcome = _Run(arguments, each.in);
        EXPECT_EQ(outcome.status, each.status) << each.arguments.front();
        EXPECT_EQ(outcome.out, each.out);
        EXPECT_EQ(outcome.err, each.err);
    }
}

TEST_F(nxToolCheck, GoesOnBehindAFolderThatItMayNotRead) {
    for (const char* const folder : {"d/a/deep", "d/b/c", "d/e"}) {
        std::filesystem::create_directories(_folder / folder);
        _Write(folder + std::string("/x.xml"), MICList(""));
    }
    std::filesystem::create_directory_symlink("../e", _folder / "d/b/link.xml");
    Arguments arguments{NX_TOOL_PATH, "check", "d"};
    if (::geteuid() == 0) { // may read all, unless
        const Arguments without{"setpriv", "--bounding-set=-dac_override,-dac_read_search",
                                "--inh-caps=-dac_override,-dac_read_search"};
        Arguments tried = without;
        tried.emplace_back("true");
        if (_RunProgram(tried).status != 0)
            GTEST_SKIP() << "setpriv is not there, or may not do this";
        arguments.insert(arguments.begin(), without.begin(), without.end());
    }
    for (const char* const folder : {"d/a", "d/b/c"})
        permissions(_folder / folder, std::filesystem::perms::none);
    const Outcome outcome = _RunProgram(arguments);
    for (const char* const folder : {"d/a", "d/b/c"})
        permissions(_folder / folder, std::filesystem::perms::owner_all);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "d/e/x.xml: OK (MIC definition list, 0 items)\n");
    EXPECT_EQ(outcome.err, "xmlframework: d/a: Permission denied\nxmlframework: d/b/c: Permission denied\n");
}

// Each file says something of its own, in the log as well.
TEST_F(nxToolCheck, PrintsTheSameWhateverTheNumberOfThreads) {
    constexpr int Count = 300;
    std::filesystem::create_directory(_folder / "d");
    for (int i = 0; i < Count; ++i) {
        std::string mappings;
        for (int j = 0; j < i % 7 * 20; ++j)
            mappings += Mapping("p" + std::to_string(i) + "_" + std::to_string(j / 2), std::to_string(j));
        _Write("d/" + std::to_string(i) + ".xml", MappingList(mappings));
    }
    const Outcome one = _Run({"check", "--strict", "d"});
    EXPECT_GT(std::ranges::count(one.out, '\n'), 10L * Count);
    EXPECT_NE(one.out.find("\n300 files: 43 OK, 257 FAILED\n"), std::string::npos);
    for (const char* const jobs : {"2", "7", "1000", "0"})
        EXPECT_EQ(_Run({"check", "--strict", "d", "--jobs", jobs}).out, one.out) << jobs;
}

TEST(nxToolThreads, HandOverWhatTheyThrow) {
    std::vector<std::size_t> taken;
    const auto work = [](std::size_t i) { return i < 700 ? i : throw std::runtime_error("no more"); };
    EXPECT_THROW(tool::WorkInOrder(1000, 3, work, [&taken](std::size_t i) { taken.push_back(i); }),
                 std::runtime_error);
    std::vector<std::size_t> expected(taken.size());
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_EQ(taken, expected);
    EXPECT_TRUE(!taken.empty() && taken.size() <= 700);
}

namespace {
    // No thread can be started meanwhile: no address is as high as the stacks that they would have.
    class NoThreads {
    public:
        NoThreads() {
            pthread_attr_t attributes;
            EXPECT_EQ(::pthread_getattr_default_np(&_before), 0);
            EXPECT_EQ(::pthread_attr_init(&attributes), 0);
            EXPECT_EQ(::pthread_attr_setstacksize(&attributes, std::size_t{1} << 50U), 0);
            EXPECT_EQ(::pthread_setattr_default_np(&attributes), 0);
            ::pthread_attr_destroy(&attributes);
        }
        ~NoThreads() {
            ::pthread_setattr_default_np(&_before);
            ::pthread_attr_destroy(&_before);
        }
        NoThreads(const NoThreads&) = delete;
        NoThreads& operator=(const NoThreads&) = delete;

    private:
        pthread_attr_t _before{};
    };
} // namespace

TEST(nxToolThreads, AreNotNeededWhereNoneCanBeStarted) {
    const NoThreads noThreads;
    std::size_t taken = 0;
    tool::WorkInOrder(
        1000, 3, [](std::size_t i) { return i; }, [&](std::size_t i) { EXPECT_EQ(i, taken++); });
    EXPECT_EQ(taken, 1000U);
}

TEST_F(nxToolCheck, GoesOnBehindAFileThatTakesMoreMemoryThanThereIs) {
    if (nxIsSanitized)
        GTEST_SKIP() << "the sanitizers take more memory themselves";
    std::string legs;
    for (int i = 0; i < 100000; ++i)
        legs += "<Leg-" + std::to_string(i) + "/>";
    _Write("legs.xml", "<SyntheticSpreadSpec><Legs>" + legs + "</Legs></SyntheticSpreadSpec>");
    _Write("good.xml", MICList(""));
    const std::string good = "good.xml: OK (MIC definition list, 0 items)\n";
    const auto run = [this](const std::string& arguments) {
        return _RunProgram({"sh", "-c", "ulimit -v 200000; '" NX_TOOL_PATH "' " + arguments});
    };
    EXPECT_EQ(run("check good.xml legs.xml good.xml").out,
              good + "legs.xml: FAILED 1003000 Input not usable\n  there is not enough memory\n" + good +
                  "3 files: 2 OK, 1 FAILED\n");
    const Outcome diff = run("diff legs.xml legs.xml");
    EXPECT_EQ(diff.status, 2);
    EXPECT_EQ(diff.err, "xmlframework: there is not enough memory\n");
}

// The first file is there late, the others at once.
TEST_F(nxToolCheck, ShowsItsProgressAFewTimesASecondWhenItTakesLong) {
    if (!_HasTerminals())
        GTEST_SKIP() << "no terminal can be made here";
    _Write("good.xml", MICList(""));
    ASSERT_EQ(::mkfifo((_folder / "late.xml").c_str(), 0600), 0);
    std::string command = "cd '" + _folder.string() +
                          "' && { { sleep 1.2; cat good.xml >late.xml; } & script -qec '" NX_TOOL_PATH
                          " check --quiet late.xml";
    for (int i = 0; i < 200; ++i)
        command += " good.xml";
    EXPECT_EQ(std::system((command + "' /dev/null >shown </dev/null; }").c_str()), 0);

    const std::string shown = _Read("shown");
    EXPECT_TRUE(shown.starts_with("\r[........................................] 1 of 201")) << shown;
    EXPECT_LT(std::ranges::count(shown, '['), 20) << shown;
    EXPECT_EQ(shown.substr(shown.rfind('\r')), "\r\x1B[K");
}

TEST_F(nxToolCheck, PrintsAnObjectALineForOtherPrograms) {
    _Write("job.xml", "<KestrumJobSpec>\n  <Limts/>\n</KestrumJobSpec>");
    _Write("hours.xml", Hours(Period("5", "4")));
    _Write("cut.xml", "<a>");
    _Write("\xFF\n.xml", MappingList(Mapping("a", "1") + Mapping("a", "1")));
    EXPECT_EQ(_Run({"check", "--format", "json", "job.xml", "-"}, MICList("")).out,
              R"({"file":"job.xml","result":"OK","code":0,"kind":"Kestrum job specification",)"
              R"("summary":"0 parameters, 0 limits","problems":[],"findings":[)"
              R"({"line":2,"column":3,"path":"/KestrumJobSpec/Limts","key":"","code":"unknown-element",)"
              R"("message":"unknown element 'Limts': did you mean 'Limits'?","found":"","expected":"Limits",)"
              R"("held":""}]})"
              "\n"
              R"({"file":"<stdin>","result":"OK","code":0,"kind":"MIC definition list","summary":"0 items",)"
              R"("problems":[],"findings":[]})"
              "\n");

    const Outcome all = _Run({"check", "--complete", "--format", "json", "job.xml", "hours.xml", "cut.xml",
                              "gone.xml", "\xFF\n.xml", "-"},
                             "<BrokerMap><Broker id='1' name='A'/></BrokerMap>");
    EXPECT_EQ(all.status, 1);
    EXPECT_EQ(std::ranges::count(all.out, '\n'), 6);
    for (
        const char* const part :
        {R"("problems":["the record is read, but not valid","trading hours scheme 'Night', period 1: start )",
         R"("code":"missing")", R"("code":"not-well-formed")", "\"file\":\"\uFFFD\\n.xml\"",
         R"("error: Failed to create algo mapping from XML element. Algo path is duplicate. Algo path: a")"})
        EXPECT_NE(all.out.find(part), std::string::npos) << part << all.out;

    if (std::system("python3 -c 'import jsonschema' 2>/dev/null") != 0)
        GTEST_SKIP() << "python3-jsonschema is not installed";
    _Write("lines", all.out);
    const std::string validate =
        "cd '" + _folder.string() +
        "' && python3 -c 'import json, jsonschema, sys\n"
        "schema = json.load(open(sys.argv[1]))\n"
        "for line in open(\"lines\"): jsonschema.validate(json.loads(line), schema)' "
        "'" NX_SOURCE_DIR "/docs/schemas/check.schema.json'";
    EXPECT_EQ(std::system(validate.c_str()), 0);
}

TEST_F(nxToolCheck, IsSpreadOverCoresAndMachinesByGNUParallel) {
    if (std::system("parallel --version 2>/dev/null | grep -q '^GNU parallel'") != 0)
        GTEST_SKIP() << "GNU parallel is not there";
    std::filesystem::create_directory(_folder / "d");
    for (int i = 0; i < 40; ++i)
        _Write("d/" + std::to_string(i) + ".xml", i == 7 ? "<a>" : MICList(""));
    const std::string find = "cd '" + _folder.string() + "' && find d -name '*.xml' | sort | ";
    const std::string check = NX_TOOL_PATH " check --strict --format json @-";
    EXPECT_EQ(std::system((find + check + " >alone").c_str()) / 256, 1);
    EXPECT_EQ(std::system(
                  (find + "parallel --will-cite --keep-order --pipe -N 9 '" + check + "' >spread").c_str()) /
                  256,
              1); // how many of the jobs ended with another status than 0
    EXPECT_EQ(_Read("spread"), _Read("alone"));
    EXPECT_EQ(std::ranges::count(_Read("alone"), '\n'), 40);
}
