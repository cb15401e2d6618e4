// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxMICDefinition.h"

#include "core/nxCSVFileReader.h"
#include "tests/support/nxMICSample.h"
#include "tests/support/nxRandomText.h"
#include "tests/support/nxRecordText.h"

#include <string>

namespace {
    using nxMICSample::Example;
    using nxMICSample::Fields;
    using nxMICSample::Make;
    using nxMICSample::Of;
    using nxMICSample::Row;
    using nxRecordText::ReadItem;

    std::string Line(const nxCSVFileRow& row) {
        std::string line = row.GetColValue(0);
        for (unsigned int i = 1; i < row.GetColCount(); ++i)
            line.append(",").append(row.GetColValue(i));
        return line;
    }
} // namespace

TEST(nxMICDefinitionIsValid, WantsAMIC) {
    nxMICDefinition definition = Make(Example);
    EXPECT_EQ(definition.IsValid(), nxErrorEnum::OK);
    definition.SetMIC("");
    EXPECT_EQ(definition.IsValid(), nxErrorEnum::InvalidData);
}

TEST(nxMICDefinitionConvertFromCSV, TakesAllColumnsAsTheyStand) {
    const struct {
        const char* marker;
        const char* status;
        bool isOperatingMIC;
        bool isActive;
    } cases[] = {
        {"O", "ACTIVE", true, true},     {"S", "DELETED", false, false}, {"o", "active", false, false},
        {" O", "ACTIVE ", false, false}, {"", "", false, false},         {"OO", "EXPIRED", false, false},
    };
    for (const auto& [marker, status, isOperatingMIC, isActive] : cases) {
        nxMICDefinition definition = Make(Example);
        EXPECT_EQ(definition.ConvertFromCSV(
                      Row({"1", " 2 ", "3", "", marker, "6", "\"7", "8", "9", "10", status, "12", "13"})),
                  nxErrorEnum::OK);
        EXPECT_EQ(Of(definition), (Fields{"1", " 2 ", "3", "", isOperatingMIC ? "true" : "false", "6", "\"7",
                                          "8", "9", "10", isActive ? "true" : "false", "12", "13"}));
    }
}

TEST(nxMICDefinitionConvertFromCSV, RefusesAnotherNumberOfColumns) {
    for (const nxCSVFileRow& row : {Row({}), Row({"XABC", "", "", "", "", "n", "", "", "", "", "", ""}),
                                    Row({"XABC", "", "", "", "", "n", "", "", "", "", "", "", "", ""})}) {
        nxMICDefinition definition = Make(Example);
        std::string changes = "before";
        EXPECT_EQ(definition.ConvertFromCSV(row), nxErrorEnum::InputNotUsable);
        EXPECT_EQ(definition.UpdateFromCSV(row, changes), nxErrorEnum::InputNotUsable);
        EXPECT_EQ(Of(definition), Example);
        EXPECT_EQ(changes, "before");
    }
}

TEST(nxMICDefinitionUpdateFromCSV, AppliesTheColumnsThatAreNotEmptyAndTellsWhich) {
    Fields renamed = Example;
    renamed[5] = "New Market Name";
    renamed[10] = "false";
    Fields segment = Example;
    segment[4] = "false";
    const struct {
        nxCSVFileRow row;
        const char* changesBefore;
        Fields fields;
        const char* changes;
    } cases[] = {
        {Row({"XABC", "", "", "", "", "", "", "", "", "", "", "", ""}), "", Example, ""},
        {Row({"XABC", "", "", "", "", "", "", "", "", "", "", "", ""}), "x", Example, "x"},
        {Row({"XABC", "", "", "", "", "New Market Name", "", "", "", "", "DELETED", "", ""}), "", renamed,
         "name='New Market Name', isActive=false"},
        {Row({"XABC", "", "", "", "s", "", "", "", "", "", "ACTIVE", "", ""}), "x", segment,
         "x, isOperatingMIC=false, isActive=true"},
        {Row({"XABC", "UNITED KINGDOM", "GB", "XABC", "O", "it's", "EXA", "LONDON", "w", "d", "ACTIVE", "c",
              "r"}),
         "",
         {"XABC", "UNITED KINGDOM", "GB", "XABC", "true", "it's", "EXA", "LONDON", "w", "d", "true", "c",
          "r"},
         "country='UNITED KINGDOM', isoCountryCode='GB', operatingMIC='XABC', isOperatingMIC=true, "
         "name='it's', "
         "acronym='EXA', city='LONDON', website='w', statusDate='d', isActive=true, creationDate='c', "
         "comments='r'"},
    };
    for (const auto& [row, changesBefore, fields, expected] : cases) {
        nxMICDefinition definition = Make(Example);
        std::string changes = changesBefore;
        EXPECT_EQ(definition.UpdateFromCSV(row, changes), nxErrorEnum::OK);
        EXPECT_EQ(Of(definition), fields);
        EXPECT_EQ(changes, expected);
    }
}

