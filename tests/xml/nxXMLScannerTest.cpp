// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// The parser is the measure: what the scanner takes, the parser takes, and both see the same in it.

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxFormatExamples.h"
#include "tests/support/nxRandomText.h"
#include "tests/support/nxScanComparison.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <span>
#include <string>
#include <thread>
#include <vector>

namespace {
    using nxScanComparison::Compare;
    using nxScanComparison::Verdict;
    using Strings = std::vector<std::string>;
    using Elements = std::vector<nxXMLElement>;
    using namespace std::string_literals;

    // Nobody reads why the parser refuses.
    class nxXMLScannerFill : public testing::Test {
    protected:
        ~nxXMLScannerFill() override { nxLogManager::SetDevices(std::move(_devices)); }

    private:
        nxLogManager::Devices _devices = nxLogManager::SetDevices({});
    };

    // What a root element may hold.
    const Strings TakenContents = {
        // text and what ends it
        "", "a", " ", "\n\t ", "a<b/>c<b/>d", "<b/>c", "<b>c</b>", "<b> <c/> </b>", "<!--c-->d", "d<!--c-->e",
        "<![CDATA[c]]>d", "<![CDATA[]]>d", "d<![CDATA[]]>e", "<![CDATA[ <&]]>", "<![CDATA[]]]]><![CDATA[>]]>",
        "<?p?>d", "d<?p?>e", "<b><!----></b>", "<b><![CDATA[]]></b>",
        // comments, instructions
        "<!---->", "<!-- <b> & ]]> -->", "<!-- - -->", "<?p?>", "<?p ?>", "<?p  q='1' ? > ?>", "<?p ?\?>",
        "<?p\n--<&?>", "<?p:q _?>", "<?xm ?><?xmla ?><?xml-a b?>", "<?\u00E9 \u00E9?>",
        // references
        "&lt;&gt;&amp;&quot;&apos;", "a&lt;b", "&#9;&#10;&#13;&#32;", "&#x9;&#xA;&#xd;",
        "&#60;&#x3c;&#38;amp;", "&#000000000000000000065;", "&#x00000000000000041;",
        "&#x7F;&#x80;&#x7FF;&#x800;&#xD7FF;&#xE000;&#xFFFD;&#x10000;&#x10FFFF;&#xfDD0;",
        "]]&gt;]&#93;>]]&#62;&#93;]>", "&#x20;<b/>", "<b/>&amp;",
        // line ends
        "\r", "\r\n", "\r\r\n\n\r", "a\r\nb\rc\n", "\r&#13;\n&#10;", "<b\r\nc='1'\r/>\r",
        // characters
        "\u007F\u0080\u0085\u009F\u00A0\u07FF\u0800\u2028\uD7FF\uE000\uFDD0\uFEFF\uFFFD",
        "\U00010000\U0001FFFE\U0010FFFF", "\uFFC0\uFFBF", "]", "]]", "]>", "] ]>", "]]]", ">\"'=/",
        // attributes
        "<b c='1'/>", "<b c = \"1\" d\t=\n'2' ></b >", "<b c=''/>", "<b c='\"' d=\"'\"/>",
        "<b c='>' d=']]>' e='/>'/>", "<b c=' a  b '/>", "<b c='\ta\nb\rc\r\nd\r\n\r'/>",
        "<b c='&#9;&#10;&#13;&#32;&lt;&amp;&gt;&apos;&quot;'/>", "<b c='&#x1F600;\u00E9'/>",
        "<b c='1' C='2' c-='3' _c='4' :='5' c:c='6' \u00E9='7'/>",
        "<b xml:space='preserve' xml:lang='?' xmlns='' xmlns:c='c' xmlns:xml='d' xmlns:xmlns='e' c:d=''/>",
        // names
        "<:/><_/><b:/><b:c:d/><b-/><b./><b1/>", "<\u00E9/><b\u00E9/><\u00E9b></\u00E9b>",
        "<b\u00B7/><\u0431\u0449></\u0431\u0449><\u0E01/><\u4E00/>",
        "<ABCDEFGHIJKLMNOPQRSTUVWXYZ/><abcdefghijklmnopqrstuvwxyz0123456789/>",
        "<b></b\r\n\t ><b\n/><b\t></b>",
        "<abcdefghijklmnop></abcdefghijklmnop><bcdefghijklmnopqr></bcdefghijklmnopqr>",
        // items with the same elements, or nearly
        "<b><c>1</c><d/></b><b><c>2</c><d></d><e/></b><b><cd>3</cd><d e=''>4</d ></b><b><c><d/></c></b>    "
        " "};

