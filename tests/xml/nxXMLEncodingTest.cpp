// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// The encodings of documents, as nxXMLDocument reads them.

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxPrint.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace std::string_literals;

namespace {
    using Strings = std::vector<std::string>;

    constexpr char NoOutput[] = "Errors occurred, no output available";

    // ASCII in units of 2 or 4 bytes.
    std::string Wide(const std::string& ascii, std::size_t unit, bool bigEndian) {
        std::string wide;
        for (const char c : ascii) {
            std::string bytes(unit, '\0');
            bytes[bigEndian ? unit - 1 : 0] = c;
            wide += bytes;
        }
        return wide;
    }

    std::string Declared(const std::string& encoding) {
        return "<?xml version='1.0' encoding='" + encoding + "'?>";
    }

    Strings EntriesOfRefused(const std::string& xml) {
        const nxCollectedLog log;
        nxXMLDocument document;
        EXPECT_EQ(document.LoadFromString(xml), nxErrorEnum::XMLParseFailed) << testing::PrintToString(xml);
        EXPECT_FALSE(document.GetRootElement().IsValid());
        Strings entries = log.Entries();
        EXPECT_EQ(document.LoadFromString("<a/>"), nxErrorEnum::XMLParseFailed);
        return entries;
    }

    Strings Refusal(const std::string& xml, const std::string& problem) {
        return {"Error during parsing of string: " + xml + " \nException message is:  \n" + problem + "\n",
                NoOutput};
    }
} // namespace

TEST(nxXMLEncoding, IsToldByMarkFirstCharactersAndDeclaration) {
    const std::string text = "<a>\r\n&#xE9;&#x1F600;</a>";
    const std::string declared16 = Declared("utf-16") + text;
    const std::string declared32 = Declared("UCS-4") + text;
    const struct {
        const char* what;
        std::string xml;
    } cases[] = {
        {"UTF-8", "<a>\r\n\u00E9\U0001F600</a><!--\U0001F600--> \r\n\t"},
        {"UTF-8 with mark", "\xEF\xBB\xBF<a>\n\u00E9\U0001F600</a>"},
        {"UTF-8 with mark and declaration", "\uFEFF" + Declared("utf-8") + "<a>\n\u00E9\U0001F600</a>"},
        {"UTF-8 by another name", Declared("unicode-1-1-utf-8") + "<a>\n\u00E9\U0001F600</a>"},
        {"UTF-8 as XML 1.1", "<?xml version='1.1'?><a>\u0085\u00E9&#x1F600;</a>"},
        {"US-ASCII", Declared("US-ASCII") + text},
        {"ISO-8859-1", "<?xml version='1.0' encoding = \"ISO-8859-1\" ?><a>\n\xE9&#x1F600;</a><!--\xFF-->"},
        {"windows-1252", Declared("windows-1252") + "<a>\n\xE9&#x1F600;</a><!--\x80-->"},
        {"GB18030", Declared("GB18030") + "<a>\n\xA8\xA6\x94\x39\xFC\x36</a>"},
        {"UTF-7", Declared("UTF-7") + "<a>\n+AOnYPd4A-</a>"},
        {"UTF-16LE with mark",
         "\xFF\xFE"s + Wide("<a>\r\n", 2, false) + "\xE9\0\x3D\xD8\x00\xDE"s + Wide("</a>", 2, false)},
        {"UTF-16BE with mark",
         "\xFE\xFF"s + Wide("<a>\r", 2, true) + "\0\xE9\xD8\x3D\xDE\x00"s + Wide("</a>\n", 2, true)},
        {"UTF-16LE with mark and declaration", "\xFF\xFE" + Wide(declared16, 2, false)},
        {"UTF-16LE without mark", Wide(declared16, 2, false)},
        {"UTF-16BE without mark", Wide(declared16, 2, true)},
        {"UTF-16BE by its name", Wide(Declared("UTF-16BE") + text, 2, true)},
        {"UCS-4 with mark, little endian", "\xFF\xFE\0\0"s + Wide(declared32, 4, false)},
        {"UCS-4 with mark, big endian", "\0\0\xFE\xFF"s + Wide(text, 4, true)},
        {"UCS-4 without mark, little endian", Wide(declared32, 4, false)},
        {"UCS-4 without mark, big endian", Wide(declared32, 4, true)},
        {"UCS-4LE by its name", Wide(Declared("UCS-4LE") + text, 4, false)},
        {"UCS-4BE by its name, with mark", "\0\0\xFE\xFF"s + Wide(Declared("ucs-4be") + text, 4, true)},
        {"EBCDIC", // <?xml version="1.0" encoding="IBM1047"?><a>(NEL)(U+00E9)&#x1F600;</a>
         "\x4C\x6F\xA7\x94\x93\x40\xA5\x85\x99\xA2\x89\x96\x95\x7E\x7F\xF1\x4B\xF0\x7F\x40\x85\x95\x83\x96"
         "\x84"
         "\x89\x95\x87\x7E\x7F\xC9\xC2\xD4\xF1\xF0\xF4\xF7\x7F\x6F\x6E\x4C\x81\x6E\x15\x51\x50\x7B\xA7\xF1"
         "\xC6"
         "\xF6\xF0\xF0\x5E\x4C\x61\x81\x6E"},
    };
    for (const auto& [what, xml] : cases) {
        nxXMLDocument document;
        EXPECT_EQ(document.LoadFromString(xml), nxErrorEnum::OK) << what;
        EXPECT_EQ(document.GetRootElement().GetTextValue(), "\n\u00E9\U0001F600") << what;
    }
}

