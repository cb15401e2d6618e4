// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// What texts that are made to be slow or to take memory cost, by each way in.
//
//   limits TOOL [MEGABYTES [WAY]]   prints a Markdown table: for each way in whose name holds WAY, the cost
//                                   of an ordinary text, of the one that takes the most memory, and of those
//                                   that take longest
//
// Each text is measured at MEGABYTES (1 unless told) and at four times that, in a process of its own: time is
// that of the processor, memory the most that was resident beyond the text. Exit status 1 when a time of more
// than three seconds has grown more than twice as fast as the text.

#include "core/nxCSVFileReader.h"
#include "core/nxDateTime.h"
#include "core/nxLogManager.h"
#include "core/nxStringHelper.h"
#include "core/nxTime.h"
#include "tests/support/nxRecordClasses.h"
#include "xmlFramework/xml/nxXMLDocument.h"
#include "xmlFramework/xml/nxXMLReport.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {
    constexpr std::size_t Megabyte = 1'000'000;

    // ---- Texts

    struct Shape {
        const char* name;
        std::string begin;
        std::string piece; // "#" stands for the number of the piece, "%" for how many follow
        std::string end;
        std::string tail = {}; // for each piece once more, behind all of them
    };

    const std::string MICs = "<MICDefinitionList><MICDefinitions>";
    const std::string MICsEnd = "</MICDefinitions></MICDefinitionList>";
    constexpr char RegisterHeader[] =
        "COUNTRY,ISO COUNTRY CODE (ISO 3166),MIC,OPERATING MIC,O/S,NAME-INSTITUTION DESCRIPTION,ACRONYM,CITY,"
        "WEBSITE,STATUS DATE,STATUS,CREATION DATE,COMMENTS\r\n";

    const std::vector<Shape> Documents = {
        {"ordinary MICs", MICs,
         "<MICDefinition-X#><MIC>X#</MIC><Country>NORWAY</Country><Name>MARKET NUMBER #</Name>"
         "<IsActive>true</IsActive><Comments>A comment of some length.</Comments></MICDefinition-X#>",
         MICsEnd},
        {"nested", "", "<a>", "", "</a>"},
        {"never closed", "", "<a>", ""},
        {"empty elements", "<r>", "<a/>", "</r>"},
        {"different names", "<r>", "<n#/>", "</r>"},
        {"attributes", "<r", " a#=''", "/>"},
        {"elements with attributes", "<r>", "<a b='' c=''/>", "</r>"},
        {"a long name", "<", "a", "/>"},
        {"a long text", "<UserTextHistoryList><UT>", "text ", "</UT></UserTextHistoryList>"},
        {"references", "<UserTextHistoryList><UT>", "&#13;", "</UT></UserTextHistoryList>"},
        {"comments", "<r>", "<!---->", "</r>"},
        {"sections", "<r>", "<![CDATA[]]>", "</r>"},
        {"instructions", "<r>", "<?a?>", "</r>"},
        {"texts in between", "<r>", "a<b/>", "</r>"},
        {"no characters", "<r>", "\xFF", "</r>"},
        {"MICs of one key", MICs, "<MICDefinition-X><MIC>X</MIC></MICDefinition-X>", MICsEnd},
        {"MICs without key", MICs, "<MICDefinition-/>", MICsEnd},
        {"exchanges", "<ExchangeDefinitionList><ExchangeDefinitions>",
         "<ExchangeDefinition-#><Mnemonic>#</Mnemonic></ExchangeDefinition-#>",
         "</ExchangeDefinitions></ExchangeDefinitionList>"},
        {"commas",
         "<ExchangeDefinitionList><ExchangeDefinitions><ExchangeDefinition-A><Mnemonic>A</Mnemonic><MICs>",
         ",", "</MICs></ExchangeDefinition-A></ExchangeDefinitions></ExchangeDefinitionList>"},
        {"parameters of one name", "<KestrumAlgorithmSpec><Parameters>",
         "<Parameter><Name>a</Name><ParameterType>PRICE</ParameterType><Optional>1</Optional></Parameter>",
         "</Parameters></KestrumAlgorithmSpec>"},
        {"modules", "<KestrumAlgorithmSpec><Modules>", "<Module><Name>#</Name></Module>",
         "</Modules></KestrumAlgorithmSpec>"},
        {"a user string", "<KestrumJobSpec><Parameters>", "a=^^|^^", "</Parameters></KestrumJobSpec>"},
        {"legs", "<SyntheticSpreadSpec><Legs>", "<Leg-#/>", "</Legs></SyntheticSpreadSpec>"},
        {"legs backwards", "<SyntheticSpreadSpec><Legs>", "<Leg-%/>", "</Legs></SyntheticSpreadSpec>"},
        {"brokers", "<BrokerMap>", "<Broker id='#' name='#'/>", "</BrokerMap>"},
        {"brokers of one name", "<BrokerMap>", "<Broker id='#' name=''/>", "</BrokerMap>"},
        {"mappings", "<AlgoIDMappingList><AlgoIDMappings>",
         "<AlgoMapping><AlgoPath>#</AlgoPath><AlgoID>1</AlgoID></AlgoMapping>",
         "</AlgoIDMappings></AlgoIDMappingList>"},
        {"periods", "<TradingHoursSchemesList><TradingHoursSchemes><Scheme><Periods>", "<Period/>",
         "</Periods></Scheme></TradingHoursSchemes></TradingHoursSchemesList>"},
        {"statistics", "<OrvalenPriceStatistics>",
         "<ProductStatistic><productID>#</productID></ProductStatistic>", "</OrvalenPriceStatistics>"},
        {"misspelt fields", "<KestrumJobSpec>", "<AntiCrossPullOrder/>", "</KestrumJobSpec>"},
        {"repeated fields", "<KestrumJobSpec>", "<AccountID>1</AccountID>", "</KestrumJobSpec>"},
        {"a long number", "<KestrumJobSpec><AccountID>", "1", "</AccountID></KestrumJobSpec>"},
        {"limits with bad numbers", "<KestrumJobSpec><Limits>",
         "<Limit><ProductID>a</ProductID><MaxShort>x</MaxShort></Limit>", "</Limits></KestrumJobSpec>"},
    };

    const std::vector<Shape> Registers = {
        {"ordinary rows", RegisterHeader, "NORWAY,NO,X#,X#,O,MARKET,,OSLO,,,ACTIVE,,\r\n", ""},
        {"rows of one MIC", RegisterHeader, ",,X,,O,,,,,,ACTIVE,,\r\n", ""},
        {"rows of one letter", RegisterHeader, "a\n", ""},
        {"headings", "", "a,", "\n"},
        {"quotes", RegisterHeader, "\"\"", ""},
        {"stray quotes", RegisterHeader, "a\"\n", ""},
        {"open quotes", RegisterHeader, "\"\n", ""},
        {"a quote in each line", RegisterHeader, "\"a\nb\"c\n", ""},
        {"no characters", RegisterHeader, "\x81\n", ""},
    };

    const std::vector<Shape> UserStrings = {{"pairs", "", "a=1\x01", ""},
                                            {"different names", "", "n#=1\x01", ""},
                                            {"a long value", "a=", "1", "\x01"},
                                            {"no pair", "", "a", ""}};

    const std::vector<Shape> Numbers = {{"nines", "", "9", ""},
                                        {"zeros", "", "0", "1"},
                                        {"a fraction", "0.", "0", "1"},
                                        {"an exponent", "1e", "9", ""},
                                        {"a second's fraction", "2024-01-01T08:30:00.", "0", "Z"},
                                        {"letters", "", "a", ""}};

    void AppendPiece(std::string& text, std::string_view piece, std::size_t number, std::size_t following) {
        for (const char c : piece) {
            if (c == '#' || c == '%')
                nxStringHelper::AppendAsString(text, c == '#' ? number : following);
            else
                text += c;
        }
    }

    std::string TextOf(const Shape& shape, std::size_t size) {
        std::string piece;
        AppendPiece(piece, shape.piece, 100'000, 100'000);
        const bool isFixed = piece.size() == shape.piece.size();
        const std::size_t pieces = size / (piece.size() + shape.tail.size());
        std::string text = shape.begin;
        for (std::size_t i = 0; i < pieces; ++i) {
            if (isFixed)
                text += shape.piece;
            else
                AppendPiece(text, shape.piece, i, pieces - 1 - i);
        }
        text += shape.end;
        for (std::size_t i = 0; i < pieces && !shape.tail.empty(); ++i)
            text += shape.tail;
        return text;
    }

    // ---- Costs

    struct Cost {
        double seconds = 0;
        double bytes = 0;
    };

    Cost CostSince(const rusage& before, const rusage& after) {
        const auto seconds = [](const timeval& time) {
            return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
        };
        return {seconds(after.ru_utime) + seconds(after.ru_stime) - seconds(before.ru_utime) -
                    seconds(before.ru_stime),
                static_cast<double>(after.ru_maxrss - before.ru_maxrss) * 1024};
    }

    using Work = std::function<void(const std::string& text)>;

    // Of the work in a process of its own. A program that it becomes counts from its start.
    Cost Measure(const Work& work, const std::string& text) {
        int channel[2];
        if (pipe(channel) != 0)
            throw std::runtime_error("no pipe");
        const pid_t child = fork();
        if (child == 0) {
            rusage before{};
            getrusage(RUSAGE_SELF, &before);
            work(text);
            rusage after{};
            getrusage(RUSAGE_SELF, &after);
            const Cost cost = CostSince(before, after);
            _exit(write(channel[1], &cost, sizeof cost) == sizeof cost ? 0 : 1);
        }
        close(channel[1]);
        Cost cost;
        rusage used{};
        int status = 0;
        const bool isTold = read(channel[0], &cost, sizeof cost) == sizeof cost;
        close(channel[0]);
        if (wait4(child, &status, 0, &used) != child || WIFSIGNALED(status))
            throw std::runtime_error("a process has died");
        return isTold ? cost : CostSince({}, used);
    }

    // ---- Ways in

    struct Way {
        std::string name;
        const std::vector<Shape>& shapes;
        Work work;
    };

    template <class Value, class... Arguments>
    void ReadValue(const std::string& text, Arguments... arguments) {
        Value value{};
        static_cast<void>(nxStringHelper::SetFromString(text, value, arguments...));
    }

    // Calls use(record) with a new record whose documents have the text's root; a list of MICs where none
    // has.
    void WithRecordOf(const std::string& text, auto use) {
        const std::string_view root(text.data() + 1, text.find_first_of(" />") - 1);
        bool isFound = false;
        nxRecordClasses::All::ForEach([&]<class Record>(std::type_identity<Record>) {
            if (Record::GetDocumentDescription().root != root)
                return;
            Record record;
            use(record);
            isFound = true;
        });
        if (!isFound) {
            nxMICDefinitionList mics;
            use(mics);
        }
    }

    // As a spec with so many parameters does.
    void ReadUserString(const std::string& text, unsigned int definitionCount) {
        nxKestrumAlgorithmSpec spec;
        for (unsigned int i = 0; i < definitionCount; ++i)
            spec.AddScriptParameterDefinition({i == 0 ? "a" : "n" + nxStringHelper::GetAsString(i),
                                               nxKestrumParameterTypeEnum::Text, true});
        std::map<std::string, std::string> texts;
        static_cast<void>(nxKestrumAlgorithmSpec::ExtractParametersFromUserString(text, texts));
        std::vector<nxKestrumParameter*> parameters; // the process ends with them
        static_cast<void>(spec.ExtractParametersFromUserString(text, parameters));
    }

    // The tool with the text as a file, once or twice.
    Work ToolWork(const std::string& tool, const std::string& arguments) {
        return [command = "exec '" + tool + "' " + arguments + " >/dev/null 2>&1"](const std::string& text) {
            const std::string path = "/tmp/nx-limits-" + std::to_string(getppid());
            std::ofstream(path, std::ios::binary) << text;
            std::ofstream(path + ".other", std::ios::binary)
                << text.substr(0, text.find_first_of(" />")) << "/>"; // an empty one of the same class
            setenv("FILE", path.c_str(), 1);
            execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
            _exit(1);
        };
    }

    std::vector<Way> Ways(const std::string& tool) {
        std::vector<Way> ways;
        ways.push_back({"record: read, write", Documents, [](const std::string& text) {
                            WithRecordOf(text, [&text](auto& record) {
                                std::string written;
                                static_cast<void>(record.ConvertFromXML(text, ""));
                                static_cast<void>(record.ConvertToXML(written, ""));
                            });
                        }});
        ways.push_back({"record: report", Documents, [](const std::string& text) {
                            WithRecordOf(text, [&text](auto& record) {
                                nxXMLReport report;
                                static_cast<void>(report.Read(record, text, ""));
                                for (const nxXMLFinding& finding : report.GetFindings())
                                    static_cast<void>(finding.GetMessage());
                            });
                        }});
        ways.push_back({"nxXMLDocument: load, save", Documents, [](const std::string& text) {
                            nxXMLDocument document;
                            std::string saved;
                            if (document.LoadFromString(text).IsOK())
                                static_cast<void>(document.SaveToString(saved));
                        }});
        ways.push_back({"nxCSVFileReader", Registers, [](const std::string& text) {
                            nxCSVFileReader reader;
                            static_cast<void>(reader.ReadString(text));
                        }});
        for (const unsigned int count : {1U, 10'000U}) {
            const std::string definitions = nxStringHelper::GetAsString(count) + " definitions";
            ways.push_back({"user string, " + definitions, UserStrings,
                            [count](const std::string& text) { ReadUserString(text, count); }});
        }
        ways.push_back({"values", Numbers, [](const std::string& text) {
                            ReadValue<int>(text);
                            ReadValue<unsigned long long>(text);
                            ReadValue<double>(text, '.');
                            ReadValue<nxDecimal>(text, '.');
                            ReadValue<nxTime>(text);
                            ReadValue<bool>(text);
                            nxDateTime time;
                            static_cast<void>(nxDateTime::SetFromString(text, time));
                        }});
        for (const char* const arguments :
             {R"(check "$FILE")", R"(check --strict "$FILE")", R"(show "$FILE")", R"(convert "$FILE")",
              R"(diff "$FILE" "$FILE")", R"(diff "$FILE" "$FILE.other")"})
            ways.push_back({std::string("tool: ") + arguments, Documents, ToolWork(tool, arguments)});
        ways.push_back({"tool: mic import", Registers, ToolWork(tool, R"(mic import "$FILE")")});
        return ways;
    }

    // ---- The table

    struct Result {
        const Shape* shape = nullptr;
        Cost once;
        Cost fourfold;
        double Growth() const { return fourfold.seconds / std::max(once.seconds, 1e-3) / 4; }
    };

    void Print(const Way& way, const Result& result, std::size_t size) {
        const auto bytes = static_cast<double>(4 * size);
        std::printf("| %s | %s | %.0f | %.1f | %.2f |\n", way.name.c_str(), result.shape->name,
                    result.fourfold.seconds / bytes * 1e9, result.fourfold.bytes / bytes, result.Growth());
        std::fflush(stdout);
    }

    // False when a time grows too fast.
    bool MeasureWay(const Way& way, std::size_t size) {
        constexpr double MaxGrowth = 2;
        constexpr double ParserSeconds = 3; // which its table of names may take: docs/xml.md
        std::vector<Result> results;
        for (const Shape& shape : way.shapes)
            results.push_back(
                {&shape, Measure(way.work, TextOf(shape, size)), Measure(way.work, TextOf(shape, 4 * size))});

        const auto isTooFast = [](const Result& result) {
            return result.fourfold.seconds > ParserSeconds && result.Growth() > MaxGrowth;
        };
        const bool isLinear = std::ranges::none_of(results, isTooFast);

        Print(way, results.front(), size);
        results.erase(results.begin());
        std::iter_swap(results.begin(), std::ranges::max_element(results, {}, [](const Result& result) {
                           return result.fourfold.bytes;
                       }));
        std::ranges::sort(results.begin() + 1, results.end(), std::greater(),
                          [](const Result& result) { return result.fourfold.seconds; });
        for (auto result = results.begin(); result != results.end(); ++result) {
            if (result - results.begin() < 4 || isTooFast(*result))
                Print(way, *result, size);
        }
        return isLinear;
    }
} // namespace

int main(int argc, char** argv) {
    if (argc < 2)
        return 2;
    try {
        nxLogManager::SetDevices({});
        const std::size_t size = (argc > 2 ? std::stoul(argv[2]) : 1) * Megabyte;
        std::printf("| Way in | Text | ns a byte | bytes a byte | growth |\n|---|---|---|---|---|\n");
        bool isLinear = true;
        const std::string_view part = argc > 3 ? argv[3] : "";
        for (const Way& way : Ways(argv[1]))
            if (way.name.find(part) != std::string::npos)
                isLinear = MeasureWay(way, size) && isLinear;
        return isLinear ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