    // What the parser takes, but the scanner leaves to it.
    const Strings LeftContents = {"<b\U00010000/>", "<\U00010000/>"};

    const Strings RefusedContents = {
        // structure
        "<", "<b", "<b>", "</b>", "<b></c>", "<b></b", "<b></bb>", "<bb></b>", "<b></ b>", "< b/>", "<b/ >",
        "<b / >", "<b//>", "<>", "</>", "<1/>", "<-/>", "<./>", "<b><c></b></c>", "<b></b/>", "<b></b c=''>",
        "<bc></bd>                 ", "<abcdefghijklmnop></abcdefghijklmnoq>     ",
        "<abcdefghijklmnopq></abcdefghijklmnopr>      ", "<b/>>]]>", "<\u00B7/>", "<\u00D7/>", "<b\u00D7/>",
        "<b\u2028/>", "<b+/>", "<b,/>", "<b`/>", "<b[/>", "<b@/>", "<b{/>", "<b;/>", "<b^/>", "<b$/>", "<%/>",
        // text
        "]]>", "]]]>", "a]]>", "<b/>]]>", "&amp;]]>", "\r]]>b", "<b/>&b;", "<b/>&#0;", "&", "& ", "&;", "&b;",
        "&lt", "&lt ;", "&LT;", "&nbsp;", "&ampx;", "&#;", "&#x;", "&#a;", "&#xg;", "&#X41;", "&#65",
        "&#65 ;", "& #65;", "&#-1;", "&#+1;", "&#0;", "&#1;", "&#x1F;", "&#8;", "&#xD800;", "&#xDFFF;",
        "&#xFFFE;", "&#xFFFF;", "&#x110000;", "&#1114112;", "&#4294967361;", "&#x100000041;",
        "&#99999999999999999999;", "&#6:;", "&#x:;", "&#x@;", "&#x`;",
        // comments, sections, instructions
        "<!--", "<!-->", "<!--->", "<!-- -- -->", "<!--- --->", "<!-- --", "<!- - -->", "<! ---->", "<!b>",
        "<!DOCTYPE r>", "<![CDATA[", "<![CDATA[]]", "<![CDATA[]] >", "<![cdata[]]>", "<![CDATA []]>",
        "<![ CDATA[]]>", "<![IGNORE[]]>", "<?", "<?\?>", "<? p?>", "<?p", "<?p?", "<?p>", "<?p+?>", "<?xml?>",
        "<?xml version='1.0'?>", "<?XML ?>", "<?xMl a?>", "<?1?>",
        // attributes
        "<b c/>", "<b c=/>", "<b c=1/>", "<b c='1/>", "<b c='1\"/>", "<b c='1'd='2'/>", "<b c='1' c='1'/>",
        "<b c='<'/>", "<b c='&'/>", "<b c='&lt'/>", "<b c='&b;'/>", "<b c='&#0;'/>", "<b 1='1'/>",
        "<b ='1'/>", "<b c=='1'/>", "<b c='1',d='2'/>", "<b/c='1'/>", "<b c='1' / >", "<b c d='1'/>",
        "<b \u00E9='1' \u00E9='2'/>", "<b c='1", "<b c='", "<b c=", "<b c", "<b ",
        // characters
        "\x01", "\x08", "\x0B", "\x0C", "\x0E", "\x1F", "\0"s, "<b c='\x01'/>", "<!--\x01-->", "<?p \x01?>",
        "<![CDATA[\x01]]>", "\xEF\xBF\xBE", "\xEF\xBF\xBF", "\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xC3",
        "\xC3(", "\xE0\x9F\xBF", "\xE2\x82", "\xE2(\xA1", "\xED\xA0\x80", "\xED\xBF\xBF", "\xF0\x8F\xBF\xBF",
        "\xF0\x90\x80", "\xF1\x80\x80(", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xF8\x88\x80\x80\x80",
        "\xFE", "\xFF", "\xC3\xC3\xA9", "\xE9", "<\xE9/>", "<b c='\xE9'/>"};

