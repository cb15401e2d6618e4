// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLDocument.h"

#include "core/nxFileHelper.h"
#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxFullDisk.h"
#include "tests/support/nxPrint.h"
#include "tests/support/nxTempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <tuple>
#include <vector>

namespace {
    using Strings = std::vector<std::string>;

    // What is logged behind the parser's own message, and what the parser says to some documents.
    constexpr char NoOutput[] = "Errors occurred, no output available";
    constexpr char NotSupported[] =
        "Message is: implementation does not support the requested type of object or operation";
    constexpr char Contradiction[] =
        ", Line: 1, Column: 40. Message: encoding 'UTF-16' from XML declaration or manually set contradicts "
        "the auto-sensed encoding; ignoring";

    std::string Saved(nxXMLDocument& document) {
        std::string xml = "not saved";
        std::ignore = document.SaveToString(xml); // the text shows it
        return xml;
    }

    std::string FileContents(const std::string& path) {
        std::string contents = "not there";
        std::string problem;
        std::ignore = nxFileHelper::Read(path, contents, problem); // the text shows it
        return contents;
    }

    void WriteFile(const std::string& path, const std::string& contents) {
        std::string problem;
        ASSERT_TRUE(nxFileHelper::Write(path, contents, problem).IsOK()) << problem;
    }

    std::wstring Wide(const std::string& ascii) {
        return {ascii.begin(), ascii.end()};
    }

    // The name of the buffer that the next load from a string has.
    std::string NextBufferName() {
        const std::string name = "nxMemBufInputSource";
        const nxCollectedLog log;
        EXPECT_FALSE(nxXMLDocument().LoadFromString("").IsOK());
        const std::string entry = log.Entries().at(0);
        return name + std::to_string(std::stoi(entry.substr(entry.find(name) + name.size())) + 1);
    }

    nxXMLDocument documentThatLivesAsLongAsTheProgram;
} // namespace

TEST(nxXMLDocumentLoadFromString, LogsWhatTheParserSaysAndFailsFromThenOn) {
    const std::string fatal = "DOM Fatal Error. URI: ";
    const struct {
        const char* xml;
        std::string before; // the buffer's name
        std::string behind;
    } cases[] = {
        {"", fatal, ", Line: 1, Column: 1. Message: invalid document structure"},
        {"<a>\n<b></a>", fatal, ", Line: 2, Column: 6. Message: expected end of tag 'b'"},
        {"<a/><b/>", fatal, ", Line: 1, Column: 5. Message: comment or processing instruction expected"},
        {"<?xml version='1.0' encoding='UTF-16'?><a/>", "DOM Warning. URI: ", Contradiction},
    };
    for (const auto& [xml, before, behind] : cases) {
        const std::string buffer = NextBufferName();
        const nxCollectedLog log;
        nxXMLDocument document;
        EXPECT_EQ(document.LoadFromString(xml), nxErrorEnum::XMLParseFailed) << xml;
        EXPECT_EQ(document.LoadFromString("<a/>"), nxErrorEnum::XMLParseFailed) << xml;
        EXPECT_EQ(log.Entries(), (Strings{before + buffer + behind, NoOutput, NoOutput}));
        EXPECT_FALSE(document.GetRootElement().IsValid());
        for (const CollectedRecord& record : log.Records()) {
            EXPECT_EQ(record.level, nxLogLevelEnum::Error);
            EXPECT_EQ(record.sourceFile, "xmlFramework/trunk/nxXMLDocument");
        }
    }
    EXPECT_EQ(nxXMLDocument().LoadFromString("<a/>"), nxErrorEnum::OK);
}

TEST(nxXMLDocumentLoadFromString, LogsTheWholeTextOfWhatMakesTheParserThrow) {
    const nxCollectedLog log;
    EXPECT_EQ(nxXMLDocument().LoadFromString("<?xml version='1.2'?><a/>"), nxErrorEnum::XMLParseFailed);
    EXPECT_EQ(log.Entries(), (Strings{"\nDOM Error during parsing of string: <?xml version='1.2'?><a/>\n"
                                      "DOMException code is:  9",
                                      NotSupported}));
}

