// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLElement.h"

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxPrint.h"
#include "tests/support/nxRandomText.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <gtest/gtest.h>
#include <xercesc/dom/DOMException.hpp>

#include <string>
#include <tuple>

namespace {
    // A document loaded from a text, or with an empty root element "r", and a handle on its root.
    struct Loaded {
        explicit Loaded(const std::string& xml = "<r/>") {
            EXPECT_EQ(document.LoadFromString(xml), nxErrorEnum::OK) << xml;
            root = document.GetRootElement();
        }
        std::string Save() {
            std::string xml = "not saved";
            std::ignore = document.SaveToString(xml); // the text shows it
            return xml;
        }

        nxXMLDocument document;
        nxXMLElement root;
    };
} // namespace

TEST(nxXMLElementGetNextChildElement, PassesOverOtherNodesAndStartsAgainBehindTheLastChild) {
    Loaded xml("<a>1<b/><!--x--><![CDATA[y]]><?z?><c/>2</a>");
    for (const char* name : {"b", "c", "", "b", "c"})
        EXPECT_EQ(xml.root.GetNextChildElement().GetName(), name);
    nxXMLElement copy = xml.root; // and of the cursor
    EXPECT_EQ(copy.GetNextChildElement().GetName(), "");
    EXPECT_EQ(xml.root.GetNextChildElement().GetName(), "");
    xml.root.GetNextChildElement();
    xml.root.ResetCurrentChildElement();
    EXPECT_EQ(xml.root.GetNextChildElement().GetName(), "b");
    EXPECT_EQ(xml.document.GetRootElement().GetNextChildElement().GetName(), "b");
}

TEST(nxXMLElementGetNextChildElement, OfANameMovesTheCursorAlsoPastAnotherChild) {
    Loaded xml("<a><b/><c/><d/></a>");
    EXPECT_FALSE(xml.root.GetNextChildElement("c").IsValid());
    EXPECT_TRUE(xml.root.GetNextChildElement("c").IsValid());
    EXPECT_FALSE(xml.root.GetNextChildElement("D").IsValid());
    EXPECT_FALSE(xml.root.GetNextChildElement("d").IsValid());
    EXPECT_TRUE(xml.root.GetNextChildElement("b").IsValid());
}

TEST(nxXMLElementGetFirstChildElement, OfAnotherNameLeavesTheCursorOnTheFirstChild) {
    Loaded xml("<a><b/><c/></a>");
    EXPECT_FALSE(xml.root.GetFirstChildElement("c").IsValid());
    EXPECT_EQ(xml.root.GetNextChildElement().GetName(), "c");
    EXPECT_TRUE(xml.root.GetFirstChildElement("b").IsValid());
}

TEST(nxXMLElementGetFirstChildElement, WithoutChildrenGivesTheChildOfTheCursor) {
    class Movable : public nxXMLElement {
    public:
        using nxXMLElement::SetElement;
    };
    Loaded xml("<a><b/><c>text</c></a>");
    Movable handle;
    handle.SetElement(xml.root.GetElement());
    EXPECT_EQ(handle.GetNextChildElement().GetName(), "b");
    handle.SetElement(xml.root.FindChildElement("c").GetElement());
    EXPECT_EQ(handle.GetFirstChildElement().GetName(), "b");
    handle.ResetCurrentChildElement();
    EXPECT_FALSE(handle.GetFirstChildElement().IsValid());
}

TEST(nxXMLElementResetCurrentChildElementImmediatelyPriorTo, MakesTheNamedChildTheNextOne) {
    Loaded xml("<a><b/><c>1</c><c>2</c></a>");
    EXPECT_TRUE(xml.root.ResetCurrentChildElementImmediatelyPriorTo("c"));
    EXPECT_EQ(xml.root.GetNextChildElement("c").GetTextValue(), "1");
    EXPECT_TRUE(xml.root.ResetCurrentChildElementImmediatelyPriorTo("b"));
    EXPECT_EQ(xml.root.GetNextChildElement().GetName(), "b");
    EXPECT_FALSE(xml.root.ResetCurrentChildElementImmediatelyPriorTo("d"));
    EXPECT_EQ(xml.root.GetNextChildElement().GetName(), "b");
}

