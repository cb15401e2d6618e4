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
        document.SaveToString(xml);
        return xml;
    }

    std::string FileContents(const std::string& path) {
        std::string contents = "not there";
        std::string problem;
        nxFileHelper::Read(path, contents, problem);
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
        nxXMLDocument().LoadFromString("");
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
        {"<a>\xED\xA0\x80</a>", fatal,
         ", Line: 1, Column: 1. Message: irregular bytes '\uFFFD' and '\uFFFD' of a 3-byte sequence"},
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

TEST(nxXMLDocumentLoadFromString, RefusesBytesBehindTheRootThatTheParserPassesOver) {
    using namespace std::string_literals;
    for (const std::string& tail : {"\0"s, "\0<b/>"s, "\xC3"s, "\xE2\x82"s, "\xF0>"s, "\xFC<b/>"s}) {
        const std::string xml = "<a/>" + tail;
        const nxCollectedLog log;
        nxXMLDocument document;
        EXPECT_EQ(document.LoadFromString(xml), nxErrorEnum::XMLParseFailed) << testing::PrintToString(xml);
        EXPECT_EQ(log.Entries(), Strings{"Error during parsing of string: " + xml +
                                         " \nException message is:  \n"
                                         "the text goes on behind the end of the document\n"});
        EXPECT_FALSE(document.GetRootElement().IsValid());
    }
}

TEST(nxXMLDocumentLoadFromString, ReadsTheEncodingsThatADocumentNames) {
    using namespace std::string_literals;
    const struct {
        const char* encoding;
        std::string xml;
    } cases[] = {
        {"UTF-8", "<a>\u00E9\U0001F600</a><!--\U0001F600--> \r\n\t"s},
        {"UTF-8 with byte-order mark", "\xEF\xBB\xBF<a>\u00E9\U0001F600</a>"s},
        {"UTF-16LE with byte-order mark", "\xFF\xFE<\0a\0>\0\xE9\0\x3D\xD8\x00\xDE<\0/\0a\0>\0"s},
        {"UTF-16BE with byte-order mark", "\xFE\xFF\0<\0a\0>\0\xE9\xD8\x3D\xDE\x00\0<\0/\0a\0>\0\n"s},
        {"ISO-8859-1", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9&#x1F600;</a><!--\xFF-->"s},
        {"UTF-8 as XML 1.1", "<?xml version='1.1'?><a>\u00E9&#x1F600;</a>"s},
    };
    for (const auto& [encoding, xml] : cases) {
        nxXMLDocument document;
        EXPECT_EQ(document.LoadFromString(xml), nxErrorEnum::OK) << encoding;
        EXPECT_EQ(document.GetRootElement().GetTextValue(), "\u00E9\U0001F600") << encoding;
    }
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
          "'\nException message is:  \nthe text goes on behind the end of the document\n"}},
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
    nxXMLDocument document;
    ASSERT_EQ(document.LoadFromString("<?xml version='1.1'?><a>&#1;</a>"), nxErrorEnum::OK);
    const nxCollectedLog log;
    std::string xml = "before";
    EXPECT_EQ(document.SaveToString(xml), nxErrorEnum::XMLTextNotCarried);
    EXPECT_EQ(xml, "before");
    EXPECT_FALSE(log.EntriesAt(nxLogLevelEnum::Error).empty());
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
    EXPECT_EQ(document.GetRootElement().SetValue("\x01"), nxErrorEnum::XMLTextNotCarried);
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