TEST(nxMICDefinitionUpdateFromCSV, RefusesARowOfAnotherMIC) {
    for (const char* mic : {"", "xabc", "XABC ", "XABD"}) {
        nxMICDefinition definition = Make(Example);
        std::string changes = "before";
        EXPECT_EQ(
            definition.UpdateFromCSV(Row({mic, "", "", "", "", "n", "", "", "", "", "", "", ""}), changes),
            nxErrorEnum::InvalidData);
        EXPECT_EQ(Of(definition), Example);
        EXPECT_EQ(changes, "before");
    }
}

TEST(nxMICDefinitionConvertToCSV, QuotesTextsWhereAFileNeedsIt) {
    nxMICDefinition definition = Make(Example);
    definition.SetName("Example, \"new\"");
    nxCSVFileRow row = Row({"before"});
    EXPECT_EQ(definition.ConvertToCSV(row), nxErrorEnum::OK);
    EXPECT_EQ(Line(row), "XABC,UNITED KINGDOM,GB,XABC,O,\"Example, \"\"new\"\"\",EXA,LONDON,www.a.b,20240101,"
                         "ACTIVE,20050530,none");
    EXPECT_EQ(nxMICDefinition().ConvertToCSV(row), nxErrorEnum::OK);
    EXPECT_EQ(Line(row), ",,,,S,,,,,,DELETED,,");
}

TEST(nxMICDefinitionConvertToCSV, ReadsBackTheSameByWayOfAFile) {
    nxRandomText random(2);
    for (int round = 0; round < 200; ++round) {
        Fields fields;
        for (std::string& field : fields)
            field = random.Text();
        fields[4] = random.Flag() ? "true" : "false";
        fields[10] = random.Flag() ? "true" : "false";
        nxCSVFileRow row;
        ASSERT_EQ(Make(fields).ConvertToCSV(row), nxErrorEnum::OK);
        nxCSVFileReader reader;
        ASSERT_EQ(reader.ReadString(Line(row) + "\r\n"), nxErrorEnum::OK);
        ASSERT_EQ(reader.GetRows().size(), 1U);
        nxMICDefinition read;
        ASSERT_EQ(read.ConvertFromCSV(reader.GetRows()[0].columns), nxErrorEnum::OK);
        ASSERT_EQ(Of(read), fields) << Line(row);
    }
}

TEST(nxMICDefinitionConvertToXML, WritesOneElementAField) {
    EXPECT_EQ(
        nxRecordText::WrittenItem(Make(Example)),
        "<MIC>XABC</MIC><Country>UNITED KINGDOM</Country><ISOCountryCode>GB</ISOCountryCode>"
        "<OperatingMIC>XABC</OperatingMIC><IsOperatingMIC>true</IsOperatingMIC><Name>Example &amp; Co</Name>"
        "<Acronym>EXA</Acronym><City>LONDON</City><Website>www.a.b</Website>"
        "<StatusDate>20240101</StatusDate><IsActive>true</IsActive><CreationDate>20050530</CreationDate>"
        "<Comments>none</Comments>");
    nxXMLElement none;
    EXPECT_EQ(nxMICDefinition().ConvertToXML(none, ""), nxErrorEnum::OK);
    EXPECT_EQ(Make(Example).ConvertFromXML(none, ""), nxErrorEnum::OK);
}

TEST(nxMICDefinitionConvertFromXML, TakesEachElementIntoItsFieldAndTheLastOfSeveral) {
    Fields fields = Example;
    fields[5] = "b";
    fields[12] = " c\n";
    fields[4] = "false";
    const struct {
        const char* children;
        Fields fields;
    } cases[] = {
        {"", Example},
        {"<Comments> c\n</Comments><x/>text<Name>a</Name><IsOperatingMIC>0</IsOperatingMIC><Name>b</Name>",
         fields},
        {"<name>x</name><isoCountryCode>x</isoCountryCode><isActive>false</isActive><Names>x</Names>",
         Example},
        {"<MIC/><Name></Name><Name><x/>y</Name><IsActive/><City><![CDATA[x]]></City>", Example},
        {"<IsActive>no</IsActive><IsActive>DELETED</IsActive><IsOperatingMIC>O</IsOperatingMIC>", Example},
    };
    for (const auto& [children, expected] : cases) {
        nxMICDefinition definition = Make(Example);
        ReadItem(definition, children);
        EXPECT_EQ(Of(definition), expected) << children;
    }
    nxMICDefinition definition;
    ReadItem(definition, "<IsActive>TRUE</IsActive><IsOperatingMIC>1</IsOperatingMIC>");
    EXPECT_TRUE(definition.GetIsActive() && definition.GetIsOperatingMIC());
}

TEST(nxMICDefinitionGetAsLogString, ShowsTheISOCodeAsCountry) {
    EXPECT_EQ(Make(Example).GetAsLogString(),
              "MIC: XABC, Name: Example & Co, Operating MIC: XABC, Country: GB, ");
    EXPECT_EQ(nxMICDefinition().GetAsLogString(), "MIC: , Name: , Operating MIC: , Country: , ");
}
