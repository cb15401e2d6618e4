// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tests/support/nxPrint.h"
#include "tests/support/nxRecordText.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLDocument.h"
#include "xmlFramework/xml/nxXMLLists.h"
#include "xmlFramework/xml/nxXMLScanner.h"
#include "xmlFramework/xml/nxXMLTextSink.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

using nxRecordText::Element;
using nxRecordText::Elements;

namespace {
    using namespace nxXMLFields;

    const std::string NoPrefix;
    const nxXMLReadContext Context{NoPrefix};

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
        nxErrorEnum _Read(const nxXMLNode& node, const nxXMLReadContext& context) {
            return ReadInDocumentOrder(node, context, [this](auto& field) { Visit(*this, field); });
        }
        void _Write(nxXMLSink& sink) const { Visit(*this, Writer(sink)); }
    };

    // An item with a key, which it cannot do without.
    struct Item {
        std::string key;

        nxErrorEnum _Read(const nxXMLNode& node, const nxXMLReadContext& context) {
            Reader reader(node, context);
            reader("Key", Required(key));
            return reader.GetOutcome().GetResult();
        }
        void _Write(nxXMLSink& sink) const {
            Writer writer(sink);
            writer("Key", key);
        }
    };

    // A document of the root "r" with these children.
    class Document {
    public:
        explicit Document(const std::string& children) : _xml(Element("r", children)) {
            EXPECT_TRUE(nxXMLScanner::Fill(_tree, _xml)) << children;
        }
        nxXMLNode Root() const { return _tree.GetRoot(); }

    private:
        std::string _xml;
        nxXMLTree _tree;
    };

    // What `write` writes below the root.
    template <class Write>
    std::string Written(Write write) {
        std::string xml;
        nxXMLTextSink sink(xml);
        write(sink);
        sink.Flush();
        EXPECT_TRUE(sink.IsOK()) << sink.GetProblem();
        return xml;
    }
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
        EXPECT_EQ(sample._Read(Document(children).Root(), Context), nxErrorEnum::OK);
        EXPECT_EQ(Written([&](nxXMLSink& sink) { sample._Write(sink); }), Elements(written)) << children;
    }
}

TEST(nxXMLFieldsReader, ReadsTheFirstChildOfEachNameWhateverTheirOrder) {
    const char* const documents[] = {
        "a=1 b=2 c=3",     "c=3 b=2 a=1",     "b=2 c=3 a=1",         "a=1 a=9 b=2 b=9 c=3 c=9",
        "x=9 a=1 b=2 c=3", "a=1 c=3 x=9 b=2", "b=2 a=1 b=9 c=3 a=9", "a=1 b=2 x=9 c=3 b=9",
    };
    for (const char* const children : documents) {
        const Document document(Elements(children));
        unsigned int a = 0;
        unsigned int b = 0;
        unsigned int c = 0;
        Reader reader(document.Root(), Context);
        reader("a", a);
        reader("b", b);
        reader("c", c);
        EXPECT_EQ(std::tuple(a, b, c), std::tuple(1U, 2U, 3U)) << children;
    }
}

TEST(nxXMLFieldsReader, KeepsTheFailureOfWhatIsRequired) {
    const Document document("<a>1</a><b>x</b><c/><e>2</e><f>3</f>");
    const auto read = [&document](const char* required, AfterFailure afterFailure) {
        unsigned int number = 0;
        unsigned int other = 0;
        unsigned int last = 0;
        Reader reader(document.Root(), Context, afterFailure);
        reader(required, Required(number));
        reader("e", Required(other)); // not once something required has failed
        reader("f", last);
        return std::tuple(reader.GetOutcome().GetResult().GetEnumValue(), number, other, last);
    };
    EXPECT_EQ(read("a", AfterFailure::GoOn), std::tuple(nxErrorEnum::OK, 1U, 2U, 3U));
    EXPECT_EQ(read("b", AfterFailure::GoOn), std::tuple(nxErrorEnum::ValueNotParsed, 0U, 0U, 3U));
    EXPECT_EQ(read("c", AfterFailure::GoOn), std::tuple(nxErrorEnum::ValueNotFound, 0U, 0U, 3U));
    EXPECT_EQ(read("d", AfterFailure::Stop), std::tuple(nxErrorEnum::ValueNotFound, 0U, 0U, 0U));
}

TEST(nxXMLFieldsNextReader, LooksBehindTheChildItFoundAndFromTheFirstWhereItFoundNone) {
    const Document document("<a>1</a><b>x</b><a>2</a><b>3</b>");
    NextReader reader(document.Root(), Context);
    unsigned int number = 0;
    const struct {
        const char* name;
        unsigned int number;
    } steps[] = {
        {"b", 0},                     // malformed, but found all the same
        {"a", 2}, {"b", 3}, {"a", 3}, // none behind it
        {"a", 1},
    };
    for (const auto& [name, expected] : steps) {
        reader(name, number);
        EXPECT_EQ(number, expected) << name;
    }
}

