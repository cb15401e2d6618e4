// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tests/support/nxFormatExamples.h"
#include "tests/support/nxToolProcess.h"
#include "tests/tool/nxToolDocuments.h"

#include <cstdio>
#include <ostream>
#include <regex>

using namespace std::string_literals;

namespace {
    constexpr char Header13[] = "COUNTRY,ISO COUNTRY CODE (ISO 3166),MIC,OPERATING MIC,O/S,"
                                "NAME-INSTITUTION DESCRIPTION,ACRONYM,CITY,WEBSITE,STATUS DATE,STATUS,"
                                "CREATION DATE,COMMENTS\r\n";
    constexpr char Header17[] = "MIC,OPERATING MIC,OPRT/SGMT,MARKET NAME-INSTITUTION DESCRIPTION,"
                                "LEGAL ENTITY NAME,LEI,MARKET CATEGORY CODE,ACRONYM,"
                                "ISO COUNTRY CODE (ISO 3166),CITY,WEBSITE,STATUS,CREATION DATE,"
                                "LAST UPDATE DATE,LAST VALIDATION DATE,EXPIRY DATE,COMMENTS\r\n";
} // namespace

TEST_F(nxTool, EndsWithTwoForACommandLineThatMakesNoSense) {
    _Write("some.xml", MICList(""));
    const Arguments senseless[] = {{},
                                   {"frobnicate"},
                                   {"types", "some.xml"},
                                   {"check"},
                                   {"check", "--type", "NOPE", "some.xml"},
                                   {"check", "--log-level", "loud", "some.xml"},
                                   {"check", "--jobs", "-1", "some.xml"},
                                   {"check", "--jobs", "1025", "some.xml"},
                                   {"check", "--jobs", "99999999999999999999", "some.xml"},
                                   {"convert", "some.xml", "-o"},
                                   {"show", "some.xml", "some.xml"},
                                   {"show", "some.xml", "--format", "yaml"},
                                   {"diff", "some.xml"},
                                   {"check", "--algorithm", "some.xml", "some.xml"},
                                   {"mic"},
                                   {"mic", "update", "some.xml"},
                                   {"mic", "import", "some.csv", "--encoding", "ebcdic"}};
    for (const Arguments& arguments : senseless) {
        const Outcome outcome = _Run(arguments);
        EXPECT_EQ(outcome.status, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err, "");
    }
    EXPECT_EQ(_Run({"--help"}).status, 0);
    EXPECT_EQ(_Run({"mic", "import", "--help"}).status, 0);

    const std::string version = _Run({"--version"}).out;
    int parts[3] = {};
    EXPECT_EQ(std::sscanf(version.c_str(), "xmlframework %d.%d.%d", &parts[0], &parts[1], &parts[2]), 3)
        << version;
}

TEST_F(nxTool, SaysWhichCommandOrOptionWasMeant) {
    const std::pair<Arguments, std::string> cases[] = {
        {{"chekc", "a.xml"}, "command 'chekc': did you mean 'check'?"},
        {{"--log-level", "error", "mic", "exprt", "a.xml"}, "command 'exprt': did you mean 'export'?"},
        {{"hcekc"}, "command 'hcekc': did you mean 'check'?"},
        {{"frobnicate"}, "command 'frobnicate'"},
        {{"tpyes", "check"}, "command 'tpyes': did you mean 'types'?"},
        {{"tpyes", "mic", "import"}, "command 'tpyes': did you mean 'types'?"},
        {{"help", "chekc"}, "command 'chekc': did you mean 'check'?"},
        {{"check", "-v", "a.xml"}, "option '-v'"},
        {{"check", "-Q", "a.xml"}, "option '-Q': did you mean '-q'?"},
        {{"check", "a.xml", "--sctrict=1"}, "option '--sctrict': did you mean '--strict'?"},
        {{"check", "a.xml", "--loglevel", "info"}, "option '--loglevel': did you mean '--log-level'?"},
    };
    for (const auto& [arguments, unknown] : cases) {
        const Outcome outcome = _Run(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err,
                  "xmlframework: unknown " + unknown + "\nRun with --help for more information.\n");
    }
    for (const Arguments& known : {Arguments{"types", "a.xml"}, {"--pretty", "convert", "a.xml"}})
        EXPECT_EQ(_Run(known).err.find("unknown"), std::string::npos);
    EXPECT_EQ(_Run({"help", "mic", "import"}).out, _Run({"mic", "import", "--help"}).out);
}