TEST(nxXMLDocumentLoadFromString, ReplacesTheDocumentUnlessItFails) {
    const nxCollectedLog log;
    nxXMLDocument document;
    ASSERT_EQ(document.LoadFromString("<a><b/></a>"), nxErrorEnum::OK);
    ASSERT_EQ(document.LoadFromString("<c/>"), nxErrorEnum::OK);
    const nxXMLElement root = document.GetRootElement();
    EXPECT_EQ(document.LoadFromString("<d>"), nxErrorEnum::XMLParseFailed);
    EXPECT_EQ(root.GetName(), "c");
    EXPECT_EQ(document.GetRootElement().GetElement(), root.GetElement());
    EXPECT_EQ(Saved(document), "<c/>");
}

TEST(nxXMLDocumentLoadFromString, ReadsEachDocumentByTheRulesOfItsOwnVersion) {
    const std::string content = "<a>\u0085\u2028</a>";
    nxXMLDocument document;
    for (int round = 0; round < 2; ++round) {
        ASSERT_EQ(document.LoadFromString("<?xml version='1.1'?>" + content + "\u0085\u2028"),
                  nxErrorEnum::OK);
        EXPECT_EQ(document.GetRootElement().GetTextValue(), "\n\n");
        ASSERT_EQ(document.LoadFromString(content), nxErrorEnum::OK);
        EXPECT_EQ(document.GetRootElement().GetTextValue(), "\u0085\u2028");
    }
    const nxCollectedLog log;
    ASSERT_EQ(document.LoadFromString("<?xml version='1.1'?><a>&#1;</a>"), nxErrorEnum::OK);
    EXPECT_EQ(document.LoadFromString("<a>&#1;</a>"), nxErrorEnum::XMLParseFailed);
}

TEST(nxXMLDocumentLoadFromFile, TakesPathsAndFileURIs) {
    const nxTempFolder folder;
    const std::string path = folder.PathOf("a \u00E9.xml");
    const std::string uriPath = folder.PathOf("a%20%C3%A9.xml");
    WriteFile(path, "<a>1</a>");
    for (const std::string& name : {path, "file://" + uriPath, "file://localhost" + uriPath}) {
        nxXMLDocument document;
        EXPECT_EQ(document.LoadFromFile(name), nxErrorEnum::OK) << name;
        EXPECT_EQ(Saved(document), "<a>1</a>");
    }
    nxXMLDocument document;
    EXPECT_EQ(document.LoadFromFile(Wide(folder.PathOf("a ")) + L"\u00E9.xml"), nxErrorEnum::OK);
    EXPECT_EQ(Saved(document), "<a>1</a>");
}

TEST(nxXMLDocumentLoadFromFile, SaysThatAFileThatCannotBeReadGaveNoDocument) {
    const nxTempFolder folder;
    const struct {
        std::string path;
        const char* problem;
    } cases[] = {
        {folder.PathOf("missing.xml"), "No such file or directory"},
        {folder.Path().native(), "Is a directory"},
        {"file://elsewhere/a.xml", "No such file or directory"},
        {"file:///a%2.xml", "No such file or directory"},
    };
    for (const auto& [path, problem] : cases) {
        const nxCollectedLog log;
        nxXMLDocument document;
        EXPECT_EQ(document.LoadFromFile(path), nxErrorEnum::XMLNoDocumentParsed) << path;
        EXPECT_EQ(log.Entries(), Strings{"Error during parsing: '" + path + "'\nException message is:  \n" +
                                         problem + "\n"});
        ASSERT_EQ(document.LoadFromString("<a/>"), nxErrorEnum::OK);
        EXPECT_EQ(document.LoadFromFile(path), nxErrorEnum::XMLNoDocumentParsed) << path;
        EXPECT_EQ(Saved(document), "<a/>");
    }
}

