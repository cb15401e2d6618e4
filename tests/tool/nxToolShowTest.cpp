// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// What the command `xmlframework` shows of records and of their classes.

#include "tests/support/nxToolProcess.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <string>

using namespace std::string_literals;

namespace {
    std::string Mapping(const std::string& path, const std::string& id) {
        return "<AlgoMapping><AlgoPath>" + path + "</AlgoPath><AlgoID>" + id + "</AlgoID></AlgoMapping>";
    }
    std::string MappingList(const std::string& mappings) {
        return "<AlgoIDMappingList><AlgoIDMappings>" + mappings + "</AlgoIDMappings></AlgoIDMappingList>";
    }
    std::string MICList(const std::string& items) {
        return "<MICDefinitionList><MICDefinitions>" + items + "</MICDefinitions></MICDefinitionList>";
    }
} // namespace

TEST_F(nxTool, ListsEveryClassOfRecords) {
    const Outcome types = _Run({"types"});
    EXPECT_EQ(types.status, 0);
    EXPECT_EQ(std::ranges::count(types.out, '\n'), 1 + 13);
    for (const char* const code :
         {"ALID", "BROK", "EXCH", "ALGO", "KJOB", "KMOD", "XMIC", "SPSI", "SPRD", "TRSL", "URTL"})
        EXPECT_TRUE(std::regex_search(types.out, std::regex(std::string("\n") + code + "  nx.* yes\n")))
            << code << types.out;
    EXPECT_TRUE(
        std::regex_search(types.out, std::regex("\n      nxKestrumUserLimit +KestrumUserLimit +no\n")));
    EXPECT_TRUE(std::regex_search(types.out, std::regex("\nOPUS  nx.* no\n")));
}

TEST_F(nxTool, ShowsATableInTheColumnsOfATerminalAndWithoutWhatSpeaksToIt) {
    const auto mic = [](const std::string& name, const std::string& city) {
        return "<MICDefinition-" + name + "><MIC>" + name + "</MIC><City>" + city +
               "</City><Name>|</Name></MICDefinition-" + name + ">";
    };
    const struct {
        const char* city;
        const char* shown;
        std::size_t columns;
    } cases[] = {
        {"TROMSØ", "TROMSØ", 6},
        {"東京", "東京", 4},
        {"ﾄｳｷｮｳ", "ﾄｳｷｮｳ", 5},                           // of half the width
        {"o\u0308e\u0301", "o\u0308e\u0301", 2},         // with what combines
        {"\u1112\u1161\u11AB", "\u1112\u1161\u11AB", 2}, // one syllable
        {"\U0001F600\u200D\U0001F525", "\U0001F600\u200D\U0001F525", 4},
        {"a&#10;b&#9;\u007F", "a\u240Ab\u2409\u2421", 5},
        {"\u009B31m", "\\u009B31m", 9},
        {"a\u202Eb", "a\\u202Eb", 8},
        {"\u200F\u2028", "\\u200F\\u2028", 12},
        {"\u2066\u061C", "\\u2066\\u061C", 12},
    };
    for (const auto& [city, shown, columns] : cases) {
        _Write("mics.xml", MICList(mic("A", city) + mic("B", "123456789012")));
        EXPECT_EQ(_Run({"show", "mics.xml"}).out,
                  "MIC  OPERATING MIC  O/S  STATUS   COUNTRY  CITY          ACRONYM  NAME\n"
                  "A                   S    DELETED           " +
                      (shown + std::string(12 - columns + 11, ' ')) +
                      "|\nB                   S    DELETED           123456789012           |\n");
    }
    // A cell that is wider than most is out of the other rows' way.
    _Write("mics.xml", MICList(mic("A", std::string(200, 'x')) + mic("B", std::string(80, 'y'))));
    const std::string before = "                   S    DELETED           ";
    const std::string rows = _Run({"show", "mics.xml"}).out;
    EXPECT_EQ(rows.substr(rows.find('\n') + 1), "A" + before + std::string(200, 'x') + std::string(11, ' ') +
                                                    "|\nB" + before + std::string(80, 'y') +
                                                    std::string(11, ' ') + "|\n");
    const Outcome gone = _Run({"check", "\xFFgone\x1B[m.xml"});
    EXPECT_EQ(gone.out.substr(0, 15), "\\xFFgone\u241B[m.xml: "s.substr(0, 15)) << gone.out;
}