TEST_F(nxTool, SaysNothingOfACommandLineThatSpeaksToATerminal) {
    const std::string bad = "\x1B]0;x\a\n\xC2\x9B\u202E";
    const std::string shown = "\u241B]0;x\u2407\u240A\\u009B\\u202E";
    for (const Arguments& arguments : {Arguments{"--color", bad, "types"},
                                       {"--log-level", bad, "types"},
                                       {"types", bad},
                                       {bad},
                                       {"check", "--jobs", bad, "a.xml"},
                                       {"check", "--type", bad, "a.xml"},
                                       {"check", "--strict=" + bad, "a.xml"},
                                       {"show", "a.xml", "--format=" + bad},
                                       {"mic", "import", "a.csv", "--encoding", bad},
                                       {"schema", bad}}) {
        const std::string said = _Run(arguments).err;
        EXPECT_NE(said.find(shown), std::string::npos) << said;
        EXPECT_EQ(std::ranges::count(said, '\n'), 2) << said;
    }
}

TEST_F(nxTool, SaysInEachHelpHowItEndsAndGivesAnExample) {
    for (const Arguments& command : std::vector<Arguments>{{},
                                                           {"types"},
                                                           {"check"},
                                                           {"convert"},
                                                           {"show"},
                                                           {"diff"},
                                                           {"mic"},
                                                           {"mic", "import"},
                                                           {"mic", "update"},
                                                           {"mic", "export"}}) {
        Arguments arguments = command;
        arguments.emplace_back("--help");
        const std::string help = _Run(arguments).out;
        EXPECT_TRUE(std::regex_search(help, std::regex("\nExit status: 0 .*\nExample: .*xmlframework [a-z]")))
            << help;
        EXPECT_TRUE(command.empty() || help.find("framework " + command.back()) != std::string::npos ||
                    help.find("framework mic " + command.back()) != std::string::npos)
            << help;
    }
}

TEST_F(nxTool, ConvertsARecordToItsOwnForm) {
    _Write("loose.xml", "<?xml version='1.0'?>\n<AlgoIDMappingList> <AlgoIDMappings>\n" + Mapping("b", "02") +
                            "<!-- - -->" + Mapping("a", "1") + "</AlgoIDMappings></AlgoIDMappingList>\n");
    const std::string canonical = MappingList(Mapping("a", "1") + Mapping("b", "2"));
    EXPECT_EQ(_Run({"convert", "loose.xml"}).out, canonical);
    _RunQuietly({"convert", "loose.xml", "-o", "loose.xml"});
    EXPECT_EQ(_Read("loose.xml"), canonical);

    _Write("brokers.xml", "<BrokerMap><Broker id='1' name='&lt;A>\"B'/></BrokerMap>");
    EXPECT_EQ(_Run({"convert", "--pretty", "brokers.xml"}).out,
              "<BrokerMap>\n  <Broker id=\"1\" name=\"&lt;A>&quot;B\"/>\n</BrokerMap>\n");
}

// The documents of all pages: what is indented reads back to the same record.
TEST_F(nxTool, IndentsNothingButWhatIsBetweenElements) {
    std::size_t count = 0;
    for (const std::string& page : nxFormatExamples::Pages()) {
        for (const auto& example : nxFormatExamples::ExamplesOf(page)) {
            _Write("a.xml", example.xml);
            const std::string plain = _Run({"convert", "a.xml"}).out;
            const std::string pretty = _Run({"convert", "--pretty", "a.xml"}).out;
            EXPECT_EQ(_Run({"convert", "-"}, pretty).out, plain) << page;
            EXPECT_EQ(pretty.find("><"), pretty.find("></")) << pretty; // but for empty elements
            ++count;
        }
    }
    EXPECT_GT(count, 12U);
}