TEST(nxXMLElementFindChildElement, ComparesNamesExactlyAndLeavesTheCursor) {
    Loaded xml("<a><Bc/><b:c/><b\u00E9>1</b\u00E9><b/><b>2</b></a>");
    xml.root.GetNextChildElement();
    using namespace std::string_view_literals;
    for (const auto name : {"bc"sv, "B"sv, "c"sv, "b:"sv, "b\xC3"sv, "bc\xFF"sv, ""sv, "b\0"sv, "Bc\0"sv})
        EXPECT_FALSE(xml.root.FindChildElement(name).IsValid()) << name;
    EXPECT_EQ(xml.root.FindChildElement("b\u00E9").GetTextValue(), "1");
    EXPECT_EQ(xml.root.FindChildElement("b:c").GetName(), "b:c");
    EXPECT_EQ(xml.root.FindChildElement("b").GetTextValue(), "");
    EXPECT_EQ(xml.root.GetNextChildElement().GetName(), "b:c");
}

TEST(nxXMLElementFindNextChildElement, LooksBehindAChildOfTheSameElementOnly) {
    Loaded xml("<a><b>1</b><c><b>x</b></c><b>2</b></a>");
    const nxXMLElement first = xml.root.FindChildElement("b");
    const nxXMLElement second = xml.root.FindNextChildElement("b", first);
    EXPECT_EQ(second.GetTextValue(), "2");
    EXPECT_FALSE(xml.root.FindNextChildElement("b", second).IsValid());
    const nxXMLElement c = xml.root.FindChildElement("c");
    EXPECT_FALSE(c.FindNextChildElement("b", first).IsValid());
    EXPECT_FALSE(xml.root.FindNextChildElement("c", c.FindChildElement("b")).IsValid());
    EXPECT_FALSE(xml.root.FindNextChildElement("a", xml.root).IsValid());
    EXPECT_FALSE(xml.root.FindNextChildElement("b", nxXMLElement()).IsValid());
}

TEST(nxXMLElementAddChildElement, AppendsBehindWhatIsThereEachTypeInItsOwnForm) {
    Loaded xml("<r>1</r>");
    nxXMLElement child = xml.root.AddChildElement("a");
    EXPECT_EQ(child.AddChildElement("b", "<2>").GetTextValue(), "<2>");
    EXPECT_EQ(child.AddChildElement("c", L"\u00E9\U0001F600").GetTextValue(), "\u00E9\U0001F600");
    EXPECT_EQ(xml.root.AddChildValue("d", -5L), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.AddChildValue("e", nxDecimal(-150, 2)), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.AddChildValue("f", "x"), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.AddChildValue("g", L"z"), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.AddChildValue("h", nxDecimal()), nxErrorEnum::OK);
    EXPECT_EQ(xml.Save(), "<r>1<a><b>&lt;2&gt;</b><c>\u00E9\U0001F600</c></a>"
                          "<d>-5</d><e>-1.50</e><f>x</f><g>z</g><h></h></r>");
}

TEST(nxXMLElementAddChildValue, TakesNoNumberThatWouldBeCutToAnotherOne) {
    constexpr auto takes = []<class T>(T value) {
        return requires(nxXMLElement element) {
            element.AddChildValue("a", value);
        };
    };
    static_assert(takes(-1) && takes(-1L) && takes(short{1}));
    static_assert(!takes(101.75) && !takes(101.75F) && !takes(1U) && !takes(std::size_t{1}) && !takes(true));
}

