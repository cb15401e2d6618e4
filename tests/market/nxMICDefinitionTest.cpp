// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxMICDefinition.h"

#include "core/nxCSVFileReader.h"
#include "tests/support/nxRandomText.h"
#include "tests/support/nxRecordText.h"

#include <string>
#include <vector>

namespace {
    using namespace nxRecordText;
    using Texts = std::vector<std::string>;

    nxMICDefinition Example() {
        nxMICDefinition definition;
        definition.SetMIC("XABC");
        definition.SetCountry("NORWAY");
        definition.SetIsoCountryCode("NO");
        definition.SetOperatingMIC("XOP");
        definition.GetIsOperatingMIC(true);
        definition.SetName("Name");
        definition.SetAcronym("EXA");
        definition.SetCity("OSLO");
        definition.SetWebsite("www");
        definition.SetStatusDate("20240101");
        definition.SetIsActive(true);
        definition.SetCreationDate("20050530");
        definition.SetComments("none");
        return definition;
    }
    const Texts ExampleTexts = {"XABC", "NORWAY", "NO",       "XOP",  "true",     "Name", "EXA",
                                "OSLO", "www",    "20240101", "true", "20050530", "none"};

    // The elements of a definition from their texts, which stand in the order of the CSV columns.
    std::string XML(const Texts& texts) {
        constexpr const char* Names[] = {
            "MIC",  "Country", "ISOCountryCode", "OperatingMIC", "IsOperatingMIC", "Name",    "Acronym",
            "City", "Website", "StatusDate",     "IsActive",     "CreationDate",   "Comments"};
        std::string xml;
        for (std::size_t i = 0; i < texts.size(); ++i)
            xml += Element(Names[i], texts[i]);
        return xml;
    }

    nxCSVFileRow Row(const Texts& columns) {
        nxCSVFileRow row;
        for (const std::string& column : columns)
            row.AddColumn(column);
        return row;
    }
    std::string Line(const nxCSVFileRow& row) {
        std::string line = row.GetColValue(0);
        for (unsigned int i = 1; i < row.GetColCount(); ++i)
            line.append(",").append(row.GetColValue(i));
        return line;
    }
} // namespace

TEST(nxMICDefinitionConvertToXML, WritesOneElementAField) {
    EXPECT_EQ(WrittenItem(Example()), XML(ExampleTexts));
    nxXMLElement none;
    EXPECT_EQ(nxMICDefinition().ConvertToXML(none, ""), nxErrorEnum::OK);
    EXPECT_EQ(Example().ConvertFromXML(none, ""), nxErrorEnum::OK);
}

TEST(nxMICDefinitionConvertFromXML, TakesEachElementIntoItsFieldAndTheLastOfSeveral) {
    Texts changed = ExampleTexts;
    changed[4] = "false";
    changed[5] = "b";
    changed[12] = " c\n";
    const struct {
        const char* children;
        Texts texts;
    } cases[] = {
        {"<Comments> c\n</Comments><x/>text<Name>a</Name><IsOperatingMIC>0</IsOperatingMIC><Name>b</Name>",
         changed},
        {"<name>x</name><isActive>false</isActive><Names>x</Names>", ExampleTexts},
        {"<MIC/><Name></Name><Name><x/>y</Name><IsActive/><City><![CDATA[x]]></City>", ExampleTexts},
        {"<IsActive>no</IsActive><IsActive>DELETED</IsActive><IsOperatingMIC>O</IsOperatingMIC>",
         ExampleTexts},
    };
    for (const auto& [children, texts] : cases) {
        nxMICDefinition definition = Example();
        EXPECT_EQ(ReadItem(definition, children), nxErrorEnum::OK);
        EXPECT_EQ(WrittenItem(definition), XML(texts)) << children;
    }
}

TEST(nxMICDefinitionConvertFromCSV, TakesAllColumnsAsTheyStand) {
    const struct {
        const char* marker;
        const char* status;
        const char* isOperatingMIC;
        const char* isActive;
    } cases[] = {
        {"O", "ACTIVE", "true", "true"},   {"S", "DELETED", "false", "false"},
        {"o", "active", "false", "false"}, {" O", "ACTIVE ", "false", "false"},
        {"", "", "false", "false"},
    };
    for (const auto& [marker, status, isOperatingMIC, isActive] : cases) {
        nxMICDefinition definition = Example();
        EXPECT_EQ(definition.ConvertFromCSV(
                      Row({"1", " 2 ", "3", "", marker, "6", "\"7", "8", "9", "10", status, "12", "13"})),
                  nxErrorEnum::OK);
        EXPECT_EQ(WrittenItem(definition), XML({"1", " 2 ", "3", "", isOperatingMIC, "6", "\"7", "8", "9",
                                                "10", isActive, "12", "13"}));
    }
}

