// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// What is the same for all top-level records.

#include "tests/support/nxIsValue.h"
#include "tests/support/nxRandomText.h"
#include "tests/support/nxRecordText.h"
#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"
#include "xmlFramework/kestrum/nxKestrumJobSpec.h"
#include "xmlFramework/kestrum/nxKestrumModuleSpec.h"
#include "xmlFramework/kestrum/nxKestrumUserLimit.h"
#include "xmlFramework/market/nxAlgoIDMappingList.h"
#include "xmlFramework/market/nxBrokerMap.h"
#include "xmlFramework/market/nxExchangeDefinitionList.h"
#include "xmlFramework/market/nxMICDefinitionList.h"
#include "xmlFramework/market/nxOrvalenPriceUsageStatistics.h"
#include "xmlFramework/market/nxSyntheticPriceServerInstanceList.h"
#include "xmlFramework/market/nxTradingHoursSchemeList.h"
#include "xmlFramework/market/nxUserTextList.h"
#include "xmlFramework/spread/nxSyntheticSpreadOrderSpec_XML.h"
#include "xmlFramework/xml/nxXMLReport.h"

#include <memory>
#include <string_view>
#include <typeinfo>
#include <vector>

namespace {
    using namespace nxRecordText;
    using Record = std::unique_ptr<nxXMLDataObject>;

    template <class Class>
    Record Make() {
        return std::make_unique<Class>();
    }

    template <class Class>
    bool AreEqual(const nxXMLDataObject& left, const nxXMLDataObject& right) {
        return dynamic_cast<const Class&>(left) == dynamic_cast<const Class&>(right);
    }

    template <class... Classes>
    constexpr bool AreValues = (nxIsValue<Classes> && ...);
    static_assert(
        AreValues<nxAlgoIDMappingList, nxBrokerMap, nxExchangeDefinition, nxExchangeDefinitionList,
                  nxMICDefinition, nxMICDefinitionList, nxOrvalenPriceUsageStatistics,
                  nxOrvalenPriceUsageStatisticsForProduct, nxSyntheticPriceServerInstanceList,
                  nxTradingHoursPeriod, nxTradingHoursScheme, nxTradingHoursSchemeList, nxUserTextList>);
    static_assert(AreValues<nxKestrumAlgorithmSpec, nxKestrumJobSpec, nxKestrumLimit, nxKestrumModuleSpec,
                            nxKestrumParameterDefinition, nxKestrumUserLimit,
                            nxSyntheticSpreadOrderSpecLeg_XML, nxSyntheticSpreadOrderSpec_XML>);

    struct Kind {
        std::string name; // of the class
        Record (*make)();
        bool (*areEqual)(const nxXMLDataObject& left, const nxXMLDataObject& right);
        unsigned int code;
        const char* subject; // in what is logged of a text that is refused
        // A whole document as it is written, where "$t" stands for any text, "$n" for any number and "$f" for
        // a flag.
        std::string form;

        friend void PrintTo(const Kind& kind, std::ostream* stream) { *stream << kind.name; }
    };

    std::string ParameterForm(const std::string& element) {
        return Element(element,
                       Elements("Name=$t ParameterType=PRICE Optional=$f SystemParameter=$f ReadOnly=$f "
                                "Description=$t") +
                           Element("ValidValues", Elements("ValidValue=$t ValidValue=$t")));
    }

    const std::string LimitsForm = Element(
        "Limits",
        Element("Limit", Elements("ProductID=$t MaxShort=$n MaxLong=$n MaxBuys=$n MaxSells=$n ClipLimit=$n "
                                  "Strategy=$f Netting=$f MarginRiskStrategy=$f AccountID=$n")));

    const std::string EmptyLeg = Elements("WorkingLeg=false OrderType=Undefined PessimisticVWAP=false "
                                          "Finesse=false IsOpenAuctionModeLeg=false "
                                          "InheritTimeRestrictionFromSpreadOrder=false "
                                          "AccountIDOverride=NULL ScratchPayupTicks=NULL PayupMethod=Plain "
                                          "ConditionalPayup=false CascadeConditionalPayup=false");

