// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLElement.h"

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxPrint.h"
#include "tests/support/nxRandomText.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {
    // A document loaded from a text, or with an empty root element "r", and a handle on its root.
    struct Loaded {
        explicit Loaded(const std::string& xml = "<r/>") {
            EXPECT_EQ(document.LoadFromString(xml), nxErrorEnum::OK) << xml;
            root = document.GetRootElement();
        }
        std::string Save() {
            std::string xml = "not saved";
            document.SaveToString(xml);
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
    xml.root.ResetCurrentChildElement();
    EXPECT_EQ(xml.root.GetNextChildElement().GetName(), "b");
}

TEST(nxXMLElementGetNextChildElement, GivesHandlesWhoseOwnCursorStandsBeforeTheFirstChild) {
    Loaded xml("<a><b><c/></b></a>");
    nxXMLElement b = xml.root.GetNextChildElement();
    EXPECT_EQ(b.GetNextChildElement().GetName(), "c");
    EXPECT_FALSE(b.GetNextChildElement().IsValid());
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

TEST(nxXMLElementCopy, CarriesTheCursorAlong) {
    Loaded xml("<a><b/><c/></a>");
    xml.root.GetNextChildElement();
    nxXMLElement copy = xml.root;
    EXPECT_EQ(copy.GetNextChildElement().GetName(), "c");
    EXPECT_EQ(xml.root.GetNextChildElement().GetName(), "c");
    copy = xml.document.GetRootElement();
    EXPECT_EQ(copy.GetNextChildElement().GetName(), "b");
}

TEST(nxXMLElementResetCurrentChildElementImmediatelyPriorTo, MakesTheNamedChildTheNextOne) {
    Loaded xml("<a><b/><c n='1'/><c n='2'/></a>");
    std::string n;
    EXPECT_TRUE(xml.root.ResetCurrentChildElementImmediatelyPriorTo("c"));
    EXPECT_EQ(xml.root.GetNextChildElement("c").GetAttribute("n", n), nxErrorEnum::OK);
    EXPECT_EQ(n, "1");
    EXPECT_TRUE(xml.root.ResetCurrentChildElementImmediatelyPriorTo("b"));
    EXPECT_EQ(xml.root.GetNextChildElement().GetName(), "b");
    EXPECT_FALSE(xml.root.ResetCurrentChildElementImmediatelyPriorTo("d"));
    EXPECT_EQ(xml.root.GetNextChildElement().GetName(), "b");
}

TEST(nxXMLElementFindChildElement, ComparesNamesExactlyAndLeavesTheCursor) {
    Loaded xml("<a><Bc/><b:c/><b\u00E9>1</b\u00E9><b/><b>2</b></a>");
    xml.root.GetNextChildElement();
    for (const char* name : {"bc", "B", "c", "b:", "b\xC3", "bc\xFF", ""})
        EXPECT_FALSE(xml.root.FindChildElement(name).IsValid()) << name;
    using namespace std::string_view_literals;
    EXPECT_FALSE(xml.root.FindChildElement("b\0"sv).IsValid());
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
    EXPECT_FALSE(nxXMLElement().FindNextChildElement("b", first).IsValid());
}

TEST(nxXMLElementAddChildElement, AppendsBehindWhatIsThere) {
    Loaded xml("<r>1</r>");
    nxXMLElement child = xml.root.AddChildElement("a");
    EXPECT_EQ(child.AddChildElement("b", "<2>").GetTextValue(), "<2>");
    EXPECT_EQ(xml.root.AddChildElement("c", L"\u00E9\U0001F600").GetTextValue(), "\u00E9\U0001F600");
    EXPECT_EQ(xml.root.AddChildElement("d", "").GetName(), "d");
    EXPECT_EQ(xml.Save(), "<r>1<a><b>&lt;2&gt;</b></a><c>\u00E9\U0001F600</c><d></d></r>");
}

TEST(nxXMLElementAddChildElement, LetsTheParsersExceptionForABadNameThrough) {
    Loaded xml;
    for (const char* name : {"a b", "", "1", "<"}) {
        EXPECT_ANY_THROW(xml.root.AddChildElement(name)) << name;
        EXPECT_ANY_THROW(xml.root.AddChildValue(name, 1L)) << name;
        EXPECT_ANY_THROW(xml.root.SetAttribute(name, "x")) << name;
    }
    EXPECT_EQ(xml.Save(), "<r/>");
}

TEST(nxXMLElementAddChildValue, WritesEachTypeInItsOwnForm) {
    Loaded xml;
    nxDecimal price;
    ASSERT_EQ(price.SetFromString("-1.50", '.'), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.AddChildValue("a", -5L), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.AddChildValue("b", price), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.AddChildValue("c", "x"), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.AddChildValue("d", std::string("y")), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.AddChildValue("e", L"z"), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.AddChildValue("f", nxDecimal()), nxErrorEnum::OK);
    EXPECT_EQ(xml.Save(), "<r><a>-5</a><b>-1.50</b><c>x</c><d>y</d><e>z</e><f></f></r>");
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
        {"<v>7</v>", "7"},
        {"<v> 7\n</v>", " 7\n"},
        {"<v>7<x/>8</v>", "7"},
        {"<v>7<!---->8</v>", "7"},
        {"<v>&#55;&amp;</v>", "7&"},
        {"<v><x/>7</v>", nullptr},
        {"<v><!---->7</v>", nullptr},
        {"<v/>", nullptr},
        {"<v></v>", nullptr},
        {"<v><![CDATA[7]]></v>", nullptr},
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
    std::string value = "before";
    EXPECT_EQ(xml.root.SetCDATAValue("<a>"), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.GetCDATAValue(value), nxErrorEnum::ValueNotFound);
    EXPECT_EQ(value, "before");
    nxXMLElement child = xml.root.AddChildElement("c");
    EXPECT_EQ(child.SetCDATAValue("1]]>2"), nxErrorEnum::OK);
    EXPECT_EQ(child.SetCDATAValue("&"), nxErrorEnum::OK);
    EXPECT_EQ(child.GetCDATAValue(value), nxErrorEnum::OK);
    EXPECT_EQ(value, "&");
    EXPECT_EQ(xml.Save(), "<r>t<![CDATA[<a>]]><c><![CDATA[&]]></c></r>");
}

TEST(nxXMLElementSetCDATAValue, ReadsBackTheSameOrIsRefused) {
    const nxCollectedLog log;
    for (const char* text : {"", "]]>", "a]]>b]]>", "]]]]>>", "\t\n ", "<&amp;\U0001F600"}) {
        Loaded xml;
        EXPECT_EQ(xml.root.SetCDATAValue(text), nxErrorEnum::OK);
        std::string value;
        EXPECT_EQ(xml.root.GetCDATAValue(value), nxErrorEnum::OK);
        EXPECT_EQ(value, text);
        const Loaded again(xml.Save());
        EXPECT_EQ(again.root.GetCDATAValue(value), nxErrorEnum::OK);
        EXPECT_EQ(value, text) << xml.Save();
    }
    EXPECT_TRUE(log.Entries().empty());

    Loaded xml; // the end of a line inside a section is always read as a line feed
    EXPECT_EQ(xml.root.SetCDATAValue("a\r\n"), nxErrorEnum::XMLTextNotCarried);
    EXPECT_EQ(xml.Save(), "not saved");
}

TEST(nxXMLElementSetAttribute, AddsOrReplaces) {
    Loaded xml("<r a='1'/>");
    EXPECT_EQ(xml.root.SetAttribute("a", std::string("<\"")), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.SetAttribute("b", "2"), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.SetAttribute("c", L"\u00E9"), nxErrorEnum::OK);
    EXPECT_EQ(xml.root.SetAttribute("d", nxDecimal(-5, 1)), nxErrorEnum::OK);
    EXPECT_EQ(xml.Save(), "<r a=\"&lt;&quot;\" b=\"2\" c=\"\u00E9\" d=\"-0.5\"/>");
    EXPECT_EQ(xml.root.GetNumberOfAttributes(), 4U);
    EXPECT_TRUE(xml.root.HasAttribute("c"));
    EXPECT_FALSE(xml.root.HasAttribute("C"));
}

TEST(nxXMLElementGetAttribute, GivesTheEmptyTextForOneThatIsNotThere) {
    const Loaded xml("<r a=' 1&#13;'/>");
    std::string value;
    std::wstring wide;
    EXPECT_EQ(xml.root.GetAttribute("a", value), nxErrorEnum::OK);
    EXPECT_EQ(value, " 1\r");
    EXPECT_EQ(xml.root.GetAttribute("a", wide), nxErrorEnum::OK);
    EXPECT_EQ(wide, L" 1\r");
    EXPECT_EQ(xml.root.GetAttribute("b", value), nxErrorEnum::OK);
    EXPECT_EQ(value, "");
    EXPECT_EQ(xml.root.GetAttribute("b", wide), nxErrorEnum::OK);
    EXPECT_EQ(wide, L"");
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
        {"a\x01"s, NotXML},
        {"\x1F"s, NotXML},
        {"\uFFFE"s, NotXML},
        {"\uFFFF\u00E9"s, NotXML},
        {"\xFF"s, NotUnicode},
        {"\xC3"s, NotUnicode},
        {"\xC0\x80"s, NotUnicode},
        {"\xED\xA0\x80"s, NotUnicode},
        {"\xED\xB0\x80"s, NotUnicode},
        {"\xF4\x90\x80\x80"s, NotUnicode},
    };
    const struct {
        const char* what;
        std::function<nxErrorEnum(nxXMLElement&, const std::string&)> put;
    } ways[] = {
        {"a text", [](nxXMLElement& e, const std::string& text) { return e.SetValue(text); }},
        {"a text", [](nxXMLElement& e, const std::string& text) { return e.AddChildValue("r", text); }},
        {"a CDATA section", [](nxXMLElement& e, const std::string& text) { return e.SetCDATAValue(text); }},
        {"an attribute's value",
         [](nxXMLElement& e, const std::string& text) { return e.SetAttribute("b", text); }},
        {"an attribute's name",
         [](nxXMLElement& e, const std::string& text) { return e.SetAttribute(text, "b"); }},
        {"a name", [](nxXMLElement& e, const std::string& text) { return e.AddChildValue(text, "b"); }},
    };
    for (const auto& [text, problem] : cases) {
        for (const auto& [what, put] : ways) {
            Loaded xml;
            EXPECT_EQ(put(xml.root, text), nxErrorEnum::XMLTextNotCarried) << what;
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
}

TEST(nxXMLElementHandle, ThatIsInvalidFindsNothingAndTakesNothing) {
    nxXMLElement none;
    std::string text = "before";
    std::wstring wide = L"before";
    EXPECT_FALSE(none.IsValid() || none.GetFirstChildElement().IsValid() ||
                 none.GetNextChildElement().IsValid());
    EXPECT_FALSE(none.GetFirstChildElement("a").IsValid() || none.GetNextChildElement("a").IsValid());
    EXPECT_FALSE(none.ResetCurrentChildElementImmediatelyPriorTo("a") ||
                 none.FindChildElement("a").IsValid());
    EXPECT_FALSE(none.AddChildElement("a").IsValid() || none.AddChildElement("a", "b").IsValid());
    EXPECT_FALSE(none.AddChildElement("a", L"b").IsValid() || none.HasAttribute("a") || none.HasName(""));
    EXPECT_EQ(none.GetName() + none.GetTextValue(), "");
    EXPECT_EQ(none.GetWideTextValue(), L"");
    EXPECT_EQ(none.GetNumberOfAttributes(), 0U);
    for (const nxErrorEnum& result :
         {none.AddChildValue("a", "b"), none.AddChildValue("a", 1L), none.AddChildValue("a", L"b"),
          none.AddChildValue("a", nxDecimal(1)), none.SetValue("a"), none.SetValue(L"a"),
          none.SetValue(nxDecimal(1)), none.GetText(text), none.SetCDATAValue("a"), none.GetCDATAValue(text),
          none.SetAttribute("a", "b"), none.SetAttribute("a", L"b"), none.SetAttribute("a", nxDecimal(1)),
          none.GetAttribute("a", text), none.GetAttribute("a", wide)})
        EXPECT_EQ(result, nxErrorEnum::ValueNotFound);
    EXPECT_EQ(text, "before");
    EXPECT_EQ(wide, L"before");
    EXPECT_EQ(none.GetValue(wide), nxErrorEnum::ValueNotFound);
    EXPECT_EQ(wide, L"");
}