TEST_F(nxTool, CutsLinesAndUsesColoursOnATerminalOnly) {
    _Write("a.xml", MappingList(Mapping("12345東京都", "1")));
    const std::string tool = NX_TOOL_PATH;
    const auto onTerminal = [this, &tool](const std::string& before, const std::string& arguments) {
        const std::string command = "stty cols 13; " + before + " " + tool + " " + arguments;
        std::string out = _RunProgram({"script", "-qec", command, "/dev/null"}).out;
        std::erase(out, '\r');
        return out;
    };
    if (!_HasTerminals())
        GTEST_SKIP() << "no terminal can be made here";
    const std::string bold = "\x1B[1mID  PATH\x1B[0m\n";
    const std::string cut = "1   12345東…\n"; // half of the next character would be column 13
    EXPECT_EQ(onTerminal("NO_COLOR= TERM=xterm", "show a.xml"), bold + "1   12345東…\n");
    EXPECT_EQ(onTerminal("NO_COLOR=1 TERM=xterm", "show a.xml"), "ID  PATH\n" + cut);
    EXPECT_EQ(onTerminal("NO_COLOR=1", "--color always show a.xml"), bold + cut);
    EXPECT_EQ(onTerminal("NO_COLOR= TERM=xterm", "--color never show a.xml"), "ID  PATH\n" + cut);
    EXPECT_EQ(onTerminal("NO_COLOR= TERM=dumb", "show a.xml"), "ID  PATH\n" + cut);

    _Write("b.xml", MappingList(Mapping("12345東京都", "2") + Mapping("b", "3")));
    EXPECT_EQ(_Run({"--color", "always", "diff", "b.xml", "a.xml"}).out,
              "AlgoIDMappings/12345東京都/AlgoID: \x1B[31m'2'\x1B[0m -> \x1B[32m'1'\x1B[0m\n"
              "\x1B[31mAlgoIDMappings/b: removed\x1B[0m\n"
              "0 added, 1 removed, 1 changed\n");
}

TEST_F(nxTool, ShowsWhatIsAskedFor) {
    _Write("hours.xml",
           "<TradingHoursSchemesList><TradingHoursSchemes><Scheme><SchemeName>Night</SchemeName>"
           "<Periods><Period><SessionType>CONTINUOUS_TRADING</SessionType>"
           "<StartTimeZoneRegion>Europe/Oslo</StartTimeZoneRegion><StartTime>21:00:00</StartTime>"
           "<StartDay>0</StartDay><EndTime>02:59:59</EndTime><EndDay>1</EndDay></Period></Periods>"
           "</Scheme></TradingHoursSchemes></TradingHoursSchemesList>");
    EXPECT_EQ(_Run({"show", "hours.xml"}).out,
              "SCHEME  SESSION              Mon 0    Tue 1    Wed 2    Thu 3    Fri 4    Sat 5    Sun 6      "
              "FROM                      TO\n"
              "Night   Continuous trading  |       =|=       |        |        |        |        |        |  "
              "Mon 21:00:00 Europe/Oslo  Tue 02:59:59\n");

    _Write("brokers.xml",
           "<BrokerMap><Broker id='9' name='Nørth &amp; Sons'/><Broker id='10' name='Harbour'/></BrokerMap>");
    EXPECT_EQ(_Run({"show", "brokers.xml", "--filter", "nØRTH"}).out, "ID  BROKER\n9   Nørth & Sons\n");
    EXPECT_EQ(_Run({"show", "brokers.xml", "--format", "json"}).out,
              "[\n  {\n    \"id\": \"9\",\n    \"name\": \"Nørth & Sons\"\n  },\n"
              "  {\n    \"id\": \"10\",\n    \"name\": \"Harbour\"\n  }\n]\n");
    _Write("statistics.xml",
           "<OrvalenPriceStatistics><userID>7</userID><ProductStatistic><productID>P</productID>"
           "</ProductStatistic></OrvalenPriceStatistics>");
    const std::string json = _Run({"show", "statistics.xml", "--format", "json"}).out;
    EXPECT_EQ(std::regex_replace(json, std::regex("\\s+"), ""),
              R"({"userID":"7","ProductStatistic":[{"productID":"P","noOfPriceUpdates":"0",)"
              R"("noOfPriceDataObjects":"0","noOfUnobservedPriceDataObjects":"0",)"
              R"("noOfPriceUpdatesForUnobservedProducts":"0"}]})");
}