    const Kind Kinds[] = {
        {"nxAlgoIDMappingList", Make<nxAlgoIDMappingList>, AreEqual<nxAlgoIDMappingList>, 0x414C4944,
         "algo mapping list",
         Element("AlgoIDMappingList",
                 Element("AlgoIDMappings", Element("AlgoMapping", Elements("AlgoPath=$t AlgoID=1"))))},
        {"nxBrokerMap", Make<nxBrokerMap>, AreEqual<nxBrokerMap>, 0x42524F4B, "broker map",
         R"(<BrokerMap><Broker id="9" name="$t"/><Broker id="10" name="$t"/></BrokerMap>)"},
        {"nxExchangeDefinitionList", Make<nxExchangeDefinitionList>, AreEqual<nxExchangeDefinitionList>,
         0x45584348, "spread spec",
         Element("ExchangeDefinitionList",
                 Element("ExchangeDefinitions",
                         Element("ExchangeDefinition-A",
                                 Elements("Mnemonic=A Description=$t IsExchange=$f IsPriceSource=$f "
                                          "IsOrderDestination=$f MICs=XA,XB PriceStreams=L1"))))},
        {"nxKestrumAlgorithmSpec", Make<nxKestrumAlgorithmSpec>, AreEqual<nxKestrumAlgorithmSpec>, 0x414C474F,
         "spread spec",
         Element("KestrumAlgorithmSpec", Element("ScriptSourceCode", "$t") +
                                             Element("Parameters", ParameterForm("Parameter")) +
                                             Element("SyntheticOrderType", "ICEBERG") + LimitsForm +
                                             Element("Modules", Element("Module", Elements("Name=$t"))) +
                                             Element("OutputParameters", ParameterForm("OutputParameter")) +
                                             Element("HideParentOrder", "$f"))},
        {"nxKestrumJobSpec", Make<nxKestrumJobSpec>, AreEqual<nxKestrumJobSpec>, 0x4B4A4F42,
         "Kestrum Job Spec",
         Element("KestrumJobSpec",
                 Elements("AlgorithmSpecName=$t Parameters=a=$t^^|^^b=$t^^|^^") + LimitsForm +
                     Elements("AccountID=$n MaxTrans=$n MaxTransPS=$n PreferredExchangeUser=$t "
                              "BackTestingAccountID=$n AntiCrossPullOrders=$f DisablePreLimitCheck=$f"))},
        {"nxKestrumModuleSpec", Make<nxKestrumModuleSpec>, AreEqual<nxKestrumModuleSpec>, 0x4B4D4F44,
         "spread spec", Element("KestrumModuleSpec", Elements("SourceCode=$t"))},
        {"nxMICDefinitionList", Make<nxMICDefinitionList>, AreEqual<nxMICDefinitionList>, 0x584D4943,
         "spread spec",
         Element("MICDefinitionList",
                 Element("MICDefinitions",
                         Element("MICDefinition-XA",
                                 Elements("MIC=XA Country=$t ISOCountryCode=$t OperatingMIC=$t "
                                          "IsOperatingMIC=$f Name=$t Acronym=$t City=$t Website=$t "
                                          "StatusDate=$t IsActive=$f CreationDate=$t Comments=$t"))))},
        {"nxOrvalenPriceUsageStatistics", Make<nxOrvalenPriceUsageStatistics>,
         AreEqual<nxOrvalenPriceUsageStatistics>, 0x4F505553, "exchange trading horus definition list",
         Element(
             "OrvalenPriceStatistics",
             Element("userID", "$n") +
                 Element("ProductStatistic", Elements("productID=$t noOfPriceUpdates=18446744073709551615 "
                                                      "noOfPriceDataObjects=$n "
                                                      "noOfUnobservedPriceDataObjects=$n "
                                                      "noOfPriceUpdatesForUnobservedProducts=$n")))},
        {"nxSyntheticPriceServerInstanceList", Make<nxSyntheticPriceServerInstanceList>,
         AreEqual<nxSyntheticPriceServerInstanceList>, 0x53505349, "spread spec",
         Element("SyntheticPriceServerInstanceList",
                 Element("SyntheticPriceServerInstances", Elements("Instance=$t Instance=$t")))},
        {"nxSyntheticSpreadOrderSpec_XML", Make<nxSyntheticSpreadOrderSpec_XML>,
         AreEqual<nxSyntheticSpreadOrderSpec_XML>, 0x53505244, "spread spec",
         Element("SyntheticSpreadSpec",
                 Element("SpecName", "$t") +
                     Element("Legs", Element("Leg-0", EmptyLeg) + Element("Leg-1", EmptyLeg)) +
                     Elements("ScratchIfLegged=$f ExchDest=$t"))},
        {"nxTradingHoursSchemeList", Make<nxTradingHoursSchemeList>, AreEqual<nxTradingHoursSchemeList>,
         0x5452534C, "trading hours scheme list",
         Element("TradingHoursSchemesList",
                 Element("TradingHoursSchemes",
                         Element("Scheme",
                                 Element("SchemeName", "$t") +
                                     Element("Periods",
                                             Element("Period",
                                                     Elements("SessionType=BREAK StartTimeZoneRegion=$t "
                                                              "StartTime=09:00:00.000000001 StartDay=$n "
                                                              "EndTimeZoneRegion=$t EndTime=23:59:59.100 "
                                                              "EndDay=$n"))))))},
        {"nxUserTextList", Make<nxUserTextList>, AreEqual<nxUserTextList>, 0x5552544C,
         "user text history list", Element("UserTextHistoryList", Elements("UT=$t UT=$t"))},
    };

