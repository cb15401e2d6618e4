// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLReport.h"

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxPrint.h"
#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"
#include "xmlFramework/kestrum/nxKestrumJobSpec.h"
#include "xmlFramework/kestrum/nxKestrumUserLimit.h"
#include "xmlFramework/market/nxAlgoIDMappingList.h"
#include "xmlFramework/market/nxBrokerMap.h"
#include "xmlFramework/market/nxMICDefinitionList.h"
#include "xmlFramework/market/nxTradingHoursSchemeList.h"
#include "xmlFramework/spread/nxSyntheticSpreadOrderSpec_XML.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>

namespace {
    using Kind = nxXMLFinding::Kind;

    // What is lost of a document, one finding a line.
    template <class Record>
    std::string Losses(const std::string& xml) {
        const nxCollectedLog log;
        Record record;
        nxXMLReport report;
        static_cast<void>(report.Read(record, xml, ""));
        std::string lines;
        for (const nxXMLFinding& finding : report.GetFindings()) {
            if (finding.IsLoss())
                lines += std::to_string(finding.line) + ":" + std::to_string(finding.column) + " " +
                         finding.path + (finding.key.empty() ? "" : " [" + finding.key + "]") + " " +
                         finding.GetMessage() + "\n";
        }
        return lines;
    }

    struct Case {
        std::string (*lossesOf)(const std::string& xml);
        std::string xml;
        std::string losses;
    };