TEST_F(nxTool, TellsHowTwoRecordsDiffer) {
    const auto spread = [](const std::string& legs) {
        return "<SyntheticSpreadSpec><Legs>" + legs + "</Legs></SyntheticSpreadSpec>";
    };
    const auto job = [](const std::string& fields) {
        return "<KestrumJobSpec>" + fields + "</KestrumJobSpec>";
    };
    const auto algorithm = [](const std::string& optional) {
        const std::string parameter =
            "<Parameter><Name>P</Name><ParameterType>TEXT</ParameterType><Optional>";
        return "<KestrumAlgorithmSpec><Parameters>" + parameter + "true</Optional></Parameter>" + parameter +
               optional + "</Optional></Parameter></Parameters></KestrumAlgorithmSpec>";
    };
    const auto texts = [](const std::string& items) {
        return "<UserTextHistoryList>" + items + "</UserTextHistoryList>";
    };
    const struct {
        std::string left;
        std::string right;
        std::string expected;
    } cases[] = {
        {MappingList(Mapping("gone", "1") + Mapping("same", "2") + Mapping("other", "3")),
         MappingList(Mapping("other", "4") + Mapping("new", "1") + Mapping("same", "2")),
         "AlgoIDMappings/gone: removed\nAlgoIDMappings/other/AlgoID: '3' -> '4'\n"
         "AlgoIDMappings/new: added\n1 added, 1 removed, 1 changed\n"},
        {MappingList(Mapping(std::string(101, 'k'), "1")), MappingList(Mapping(std::string(101, 'k'), "2")),
         "AlgoIDMappings/" + std::string(100, 'k') + "…/AlgoID: '1' -> '2'\n0 added, 0 removed, 1 changed\n"},
        {spread("<Leg-0><TailSize>5</TailSize></Leg-0><Leg-1/>"), spread("<Leg-0/>"),
         "Legs/Leg-0/TailSize: '5' -> null\nLegs/Leg-1: removed\n0 added, 1 removed, 1 changed\n"},
        {spread("<Leg-0><AccountIDOverride>NO_CHANGE</AccountIDOverride></Leg-0>"),
         spread("<Leg-0><AccountIDOverride>NULL</AccountIDOverride></Leg-0>"),
         "Legs/Leg-0/AccountIDOverride: 'NO_CHANGE' -> null\n0 added, 0 removed, 1 changed\n"},
        {spread("<Leg-0><FinesseTriggerRatio>1.50</FinesseTriggerRatio><PayupTicks>07</PayupTicks></Leg-0>"),
         spread("<Leg-0><FinesseTriggerRatio>1.5</FinesseTriggerRatio><PayupTicks>7</PayupTicks></Leg-0>"),
         ""},
        {spread("<Leg-0><FinesseTriggerRatio>1.50</FinesseTriggerRatio></Leg-0>"), spread("<Leg-0/>"),
         "Legs/Leg-0/FinesseTriggerRatio: '1.50' -> null\n0 added, 0 removed, 1 changed\n"},
        {job("<AccountID>4294967294</AccountID><MaxTrans>4294967295</MaxTrans>"),
         job("<MaxTrans>0</MaxTrans>"),
         "AccountID: 'NO_CHANGE' -> null\nMaxTrans: '4294967295' -> '0'\n0 added, 0 removed, 2 changed\n"},
        {algorithm("true"), algorithm("false"),
         "Parameters/P (2)/Optional: 'true' -> 'false'\n0 added, 0 removed, 1 changed\n"},
        {texts("<UT>a</UT><UT>b</UT>"), texts("<UT>a</UT><UT>c\n</UT><UT>d</UT>"),
         "UT[2]: 'b' -> 'c\u240A'\nUT[3]: added\n1 added, 0 removed, 1 changed\n"},
        {"<BrokerMap><Broker id='1' name='A'/></BrokerMap>",
         "<BrokerMap><Broker id='1' name='B'/></BrokerMap>",
         "1/name: 'A' -> 'B'\n0 added, 0 removed, 1 changed\n"},
        {MICList("<MICDefinition-X><MIC>X</MIC></MICDefinition-X><MICDefinition-Y><MIC>Y</MIC></"
                 "MICDefinition-Y>"),
         MICList("<MICDefinition-Y><MIC>Y</MIC><Name>N</Name></MICDefinition-Y>"),
         "MICDefinitions/X: removed\nMICDefinitions/Y/Name: '' -> 'N'\n0 added, 1 removed, 1 changed\n"},
    };
    for (const auto& [left, right, expected] : cases) {
        _Write("left.xml", left);
        const Outcome outcome = _Run({"diff", "left.xml", "-"}, right);
        EXPECT_EQ(outcome.out, expected) << outcome.err;
        EXPECT_EQ(outcome.status, expected.empty() ? 0 : 1);
    }
    _Write("mics.xml", MICList(""));
    EXPECT_EQ(_Run({"diff", "left.xml", "left.xml"}).status, 0);
    EXPECT_EQ(_Run({"diff", "left.xml", "-"}, MappingList("")).status, 2);
    EXPECT_EQ(_Run({"diff", "left.xml", "nothing.xml"}).status, 2);
}