    std::string WithReferences(const std::string& text) {
        std::string xml;
        for (const char c : text)
            xml += std::string_view("<>&\"\t\n\r").find(c) != std::string_view::npos
                       ? "&#" + std::to_string(static_cast<int>(c)) + ";"
                       : std::string(1, c);
        return xml;
    }

    // What stands in the places of a form, and a text that is something else there.
    std::string Filling(char kind, nxRandomText& random) {
        if (kind == 't')
            return WithReferences(random.Text() + random.Key() + random.Text());
        if (kind == 'n')
            return std::to_string(random.Flag() ? random.Below(9) : ~random.Below(9));
        return random.Flag() ? "true" : "false";
    }
    std::string OtherFilling(char kind, const std::string& filling) {
        if (kind == 't')
            return filling + "x";
        if (kind == 'n')
            return filling == "9" ? "8" : "9";
        return filling == "true" ? "false" : "true";
    }

    std::vector<std::string> Fillings(const std::string& form, nxRandomText& random) {
        std::vector<std::string> fillings;
        for (std::size_t at = form.find('$'); at != std::string::npos; at = form.find('$', at + 1))
            fillings.push_back(Filling(form[at + 1], random));
        return fillings;
    }

    // A document of that form, in the spelling in which documents are written. In the place `changed` stands
    // something else than in `fillings`.
    std::string Filled(const std::string& form, const std::vector<std::string>& fillings,
                       std::size_t changed = std::string::npos) {
        std::string xml;
        std::size_t place = 0;
        for (std::size_t at = 0; at < form.size(); ++at) {
            if (form[at] != '$') {
                xml += form[at];
                continue;
            }
            ++at;
            xml += place == changed ? OtherFilling(form[at], fillings[place]) : fillings[place];
            ++place;
        }
        nxXMLDocument document;
        EXPECT_EQ(document.LoadFromString(xml), nxErrorEnum::OK) << xml;
        EXPECT_EQ(document.SaveToString(xml), nxErrorEnum::OK);
        return xml;
    }