TEST_F(nxTool, SaysWhatWritingARecordLosesAndKeepsTheInputFromIt) {
    const std::string lossy = "<AlgoIDMappingList><X/><AlgoIDMappings>" + Mapping("a", "1") +
                              "</AlgoIDMappings></AlgoIDMappingList>";
    const std::string note = "lossy.xml: note: what is named here is not in the output\n"
                             "lossy.xml:1:20: /AlgoIDMappingList/X: unknown element 'X'\n"
                             "  1 | <AlgoIDMappingList><X/><AlgoIDMappings><AlgoMapping><AlgoPath>a</Algo…\n"
                             "    |                    ^\n";
    _Write("lossy.xml", lossy);
    std::filesystem::create_symlink("lossy.xml", _folder / "link.xml");

    const Outcome other = _Run({"convert", "lossy.xml"});
    EXPECT_EQ(other.status, 3);
    EXPECT_EQ(other.out, MappingList(Mapping("a", "1")));
    EXPECT_EQ(other.err, note);
    const Outcome itself = _Run({"convert", "lossy.xml", "-o", "link.xml"});
    EXPECT_EQ(itself.status, 1);
    EXPECT_EQ(itself.err,
              note + "xmlframework: lossy.xml is not written over, since that would be lost; see --lossy\n");
    EXPECT_EQ(_Read("lossy.xml"), lossy);
    EXPECT_EQ(_Run({"convert", "lossy.xml", "-o", "lossy.xml", "--lossy"}).status, 3);
    EXPECT_EQ(_Read("lossy.xml"), MappingList(Mapping("a", "1")));

    _Write("mics.xml", MICList("<MICDefinition-X><MIC>X</MIC></MICDefinition-X><Y/>"));
    _Write("one.csv", std::string(Header13) + ",,X,X,O,X,,,,,ACTIVE,,\r\n");
    EXPECT_EQ(_Run({"mic", "update", "mics.xml", "one.csv", "-o", "mics.xml"}).status, 1);
    EXPECT_EQ(_Run({"mic", "update", "mics.xml", "one.csv"}).status, 3);
    EXPECT_EQ(_Run({"mic", "export", "mics.xml"}).status, 3);
    EXPECT_EQ(_Run({"mic", "update", "mics.xml", "one.csv", "-o", "mics.xml", "--lossy"}).status, 3);
}

TEST_F(nxTool, WritesNothingThatReadersWouldNotFindAgain) {
    const std::string documents[] = {
        MICList("<MICDefinition-X><MIC>X</MIC></MICDefinition-X><MICDefinition-Y><MIC/></MICDefinition-Y>"),
        "<ExchangeDefinitionList><ExchangeDefinitions><ExchangeDefinition-A/></ExchangeDefinitions>"
        "</ExchangeDefinitionList>",
        "<TradingHoursSchemesList><TradingHoursSchemes><Scheme/></TradingHoursSchemes>"
        "</TradingHoursSchemesList>",
        "<KestrumAlgorithmSpec><Parameters><Parameter><Name></Name><ParameterType>TEXT</ParameterType>"
        "</Parameter></Parameters></KestrumAlgorithmSpec>"};
    for (const std::string& document : documents) {
        _Write("a.xml", document);
        const Outcome outcome = _Run({"convert", "a.xml", "-o", "out.xml"});
        EXPECT_EQ(outcome.status, 1) << document;
        EXPECT_FALSE(exists(_folder / "out.xml"));
    }
    _Write("mics.xml", documents[0]);
    _Write("one.csv", std::string(Header13) + ",,X,X,O,X,,,,,ACTIVE,,\r\n");
    const std::string refused = "mics.xml: FAILED 1000002 Invalid data\n"
                                "  readers would not find what is written of it\n"
                                "  MIC definition without MIC: item 2 of MICDefinitions, element "
                                "'MICDefinition-Y'\n";
    for (const Arguments& arguments :
         {Arguments{"mic", "update", "mics.xml", "one.csv"}, {"mic", "export", "mics.xml"}}) {
        const Outcome outcome = _Run(arguments);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, refused);
    }
}