TEST(nxXMLEncoding, OfBytesThatAreNoTextInItIsNamedWithTheirPlace) {
    const std::string cutOff = "a character cut off by the end";
    const std::string padding(32, ' ');
    const struct {
        std::string bytes; // behind the declaration of the encoding, or all, when there is none
        std::string encoding;
        std::string problem;
        std::size_t place; // in `bytes`
    } cases[] = {
        {"<a/>\0"s, "UTF-8", "NUL", 4},
        {"<a/>\0<b/>"s, "UTF-8", "NUL", 4},
        {"<a/>\xC3", "UTF-8", cutOff, 4},
        {"<a/>\xE2\x82", "UTF-8", cutOff, 4},
        {"<a/>\xF0>", "UTF-8", "no valid character", 4},
        {"<a/>\xFC<b/>", "UTF-8", "no valid character", 4},
        {"<a>" + padding + "\xF7\xBF\xBF\xBF</a>", "UTF-8", "no valid character", 35},
        {"<a>\xED\xA0\x80</a>", "UTF-8", "no valid character", 3},
        {"\xEF\xBB\xBF<a>\xC0\x80</a>", "UTF-8", "no valid character", 6},
        {"\uFEFF\uFEFF<a/>", "UTF-8", "a second byte-order mark", 3},
        {"<a>\xD2</a>", "windows-1253", "no valid character", 3},
        {"<a>\xA5</a>", "ISO-8859-3", "no valid character", 3},
        {"<a>\xFF</a>", "ISO-8859-7", "no valid character", 3},
        {"<a>\x80</a>", "US-ASCII", "no valid character", 3},
        {"<a>\0</a>"s, "ISO-8859-1", "NUL", 3},
        {"<a/>\x81", "GB18030", cutOff, 4},
        {"<a/>\x1B$B0", "ISO-2022-JP", cutOff, 4},
        {"<a/>+AO", "UTF-7", cutOff, 4},
        {"<a>+2D0-</a>", "UTF-7", "no valid character", 3},
        {"\xFF\xFE<\0a\0/\0>\0\n"s, "UTF-16LE", cutOff, 10},
        {"\xFE\xFF\0<\0a\0/\0>\0\0"s, "UTF-16BE", "NUL", 10},
        {"\xFF\xFE<\0a\0>\0\x3D\xD8<\0/\0a\0>\0"s, "UTF-16LE", "no valid character", 8},
        {"<\0?\0x\0?\0>\0<\0a\0/\0>\0"s, "UTF-8", "NUL", 1}, // neither mark nor declaration
        {"\xFF\xFE\xFF\xFE<\0a\0/\0>\0"s, "UTF-16LE", "a second byte-order mark", 2},
        {"\0\0\xFE\xFF\0\0\0<\0\0\0a\0\0\0/\0\0\0>\0\x11\0\0"s, "UTF-32BE", "no valid character", 20},
    };
    for (const auto& [bytes, encoding, problem, place] : cases) {
        const std::string before =
            encoding.starts_with("UTF-") && encoding != "UTF-7" ? "" : Declared(encoding);
        const std::string xml = before + bytes;
        EXPECT_EQ(EntriesOfRefused(xml),
                  Refusal(xml, problem + " at byte " + std::to_string(before.size() + place) +
                                   " (from 0) in encoding '" + encoding + "'"));
    }
}