TEST(nxXMLElementAddChildElement, ThrowsForABadNameWhatUsersAndUsersOfTheParserCatch) {
    Loaded xml;
    for (const char* name : {"a b", "", "1", "<"}) {
        EXPECT_THROW(xml.root.AddChildElement(name), nxXMLException) << name;
        EXPECT_THROW(xml.root.AddChildValue(name, 1L), std::exception) << name;
        EXPECT_THROW(xml.root.SetAttribute(name, "x"), nxXMLException) << name;
        EXPECT_THROW(xml.root.AddChildElement(name), xercesc::DOMException) << name;
    }
    try {
        xml.root.AddChildElement("Leg 1");
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "'Leg 1' is no XML name");
    }
    EXPECT_EQ(xml.Save(), "<r/>");
}

TEST(nxXMLElementSetValue, ReplacesATextThatComesFirstAndAppendsElse) {
    Loaded xml("<r><a>1</a><b/><c><d/>1</c><e><![CDATA[1]]></e></r>");
    for (const char* name : {"a", "b", "c", "e"}) {
        nxXMLElement element = xml.root.FindChildElement(name);
        EXPECT_EQ(element.SetValue("2"), nxErrorEnum::OK);
        EXPECT_EQ(element.SetValue(L"3"), nxErrorEnum::OK);
    }
    EXPECT_EQ(xml.root.FindChildElement("b").SetValue(nxDecimal(150, 2)), nxErrorEnum::OK);
    EXPECT_EQ(xml.Save(), "<r><a>3</a><b>1.50</b><c><d/>123</c><e><![CDATA[1]]>23</e></r>");
}

TEST(nxXMLElementGetText, CountsTheFirstNodeOnly) {
    const struct {
        const char* xml;
        const char* text; // null: there is none
    } cases[] = {
        {"<v> 7\n<x/>8</v>", " 7\n"}, {"<v>7<!---->8</v>", "7"}, {"<v>&#55;&amp;</v>", "7&"},
        {"<v><x/>7</v>", nullptr},    {"<v></v>", nullptr},      {"<v><![CDATA[7]]></v>", nullptr},
    };
    for (const auto& [text, expected] : cases) {
        const Loaded xml(text);
        std::string value = "before";
        std::wstring wide = L"before";
        const nxErrorEnum result = expected ? nxErrorEnum::OK : nxErrorEnum::ValueNotFound;
        EXPECT_EQ(xml.root.GetText(value), result) << text;
        EXPECT_EQ(value, expected ? expected : "before") << text;
        EXPECT_EQ(xml.root.GetValue(wide), result) << text;
        const std::string plain = expected ? expected : "";
        EXPECT_EQ(wide, std::wstring(plain.begin(), plain.end())) << text;
        EXPECT_EQ(xml.root.GetTextValue(), plain) << text;
        EXPECT_EQ(xml.root.GetWideTextValue(), wide) << text;
    }
}

TEST(nxXMLElementSetCDATAValue, ReplacesASectionThatComesFirstAndAppendsElse) {
    Loaded xml("<r>t</r>");
    EXPECT_EQ(xml.root.SetCDATAValue("<a>"), nxErrorEnum::OK);
    std::string value = "before";
    EXPECT_EQ(xml.root.GetCDATAValue(value), nxErrorEnum::ValueNotFound);
    EXPECT_EQ(value, "before");
    nxXMLElement child = xml.root.AddChildElement("c");
    EXPECT_EQ(child.SetCDATAValue("1]]>2"), nxErrorEnum::OK);
    static_cast<void>(child.AddChildElement("d"));
    EXPECT_EQ(child.SetCDATAValue("&"), nxErrorEnum::OK);
    EXPECT_EQ(xml.Save(), "<r>t<![CDATA[<a>]]><c><![CDATA[&]]><d/></c></r>");
}