    // The document with each element on a line of its own.
    std::string OnLines(std::string xml) {
        for (std::size_t at = xml.find('<', 1); at != std::string::npos; at = xml.find('<', at + 2)) {
            if (xml[at + 1] != '/')
                xml.insert(at, "\n");
        }
        return xml;
    }
    // Behind the element that starts there.
    std::size_t EndOf(const std::string& xml, std::size_t start, const std::string& name) {
        const std::size_t tagEnd = xml.find('>', start) + 1;
        const std::string endTag = "</" + name + ">";
        return xml[tagEnd - 2] == '/' ? tagEnd : xml.find(endTag, tagEnd) + endTag.size();
    }

    class AllRecords : public testing::TestWithParam<Kind> {
    protected:
        Record NewRecord() const { return GetParam().make(); }
        // One a line: place, path and code. Without elements that are merely missing, unless these are asked
        // for, too.
        std::string Losses(const std::string& xml, bool withMissing = false) const {
            nxXMLReport report;
            const Record record = NewRecord();
            const nxCollectedLog log;
            static_cast<void>(report.Read(*record, xml, ""));
            std::string lines;
            for (const nxXMLFinding& finding : report.GetFindings()) {
                if (!finding.IsLoss() && !withMissing)
                    continue;
                lines += std::to_string(finding.line) + ":" + std::to_string(finding.column) + " " +
                         finding.path + " " + finding.GetCode() + "\n";
            }
            return lines;
        }
        // Whether a record that reads the document writes the text.
        bool IsTaken(const std::string& text, const std::string& xml) const {
            const Record record = NewRecord();
            const nxCollectedLog log;
            return record->ConvertFromXML(xml, "").IsOK() && Written(*record).find(text) != std::string::npos;
        }
        std::string RandomDocument() { return Filled(GetParam().form, Fillings(GetParam().form, random)); }

        nxRandomText random{1};
    };
} // namespace

TEST_P(AllRecords, ReadAndWriteAnyTextNumberAndFlag) {
    for (int round = 0; round < 100; ++round) {
        const std::string xml = RandomDocument();
        const Record record = NewRecord();
        Read(*record, xml);
        ASSERT_EQ(Written(*record), xml);
    }
}

TEST_P(AllRecords, AreMadeByTheirCodeAndCopiedWhole) {
    const std::string xml = RandomDocument();
    const Record record = NewRecord();
    const nxXMLDataObject& original = *record;
    EXPECT_EQ(record->GetDataCategoryTypeID(), GetParam().code);
    Read(*record, xml);
    const Record copy(record->CopyInstance());
    const Record created(record->CreateInstance());
    const Record registered(nxXMLDataObject::CreateInstance(GetParam().code));
    EXPECT_EQ(!registered, GetParam().name == "nxOrvalenPriceUsageStatistics"); // has no place
    for (const nxXMLDataObject* other : {copy.get(), created.get(), registered.get()})
        EXPECT_TRUE(!other || typeid(*other) == typeid(original));

    Read(*record, RandomDocument());
    EXPECT_EQ(Written(*copy), xml);
    EXPECT_EQ(Written(*created), Written(*NewRecord()));
}

TEST_P(AllRecords, AreEqualWhenAllThatTheyHoldIs) {
    const std::vector<std::string> fillings = Fillings(GetParam().form, random);
    const Record record = NewRecord();
    const Record same = NewRecord();
    Read(*record, Filled(GetParam().form, fillings));
    Read(*same, Filled(GetParam().form, fillings));
    EXPECT_TRUE(GetParam().areEqual(*record, *same));
    EXPECT_FALSE(GetParam().areEqual(*record, *NewRecord()));
    for (std::size_t i = 0; i < fillings.size(); ++i) {
        const std::string xml = Filled(GetParam().form, fillings, i);
        const Record other = NewRecord();
        Read(*other, xml);
        EXPECT_FALSE(GetParam().areEqual(*record, *other)) << xml;
    }
}