TEST(nxXMLEncoding, UTF8IsCheckedAtEveryPlace) {
    for (std::size_t place = 0; place < 200; ++place) {
        std::string xml = "<a>" + std::string(200, 'x') + "</a>";
        for (const std::string& character : {"\u00E9"s, "\u20AC"s, "\U0001F600"s, "\U0010FFFF"s}) {
            std::string valid = xml;
            valid.insert(3 + place, character);
            EXPECT_EQ(nxXMLDocument().LoadFromString(valid), nxErrorEnum::OK) << place;
        }
        for (const std::string& bytes :
             {"\x80"s, "\xC1\xBF"s, "\xE0\x9F\xBF"s, "\xED\xA0\x80"s, "\xF0\x8F\xBF\xBF"s,
              "\xF4\x90\x80\x80"s, "\xF5\x80\x80\x80"s, "\xE2\x82"s, "\xF1\x80\x80("s, "\0"s}) {
            std::string invalid = xml;
            invalid.insert(3 + place, bytes);
            const Strings entries = EntriesOfRefused(invalid);
            EXPECT_NE(entries.at(0).find(" at byte " + std::to_string(3 + place) + " (from 0)"),
                      std::string::npos)
                << entries.at(0);
        }
    }
}

TEST(nxXMLEncoding, ThatIsUnknownOrContradictedIsRefusedInTheWordsOfTheParser) {
    const std::string warning = "DOM Warning", fatal = "DOM Fatal Error";
    const struct {
        std::string xml;
        std::string heading;
        std::string behind; // the place
    } cases[] = {
        {Declared("UTF-16"), warning,
         "Column: 40. Message: encoding 'UTF-16' from XML declaration or manually set contradicts the "
         "auto-sensed encoding; ignoring"},
        {Declared("x-none"), fatal, "Column: 40. Message: unable to create converter for 'X-NONE' encoding"},
        {"\xFF\xFE" + Wide(Declared("x-none"), 2, false), fatal,
         "Column: 40. Message: unable to create converter for 'X-NONE' encoding"},
        {Declared("8859_1"), fatal, "Column: 38. Message: invalid XML encoding declaration '8859_1'"},
        {Declared("UTF-8,version=1"), fatal,
         "Column: 47. Message: invalid XML encoding declaration 'UTF-8,version=1'"},
        {"\xFF\xFE" + Wide(Declared("ISO-8859-1"), 2, false), fatal,
         "Column: 45. Message: element name expected"},
    };
    for (const auto& [xml, heading, behind] : cases) {
        // What stands behind the declaration does not matter.
        for (const std::string& rest : {"<a/>"s, "<a>\xFF"s + std::string(100'000, 'x')}) {
            const bool isWide = xml.front() == '\xFF';
            const Strings entries = EntriesOfRefused(xml + (isWide ? Wide("<a/>", 2, false) : rest));
            ASSERT_EQ(entries.size(), 2U) << xml;
            EXPECT_EQ(entries[0].substr(0, entries[0].find(". URI")), heading);
            EXPECT_EQ(entries[0].substr(entries[0].find("Column")), behind);
            EXPECT_EQ(entries[1], NoOutput);
        }
    }
}

TEST(nxXMLEncoding, ThatIsUnknownIsRefusedInTheSameWordsInUnitsOfAnySize) {
    for (const std::size_t unit : {1U, 2U, 4U}) {
        for (const bool isBigEndian : {false, true}) {
            const Strings entries = EntriesOfRefused(Wide(Declared("x-none") + "<a/>", unit, isBigEndian));
            ASSERT_EQ(entries.size(), 2U) << unit;
            EXPECT_EQ(entries[0].substr(entries[0].find("Column")),
                      "Column: 40. Message: unable to create converter for 'X-NONE' encoding")
                << unit << isBigEndian;
            EXPECT_EQ(entries[1], NoOutput);
        }
    }
}

TEST(nxXMLEncoding, ThatTheParserWouldReadInSilenceIsRefusedAllTheSame) {
    const std::string xml = "\xEF\xBB\xBF" + Declared("ISO-8859-1") + "<a>\u00E9</a>";
    EXPECT_EQ(EntriesOfRefused(xml),
              Refusal(xml, "the encoding 'ISO-8859-1' is declared, but the bytes are in another"));
}
