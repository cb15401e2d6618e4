// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLFields.h"

#include "tests/support/nxPrint.h"
#include "tests/support/nxRecordText.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <gtest/gtest.h>

#include <string>

using nxRecordText::Elements;

namespace {
    // A record with a field of each kind, stated as records state them.
    struct Sample {
        std::string text = "before";
        bool flag = false;
        unsigned int number = 7;
        nxDecimal decimal{150, 2};
        nxUnsignedValueWrapper wrapper = 8;
        nxTime time;

        template <class Record, class Visitor>
        static void Visit(Record& record, Visitor&& field) {
            field("Text", record.text);
            field("Flag", record.flag);
            field("Number", record.number);
            field("Decimal", record.decimal);
            field("Wrapper", record.wrapper);
            field("Time", record.time);
        }
        nxErrorEnum ConvertFromXML(const nxXMLElement& element) {
            nxXMLFields::ReadInDocumentOrder(element, [this](auto& reader) { Visit(*this, reader); });
            return nxErrorEnum::OK;
        }
        nxErrorEnum ConvertToXML(nxXMLElement& element) const {
            Visit(*this, nxXMLFields::Writer(element));
            return nxErrorEnum::OK;
        }
    };
} // namespace

TEST(nxXMLFieldsReadInDocumentOrder, TakesEachChildIntoTheFieldOfItsName) {
    const char* const before = "Text=before Flag=false Number=7 Decimal=1.50 Wrapper=8 Time=";
    const struct {
        std::string children;
        const char* written;
    } cases[] = {
        {"", before},
        {Elements("Text=t Flag=TRUE Number=1 Decimal=-2.0 Wrapper=3 Time=23:59:58"),
         "Text=t Flag=true Number=1 Decimal=-2.0 Wrapper=3 Time=23:59:58"},
        {"<!---->" + Elements("Wrapper=NULL Other=1 Flag=1") + "x" + Elements("Text=t"),
         "Text=t Flag=true Number=7 Decimal=1.50 Wrapper=4294967295 Time="},
        {Elements("Number=1 Text=t Number=2 Number=x Text=u Text="),
         "Text=u Flag=false Number=2 Decimal=1.50 Wrapper=8 Time="},
        {Elements("Flag= Number=4294967296 Decimal=1,5 Wrapper=null Time=24:61 text=x x:Text=x"), before},
        {"<Decimal><x/>1</Decimal><Wrapper><![CDATA[1]]></Wrapper><x><Text>x</Text></x>", before},
    };
    for (const auto& [children, written] : cases) {
        Sample sample;
        EXPECT_EQ(nxRecordText::ReadItem(sample, children), nxErrorEnum::OK);
        EXPECT_EQ(nxRecordText::WrittenItem(sample), Elements(written)) << children;
    }
}

TEST(nxXMLFieldsReadChild, ReadsTheFirstChildOfTheNameAndTellsWhatItFound) {
    nxXMLDocument document;
    ASSERT_EQ(document.LoadFromString("<r><a>1</a><a>2</a><b>x</b><c/></r>"), nxErrorEnum::OK);
    const nxXMLElement root = document.GetRootElement();
    unsigned int number = 0;
    EXPECT_EQ(nxXMLFields::ReadChild(root, "a", number), nxErrorEnum::OK);
    EXPECT_EQ(number, 1U);
    EXPECT_EQ(nxXMLFields::ReadChild(root, "b", number), nxErrorEnum::ValueNotParsed);
    EXPECT_EQ(nxXMLFields::ReadChild(root, "c", number), nxErrorEnum::ValueNotFound);
    EXPECT_EQ(nxXMLFields::ReadChild(root, "d", number), nxErrorEnum::ValueNotFound);
    EXPECT_EQ(number, 1U);
}

TEST(nxXMLFieldsNextReader, LooksBehindTheChildItFoundAndFromTheFirstWhereItFoundNone) {
    nxXMLDocument document;
    ASSERT_EQ(document.LoadFromString("<r><a>1</a><b>x</b><a>2</a><b>3</b></r>"), nxErrorEnum::OK);
    const nxXMLElement root = document.GetRootElement();
    nxXMLFields::NextReader reader(root);
    unsigned int number = 0;
    const struct {
        const char* name;
        unsigned int result;
        unsigned int number;
    } steps[] = {
        {"b", nxErrorEnum::ValueNotParsed, 0}, // found all the same
        {"a", nxErrorEnum::OK, 2},
        {"b", nxErrorEnum::OK, 3},
        {"a", nxErrorEnum::ValueNotFound, 3},
        {"a", nxErrorEnum::OK, 1},
    };
    for (const auto& [name, result, expected] : steps) {
        EXPECT_EQ(reader(name, number), result) << name;
        EXPECT_EQ(number, expected) << name;
    }
}
