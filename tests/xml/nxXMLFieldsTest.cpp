// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLFields.h"

#include "tests/support/nxPrint.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

        std::string Written() const {
            nxXMLDocument document;
            document.CreateDocument("r");
            nxXMLElement root = document.GetRootElement();
            Visit(*this, nxXMLFields::Writer(root));
            std::string xml;
            EXPECT_EQ(document.SaveToString(xml), nxErrorEnum::OK);
            return xml;
        }
        void Read(const std::string& children) {
            nxXMLDocument document;
            ASSERT_EQ(document.LoadFromString("<r>" + children + "</r>"), nxErrorEnum::OK);
            nxXMLFields::ReadInDocumentOrder(document.GetRootElement(),
                                             [this](auto& reader) { Visit(*this, reader); });
        }
    };

    constexpr char Before[] = "<r><Text>before</Text><Flag>false</Flag><Number>7</Number>"
                              "<Decimal>1.50</Decimal><Wrapper>8</Wrapper><Time></Time></r>";
} // namespace

TEST(nxXMLFieldsReadInDocumentOrder, TakesEachChildIntoTheFieldOfItsName) {
    const struct {
        const char* children;
        const char* written;
    } cases[] = {
        {"", Before},
        {"<Text>t</Text><Flag>TRUE</Flag><Number>1</Number><Decimal>-2.0</Decimal><Wrapper>3</Wrapper>"
         "<Time>23:59:58</Time>",
         "<r><Text>t</Text><Flag>true</Flag><Number>1</Number><Decimal>-2.0</Decimal><Wrapper>3</Wrapper>"
         "<Time>23:59:58</Time></r>"},
        {"<Wrapper>NULL</Wrapper><!----><Number>1</Number>x<Other>1</Other><Flag>1</Flag><Text>t</Text>",
         "<r><Text>t</Text><Flag>true</Flag><Number>1</Number><Decimal>1.50</Decimal>"
         "<Wrapper>4294967295</Wrapper><Time></Time></r>"},
        {"<Number>1</Number><Text>t</Text><Number>2</Number><Number>x</Number><Text>u</Text><Text/>"
         "<Wrapper>4294967294</Wrapper>",
         "<r><Text>u</Text><Flag>false</Flag><Number>2</Number><Decimal>1.50</Decimal>"
         "<Wrapper>4294967294</Wrapper><Time></Time></r>"},
        {"<Text/><Flag/><Number/><Decimal><x/>1</Decimal><Wrapper><![CDATA[1]]></Wrapper>", Before},
        {"<Flag>yes</Flag><Flag> true</Flag><Number>-1</Number><Number>4294967296</Number><Number>1 </Number>"
         "<Decimal>1,5</Decimal><Wrapper>0x1</Wrapper><Wrapper>null</Wrapper><Time>24:61</Time>",
         Before},
        {"<text>x</text><r><Text>x</Text></r><x:Text>x</x:Text>", Before},
    };
    for (const auto& [children, written] : cases) {
        Sample sample;
        sample.Read(children);
        EXPECT_EQ(sample.Written(), written) << children;
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

TEST(nxXMLFieldsForEachChild, StartsAtTheFirstChildWhereverTheCursorStands) {
    nxXMLDocument document;
    ASSERT_EQ(document.LoadFromString("<r><a/>x<b/><a/></r>"), nxErrorEnum::OK);
    nxXMLElement root = document.GetRootElement();
    root.GetNextChildElement();
    std::vector<std::string> names;
    nxXMLFields::ForEachChild(root,
                              [&names](const nxXMLElement& child) { names.push_back(child.GetName()); });
    EXPECT_EQ(names, (std::vector<std::string>{"a", "b", "a"}));
    EXPECT_EQ(root.GetNextChildElement().GetName(), "b");
}