    const Strings TakenDocuments = {
        // around the root element
        "<r/>", "<r></r>", "<r />\n", " <r/>", "\n\r\t <r/> \n\r\t",
        "<!--a--><?b?> <!--c--><r/><!--d--><?e?> ", "<?xml-a?><r/>",
        // mark and declaration
        "\uFEFF<r/>", "\uFEFF<?xml version='1.0'?><r/>", "<?xml version='1.0'?><r/>",
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<r/>",
        "<?xml version='1.0' encoding='utf-8' standalone='yes'?><r/>",
        "<?xml version = '1.0'\tstandalone\r\n=\n\"no\" \n ?><r/>", "\uFEFF \r\n<!--a--><r/>"};

    const Strings LeftDocuments = {
        // what few documents have
        "<?xml\tversion='1.0'?><r/>",
        "<?xml version='1.1'?><r/>",
        "<?xml version='1.0' encoding='UTF8'?><r/>",
        "<?xml version='1.0' encoding='Utf-8'?><r/>",
        "<?xml version='1.0' encoding='ISO-8859-1'?><r>\xE9</r>",
        "<?xml version='1.0' encoding='US-ASCII'?><r/>",
        "\xFE\xFF\0<\0r\0/\0>"s};

    const Strings RefusedDocuments = {
        // around the root element
        "", " ", "r", "<", "<!--a-->", "<?b?>", "\uFEFF", "\uFEFF\uFEFF<r/>", "<r/><r/>", "<r/>a", "a<r/>",
        "&amp;<r/>", "<r/>&#32;", "<r/><![CDATA[]]>", "<![CDATA[]]><r/>", "</r>", "<r/></r>", "<r/>\0"s,
        "<r/>\x01", "<r/>\xE9", "<r/><!--", "<r/><?b", "<r/><!-->", "<!DOCTYPE r><r/>", "<r/><!DOCTYPE r>",
        // declaration
        " <?xml version='1.0'?><r/>", "<?xml version='1.0'?><?xml version='1.0'?><r/>", "<?xml ?><r/>",
        "<?xml?><r/>", "<?xml encoding='UTF-8'?><r/>", "<?xml version=1.0?><r/>",
        "<?xml version='1.0\"?><r/>", "<?xml version='1.0'><r/>", "<?xml version='1.0' ? ><r/>",
        "<?xml version='1.0'encoding='UTF-8'?><r/>",
        "<?xml version='1.0' standalone='yes' encoding='UTF-8'?><r/>", "<?xml version='2.0'?><r/>",
        "<?xml version='1.0' standalone='maybe'?><r/>", "<?xml version='1.0' encoding=''?><r/>",
        "<?xml version='1.0' version='1.0'?><r/>", "<?xml version='1.0' a='b'?><r/>", "<?xml version='1.0'",
        "<?XML version='1.0'?><r/>", "<?xml version='1.0' encoding='nonsense'?><r/>",
        "<?xml version '1.0'?><r/>", "<?xml version='1.0' encoding='UTF-16'?><r/>"};

    std::string Rooted(const std::string& content) {
        return "<r>" + content + "</r>";
    }

    Strings Rooted(Strings contents) {
        for (std::string& content : contents)
            content = Rooted(content);
        return contents;
    }

    // What the format pages show, and what the library writes of it.
    Strings Records() {
        Strings documents;
        for (const std::string& page : nxFormatExamples::Pages()) {
            for (const nxFormatExamples::Example& example : nxFormatExamples::ExamplesOf(page)) {
                documents.push_back(example.xml);
                EXPECT_EQ(
                    nxFormatExamples::ReadAndWrite(example.record, example.xml, documents.emplace_back()),
                    nxErrorEnum::OK);
            }
        }
        return documents;
    }

    // A document with any texts, as the library writes it.
    std::string RandomDocument(nxRandomText& random) {
        nxXMLDocument document;
        EXPECT_EQ(document.CreateDocument("r"), nxErrorEnum::OK);
        Elements elements{document.GetRootElement()};
        for (unsigned int count = random.Below(12); count > 0; --count) {
            nxXMLElement& parent = elements[random.Below(static_cast<unsigned int>(elements.size()))];
            parent.SetAttribute(random.Key(), random.Text());
            nxXMLElement child = parent.AddChildElement(random.Key());
            if (random.Flag())
                child.SetValue(random.Text());
            else if (random.Flag())
                child.SetCDATAValue("a section");
            elements.push_back(child);
        }
        std::string xml;
        EXPECT_EQ(document.SaveToString(xml), nxErrorEnum::OK);
        return xml;
    }