TEST(nxXMLConversionLoadElement, TakesWhatStandsBelowAnElementOfAUsers) {
    nxXMLDocument document;
    ASSERT_EQ(document.LoadFromString("<r><x/><a b='1&#10;\u00E9' c=''>t<d e='2'/><f>\u00E9</f></a></r>"),
              nxErrorEnum::OK);
    nxXMLTree tree;
    nxXMLConversion::LoadElement(tree, document.GetRootElement().FindChildElement("a"));
    const nxXMLNode a = tree.GetRoot();
    EXPECT_EQ(a.GetText(), "t");
    std::vector<std::pair<std::string, std::string>> attributes;
    a.ForEachAttribute(
        [&](std::string_view name, std::string_view value) { attributes.emplace_back(name, value); });
    EXPECT_EQ(attributes, (std::vector<std::pair<std::string, std::string>>{{"b", "1\n\u00E9"}, {"c", ""}}));
    EXPECT_EQ(a.FindChild("d").GetAttribute("e"), "2");
    EXPECT_EQ(a.FindChild("d").GetNext().GetText(), "\u00E9");
    EXPECT_FALSE(a.FindChild("f").GetNext().IsValid() || a.FindChild("f").GetFirstChild().IsValid());
}

TEST(nxXMLFieldsLists, TakeTheChildrenThatTheirKindTakes) {
    const std::string children = Elements("x=1 x= y=2 x=3 k-=4 k-b=5 k-a=6 y=7 k-c=8");
    const auto read = [&](auto kind, const char* name, const std::string& before = "") {
        std::vector<std::string> items;
        const Document document("<l>" + before + children + "</l>");
        Reader reader(document.Root(), Context);
        reader("l", ListOf<decltype(kind)>(name, items));
        reader("m", ListOf<decltype(kind)>(name, items)); // is not there, which is no failure
        EXPECT_EQ(reader.GetOutcome().GetResult(), nxErrorEnum::OK);
        return items;
    };
    using Texts = std::vector<std::string>;
    EXPECT_EQ(read(Named(), "x"), (Texts{"1", "", "3"}));
    EXPECT_EQ(read(Leading(), "x"), (Texts{"1", ""}));
    EXPECT_EQ(read(Leading(), "y"), (Texts{}));
    EXPECT_EQ(read(Any(), "x"), (Texts{"1", "", "2", "3", "4", "5", "6", "7", "8"}));
    EXPECT_EQ(read(ByKey(), "k-"), (Texts{}));
    EXPECT_EQ(read(ByKey(), "k-", Elements("k-z=0 k-zz=9")), (Texts{"0", "9"}));
}

TEST(nxXMLFieldsLists, ByNumberTakeTheFirstOfEachNumberInOrder) {
    const struct {
        const char* children;
        std::vector<std::string> items;
    } cases[] = {
        {"", {}},
        {"n-0=a n-1=b n-2=c", {"a", "b", "c"}},
        {"n-1=b n-0=a x=y n-2=c", {"a", "b", "c"}},
        {"n-0=a n-0=x n-1=b n-1=y", {"a", "b"}},
        {"n-1=first n-0=a n-1=second", {"a", "first"}},
        {"n-0=a n-2=c", {"a"}},
        {"n-1=b n-00=x", {}},
        {"n-0=a n-1=b n-10=x n-9=x", {"a", "b"}},
    };
    for (const auto& [children, expected] : cases) {
        std::vector<std::string> items;
        Reader(Document(Element("l", Elements(children))).Root(), Context)("l",
                                                                           ListOf<ByNumber>("n-", items));
        EXPECT_EQ(items, expected) << children;
    }
}

TEST(nxXMLFieldsLists, EndAtAnItemThatCannotBeReadAndPassItsFailureOn) {
    const std::string item = Element("i", Elements("Key=k"));
    std::map<std::string, Item> items;
    const Document document(Element("l", item + "<i><Key/></i>" + Element("i", Elements("Key=late"))));
    Reader reader(document.Root(), Context);
    reader("l", ListOf("i", KeyedBy(&Item::key, items)));
    EXPECT_EQ(reader.GetOutcome().GetResult(), nxErrorEnum::ValueNotFound);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items.begin()->first, "k");
}

TEST(nxXMLFieldsLists, AreWrittenWithoutNullPointers) {
    std::vector<std::unique_ptr<Item>> numbered(3);
    numbered[0] = std::make_unique<Item>(Item{"a"});
    numbered[2] = std::make_unique<Item>(Item{"b"});
    std::map<std::string, std::shared_ptr<Item>> keyed{{"n", nullptr},
                                                       {"o", std::make_shared<Item>(Item{"c"})}};
    EXPECT_EQ(Written([&](nxXMLSink& sink) {
                  Writer write(sink);
                  write("l", ListOf<ByNumber>("n-", numbered));
                  write("m", ListOf<ByKey>("k-", KeyedBy(&Item::key, keyed)));
                  write("Key", Items(std::vector<std::string>{"d", ""}));
              }),
              Element("l", Element("n-0", Elements("Key=a")) + Element("n-1", Elements("Key=b"))) +
                  Element("m", Element("k-o", Elements("Key=c"))) + Elements("Key=d Key="));
}

TEST(nxXMLFieldsLists, TellWhatTheyHoldWithoutHoldingAnything) {
    std::vector<std::string> texts;
    std::map<std::string, std::shared_ptr<Item>> keyed;
    std::string description;
    const auto describe = [&description](const char* name, const auto& list) {
        using List = std::remove_cvref_t<decltype(list)>;
        description +=
            std::string(name) + (std::same_as<typename List::Kind, ByKey> ? " by key" : " by name");
        description += std::same_as<typename List::Item, Item> ? " of records" : " of texts";
        if constexpr (requires { list.GetItemName(); })
            description += " " + std::string(list.GetItemName());
        description += '\n';
    };
    describe("l", ListOf("x", texts));
    describe("UT", Items(texts));
    describe("m", ListOf<ByKey>("k-", KeyedBy(&Item::key, keyed)));
    EXPECT_EQ(description, "l by name of texts x\nUT by name of texts\nm by key of records k-\n");
}