TEST(nxXMLElementSetCDATAValue, ReadsBackTheSameOrIsRefused) {
    for (const char* text : {"", "]]>", "a]]>b]]>", "]]]]>>", "\t\n ", "<&amp;\U0001F600"}) {
        Loaded xml;
        EXPECT_EQ(xml.root.SetCDATAValue(text), nxErrorEnum::OK);
        std::string value;
        EXPECT_EQ(Loaded(xml.Save()).root.GetCDATAValue(value), nxErrorEnum::OK);
        EXPECT_EQ(value, text) << xml.Save();
    }

    const nxCollectedLog log;
    Loaded xml; // the end of a line inside a section is always read as a line feed
    EXPECT_EQ(xml.root.SetCDATAValue("a\r\n"), nxErrorEnum::XMLTextNotCarried);
    EXPECT_EQ(xml.Save(), "not saved");
    EXPECT_EQ(log.Entries(),
              std::vector<std::string>{
                  "Error saving document: in memory \nException message is:  \na CDATA section cannot be "
                  "carried by XML: it holds a carriage return, which would be read as a line feed, in "
                  "element 'r'\n"});
}

TEST(nxXMLElementAttributes, AreAddedOrReplacedAndReadAsTheEmptyTextWhereThereIsNone) {
    Loaded xml("<r a='1'/>");
    EXPECT_EQ(xml.root.SetAttribute("a", std::string("<\"\r")), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.SetAttribute("b", "2"), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.SetAttribute("c", L"\u00E9"), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.SetAttribute("d", nxDecimal(-5, 1)), nxErrorEnum::OK);
    EXPECT_EQ(xml.Save(), "<r a=\"&lt;&quot;&#xD;\" b=\"2\" c=\"\u00E9\" d=\"-0.5\"/>");
    EXPECT_EQ(xml.root.GetNumberOfAttributes(), 4U);
    EXPECT_TRUE(xml.root.HasAttribute("c") && !xml.root.HasAttribute("C"));

    std::string value;
    std::wstring wide;
    EXPECT_EQ(xml.root.GetAttribute("a", value), nxErrorEnum::OK);
    EXPECT_EQ(value, "<\"\r");
    EXPECT_EQ(xml.root.GetAttribute("c", wide), nxErrorEnum::OK);
    EXPECT_EQ(wide, L"\u00E9");
    EXPECT_EQ(xml.root.GetAttribute("C", value), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.GetAttribute("C", wide), nxErrorEnum::OK);
    EXPECT_TRUE(value.empty() && wide.empty());
}

TEST(nxXMLElementTexts, ReadBackTheSameWhateverXMLCarries) {
    nxRandomText random(20240229);
    for (int round = 0; round < 500; ++round) {
        const std::string text = random.Text();
        Loaded xml;
        ASSERT_EQ(xml.root.AddChildValue("a", text), nxErrorEnum::OK) << testing::PrintToString(text);
        ASSERT_EQ(xml.root.SetAttribute("b", text), nxErrorEnum::OK);
        const Loaded again(xml.Save());
        std::string attribute;
        ASSERT_EQ(again.root.FindChildElement("a").GetTextValue(), text) << testing::PrintToString(text);
        ASSERT_EQ(again.root.GetAttribute("b", attribute), nxErrorEnum::OK);
        ASSERT_EQ(attribute, text) << testing::PrintToString(text);
        Loaded wide;
        wide.root.SetValue(again.root.FindChildElement("a").GetWideTextValue());
        ASSERT_EQ(wide.root.GetTextValue(), text) << testing::PrintToString(text);
    }
}