    // Makes something else of documents that there are, mostly something that is nearly well-formed.
    class Mutator {
    public:
        explicit Mutator(unsigned int seed) : _random(seed), _documents(Records()) {
            for (const Strings& documents : {Rooted(TakenContents), TakenDocuments})
                _documents.insert(_documents.end(), documents.begin(), documents.end());
            for (int i = 0; i < 100; ++i)
                _documents.push_back(RandomDocument(_random));
            for (const Strings* others : {&LeftContents, &RefusedContents, &LeftDocuments, &RefusedDocuments})
                _others.insert(_others.end(), others->begin(), others->end());
        }

        std::string Next() {
            std::string document = _Any(_documents);
            for (unsigned int count = 1 + _random.Below(2); count > 0; --count)
                _Mutate(document);
            return document;
        }

    private:
        const std::string& _Any(std::span<const std::string> texts) {
            return texts[_random.Below(static_cast<unsigned int>(texts.size()))];
        }

        std::size_t _Place(const std::string& text) {
            return _random.Below(static_cast<unsigned int>(text.size()) + 1);
        }

        std::string _Part(const std::string& text) {
            return text.substr(_Place(text), 1 + _random.Below(_random.Flag() ? 4 : 40));
        }

        void _Mutate(std::string& document) {
            static const std::string Tokens[] = {
                // bytes
                "<", ">", "&", "'", "\"", "=", "/", ":", ";", "!", "?", "-", "]", "x", "#", "\t", "\n", "\r",
                " ", "\r\n", "\0"s, "\x01", "\x1F", "\x7F", "\x80", "\xC2", "\xE2\x82", "\xEF\xBF", "\xFF",
                // characters
                "\u0085", "\u00B7", "\u00D7", "\u00E9", "\u2028", "\u4E00", "\uFEFF", "\uFFFD", "\U00010000",
                "\xED\xA0\x80", "\xEF\xBF\xBE",
                // markup
                "]]>", "<!--", "-->", "--", "<![CDATA[", "<?", "?>", "/>", "</", "<r>", "</r>", "<r/>", "<a>",
                "</a>", "<a/>", " a='1'", "&lt;", "&amp;", "&#13;", "&#x41;", "&#", "&#x", "xml",
                "<?xml version='1.0'?>", " encoding='UTF-8'", " standalone='no'"};
            const std::size_t place = _Place(document);
            switch (_random.Below(9)) {
            case 0:
                if (place < document.size())
                    document[place] = static_cast<char>(document[place] ^ 1 << _random.Below(8));
                break;
            case 1:
                document.erase(place, 1 + _random.Below(_random.Flag() ? 2 : 30));
                break;
            case 2: // a part again, elsewhere
                document.insert(place, _Part(document));
                break;
            case 3: // a part of another
                document.insert(place, _Part(_Any(_random.Flag() ? _documents : _others)));
                break;
            case 4: // one goes on as another does
                document.erase(place);
                document += _Part(_Any(_documents));
                break;
            case 5:
            case 6: // more content behind a tag
                if (const std::size_t end = document.find('>', place); end < document.size())
                    document.insert(end + 1, _Any(TakenContents));
                break;
            default:
                document.insert(place, _Any(Tokens));
            }
        }

        nxRandomText _random;
        Strings _documents;
        Strings _others; // to take parts of
    };

    void ExpectAll(Verdict verdict, const Strings& documents) {
        EXPECT_FALSE(documents.empty());
        for (const std::string& document : documents)
            EXPECT_EQ(Compare(document), verdict) << testing::PrintToString(document);
    }

    // More for a night: a number from the environment.
    unsigned long MutationCount() {
        const char* const count = std::getenv("NX_SCANNER_MUTATIONS");
        return count ? std::stoul(count) : 100'000;
    }
} // namespace

TEST_F(nxXMLScannerFill, TakesWhatIsWellFormedAndLeavesTheRest) {
    ExpectAll(Verdict::BothTake, Rooted(TakenContents));
    ExpectAll(Verdict::OnlyParserTakes, Rooted(LeftContents));
    ExpectAll(Verdict::NeitherTakes, Rooted(RefusedContents));
    ExpectAll(Verdict::BothTake, TakenDocuments);
    ExpectAll(Verdict::OnlyParserTakes, LeftDocuments);
    ExpectAll(Verdict::NeitherTakes, RefusedDocuments);
}