    const Case Cases[] = {
        {Losses<nxKestrumJobSpec>, "<KestrumJobSpec><maxtran>7</maxtran></KestrumJobSpec>",
         "1:17 /KestrumJobSpec/maxtran unknown element 'maxtran': did you mean 'MaxTrans'?\n"},
        {Losses<nxKestrumJobSpec>, "<KestrumJobSpec>\n\t<Price a='1'><b>7</b></Price></KestrumJobSpec>",
         "2:2 /KestrumJobSpec/Price unknown element 'Price'\n"},
        {Losses<nxKestrumJobSpec>, "\xEF\xBB\xBF<JobSpec/>",
         "1:1 /JobSpec unknown element 'JobSpec': did you mean 'KestrumJobSpec'?\n"},
        {Losses<nxKestrumJobSpec>,
         "<KestrumJobSpec><MaxTrans>7</MaxTrans><MaxTrans>8</MaxTrans></KestrumJobSpec>",
         "1:39 /KestrumJobSpec/MaxTrans[2] one of several elements 'MaxTrans': another one counts\n"},
        {Losses<nxKestrumJobSpec>,
         "<KestrumJobSpec><MaxTrans>\n é 1e6</MaxTrans><MaxTransPS/></KestrumJobSpec>",
         "2:2 /KestrumJobSpec/MaxTrans found '\n é 1e6', expected a whole number from 0 to 4294967295; the "
         "record holds '0'\n"
         "2:18 /KestrumJobSpec/MaxTransPS found no text, expected a whole number from 0 to 4294967295; the "
         "record holds '0'\n"},
        {Losses<nxKestrumJobSpec>,
         "<KestrumJobSpec>a<Limits>é<Limit/></Limits><AlgorithmSpecName>A<!---->B</AlgorithmSpecName>"
         "<Parameters><![CDATA[ C ]]></Parameters></KestrumJobSpec>",
         "1:17 /KestrumJobSpec text that is not read: 'a'\n"
         "1:26 /KestrumJobSpec/Limits text that is not read: 'é'\n"
         "1:27 /KestrumJobSpec/Limits/Limit item 'Limit': left out, as it cannot be read: Value not found\n"
         "1:71 /KestrumJobSpec/AlgorithmSpecName text that is not read: 'B'\n"
         "1:114 /KestrumJobSpec/Parameters text that is not read: 'C'\n"},
        {Losses<nxKestrumJobSpec>,
         "<KestrumJobSpec><Limits><Limit><ProductID>P</ProductID><MaxShort>x</MaxShort></Limit>\n<Limit/>"
         "</Limits></KestrumJobSpec>",
         "1:25 /KestrumJobSpec/Limits/Limit[1] [P] item 'Limit': left out, as it cannot be read: Value not "
         "parsed\n"
         "1:66 /KestrumJobSpec/Limits/Limit[1]/MaxShort [P] found 'x', expected a whole number from 0 to "
         "4294967295; the record holds '0'\n"
         "2:1 /KestrumJobSpec/Limits/Limit[2] item 'Limit': left out, as one before it cannot be read\n"},
        {Losses<nxKestrumUserLimit>,
         "<KestrumUserLimit xmlns:xsi='x' xsi:schemaLocation='y' "
         "z='1'><maxTransactions>none</maxTransactions>"
         "</KestrumUserLimit>",
         "1:56 /KestrumUserLimit/@z unknown attribute 'z'\n"
         "1:79 /KestrumUserLimit/maxTransactions found 'none', expected a whole number from 0 to 4294967295; "
         "the "
         "record holds 'NULL'\n"},
        {Losses<nxMICDefinitionList>,
         "<MICDefinitionList><MICDefinitions>\n<MICDefinition-A><MIC>A</MIC></MICDefinition-A>\n"
         "<MICDefinition-A><MIC>A</MIC></MICDefinition-A>\n<MICDefinition-B><MIC>C</MIC></MICDefinition-B>\n"
         "<MICdefinition-D/>\n<MICDefinition-E/></MICDefinitions></MICDefinitionList>",
         "3:1 /MICDefinitionList/MICDefinitions/MICDefinition-A[2] [A] item 'MICDefinition-A': left out, as "
         "there "
         "is one of the same key before it\n"
         "4:1 /MICDefinitionList/MICDefinitions/MICDefinition-B [C] element 'MICDefinition-B' is read, but "
         "written "
         "as 'MICDefinition-C'\n"
         "5:1 /MICDefinitionList/MICDefinitions/MICdefinition-D unknown element 'MICdefinition-D': did you "
         "mean "
         "'MICDefinition-D'?\n"
         "6:1 /MICDefinitionList/MICDefinitions/MICDefinition-E item 'MICDefinition-E': left out, as "
         "'MICdefinition-D' before it is none, which ends the items\n"},
        {Losses<nxBrokerMap>, "<BrokerMap><Broker id='1' name='a' nam='b'/><B id='1' name='c'/></BrokerMap>",
         "1:36 /BrokerMap/Broker/@nam [1] unknown attribute 'nam': did you mean 'name'?\n"
         "1:45 /BrokerMap/B [1] item 'B': read in place of one of the same ID before it\n"
         "1:45 /BrokerMap/B [1] element 'B' is read, but written as 'Broker'\n"},
        {Losses<nxBrokerMap>, "<BrokerMap><Broker id='x' name='a'/></BrokerMap>",
         "1:12 /BrokerMap/Broker [0] item 'Broker': left out, as it cannot be read: Value not parsed\n"
         "1:24 /BrokerMap/Broker/@id [0] found 'x', expected a whole number from 0 to 4294967295; the record "
         "holds '0'\n"},
        {Losses<nxAlgoIDMappingList>,
         "<AlgoIDMappingList><AlgoIDMappings><AlgoMapping><AlgoPath>a</AlgoPath><AlgoID/></AlgoMapping>"
         "</AlgoIDMappings></AlgoIDMappingList>",
         "1:36 /AlgoIDMappingList/AlgoIDMappings/AlgoMapping [a] item 'AlgoMapping': Algo ID is not "
         "specified or is not a valid number\n"
         "1:71 /AlgoIDMappingList/AlgoIDMappings/AlgoMapping/AlgoID [a] found no text, expected a whole "
         "number from "
         "0 to 4294967295; the record holds 'NULL'\n"},
        {Losses<nxTradingHoursSchemeList>,
         "<TradingHoursSchemesList><TradingHoursSchemes><Scheme><Periods/><SchemeName>s</SchemeName><Periods/"
         ">"
         "</Scheme></TradingHoursSchemes></TradingHoursSchemesList>",
         "1:55 /TradingHoursSchemesList/TradingHoursSchemes/Scheme/Periods[1] [s] one of several elements "
         "'Periods': "
         "another one counts\n"},
        {Losses<nxSyntheticSpreadOrderSpec_XML>,
         "<SyntheticSpreadSpec><Legs><Leg-2><A/></Leg-2><Leg-0/></Legs></SyntheticSpreadSpec>",
         "1:28 /SyntheticSpreadSpec/Legs/Leg-2 item 'Leg-2': left out, as 'Leg-1' before it is missing, "
         "which ends "
         "the items\n"},
        {Losses<nxSyntheticSpreadOrderSpec_XML>,
         "<SyntheticSpreadSpec><Legs><Leg-0><OrderType>Market</OrderType><OrderType>Limit</OrderType>"
         "<PayupMethod>plain</PayupMethod><IsAuctionModeLeg>1</IsAuctionModeLeg></Leg-0></Legs></"
         "SyntheticSpreadSpec>",
         "1:35 /SyntheticSpreadSpec/Legs/Leg-0/OrderType[1] one of several elements 'OrderType': a later one "
         "counts\n"
         "1:105 /SyntheticSpreadSpec/Legs/Leg-0/PayupMethod found 'plain', expected one of: Undefined, No "
         "change, Plain, Conditional, Cascade; the record holds 'Undefined': did you mean 'Plain'?\n"},
        // Eighty bytes of a text, or those of its whole characters.
        {Losses<nxKestrumJobSpec>, "<KestrumJobSpec>" + std::string(80, 'x') + "<a/></KestrumJobSpec>",
         "1:17 /KestrumJobSpec text that is not read: '" + std::string(80, 'x') +
             "'\n"
             "1:97 /KestrumJobSpec/a unknown element 'a'\n"},
        {Losses<nxKestrumJobSpec>, "<KestrumJobSpec>" + std::string(79, 'x') + "\u00E9</KestrumJobSpec>",
         "1:17 /KestrumJobSpec text that is not read: '" + std::string(79, 'x') + "...'\n"},
        // No documents at all.
        {Losses<nxKestrumJobSpec>, "<KestrumJobSpec>\n<a></b></KestrumJobSpec>",
         "2:6  expected end of tag 'a'\n"},
        {Losses<nxKestrumJobSpec>, "<KestrumJobSpec>\n é\xFF</KestrumJobSpec>",
         "2:3  no valid character at byte 20 (from 0) in encoding 'UTF-8'\n"},
        {Losses<nxKestrumJobSpec>, "<KestrumJobSpec><!-- <!DOCTYPE --></b>",
         "1:37  expected end of tag 'KestrumJobSpec'\n"},
        {Losses<nxKestrumJobSpec>, " <!DOCTYPE KestrumJobSpec><KestrumJobSpec/>",
         "1:2  a DOCTYPE is not allowed\n"},
        {Losses<nxKestrumJobSpec>, "<?xml version='1.2'?><KestrumJobSpec/>",
         "1:1  the parser refuses the document: see the log\n"},
        // In another encoding places are those of the characters all the same.
        {Losses<nxKestrumJobSpec>,
         "<?xml version='1.0' encoding='ISO-8859-1'?>\n<KestrumJobSpec a='\xE9'><a/></KestrumJobSpec>",
         "2:1 /KestrumJobSpec/@a unknown attribute 'a'\n2:23 /KestrumJobSpec/a unknown element 'a'\n"},
    };
} // namespace

