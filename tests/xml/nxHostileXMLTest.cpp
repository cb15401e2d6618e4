// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Documents made to do harm: to make the parser read or call something, or to exhaust it.

#include "core/nxStringHelper.h"
#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxIsSanitized.h"
#include "tests/support/nxPrint.h"
#include "tests/support/nxTempFolder.h"
#include "xmlFramework/kestrum/nxKestrumModuleSpec.h"
#include "xmlFramework/xml/nxXMLDocument.h"
#include "xmlFramework/xml/nxXMLReport.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <ctime>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace {
    using Strings = std::vector<std::string>;

    bool HasInput(int descriptor) {
        pollfd state{descriptor, POLLIN, 0};
        return poll(&state, 1, 0) == 1;
    }

    // A file that notices when somebody opens it.
    class WatchedFile {
    public:
        explicit WatchedFile(std::string path) : _path(std::move(path)), _watch(inotify_init1(IN_CLOEXEC)) {
            std::ofstream(_path) << "<a>secret</a>";
            EXPECT_GE(inotify_add_watch(_watch, _path.c_str(), IN_OPEN), 0);
        }
        ~WatchedFile() {
            EXPECT_FALSE(HasInput(_watch)) << "the file was opened";
            std::ifstream(_path).get();
            EXPECT_TRUE(HasInput(_watch)) << "the watch notices nothing";
            close(_watch);
        }
        WatchedFile(const WatchedFile&) = delete;
        WatchedFile& operator=(const WatchedFile&) = delete;

        const std::string& Path() const { return _path; }

    private:
        std::string _path;
        int _watch;
    };

    // A server on this machine that notices when somebody connects.
    class WatchedServer {
    public:
        WatchedServer() : _socket(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
            _address.sin_family = AF_INET;
            _address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
            socklen_t length = sizeof(_address);
            EXPECT_EQ(bind(_socket, Address(), length), 0);
            EXPECT_EQ(listen(_socket, 1), 0);
            EXPECT_EQ(getsockname(_socket, Address(), &length), 0);
        }
        ~WatchedServer() {
            EXPECT_FALSE(HasInput(_socket)) << "somebody connected";
            const int client = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
            EXPECT_EQ(connect(client, Address(), sizeof(_address)), 0);
            EXPECT_TRUE(HasInput(_socket)) << "the watch notices nothing";
            close(client);
            close(_socket);
        }
        WatchedServer(const WatchedServer&) = delete;
        WatchedServer& operator=(const WatchedServer&) = delete;

        std::string URL() const {
            return "http://127.0.0.1:" + std::to_string(ntohs(_address.sin_port)) + "/a";
        }

    private:
        sockaddr* Address() { return reinterpret_cast<sockaddr*>(&_address); }

        int _socket;
        sockaddr_in _address{};
    };

    // Names of one value in the parser's table of names, in which "az" counts as much as "bT".
    std::string Alike(std::size_t i) {
        std::string name;
        for (; name.size() < 40; i /= 2)
            name += i % 2 == 0 ? "az" : "bT";
        return name;
    }

    // A megabyte or more. In each piece "#" stands for a number of its own, "@" for one of many names alike.
    std::string Repeated(const std::string& before, const std::string& piece, const std::string& behind) {
        std::string xml = before;
        for (std::size_t i = 0; xml.size() < 2'000'000; ++i) {
            std::string made = piece;
            nxStringHelper::Replace(made, "#", std::to_string(i));
            nxStringHelper::Replace(made, "@", Alike(i % 2000));
            xml += made;
        }
        return xml + behind;
    }

    std::chrono::duration<double> ProcessorTime() {
        return std::chrono::duration<double>(static_cast<double>(std::clock()) / CLOCKS_PER_SEC);
    }

    std::string Nested(unsigned int depth) {
        std::string xml;
        for (unsigned int i = 0; i < depth; ++i)
            xml += "<a>";
        for (unsigned int i = 0; i < depth; ++i)
            xml += "</a>";
        return xml;
    }
} // namespace