TEST_F(nxTool, TellsProgramsOfDifferencesAndTypesByTheSchemasOfTheDocumentation) {
    _Write("a.xml", MappingList(Mapping("gone", "1") + Mapping("other", "3")));
    _Write("b.xml", MappingList(Mapping("other", "4") + Mapping("new", "1")));
    _Write("c.xml", "<KestrumJobSpec><AccountID>7</AccountID></KestrumJobSpec>");
    const std::string differences = _Run({"diff", "--format", "json", "a.xml", "b.xml"}).out +
                                    _Run({"diff", "--format", "json", "c.xml", "-"}, "<KestrumJobSpec/>").out;
    EXPECT_EQ(
        differences,
        R"({"change":"removed","path":["AlgoIDMappings","gone"],"left":{"AlgoPath":"gone","AlgoID":"1"}})"
        "\n"
        R"({"change":"changed","path":["AlgoIDMappings","other","AlgoID"],"left":"3","right":"4"})"
        "\n"
        R"({"change":"added","path":["AlgoIDMappings","new"],"right":{"AlgoPath":"new","AlgoID":"1"}})"
        "\n"
        R"({"change":"changed","path":["AccountID"],"left":"7","right":null})"
        "\n");

    const auto validate = [this](const std::string& schema, const std::string& json) {
        const Arguments command{"python3", NX_SOURCE_DIR "/tests/tool/validateJSON.py",
                                NX_SOURCE_DIR "/docs/schemas/" + schema};
        return _RunProgram(command, json);
    };
    const Outcome differencesJudged = validate("diff.json", differences);
    if (differencesJudged.status == 77 || differencesJudged.status == 127)
        GTEST_SKIP() << "python3-jsonschema is not installed";
    EXPECT_EQ(differencesJudged.out, "4\n") << differencesJudged.err;
    EXPECT_EQ(validate("diff.json", R"({"change":"changed","path":["A"],"left":"1"})").status, 1);

    const std::string types = _Run({"types", "--format", "json"}).out;
    const Outcome typesJudged = validate("types.json", types);
    EXPECT_EQ(typesJudged.out, "1\n") << typesJudged.err;
    EXPECT_EQ(validate("types.json", std::regex_replace(types, std::regex("\"flag\""), "\"bool\"")).status,
              1);
    const std::string compact = std::regex_replace(types, std::regex("\\s+"), "");
    for (const char* const part :
         {R"("minimum":"-2147483648","maximum":"2147483647",)",
          R"("null":"4294967295","noChange":"4294967294")", R"("names":"with-number","endsAtOthers":false)",
          R"("names":"with-key","endsAtOthers":true)", R"(,"Plain","Conditional",)", R"("kind":"attribute",)",
          R"("isKey":false,"isRequired":true,)", R"("isAlwaysWritten":false,"isReadOnly":true)"})
        EXPECT_NE(compact.find(part), std::string::npos) << part;
}

