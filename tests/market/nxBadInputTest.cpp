// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// What is the same for all records, tried on two: texts that they cannot read and contents that they cannot
// write.

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxPrint.h"
#include "xmlFramework/market/nxAlgoIDMappingList.h"
#include "xmlFramework/market/nxMICDefinitionList.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {
    using namespace std::string_literals;
    using Strings = std::vector<std::string>;

    struct Kind {
        unsigned int code;
        std::string xml; // a valid record, with a character of two bytes
        std::string empty;
        std::string failure; // what the record logs behind the prefix
        bool emptiesItselfFirst;
    };

    const Kind Kinds[] = {
        {0x414C4944,
         "<AlgoIDMappingList><AlgoIDMappings><AlgoMapping><AlgoPath>p\u00E9</AlgoPath><AlgoID>1</AlgoID>"
         "</AlgoMapping></AlgoIDMappings></AlgoIDMappingList>",
         "<AlgoIDMappingList><AlgoIDMappings/></AlgoIDMappingList>",
         "Failed to convert XML data to algo mapping list. Unable to create XML document from XML string",
         true},
        {0x584D4943,
         "<MICDefinitionList><MICDefinitions><MICDefinition-A><MIC>A</MIC><Country>B</Country>"
         "<ISOCountryCode>C</ISOCountryCode><OperatingMIC>D</OperatingMIC><IsOperatingMIC>true</"
         "IsOperatingMIC>"
         "<Name>E\u00E9</Name><Acronym>F</Acronym><City>G</City><Website>H</Website><StatusDate>I</"
         "StatusDate>"
         "<IsActive>false</IsActive><CreationDate>J</CreationDate><Comments>K</Comments></MICDefinition-A>"
         "</MICDefinitions></MICDefinitionList>",
         "<MICDefinitionList><MICDefinitions/></MICDefinitionList>",
         "Failed to convert XML data to spread spec. Unable to create XML document from XML string", false},
    };

    std::unique_ptr<nxXMLDataObject> Make(const Kind& kind) {
        return std::unique_ptr<nxXMLDataObject>(nxXMLDataObject::CreateInstance(kind.code));
    }

    std::string Written(nxXMLDataObject& record) {
        std::string xml = "not written";
        record.ConvertToXML(xml, "");
        return xml;
    }

    // Reads the bad text into a record that holds something, and then the good one again.
    void ExpectRefused(const Kind& kind, const std::string& bad) {
        const auto record = Make(kind);
        ASSERT_EQ(record->ConvertFromXML(kind.xml, ""), nxErrorEnum::OK);
        ASSERT_EQ(Written(*record), kind.xml);
        {
            const nxCollectedLog log;
            EXPECT_EQ(record->ConvertFromXML(bad, "prefix: "), nxErrorEnum::InvalidData) << bad;
            ASSERT_GE(log.Records().size(), 2U) << "the document's reason and the record's message";
            EXPECT_EQ(log.Entries().back(), "prefix: " + kind.failure);
            EXPECT_EQ(log.EntriesAt(nxLogLevelEnum::Error), log.Entries());
        }
        EXPECT_EQ(Written(*record), kind.emptiesItselfFirst ? kind.empty : kind.xml) << bad;
        EXPECT_EQ(record->ConvertFromXML(kind.xml, ""), nxErrorEnum::OK);
        EXPECT_EQ(Written(*record), kind.xml);
    }

    // Writes the record and expects that nothing comes of it but the log entry.
    void ExpectNotWritten(nxXMLDataObject& record, const std::string& entry) {
        const nxCollectedLog log;
        std::string xml = "before";
        EXPECT_EQ(record.ConvertToXML(xml, ""), nxErrorEnum::XMLTextNotCarried) << entry;
        EXPECT_EQ(xml, "before");
        EXPECT_EQ(log.EntriesAt(nxLogLevelEnum::Error), Strings{entry});
    }
} // namespace

TEST(nxXMLDataObjectConvertFromXML, RefusesADocumentThatIsCutOffAnywhere) {
    for (const Kind& kind : Kinds) {
        for (std::size_t length = 0; length < kind.xml.size(); ++length)
            ExpectRefused(kind, kind.xml.substr(0, length));
    }
}