TEST_F(nxTool, LeavesTheOutputFileAsItWasWhenItCannotBeWritten) {
    constexpr rlim_t Limit = 4096;
    std::string mappings;
    for (int i = 0; i < 200; ++i)
        mappings += Mapping("path " + std::to_string(i), std::to_string(i));
    _Write("in.xml", MappingList(mappings));
    _Write("out.xml", "old");

    const Outcome outcome = _Run({"convert", "in.xml", "-o", "out.xml"}, "", Limit);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "xmlframework: cannot write out.xml: File too large\n");
    EXPECT_EQ(_Read("out.xml"), "old");
    const std::filesystem::directory_iterator folder(_folder);
    EXPECT_EQ(std::distance(begin(folder), end(folder)), 5); // nothing is left lying about

    EXPECT_EQ(_Run({"convert", "in.xml"}, "", Limit).status, 1);
    EXPECT_EQ(_Run({"convert", "in.xml", "-o", "no/such/folder.xml"}).status, 1);
}

TEST_F(nxTool, UsesStandardStreamsAsWhatTheyAreAndSaysWhatTheyCannotDo) {
    _Write("a.xml", "<BrokerMap><Broker id='1' name='A'/></BrokerMap>");
    _Write("b.xml", "<BrokerMap><Broker id='1' name='B'/></BrokerMap>");
    _Write("lossy.xml", "<BrokerMap x='1'/>");
    _Write("unwritable.xml", MICList("<MICDefinition-X><MIC>X Y</MIC></MICDefinition-X>"));
    const std::string written = "<BrokerMap><Broker id=\"1\" name=\"A\"/></BrokerMap>";
    const std::string failed = ": FAILED 1003000 Input not usable\n";
    const std::string folder = "<stdin>" + failed + "  Is a directory\n";
    const std::string twice = "standard input is named twice, and can be read only once\n";
    const std::string nameless = "'': No such file or directory\n";
    const std::string unwritable = "unwritable.xml: FAILED 1007006 Text not carried by XML\n"
                                   "  the record cannot be written\n"
                                   "  error: Error saving document: in memory";
    const struct {
        std::string commands; // of the shell, x being the tool
        int status;
        std::string said; // on both streams, its beginning
    } cases[] = {
        {"x check - <.", 1, folder},
        {"x mic import - <.", 1, folder},
        {"x check @- <.", 1, "xmlframework: <stdin>: Is a directory\n"},
        {"x check @- </dev/null", 1, "xmlframework: <stdin>: there is no path in this list\n"},
        {"x check --quiet - - <a.xml", 1, "xmlframework: <stdin>: " + twice},
        {"echo a.xml | x check --quiet @- @-", 1, "xmlframework: <stdin>: " + twice},
        {"x diff - - <a.xml", 2, "<stdin>" + failed + "  " + twice},
        {"x convert - -o lossy.xml <lossy.xml && echo replaced", 1, "<stdin>: note: "},
        {"x convert - -o a.xml <a.xml && cat a.xml", 0, written},
        {"{ echo 1; x convert a.xml -o /dev/stdout; x convert a.xml -o /proc/self/fd/1; echo 2; } >out; cat "
         "out",
         0, "1\n" + written + written + "2\n"},
        {"{ echo 1; x convert a.xml -o /dev/fd/2; } 2>&1 >out | cat; cat out", 0, written + "1\n"},
        {"x diff a.xml b.xml >/dev/full", 2, "xmlframework: cannot write to standard output\n"},
        {"x convert a.xml -o /dev/stderr 2>/dev/full", 1, ""},
        {"x show a.xml >/dev/full", 1, "xmlframework: cannot write to standard output\n"},
        {"x diff unwritable.xml unwritable.xml", 2, unwritable},
        {"x show --format json unwritable.xml", 1, unwritable},
        {"x check @", 1, "xmlframework: " + nameless},
        {"x check ''", 1, "''" + failed},
        {"x convert a.xml -o ''", 1, "xmlframework: cannot write " + nameless},
    };
    for (const auto& [commands, status, said] : cases) {
        const Outcome outcome = _RunProgram({"sh", "-c", "x() { '" NX_TOOL_PATH "' \"$@\"; }; " + commands});
        EXPECT_EQ(outcome.status, status) << commands;
        EXPECT_EQ((outcome.out + outcome.err).substr(0, said.size()), said) << commands;
    }
    EXPECT_EQ(_Read("lossy.xml"), "<BrokerMap x='1'/>");
}