TEST_F(nxTool, DescribesItselfToManAndToShells) {
    const std::string man = _Run({"generate", "man"}).out;
    for (const char* const part :
         {"\\fBxmlframework mic import\\fR [\\fIoption\\fR]... \\fIREGISTER.csv\\fR\n",
          "\\fBxmlframework check\\fR [\\fIoption\\fR]... \\fIFILE\\fR...\n",
          ".TP\n\\fB\\-o\\fR, \\fB\\-\\-output\\fR \\fITEXT\\fR\nFile to write"})
        EXPECT_NE(man.find(part), std::string::npos) << part << man;
    EXPECT_EQ(man.find("generate"), std::string::npos);
    _Write("xmlframework.1", man);
    const Outcome typeset = _RunProgram({"groff", "-man", "-ww", "-z", "xmlframework.1"});
    EXPECT_TRUE(typeset.status == 127 || typeset.err.empty()) << typeset.err; // 127: not installed

    _RunQuietly({"generate", "zsh", "-o", "zsh"});
    const Outcome parsed = _RunProgram({"zsh", "-n", "zsh"});
    EXPECT_TRUE(parsed.status == 127 || parsed.err.empty()) << parsed.err;

    _RunQuietly({"generate", "bash", "-o", "bash"});
    const struct {
        const char* words;
        const char* replies;
    } cases[] = {
        {"xmlframework ''", "check convert diff mic schema show types"},
        {"xmlframework --log-level error mic ''", "export import update"},
        {"xmlframework mic im", "import"},
        {"xmlframework mic import --enc", "--encoding"},
        {"xmlframework mic import --encoding ''", "utf-8 windows-1252"},
        {"xmlframework show --format j", "json"},
        {"xmlframework show --log-level e", "error"},
        {"xmlframework diff a.xml --form", "--format"},
        {"xmlframework check --type X", "XMIC"},
        {"xmlframework schema MIC", "MICDefinitionList"},
        {"xmlframework convert a.xml -o ch", ""}, // files, by the shell
    };
    for (const auto& [words, replies] : cases) {
        const std::string shown = std::string(words).ends_with("''") ? "grep -v ^-" : "cat"; // no options
        const std::string script = std::string("source ./bash; COMP_WORDS=(") + words +
                                   "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _xmlframework; "
                                   "printf '%s\n' \"${COMPREPLY[@]}\" | " +
                                   shown + " | sort | paste -sd ' '";
        std::string out = _RunProgram({"bash", "-c", script}).out;
        out.pop_back();
        EXPECT_EQ(out, replies) << words;
    }
}