TEST_P(AllRecords, TakeAnyRootAndWhatStandsAroundTheirElements) {
    const std::string xml = RandomDocument();
    const std::size_t start = xml.find('>') + 1;
    const std::string inside = xml.substr(start, xml.rfind('<') - start);
    const Record record = NewRecord();
    Read(*record, "<?xml version='1.0' encoding='UTF-8' standalone='yes'?>\r\n<!--c--><x:other a='1'>text" +
                      inside + "<![CDATA[c]]></x:other>\r\n");
    EXPECT_EQ(Written(*record), xml);
}

TEST_P(AllRecords, RefuseWhatIsNoDocumentAndKeepWhatTheyHold) {
    const std::string xml = RandomDocument();
    std::vector<std::string> bad = {xml + xml, "<!DOCTYPE x>" + xml, "<?xml version='1.2'?>" + xml,
                                    "MIC,Country\nXABC,GB\n"};
    for (std::size_t length = 0; length < xml.size(); ++length)
        bad.push_back(xml.substr(0, length));
    const bool emptiesItselfFirst = GetParam().name == "nxAlgoIDMappingList";
    const bool tellsWhy = GetParam().name == "nxKestrumAlgorithmSpec";
    for (const std::string& text : bad) {
        const Record record = NewRecord();
        Read(*record, xml);
        ExpectRefused(*record, text, GetParam().subject, GetParam().name,
                      tellsWhy ? nxErrorEnum::XMLParseFailed : nxErrorEnum::InvalidData);
        EXPECT_EQ(Written(*record), emptiesItselfFirst ? Written(*NewRecord()) : xml) << text;
    }
}

TEST_P(AllRecords, ReportNothingOfWhatTheyWrite) {
    for (int round = 0; round < 20; ++round) {
        const std::string xml = RandomDocument();
        EXPECT_EQ(Losses(xml, true), "") << xml;
    }
}

// Each element in turn is renamed, given an attribute and a bad text, doubled and left out.
TEST_P(AllRecords, ReportWhateverIsSpoiledWhereItIs) {
    const std::string xml = OnLines(RandomDocument());
    ASSERT_EQ(Losses(xml, true), "") << xml;
    for (std::size_t start = xml.find("\n<") + 1; start != 0; start = xml.find("\n<", start) + 1) {
        if (xml[start + 1] == '/')
            continue;
        const std::string name = xml.substr(start + 1, xml.find_first_of(" />", start) - start - 1);
        const std::string element = xml.substr(start, EndOf(xml, start, name) - start);
        const std::string before = xml.substr(0, start), behind = xml.substr(start + element.size());
        const auto line = std::to_string(std::count(before.begin(), before.end(), '\n') + 1) + ":";
        const auto lossesOf = [&](const std::string& other) { return Losses(before + other + behind); };
        const auto isReported = [&](const std::string& other) {
            return ("\n" + lossesOf(other)).find("\n" + line) != std::string::npos;
        };

        std::string renamed = element;
        nxStringHelper::Replace(renamed, "<" + name, "<" + name + "x");
        nxStringHelper::Replace(renamed, "</" + name, "</" + name + "x");
        EXPECT_TRUE(isReported(renamed)) << renamed;
        EXPECT_TRUE(isReported("<" + name + " x='1'" + element.substr(name.size() + 1))) << element;
        if (!element.ends_with("</" + name + ">") || element.find("\n<") != std::string::npos)
            continue;

        const std::string bad = Element(name, "-bad-");
        EXPECT_TRUE(isReported(bad) || IsTaken("-bad-", before + bad + behind)) << element;
        const bool isItem = xml.find("</" + name + ">\n<" + name + ">") != std::string::npos;
        EXPECT_EQ(lossesOf(element + "\n" + element).empty(), isItem) << element;
        EXPECT_EQ(Losses(before + behind, true).empty(), isItem) << element;
    }
}

INSTANTIATE_TEST_SUITE_P(library, AllRecords, testing::ValuesIn(Kinds),
                         [](const auto& kind) { return kind.param.name; });