TEST(nxXMLReport, SaysOfEachThingThatIsNotTakenWhereItIsAndWhy) {
    for (const Case& one : Cases)
        EXPECT_EQ(one.lossesOf(one.xml), one.losses) << one.xml;
}

TEST(nxXMLReport, RepeatsNoLongTextInEachFinding) {
    const std::string name(20'000, 'n');
    std::string children;
    std::string attributes;
    for (int i = 0; i < 100; ++i) {
        children += "<u/>t<!---->";
        attributes += " a" + std::to_string(i) + "=''";
    }
    const auto list = [](const std::string& items) {
        return "<MICDefinitionList><MICDefinitions>" + items + "</MICDefinitions></MICDefinitionList>";
    };
    const auto item = [&](const std::string& fields) {
        return list("<MICDefinition-A>" + fields + "</MICDefinition-A>");
    };
    std::string names = "<Name>" + name + "</Name>";
    for (int i = 0; i < 100; ++i)
        names += "<Name><b/></Name>";
    const std::string documents[] = {
        "<" + name + ">" + children + "</" + name + ">",
        list("<MICDefinition-" + name + attributes + ">" + children + "</MICDefinition-" + name + ">"),
        item("<MIC>" + name + "</MIC>" + children), item(names)};
    for (const std::string& xml : documents) {
        const nxCollectedLog log;
        nxMICDefinitionList record;
        nxXMLReport report;
        static_cast<void>(report.Read(record, xml, ""));
        EXPECT_GE(report.GetFindings().size(), 100U);
        std::size_t repeated = 0;
        for (const nxXMLFinding& finding : report.GetFindings())
            repeated += finding.path.capacity() + finding.key.capacity() + finding.name.capacity() +
                        finding.held.capacity();
        EXPECT_LT(repeated, 1'000 * report.GetFindings().size()) << xml.substr(0, 100);
    }
}

TEST(nxXMLReport, ListensToItsOwnReadingOnly) {
    const std::string xml = "<KestrumUserLimit><a/></KestrumUserLimit>";
    nxKestrumUserLimit limit;
    nxXMLReport report;
    EXPECT_EQ(report.Read(limit, xml, ""), nxErrorEnum::OK);
    EXPECT_EQ(limit.ConvertFromXML(xml, ""), nxErrorEnum::OK);
    std::thread([&xml] { EXPECT_EQ(nxKestrumUserLimit().ConvertFromXML(xml, ""), nxErrorEnum::OK); }).join();
    EXPECT_EQ(report.GetFindings().size(), 4U); // three ceilings are missing
    EXPECT_EQ(nxXMLReport::GetListening(), nullptr);
}

TEST(nxXMLDescription, SaysWhatTheDocumentsLookLike) {
    using Field = nxXMLFieldDescription;
    const nxXMLDescription algorithm = nxKestrumAlgorithmSpec::GetDocumentDescription();
    EXPECT_EQ(algorithm.root, "KestrumAlgorithmSpec");
    ASSERT_EQ(algorithm.fields.size(), 7U);
    const Field& parameters = algorithm.fields[1];
    EXPECT_EQ(parameters.name + "/" + parameters.itemName, "Parameters/Parameter");
    ASSERT_EQ(parameters.itemFields.size(), 7U);
    EXPECT_TRUE(parameters.itemFields[0].isKey && parameters.itemFields[0].isRequired);
    EXPECT_EQ(parameters.itemFields[1].value.GetAsString().substr(0, 8), "one of: ");
    EXPECT_TRUE(parameters.itemFields[6].itemFields.empty() && parameters.itemFields[6].endsAtOthers);

    const nxXMLDescription brokers = nxBrokerMap::GetDocumentDescription();
    ASSERT_EQ(brokers.fields.size(), 1U);
    EXPECT_EQ(brokers.fields[0].kind, Field::Kind::Items);
    EXPECT_EQ(brokers.fields[0].itemNames, Field::ItemNames::Any);
    EXPECT_EQ(brokers.fields[0].itemFields[0].kind, Field::Kind::Attribute);
    EXPECT_EQ(brokers.fields[0].itemFields[0].value.maximum, "4294967295");

    const nxXMLDescription spread = nxSyntheticSpreadOrderSpec_XML::GetDocumentDescription();
    const Field& legs = spread.fields[1];
    EXPECT_EQ(legs.itemNames, Field::ItemNames::WithNumber);
    const auto find = [&legs](const std::string& name) {
        return *std::ranges::find(legs.itemFields, name, &Field::name);
    };
    EXPECT_FALSE(find("TailSize").isAlwaysWritten);
    EXPECT_EQ(find("TailSize").value.texts, (std::vector<std::string>{"NULL", "NO_CHANGE"}));
    EXPECT_TRUE(find("IsAuctionModeLeg").isReadOnly);
    EXPECT_EQ(find("OrderType").value.texts.at(3), "Limit");
}