TEST_F(nxTool, ShowsAJobPairByPairAndChecksItAgainstItsAlgorithm) {
    const auto definition = [](const std::string& name, const std::string& type,
                               const std::string& optional) {
        return "<Parameter><Name>" + name + "</Name><ParameterType>" + type + "</ParameterType><Optional>" +
               optional + "</Optional></Parameter>";
    };
    _Write("algo.xml", "<KestrumAlgorithmSpec><Parameters>" + definition("Limit", "PRICE", "false") +
                           definition("Style", "TEXT", "true") + "</Parameters></KestrumAlgorithmSpec>");
    const auto job = [](const std::string& parameters) {
        return "<KestrumJobSpec><AlgorithmSpecName>hold</AlgorithmSpecName><Parameters>" + parameters +
               "</Parameters><Limits><Limit><ProductID>FESX</ProductID><MaxShort>1</MaxShort>"
               "<MaxLong>2</MaxLong><MaxBuys>3</MaxBuys><MaxSells>4</MaxSells><ClipLimit>5</ClipLimit>"
               "<Strategy>false</Strategy><Netting>true</Netting><AccountID>6</AccountID></Limit></Limits>"
               "</KestrumJobSpec>";
    };
    _Write("good.xml", job("Limit=101.50^^|^^Style=eager^^|^^"));
    _Write("missing.xml", job("Style=eager^^|^^"));
    _Write("unknown.xml", job("Limit=1^^|^^Other=1^^|^^"));
    _Write("malformed.xml", job("Limit=1^^|^^Style=a line b^^|^^Limit"));

    const std::string shown = _Run({"show", "good.xml"}).out;
    EXPECT_NE(shown.find("\nPARAMETER  VALUE\nLimit      101.50\nStyle      eager\n"), std::string::npos)
        << shown;
    EXPECT_TRUE(std::regex_search(shown, std::regex("\nPRODUCT +SHORT .*\nFESX +1 "))) << shown;

    EXPECT_EQ(_Run({"check", "missing.xml"}).status, 0);
    const Outcome checked =
        _Run({"check", "--algorithm", "algo.xml", "good.xml", "missing.xml", "unknown.xml", "malformed.xml"});
    EXPECT_EQ(checked.status, 1);
    EXPECT_EQ(checked.out, "good.xml: OK (Kestrum job specification, 2 parameters, 1 limit)\n"
                           "missing.xml: FAILED 1000002 Invalid data\n"
                           "  Mandatory parameter: Limit is not set\n"
                           "unknown.xml: FAILED 1000002 Invalid data\n"
                           "  the parameters are malformed, or not those of the algorithm\n"
                           "  error: Unable to find parameter definition for parameter named: Other\n"
                           "malformed.xml: FAILED 1000002 Invalid data\n"
                           "  the parameters are malformed, or not those of the algorithm\n"
                           "4 files: 1 OK, 3 FAILED\n");
}