TEST(nxXMLDocumentPaths, AreShownEscapedWhenTheyAreNoText) {
    const std::wstring path = std::wstring(L"/a\u00E9") + wchar_t{0xD800} + wchar_t{0x110000};
    const std::string shown = "/a\u00E9\\u{D800}\\u{110000}";
    const nxCollectedLog log;
    nxXMLDocument document;
    ASSERT_EQ(document.CreateDocument("a"), nxErrorEnum::OK);
    EXPECT_EQ(document.LoadFromFile(path), nxErrorEnum::XMLNoDocumentParsed);
    EXPECT_EQ(document.SaveToFile(path), nxErrorEnum::XMLWriteFailed);
    EXPECT_EQ(log.Entries(), (Strings{"Error during parsing: '" + shown +
                                          "'\nException message is:  \nthe path is no Unicode text\n",
                                      "Error saving document: " + shown +
                                          " \nException message is:  \nthe path is no Unicode text\n"}));
}

TEST(nxXMLDocumentLoadFromFile, NamesTheFileInWhatItLogsAndKeepsTheDocumentOfBefore) {
    const nxTempFolder folder;
    const std::string path = folder.PathOf("a.xml");
    const std::string thrown = "\nDOM Error during parsing: '" + path + "'\nDOMException code is:  9";
    const struct {
        const char* xml;
        unsigned int result; // where no document was loaded before
        Strings entries;
    } cases[] = {
        {"<a>\n</b>",
         nxErrorEnum::XMLParseFailed,
         {"DOM Fatal Error. URI: " + path + ", Line: 2, Column: 3. Message: expected end of tag 'a'",
          NoOutput}},
        {"<?xml version='1.2'?><a/>", nxErrorEnum::XMLNoDocumentParsed, {thrown, NotSupported}},
        {"<?xml version='1.2' encoding='UTF-16'?><a/>",
         nxErrorEnum::XMLNoDocumentParsed,
         {"DOM Warning. URI: " + path + Contradiction, thrown, NotSupported}},
        {"<a/>\xC3",
         nxErrorEnum::XMLParseFailed,
         {"Error during parsing: '" + path +
              "'\nException message is:  \na character cut off by the end at byte 4 (from 0) in encoding "
              "'UTF-8'\n",
          NoOutput}},
    };
    for (const auto& [xml, result, entries] : cases) {
        WriteFile(path, xml);
        const nxCollectedLog log;
        EXPECT_EQ(nxXMLDocument().LoadFromFile(path), result) << xml;
        EXPECT_EQ(log.Entries(), entries);

        nxXMLDocument document;
        ASSERT_EQ(document.LoadFromString("<b/>"), nxErrorEnum::OK);
        EXPECT_EQ(document.LoadFromFile(path), nxErrorEnum::XMLParseFailed) << xml;
        EXPECT_EQ(Saved(document), "<b/>");
    }
}

TEST(nxXMLDocumentLoadFromFileViaString, HandsBackTheTextWithLineFeeds) {
    const nxTempFolder folder;
    const std::string path = folder.PathOf("a.xml");
    const nxCollectedLog log;
    nxXMLDocument document;
    std::string contents = "before";
    EXPECT_EQ(document.LoadFromFileViaString(path, contents), nxErrorEnum::InputNotUsable);
    EXPECT_EQ(contents, "");
    EXPECT_EQ(log.Entries(), Strings());

    WriteFile(path, "<a>\r\n\r</a>\r\n");
    EXPECT_EQ(document.LoadFromFileViaString(path, contents), nxErrorEnum::OK);
    EXPECT_EQ(contents, "<a>\n\r</a>\n");
    EXPECT_EQ(document.GetRootElement().GetTextValue(), "\n\n");
}