TEST(nxXMLElementTexts, AreRefusedAndNotForgottenWhenXMLCannotCarryThem) {
    using namespace std::string_literals;
    constexpr char NotUnicode[] = "it is not valid UTF-8";
    constexpr char NotXML[] = "it holds a character that XML 1.0 does not allow";
    const struct {
        std::string text;
        const char* problem;
    } cases[] = {
        {"\0"s, NotXML},
        {"\x1F"s, NotXML},
        {"\uFFFE"s, NotXML},
        {"\xC3"s, NotUnicode},
        {"\xC0\x80"s, NotUnicode},
        {"\xED\xA0\x80"s, NotUnicode},
        {"\xF4\x90\x80\x80"s, NotUnicode},
    };
    const struct {
        const char* what;
        nxErrorEnum (*put)(nxXMLElement& element, const std::string& text);
    } ways[] = {
        {"a text", [](auto& r, auto& text) { return r.SetValue(text); }},
        {"a text", [](auto& r, auto& text) { return r.AddChildValue("r", text); }},
        {"a text",
         [](auto& r, auto& text) {
             const bool added = r.AddChildElement("r", text).IsValid();
             return nxErrorEnum(added ? nxErrorEnum::OK : nxErrorEnum::XMLTextNotCarried);
         }},
        {"a CDATA section", [](auto& r, auto& text) { return r.SetCDATAValue(text); }},
        {"an attribute's value", [](auto& r, auto& text) { return r.SetAttribute("b", text); }},
        {"an attribute's name", [](auto& r, auto& text) { return r.SetAttribute(text, "b"); }},
        {"a name", [](auto& r, auto& text) { return r.AddChildValue(text, "b"); }},
    };
    for (const auto& [text, problem] : cases) {
        for (const auto& [what, put] : ways) {
            Loaded xml;
            EXPECT_EQ(put(xml.root, text), nxErrorEnum::XMLTextNotCarried) << what;
            EXPECT_FALSE(xml.root.GetFirstChildElement().IsValid()) << what;
            EXPECT_EQ(xml.root.GetNumberOfAttributes(), 0U) << what;
            const nxCollectedLog log;
            EXPECT_EQ(xml.Save(), "not saved");
            EXPECT_EQ(log.Entries(),
                      std::vector{"Error saving document: in memory \nException message is:  \n"s + what +
                                  " cannot be carried by XML: " + problem + ", in element 'r'\n"});
        }
    }
    const nxCollectedLog log;
    Loaded xml;
    EXPECT_EQ(xml.root.SetValue(std::wstring(1, static_cast<wchar_t>(0xD800))),
              nxErrorEnum::XMLTextNotCarried);
    EXPECT_EQ(xml.root.SetValue("good"), nxErrorEnum::OK);
    EXPECT_EQ(xml.Save(), "not saved");
    EXPECT_EQ(log.Entries(),
              std::vector<std::string>{"Error saving document: in memory \nException message is:  \na text "
                                       "cannot be carried by XML: it is not valid UTF-8, in element 'r'\n"});

    Loaded named; // after the child, which is not there
    EXPECT_FALSE(named.root.AddChildElement("child", "\x01").IsValid());
    EXPECT_EQ(named.Save(), "not saved");
    EXPECT_NE(log.Entries().back().find("in element 'child'"), std::string::npos);
}

TEST(nxXMLElementHandle, ThatIsInvalidFindsNothingAndTakesNothing) {
    nxXMLElement none;
    std::string text = "before";
    std::wstring wide = L"before";
    for (const nxXMLElement& found :
         {none, none.GetFirstChildElement(), none.GetNextChildElement(), none.GetFirstChildElement("a"),
          none.GetNextChildElement("a"), none.FindChildElement("a"), none.AddChildElement("a"),
          none.AddChildElement("a", "b"), none.AddChildElement("a", L"b")})
        EXPECT_FALSE(found.IsValid());
    for (const nxErrorEnum& result :
         {none.AddChildValue("a", "b"), none.AddChildValue("a", 1L), none.AddChildValue("a", L"b"),
          none.SetValue("a"), none.SetValue(L"a"), none.SetCDATAValue("a"), none.SetAttribute("a", "b"),
          none.SetAttribute("a", L"b"), none.GetText(text), none.GetCDATAValue(text),
          none.GetAttribute("a", text), none.GetAttribute("a", wide)})
        EXPECT_EQ(result, nxErrorEnum::ValueNotFound);
    EXPECT_EQ(text, "before");
    EXPECT_EQ(wide, L"before");
    EXPECT_EQ(none.GetName() + none.GetTextValue(), "");
    EXPECT_FALSE(none.ResetCurrentChildElementImmediatelyPriorTo("a") || none.HasAttribute("a") ||
                 none.HasName(""));
    EXPECT_EQ(none.GetNumberOfAttributes(), 0U);
}