TEST(nxXMLDocumentLoad, RefusesADoctypeOfAnyKindAndReadsNothingFromOutside) {
    const nxTempFolder folder;
    const WatchedFile file(folder.PathOf("a"));
    const WatchedServer server;
    for (const std::string& place : {file.Path(), "file://" + file.Path(), server.URL()}) {
        for (const std::string& doctype : Strings{
                 "<!DOCTYPE a>",
                 "<!DOCTYPE a SYSTEM '" + place + "'>",
                 "<!DOCTYPE a PUBLIC '-//X//Y//EN' '" + place + "'>",
                 "<!DOCTYPE a [<!ENTITY y 'z'><!ENTITY x '&y;&y;'>]>",
                 "<!DOCTYPE a [<!ENTITY x SYSTEM '" + place + "'>]>",
                 "<!DOCTYPE a [<!ENTITY % x SYSTEM '" + place + "'> %x;]>",
             }) {
            const nxCollectedLog log;
            nxXMLDocument document;
            EXPECT_EQ(document.LoadFromString(doctype + "<a>&x;</a>"), nxErrorEnum::XMLParseFailed)
                << doctype;
            ASSERT_EQ(log.Entries().size(), 2U) << doctype;
            const std::string& reason = log.Records().front().entry;
            EXPECT_EQ(reason.substr(reason.find(", Line")),
                      ", Line: 1, Column: 10. Message: invalid document structure");
            EXPECT_FALSE(document.GetRootElement().IsValid());
        }
        const std::string instance = "xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'";
        for (const std::string& xml : Strings{
                 "<?xml-stylesheet type='text/xsl' href='" + place + "'?><a/>",
                 "<a " + instance + " xsi:noNamespaceSchemaLocation='" + place + "'/>",
                 "<a xmlns='x' " + instance + " xsi:schemaLocation='x " + place + "'/>",
                 "<x:include xmlns:x='http://www.w3.org/2001/XInclude' href='" + place + "' parse='text'/>",
             })
            EXPECT_EQ(nxXMLDocument().LoadFromString(xml), nxErrorEnum::OK) << xml;
    }
}

TEST(nxXMLDocumentLoad, ConnectsToNobodyForAPath) {
    const nxCollectedLog log;
    const WatchedServer server;
    std::string contents;
    EXPECT_EQ(nxXMLDocument().LoadFromFile(server.URL()), nxErrorEnum::XMLNoDocumentParsed);
    EXPECT_EQ(nxXMLDocument().LoadFromFileViaString(server.URL(), contents), nxErrorEnum::InputNotUsable);
    EXPECT_EQ(log.Entries(), Strings{"Error during parsing: '" + server.URL() +
                                     "'\nException message is:  \nNo such file or directory\n"});
}

TEST(nxXMLDocumentLoad, TakesAnyDepthOnAnOrdinaryStack) {
    for (const unsigned int depth :
         {nxXMLDocument::MaxSavedDepth, nxXMLDocument::MaxSavedDepth + 1, 1'000'000U}) {
        // A thread has the stack that the system gives by default, whatever this program was started with.
        std::thread([depth] {
            const nxCollectedLog log;
            const std::string xml = Nested(depth);
            nxXMLDocument document;
            EXPECT_EQ(document.LoadFromString(xml), nxErrorEnum::OK) << depth;
            unsigned int found = 0;
            for (nxXMLElement element = document.GetRootElement(); element.IsValid(); ++found)
                element = element.GetNextChildElement();
            EXPECT_EQ(found, depth);

            std::string saved = "before";
            if (depth <= nxXMLDocument::MaxSavedDepth) {
                EXPECT_EQ(document.SaveToString(saved), nxErrorEnum::OK);
                EXPECT_EQ(saved.size(), xml.size() - std::string("</a").size());
                return;
            }
            EXPECT_EQ(document.SaveToString(saved), nxErrorEnum::XMLTooDeep) << depth;
            EXPECT_EQ(saved, "before");
            EXPECT_EQ(log.Entries(), Strings{"Error saving document: in memory \nException message is:  \n"
                                             "the elements are nested too deeply\n"});
            EXPECT_EQ(document.LoadFromString("<b/>"), nxErrorEnum::OK);
            EXPECT_EQ(document.SaveToString(saved), nxErrorEnum::OK);
        }).join();
    }
}

TEST(nxXMLDocumentLoad, TakesAHundredMegabytesOfText) {
    constexpr std::size_t Size = nxIsSanitized ? 10'000'000 : 100'000'000;
    std::string text;
    for (text.reserve(Size + 16); text.size() < Size;)
        text += "0123456789 <&>\r\n\u00E9\U0001F600";
    std::string xml;
    {
        nxXMLDocument document;
        EXPECT_EQ(document.CreateDocument("a"), nxErrorEnum::OK);
        EXPECT_EQ(document.GetRootElement().SetValue(text), nxErrorEnum::OK);
        ASSERT_EQ(document.SaveToString(xml), nxErrorEnum::OK);
    }
    nxXMLDocument document;
    ASSERT_EQ(document.LoadFromString(xml), nxErrorEnum::OK);
    EXPECT_TRUE(document.GetRootElement().GetTextValue() == text); // too long to be shown
}