TEST(nxXMLDocumentCreateDocument, RefusesASecondDocumentAndARootNameThatIsNoXMLName) {
    for (const std::string name : {"", "a b", "1a", "<", "a\xFF", "a\x01", "\U0001F600"}) {
        const nxCollectedLog log;
        nxXMLDocument document;
        EXPECT_EQ(document.CreateDocument(name), nxErrorEnum::XMLTextNotCarried) << name;
        EXPECT_EQ(log.EntriesAt(nxLogLevelEnum::Error),
                  Strings{"Error creating document '" + name + "': the name cannot be carried by XML"});
        EXPECT_EQ(document.CreateDocument("a\u00E9"), nxErrorEnum::OK);
        EXPECT_EQ(document.CreateDocument("b"), nxErrorEnum::XMLDocumentNotCreatable);
        EXPECT_EQ(Saved(document), "<a\u00E9/>");
    }
}

TEST(nxXMLDocumentSaveToString, LeavesTheArgumentWithoutADocument) {
    nxXMLDocument document;
    std::string xml = "before";
    EXPECT_EQ(document.SaveToString(xml), nxErrorEnum::XMLDocumentMissing);
    EXPECT_EQ(document.SaveToFile(std::string("nowhere")), nxErrorEnum::XMLDocumentMissing);
    EXPECT_EQ(document.SaveToFileViaString("nowhere", xml), nxErrorEnum::XMLDocumentMissing);
    EXPECT_EQ(xml, "before");
}

TEST(nxXMLDocumentSaveToString, WritesTheRootElementAsOneLineThatReadsBackTheSame) {
    const struct {
        const char* xml;
        const char* saved;
    } cases[] = {
        {"<?xml version='1.0'?>\n<!--c--><a></a>\n<?p q?>", "<a/>"},
        {"\xEF\xBB\xBF<a b='1'\n c=\"2\"><d/> <e>f</e></a>", "<a b=\"1\" c=\"2\"><d/> <e>f</e></a>"},
        {"<a b='&#9;&#10;&#13;&lt;&amp;&apos;&quot;>'/>", "<a b=\"&#x9;&#xA;&#xD;&lt;&amp;'&quot;>\"/>"},
        {"<a>\t\r\n&#13; &lt;&amp;'\"]]&gt;\u0085\u2028\U0001F600</a>",
         "<a>\t\n&#xD; &lt;&amp;'\"]]&gt;\u0085\u2028\U0001F600</a>"},
        {"<a><![CDATA[<&]]>b<!--c--><?d e?></a>", "<a><![CDATA[<&]]>b<!--c--><?d e?></a>"},
    };
    for (const auto& [xml, saved] : cases) {
        nxXMLDocument document;
        ASSERT_EQ(document.LoadFromString(xml), nxErrorEnum::OK) << xml;
        EXPECT_EQ(Saved(document), saved);
        nxXMLDocument again;
        ASSERT_EQ(again.LoadFromString(saved), nxErrorEnum::OK);
        EXPECT_EQ(Saved(again), saved);
    }
}

TEST(nxXMLDocumentSaveToString, RefusesWhatOnlyXML11Carries) {
    const std::pair<std::string, std::string> cases[] = {
        {"&#1;", "invalid or illegal XML character"},
        {"<?b\U00010000 c?>", "the name of an instruction cannot be carried by XML 1.0"}};
    for (const auto& [content, problem] : cases) {
        nxXMLDocument document;
        ASSERT_EQ(document.LoadFromString("<?xml version='1.1'?><a>" + content + "</a>"), nxErrorEnum::OK);
        const nxCollectedLog log;
        std::string xml = "before";
        EXPECT_EQ(document.SaveToString(xml), nxErrorEnum::XMLTextNotCarried);
        EXPECT_EQ(xml, "before");
        EXPECT_NE(log.Entries().at(0).find(problem), std::string::npos) << log.Entries().at(0);
    }
}