TEST(nxXMLDataObjectConvertFromXML, RefusesWhatIsNoXML) {
    for (const Kind& kind : Kinds) {
        const std::size_t middle = kind.xml.find("\u00E9");
        const auto withBytes = [&](const std::string& bytes) {
            return std::string(kind.xml).insert(middle, bytes);
        };
        for (const std::string& bad : {
                 "MIC,Country\nXABC,GB\n"s,
                 "{\"MIC\": \"XABC\"}"s,
                 "\xFF\xFE\xFD"s,
                 kind.xml + kind.xml,
                 kind.xml + "\0"s,
                 "<!DOCTYPE x>" + kind.xml,
                 "<?xml version='1.0' encoding='none-such'?>" + kind.xml,
                 "<?xml version='1.0' encoding='UTF-16'?>" + kind.xml,
                 withBytes("\x01"),
                 withBytes("\0"s),
                 withBytes("&#0;"),
                 withBytes("&#xD800;"),
                 withBytes("&nbsp;"),
                 withBytes("\xFF"),
                 withBytes("\xC3"),
                 withBytes("\uFFFE"),
                 withBytes("\xED\xA0\x80"),
                 withBytes("]]>"),
                 withBytes("<"),
             })
            ExpectRefused(kind, bad);
    }
}

TEST(nxXMLDataObjectConvertFromXML, TakesAnyRootAndPassesOverWhatItDoesNotKnow) {
    for (const Kind& kind : Kinds) {
        const std::string inside =
            kind.xml.substr(kind.xml.find('>') + 1, kind.xml.rfind('<') - kind.xml.find('>') - 1);
        for (const std::string& xml :
             {"<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n<!--c-->" + kind.xml + "\r\n",
              "<other a='1'><x><y/></x>" + inside + "<![CDATA[z]]></other>",
              "<x:y>" + inside + inside + "</x:y>"}) {
            const nxCollectedLog log; // of the second, a duplicate
            const auto record = Make(kind);
            EXPECT_EQ(record->ConvertFromXML(xml, ""), nxErrorEnum::OK) << xml;
            EXPECT_EQ(Written(*record), kind.xml) << xml;
        }
    }
}

TEST(nxXMLDataObjectConvertToXML, RefusesTextsThatXMLCannotCarry) {
    constexpr char NotUnicode[] = "it is not valid UTF-8";
    constexpr char NotXML[] = "it holds a character that XML 1.0 does not allow";
    const struct {
        std::string text;
        const char* problem;
    } cases[] = {
        {"\0"s, NotXML},
        {"a\x1F"s, NotXML},
        {"\x7F\x08"s, NotXML},
        {"\uFFFE"s, NotXML},
        {"\U0001F600\uFFFF"s, NotXML},
        {"a\xFF"s, NotUnicode},
        {"\xC3"s, NotUnicode},
        {"\xED\xB0\x80"s, NotUnicode},
        {std::string(1000, 'x') + '\xE9', NotUnicode},
    };
    for (const auto& [text, problem] : cases) {
        const std::string entry =
            "Error saving document: in memory \nException message is:  \na text cannot be "
            "carried by XML: "s +
            problem + ", in element '";
        nxAlgoIDMappingList algos;
        algos.GetAlgoIDMappings() = {{"good", 1}, {text, 2}};
        ExpectNotWritten(algos, entry + "AlgoPath'\n");

        nxMICDefinitionList mics;
        mics.GetMICDefinitions()["A"] = std::make_shared<nxMICDefinition>();
        mics.GetMICDefinitions()["B"] = std::make_shared<nxMICDefinition>();
        mics.GetMICDefinitions()["A"]->SetComments(text);
        ExpectNotWritten(mics, entry + "Comments'\n");
    }
}

TEST(nxXMLDataObjectConvertToXML, RefusesAKeyThatIsNoXMLName) {
    for (const char* key : {"A B", " ", "A<", "A/", "A\n", "A\u00D7", "A\"", "A&amp;", "\U0001F600"}) {
        nxMICDefinitionList list;
        list.GetMICDefinitions()[key] = std::make_shared<nxMICDefinition>();
        ExpectNotWritten(
            list, "Error saving document: in memory \nException message is:  \nthe name 'MICDefinition-"s +
                      key + "' cannot be carried by XML, in element 'MICDefinitions'\n");
    }
    nxMICDefinitionList list;
    list.GetMICDefinitions()["A\xFF"] = std::make_shared<nxMICDefinition>();
    ExpectNotWritten(
        list, "Error saving document: in memory \nException message is:  \na name cannot be carried by "
              "XML: it is not valid UTF-8, in element 'MICDefinitions'\n");
    list.GetMICDefinitions().clear();
    list.GetMICDefinitions()["\u00E9.-:_1"] = std::make_shared<nxMICDefinition>();
    EXPECT_NE(Written(list).find("<MICDefinition-\u00E9.-:_1>"), std::string::npos);
}