TEST_F(nxXMLScannerFill, TakesWhatTheFormatPagesShowAndTheLibraryWrites) {
    ExpectAll(Verdict::BothTake, Records());
    nxRandomText random(1);
    for (int i = 0; i < 1000; ++i) {
        const std::string document = RandomDocument(random);
        EXPECT_EQ(Compare(document), Verdict::BothTake) << document;
    }
}

// The parser reads 48 kB of bytes and 16 kB of characters at a time.
TEST_F(nxXMLScannerFill, SeesTheSameAtTheEdgesOfTheParsersBuffers) {
    struct Padding {
        std::size_t edge; // in bytes
        std::string before;
        std::string repeated;
        std::string behind;
    };
    const Padding Paddings[] = {{16U << 10U, "<r>", "x", ""},
                                {16U << 10U, "<r><!--", "-x", "-->"},
                                {48U << 10U, "<r>", "\u00E9", ""}};
    for (const auto& [edge, before, repeated, behind] : Paddings) {
        for (const std::string& content : TakenContents) {
            for (std::size_t shift = 0; shift < content.size() + 8; ++shift) {
                std::string xml = before;
                while (xml.size() + behind.size() + shift < edge + 4)
                    xml += repeated;
                EXPECT_EQ(Compare(xml + behind + content + "</r>"), Verdict::BothTake)
                    << content << " at " << edge + 4 - shift;
            }
        }
    }
}

TEST_F(nxXMLScannerFill, SeesTheSameInManyAttributes) {
    for (const int count : {2, 15, 16, 17, 18, 1000}) {
        std::string xml = "<r";
        for (int i = 0; i < count; ++i)
            xml += " a" + std::to_string(i) + "='" + std::to_string(i) + "'";
        EXPECT_EQ(Compare(xml + "/>"), Verdict::BothTake) << count;
        EXPECT_EQ(Compare(xml + " a" + std::to_string(count - 1) + "=''/>"), Verdict::NeitherTakes) << count;
        EXPECT_EQ(Compare(xml + " a0=''/>"), Verdict::NeitherTakes) << count;
    }
}

TEST_F(nxXMLScannerFill, LeavesNoText) {
    nxXMLTree tree;
    EXPECT_FALSE(nxXMLScanner::Fill(tree, {}));
    EXPECT_TRUE(nxXMLScanner::Fill(tree, "<r/>"));
    EXPECT_FALSE(nxXMLScanner::Fill(tree, "<r>"));
    EXPECT_FALSE(tree.GetRoot().IsValid());
}

TEST_F(nxXMLScannerFill, SeesTheSameAtAnyDepthOnAnOrdinaryStack) {
    std::thread([] {
        std::string xml;
        for (int i = 0; i < 1'000'000; ++i)
            xml += "<a>";
        const std::size_t top = xml.size();
        for (int i = 0; i < 1'000'000; ++i)
            xml += "</a>";
        EXPECT_EQ(Compare(xml), Verdict::BothTake);
        xml.replace(top, 4, "</b>");
        EXPECT_EQ(Compare(xml), Verdict::NeitherTakes);
    }).join();
}

class nxXMLScannerMutations : public nxXMLScannerFill, public testing::WithParamInterface<unsigned int> {};

TEST_P(nxXMLScannerMutations, AreTakenOnlyAsTheParserTakesThem) {
    Mutator mutator(GetParam());
    std::array<unsigned long, 4> verdicts{};
    for (unsigned long left = MutationCount() / 4; left > 0; --left) {
        const std::string document = mutator.Next();
        const Verdict verdict = Compare(document);
        ++verdicts[static_cast<std::size_t>(verdict)];
        ASSERT_NE(verdict, Verdict::Wrong) << testing::PrintToString(document);
    }
    for (const Verdict verdict : {Verdict::BothTake, Verdict::OnlyParserTakes, Verdict::NeitherTakes}) {
        const unsigned long count = verdicts[static_cast<std::size_t>(verdict)];
        EXPECT_GT(count, 0U) << testing::PrintToString(verdict);
        RecordProperty(testing::PrintToString(verdict), std::to_string(count));
    }
}

INSTANTIATE_TEST_SUITE_P(seed, nxXMLScannerMutations, testing::Range(1U, 5U));