TEST(nxXMLDocumentSaveToFile, WritesUTF8InEveryWay) {
    const nxTempFolder folder;
    nxXMLDocument document;
    ASSERT_EQ(document.LoadFromString("<a>\u00E9</a>"), nxErrorEnum::OK);
    std::string contents;
    EXPECT_EQ(document.SaveToFile(folder.PathOf("1")), nxErrorEnum::OK);
    EXPECT_EQ(document.SaveToFile(Wide(folder.PathOf("2")) + L"\u00E9"), nxErrorEnum::OK);
    EXPECT_EQ(document.SaveToFileViaString(folder.PathOf("3"), contents), nxErrorEnum::OK);
    EXPECT_EQ(document.SaveToFileViaExistingString(folder.PathOf("4"), "\u00E9\r\n"), nxErrorEnum::OK);
    EXPECT_EQ(contents, "<a>\u00E9</a>");
    for (const char* name : {"1", "2\u00E9", "3"})
        EXPECT_EQ(FileContents(folder.PathOf(name)), contents) << name;
    EXPECT_EQ(FileContents(folder.PathOf("4")), "\u00E9\r\n");
}

TEST(nxXMLDocumentSaveToFile, KeepsTheFileThatWasThereWhenItFails) {
    const nxTempFolder folder;
    const std::string path = folder.PathOf("a.xml");
    WriteFile(path, "old");
    nxXMLDocument document;
    ASSERT_EQ(document.CreateDocument("a"), nxErrorEnum::OK);
    document.GetRootElement().SetValue("not much");

    const nxCollectedLog log;
    {
        const nxFullDisk limit(10);
        EXPECT_EQ(document.SaveToFile(path), nxErrorEnum::XMLWriteFailed);
    }
    EXPECT_EQ(document.GetRootElement().SetValue("\x01"),
              nxErrorEnum::XMLTextNotCarried); // the first is told
    EXPECT_EQ(document.GetRootElement().AddChildElement("b").SetValue("\xFF"),
              nxErrorEnum::XMLTextNotCarried);
    EXPECT_EQ(document.SaveToFile(path), nxErrorEnum::XMLTextNotCarried);
    EXPECT_EQ(document.SaveToFileViaExistingString(path, "<a>\xFF</a>"), nxErrorEnum::XMLTextNotCarried);
    EXPECT_EQ(
        log.Entries(),
        (Strings{"Error saving document: " + path + " \nException message is:  \nFile too large\n",
                 "Error saving document: " + path +
                     " \nException message is:  \na text cannot be carried by XML: it holds a character "
                     "that XML 1.0 does not allow, in element 'a'\n",
                 "Error saving document: " + path + " \nException message is:  \nit is not valid UTF-8\n"}));
    EXPECT_EQ(FileContents(path), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

TEST(nxXMLDocumentSaveToFile, LogsWhyAFileCannotBeWritten) {
    nxXMLDocument document;
    ASSERT_EQ(document.CreateDocument("a"), nxErrorEnum::OK);
    const nxCollectedLog log;
    EXPECT_EQ(document.SaveToFile(std::string("/dev/full")), nxErrorEnum::XMLWriteFailed);
    EXPECT_EQ(document.SaveToFileViaExistingString("", "<a/>"), nxErrorEnum::XMLWriteFailed);
    EXPECT_EQ(
        log.Entries(),
        (Strings{"Error saving document: /dev/full \nException message is:  \nNo space left on device\n",
                 "Error saving document:  \nException message is:  \nNo such file or directory\n"}));
}

TEST(nxXMLDocumentDestructor, ComesBeforeTheParserIsTerminatedWhenTheProgramEnds) {
    const auto loadAndExit = [] {
        static nxXMLDocument local;
        const bool loaded = local.LoadFromString("<a>1</a>").IsOK() &&
                            documentThatLivesAsLongAsTheProgram.LoadFromString("<b/>").IsOK();
        std::exit(loaded ? 0 : 1); // NOLINT(concurrency-mt-unsafe)
    };
    EXPECT_EXIT(loadAndExit(), testing::ExitedWithCode(0), "^$");
}