TEST_F(nxTool, ImportsBothLayoutsOfTheRegister) {
    _Write("old.csv",
           std::string("\uFEFF") + Header13 +
               "\"NORWAY\",\"NO\",\"XABC\",\"XABC\",\"O\",\"BØRS \"\"A\"\", LTD\",\"\",\"OSLO\",\"\","
               "\"MAY 2010\",\"MODIFIED\",\"JUNE 2005\",\"ONE\r\nTWO\"\r\n");
    _RunQuietly({"mic", "import", "old.csv", "-o", "old.xml"});
    EXPECT_EQ(
        _Read("old.xml"),
        MICList("<MICDefinition-XABC><MIC>XABC</MIC><Country>NORWAY</Country><ISOCountryCode>NO"
                "</ISOCountryCode><OperatingMIC>XABC</OperatingMIC><IsOperatingMIC>true</IsOperatingMIC>"
                "<Name>BØRS \"A\", LTD</Name><Acronym></Acronym><City>OSLO</City><Website></Website>"
                "<StatusDate>MAY 2010</StatusDate><IsActive>true</IsActive><CreationDate>JUNE 2005"
                "</CreationDate><Comments>ONE&#xD;\nTWO</Comments></MICDefinition-XABC>"));

    _Write("new.csv", std::string(Header17) +
                          "XGHI,XABC,SGMT,\x93GH\x94 \x96 B\xD6RSE,OWNER,LEI1,MLTF,GH,DE,BERLIN,,EXPIRED,"
                          "20010203,20210927,20210927,20211231,\n"
                          "XDEF,XDEF,OPRT,DEF,OWNER,LEI2,MLTF,,AT,WIEN,W.AT,UPDATED,20020304,20200101,,,C");
    const Outcome outcome = _Run({"mic", "import", "new.csv", "-o", "new.xml"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err,
              "new.csv: note: a MIC definition does not hold these columns: LEGAL ENTITY NAME, LEI, "
              "MARKET CATEGORY CODE, LAST VALIDATION DATE, EXPIRY DATE\n"
              "new.csv: note: this layout has no country names\n"
              "new.csv: 2 rows in Windows-1252, 2 used, 0 not used\n");
    EXPECT_EQ(_Run({"mic", "export", "new.xml"}).out,
              std::string(Header13) +
                  ",AT,XDEF,XDEF,O,DEF,,WIEN,W.AT,20200101,ACTIVE,20020304,C\r\n"
                  ",DE,XGHI,XABC,S,“GH” – BÖRSE,GH,BERLIN,,20210927,DELETED,20010203,\r\n");
}

TEST_F(nxTool, NamesEachRowThatItCannotUseAndUsesTheOthers) {
    _Write("bad.csv", std::string(Header13) + // \xC9 makes it Windows-1252, which gives \x81 no meaning
                          ",,GOOD,GOOD,O,CAF\xC9,,,,,ACTIVE,,\n"
                          ",,FEWA,FEWA,O,SHORT\n"
                          ",,,NONE,O,,,,,,ACTIVE,,\n"
                          ",,GOOD,GOOD,O,AGAIN,,,,,ACTIVE,,\n"
                          ",,QUOT,QUOT,O,\"A\"B,,,,,ACTIVE,,\n"
                          ",,BYTE,BYTE,O,\x81,,,,,ACTIVE,,\n"
                          ",,CTRL,CTRL,O,\x01,,,,,ACTIVE,,\n"
                          ",,A B,A B,O,,,,,,ACTIVE,,\n"
                          ",,MARK,MARK,,,,,,,ACTIVE,,\n"
                          ",,STAT,STAT,O,,,,,,SLEEPING,,\n"
                          ",,LAST,LAST,S,,,,,,DELETED,,\n");
    const Outcome outcome = _Run({"mic", "import", "bad.csv", "-o", "mics.xml"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(
        outcome.err,
        "bad.csv:3: row not used: 6 columns instead of 13\n"
        "bad.csv:4: row not used: no MIC\n"
        "bad.csv:5: row not used: MIC GOOD stands on line 2 already\n"
        "bad.csv:6: row not used: the quotes do not match\n"
        "bad.csv:7: row not used: NAME-INSTITUTION DESCRIPTION is no Windows-1252 text\n"
        "bad.csv:8: row not used: NAME-INSTITUTION DESCRIPTION holds a character that XML cannot carry\n"
        "bad.csv:9: row not used: 'A B' is no MIC: it has other characters than letters and digits\n"
        "bad.csv:10: row not used: no O/S\n"
        "bad.csv:11: row not used: STATUS is unknown: 'SLEEPING'\n"
        "bad.csv: 11 rows in Windows-1252, 2 used, 9 not used\n");
    EXPECT_EQ(_Run({"mic", "export", "mics.xml"}).out,
              std::string(Header13) + ",,GOOD,GOOD,O,CAFÉ,,,,,ACTIVE,,\r\n,,LAST,LAST,S,,,,,,DELETED,,\r\n");

    const Outcome asUTF8 = _Run({"mic", "import", "--encoding", "utf-8", "bad.csv", "-o", "mics.xml"});
    EXPECT_NE(asUTF8.err.find("bad.csv:2: row not used: NAME-INSTITUTION DESCRIPTION is no UTF-8 text\n"),
              std::string::npos)
        << asUTF8.err;
    _Write("other.csv", "MIC,b,city,Website\n1,2\n");
    const Outcome other = _Run({"mic", "import", "other.csv", "-o", "other.xml"});
    EXPECT_EQ(other.status, 1);
    EXPECT_EQ(
        other.err,
        "other.csv: FAILED 1003000 Input not usable\n"
        "  no register of market identifier codes: the header row lacks ISO COUNTRY CODE (ISO 3166), "
        "OPERATING MIC, O/S or OPRT/SGMT, NAME-INSTITUTION DESCRIPTION or MARKET NAME-INSTITUTION "
        "DESCRIPTION, ACRONYM, STATUS DATE or LAST UPDATE DATE, STATUS, CREATION DATE, COMMENTS; it has "
        "'MIC', 'b', 'city', 'Website'\n");
    EXPECT_FALSE(exists(_folder / "other.xml"));
    const std::string header = Header13;
    for (const auto& [csv, ending] :
         {std::pair(std::string(2000, 'x'), "; it has '" + std::string(999, 'x') + "...\n"),
          std::pair("STATUS," + header, std::string("\n  two columns for STATUS\n"))}) {
        _Write("other.csv", csv);
        const std::string problem = _Run({"mic", "import", "other.csv", "-o", "other.xml"}).err;
        EXPECT_TRUE(problem.ends_with(ending)) << problem;
    }
    const std::string separated = "codes: its columns seem to be separated by ";
    for (const auto& [csv, reason] :
         {std::pair("\"MIC\";\"CITY\"\n\"A\";\"B\"\n"s, separated + "';' instead of ','; the header"),
          std::pair("MIC\tCITY, TOWN\tSTATUS\n"s, separated + "'\u2409' instead of ','; the header"),
          std::pair("\xFE\xFF\0M\0I\0C"s, "codes: its encoding seems to be UTF-16, which is not read; the"s),
          std::pair("M\0I\0C\0,\0"s, "codes: its encoding seems to be UTF-16, which is not read; the"s)}) {
        _Write("other.csv", csv);
        const std::string problem = _Run({"mic", "import", "other.csv", "-o", "other.xml"}).err;
        EXPECT_NE(problem.find(reason), std::string::npos) << problem;
    }
}

TEST_F(nxTool, NamesEachMICThatAnExportCannotBringBack) {
    _Write("mics.xml", MICList("<MICDefinition-A.B><MIC>A.B</MIC></MICDefinition-A.B>"
                               "<MICDefinition-C><MIC>C</MIC></MICDefinition-C>"));
    const Outcome outcome = _Run({"mic", "export", "mics.xml", "-o", "mics.csv"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.err, "mics.xml: note: no import will use this row: 'A.B' is no MIC: it has other "
                           "characters than letters and digits\n");
    EXPECT_EQ(_Read("mics.csv"),
              std::string(Header13) + ",,A.B,,S,,,,,,DELETED,,\r\n,,C,,S,,,,,,DELETED,,\r\n");
}

TEST_F(nxTool, UpdatesDefinitionsAndTellsWhatChanges) {
    _Write("old.csv", std::string(Header13) + "NORWAY,NO,KEPT,KEPT,O,KEPT,,OSLO,,MAY,ACTIVE,MAY,\n"
                                              "NORWAY,NO,GONE,GONE,O,GONE,,OSLO,,MAY,ACTIVE,MAY,\n"
                                              "NORWAY,NO,BADR,BADR,O,BADR,,OSLO,,MAY,ACTIVE,MAY,\n"
                                              "NORWAY,NO,CHNG,CHNG,O,CHNG,,OSLO,,MAY,ACTIVE,MAY,OLD\n");
    _Write("new.csv", std::string(Header13) + "NORWAY,NO,KEPT,KEPT,O,KEPT,,OSLO,,MAY,MODIFIED,MAY,\n"
                                              "NORWAY,NO,CHNG,CHNG,O,\"A, \"\"B\"\"\",,OSLO,,,EXPIRED,MAY,\n"
                                              "NORWAY,NO,BADR,BADR,?,BADR,,OSLO,,MAY,ACTIVE,MAY,\n"
                                              "NORWAY,NO,XNEW,XNEW,S,XNEW,,OSLO,,MAY,ACTIVE,MAY,\n");
    _RunQuietly({"mic", "import", "old.csv", "-o", "mics.xml"});
    const Outcome outcome = _Run({"mic", "update", "mics.xml", "new.csv", "-o", "mics.xml"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.out, "CHNG: name='A, \"B\"', isActive=false\n"
                           "XNEW: new, name='XNEW'\n"
                           "GONE: gone from the register, kept\n"
                           "1 changed, 1 new, 1 gone\n");
    EXPECT_EQ(outcome.err, "new.csv:4: row not used: O/S is unknown: '?'\n"
                           "new.csv: 4 rows in UTF-8, 3 used, 1 not used\n");
    EXPECT_EQ(_Run({"mic", "export", "mics.xml"}).out,
              std::string(Header13) + "NORWAY,NO,BADR,BADR,O,BADR,,OSLO,,MAY,ACTIVE,MAY,\r\n"
                                      "NORWAY,NO,CHNG,CHNG,O,\"A, \"\"B\"\"\",,OSLO,,MAY,DELETED,MAY,OLD\r\n"
                                      "NORWAY,NO,GONE,GONE,O,GONE,,OSLO,,MAY,ACTIVE,MAY,\r\n"
                                      "NORWAY,NO,KEPT,KEPT,O,KEPT,,OSLO,,MAY,ACTIVE,MAY,\r\n"
                                      "NORWAY,NO,XNEW,XNEW,S,XNEW,,OSLO,,MAY,ACTIVE,MAY,\r\n");

    // Standard output is the document's when no file is named, and only the document's.
    EXPECT_EQ(_Run({"mic", "update", "mics.xml", "old.csv"}).out.substr(0, 18), "<MICDefinitionList");
    _Write("algos.xml", MappingList(""));
    EXPECT_EQ(_Run({"mic", "update", "algos.xml", "old.csv"}).status, 1);
}

struct Register {
    const char* path;
    const char* totals;
    std::vector<std::string> texts; // that stand in the register, and so in the document
};

void PrintTo(const Register& source, std::ostream* out) {
    *out << std::filesystem::path(source.path).filename();
}

class nxToolOnARegister : public nxTool, public testing::WithParamInterface<Register> {};

TEST_P(nxToolOnARegister, LosesNothingOnTheWayToXMLAndBack) {
    const std::string path = GetParam().path;
    if (!std::filesystem::exists(path))
        GTEST_SKIP() << path << " is not there";

    const Outcome import = _Run({"mic", "import", path, "-o", "mics.xml"});
    EXPECT_EQ(import.status, 0);
    EXPECT_NE(import.err.find(GetParam().totals), std::string::npos) << import.err;
    const std::string xml = _Read("mics.xml");
    for (const std::string& text : GetParam().texts)
        EXPECT_NE(xml.find(text), std::string::npos) << text;

    EXPECT_EQ(_Run({"mic", "export", "mics.xml", "-o", "mics.csv"}).status, 0);
    EXPECT_EQ(_Run({"mic", "import", "mics.csv", "-o", "again.xml"}).status, 0);
    EXPECT_EQ(_Read("again.xml"), xml);
    EXPECT_EQ(_Run({"mic", "update", "mics.xml", path, "-o", "mics.xml"}).out, "0 changed, 0 new, 0 gone\n");
}

INSTANTIATE_TEST_SUITE_P(
    Registers, nxToolOnARegister,
    testing::Values(
        Register{NX_SOURCE_DIR "/examples/data/mic-register-sample.csv",
                 ": 20 rows in UTF-8, 20 used, 0 not used\n",
                 {"<Name>BÖRSE GRÜNSTADT – FREIVERKEHR</Name>", "<Name>THE \"OLD TOLL\" EXCHANGE LTD"}},
        Register{NX_SHARED_DATA "/iso10383-2020-13-columns-utf8.csv",
                 ": 2017 rows in UTF-8, 2017 used, 0 not used\n",
                 {"MERCADORIAS DE MARINGÁ<", "“STOCK EXCHANGE INNEX”<", "ČESKOSLOVENSKÁ OBCHODNÍ BANKA"}},
        Register{NX_SHARED_DATA "/iso10383-2023-17-columns-cp1252.csv",
                 ": 2603 rows in Windows-1252, 2603 used, 0 not used\n",
                 {"<Name>EURONEXT - MERCADO DE FUTUROS E OPÇÕES<", ">CORPORATE ACTIONS — CAVEAT EMPTOR.<",
                  "RIVERCROSS™ IS AN"}}));