TEST(nxXMLDocumentLoad, RefusesNamesThatWouldHoldTheParserUp) {
    constexpr char Names[] = "the names of elements and attributes would take too long to tell apart\n";
    constexpr char Attributes[] = "an element has more than 10000 attributes\n";
    const struct {
        const char* before;
        const char* piece;
        const char* behind;
        const char* problem;
    } cases[] = {
        {"<a>", "<a#/>", "</a>", Names},
        {"<a>", "<b a#=\"1\"/>", "</a>", Names},
        {"<a>", "<p#:b/>", "</a>", Names},
        {"<a>", "<@/>", "</a>", Names},
        {"<a", " a# = '>'", "/>", Attributes},
        {"<!--<--><?p <?><a><![CDATA[<]]></a\n><b", "\na#='1'", "/></a>", Attributes},
        {"<?xml version='1.1'?><a", "\u0085a#='1'", "/>", Attributes},
        {"<?xml version=\"1.1\"?><a>", "<b\u2028a#='1'/>", "</a>", Names},
    };
    for (const auto& [before, piece, behind, problem] : cases) {
        const std::string xml = Repeated(before, piece, behind);
        const nxCollectedLog log;
        const auto start = ProcessorTime();
        EXPECT_EQ(nxXMLDocument().LoadFromString(xml), nxErrorEnum::XMLParseFailed) << piece;
        EXPECT_LT((ProcessorTime() - start).count(), 2) << piece;
        ASSERT_EQ(log.Entries().size(), 2U) << piece;
        EXPECT_TRUE(log.Entries().front().ends_with(problem)) << piece;
    }
}

TEST(nxXMLDocumentLoad, TakesManyNamesAndWhatOnlyLooksLikeThem) {
    std::string attributes = "<a";
    for (int i = 0; i < 10'000; ++i)
        attributes += " a" + std::to_string(i) + "='&lt;'";
    for (const std::string& xml : {
             attributes + "/>",
             Repeated("<a>", "<Item-#><Key>#</Key></Item-#>", "</a>"), // some 50,000 names
             Repeated("<a>", "&lt;a# b='c'&gt;", "</a>"),
             Repeated("<a><!--<b", " a#='<'>", "--></a>"),
             Repeated("<a><?p <b", " a#='<'", "?></a>"),
             Repeated("<a><![CDATA[<b", " a#='<'>", "]]></a>"),
             Repeated("<a b=\"", ">a#='1'", "\"/>"),
         })
        EXPECT_EQ(nxXMLDocument().LoadFromString(xml), nxErrorEnum::OK) << xml.substr(0, 40);
}

TEST(nxXMLDocumentSaveToString, TakesNoLongerForCommentsAmongManySiblings) {
    for (const std::string piece : {"<!--a-->", "b<!--a-->", "<?p?><!--a-->"}) {
        std::string xml = "<r><e/>";
        while (xml.size() < 1'000'000)
            xml += piece;
        xml += "</r>";
        nxXMLDocument document;
        ASSERT_EQ(document.LoadFromString(xml), nxErrorEnum::OK);
        const auto start = ProcessorTime();
        std::string saved;
        EXPECT_EQ(document.SaveToString(saved), nxErrorEnum::OK);
        EXPECT_LT((ProcessorTime() - start).count(), 2);
        EXPECT_TRUE(saved == xml) << saved.substr(0, 60);
    }
}

TEST(nxXMLReportRead, TakesNoLongerForEachOfManyUnknownNames) {
    for (const std::string& xml : {Repeated("<r>", "<n#/>", "</r>"), Repeated("<r", " n#=''", "/>")}) {
        const auto start = ProcessorTime();
        nxKestrumModuleSpec spec;
        nxXMLReport report;
        EXPECT_EQ(report.Read(spec, xml, ""), nxErrorEnum::OK);
        EXPECT_LT((ProcessorTime() - start).count(), 20);
        // The most losses that are kept, and that the source code is missing.
        EXPECT_EQ(report.GetFindings().size(), 100'001U);
    }
}