TEST(nxMICDefinitionUpdateFromCSV, AppliesTheColumnsThatAreNotEmptyAndTellsWhich) {
    const struct {
        Texts row;
        const char* changesBefore;
        Texts texts;
        const char* changes;
    } cases[] = {
        {{"XABC", "", "", "", "", "", "", "", "", "", "", "", ""}, "x", ExampleTexts, "x"},
        {{"XABC", "", "", "", "", "New Name", "", "", "", "", "DELETED", "", ""},
         "",
         {"XABC", "NORWAY", "NO", "XOP", "true", "New Name", "EXA", "OSLO", "www", "20240101", "false",
          "20050530", "none"},
         "name='New Name', isActive=false"},
        {{"XABC", "1", "2", "3", "s", "it's", "6", "7", "8", "9", "ACTIVE", "c", "r"},
         "x",
         {"XABC", "1", "2", "3", "false", "it's", "6", "7", "8", "9", "true", "c", "r"},
         "x, country='1', isoCountryCode='2', operatingMIC='3', isOperatingMIC=false, name='it's', "
         "acronym='6', city='7', website='8', statusDate='9', isActive=true, creationDate='c', "
         "comments='r'"},
    };
    for (const auto& [row, changesBefore, texts, expected] : cases) {
        nxMICDefinition definition = Example();
        std::string changes = changesBefore;
        EXPECT_EQ(definition.UpdateFromCSV(Row(row), changes), nxErrorEnum::OK);
        EXPECT_EQ(WrittenItem(definition), XML(texts));
        EXPECT_EQ(changes, expected);
    }
}

TEST(nxMICDefinitionUpdateFromCSV, RefusesARowOfAnotherMICOrAnotherNumberOfColumns) {
    nxMICDefinition definition = Example();
    std::string changes = "before";
    for (const char* mic : {"", "xabc", "XABC ", "XABD"})
        EXPECT_EQ(
            definition.UpdateFromCSV(Row({mic, "", "", "", "", "n", "", "", "", "", "", "", ""}), changes),
            nxErrorEnum::InvalidData);
    for (const std::size_t count : {0U, 12U, 14U}) {
        Texts columns(count, "XABC");
        EXPECT_EQ(definition.UpdateFromCSV(Row(columns), changes), nxErrorEnum::InputNotUsable);
        EXPECT_EQ(definition.ConvertFromCSV(Row(columns)), nxErrorEnum::InputNotUsable);
    }
    EXPECT_EQ(WrittenItem(definition), XML(ExampleTexts));
    EXPECT_EQ(changes, "before");
}

TEST(nxMICDefinitionConvertToCSV, QuotesTextsWhereAFileNeedsIt) {
    nxMICDefinition definition = Example();
    definition.SetName("Example, \"new\"");
    nxCSVFileRow row = Row({"before"});
    EXPECT_EQ(definition.ConvertToCSV(row), nxErrorEnum::OK);
    EXPECT_EQ(Line(row),
              "XABC,NORWAY,NO,XOP,O,\"Example, \"\"new\"\"\",EXA,OSLO,www,20240101,ACTIVE,20050530,"
              "none");
    EXPECT_EQ(nxMICDefinition().ConvertToCSV(row), nxErrorEnum::OK);
    EXPECT_EQ(Line(row), ",,,,S,,,,,,DELETED,,");
}

TEST(nxMICDefinitionConvertToCSV, ReadsBackTheSameByWayOfAFile) {
    nxRandomText random(2);
    for (int round = 0; round < 200; ++round) {
        nxMICDefinition definition, read;
        definition.SetName(random.Text());
        definition.SetComments(random.Text());
        nxCSVFileRow row;
        ASSERT_EQ(definition.ConvertToCSV(row), nxErrorEnum::OK);
        nxCSVFileReader reader;
        ASSERT_EQ(reader.ReadString(Line(row) + "\r\n"), nxErrorEnum::OK);
        ASSERT_EQ(reader.GetRows().size(), 1U);
        ASSERT_EQ(read.ConvertFromCSV(reader.GetRows()[0].columns), nxErrorEnum::OK);
        ASSERT_EQ(WrittenItem(read), WrittenItem(definition)) << Line(row);
    }
}

TEST(nxMICDefinitionGetAsLogString, ShowsTheISOCodeAsCountry) {
    EXPECT_EQ(Example().GetAsLogString(), "MIC: XABC, Name: Name, Operating MIC: XOP, Country: NO, ");
}
