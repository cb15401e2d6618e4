// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// What records, documents and elements do when memory ends, at each of the places where they ask for some.

#include "core/nxFileHelper.h"
#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxFormatExamples.h"
#include "tests/support/nxPrint.h"
#include "tests/support/nxTempFolder.h"
#include "xmlFramework/xml/nxXMLDocument.h"
#include "xmlFramework/xml/nxXMLReport.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <new>
#include <string>

namespace {
    constexpr int Never = -1;
    int allocationsLeft = Never;
    int endCount = 0; // of memory, in this process

    bool MayAllocate() {
        if (allocationsLeft > 0)
            --allocationsLeft;
        return allocationsLeft != 0;
    }
} // namespace

// Also the parser's memory comes from here. NOLINTBEGIN(cppcoreguidelines-no-malloc)
[[gnu::noinline]] void* operator new(std::size_t size) {
    void* const memory = MayAllocate() ? std::malloc(size) : nullptr;
    return memory ? memory : throw std::bad_alloc();
}

[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t& /*none*/) noexcept {
    return MayAllocate() ? std::malloc(size) : nullptr;
}

[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
// NOLINTEND(cppcoreguidelines-no-malloc)

// The parser drops what it has when it gets no more.
extern "C" [[gnu::visibility("default")]] const char*
__lsan_default_suppressions(); // NOLINT(bugprone-reserved-identifier)
const char* __lsan_default_suppressions() {
    return "leak:libxerces-c";
}

namespace {
    // Runs the operation on documents, or records, made by `prepare` with one allocation more each time,
    // until they are enough. Before that std::bad_alloc is to leave, and nothing else.
    template <class Subject = nxXMLDocument, class Prepare, class Operation, class Check>
    void ForEachEndOfMemory(const Prepare& prepare, const Operation& operation, const Check& check) {
        bool isDone = false;
        for (int count = 1; !isDone; ++count) {
            ASSERT_LT(count, 10'000);
            const nxCollectedLog log;
            Subject subject;
            prepare(subject);
            allocationsLeft = count;
            try {
                operation(subject);
                isDone = true;
            } catch (const std::bad_alloc&) { // NOLINT(bugprone-empty-catch): as it should be
            } catch (...) {
                allocationsLeft = Never;
                FAIL() << "something else was thrown after " << count << " allocations";
            }
            allocationsLeft = Never;
            check(subject, isDone);
            ++endCount;
        }
    }

    std::string Saved(nxXMLDocument& document) {
        std::string xml;
        EXPECT_EQ(document.SaveToString(xml), nxErrorEnum::OK);
        return xml;
    }
} // namespace

TEST(nxXMLDocumentWithoutMemory, KeepsTheDocumentWhenALoadFails) {
    const std::string good = "<?xml version='1.0' encoding='ISO-8859-1'?><a b='c'>\xE9<d/><![CDATA[e]]></a>";
    ForEachEndOfMemory([](auto& document) { EXPECT_TRUE(document.LoadFromString("<before/>").IsOK()); },
                       [&good](auto& document) { EXPECT_TRUE(document.LoadFromString(good).IsOK()); },
                       [](auto& document, bool isDone) {
                           EXPECT_EQ(Saved(document),
                                     isDone ? "<a b=\"c\">\u00E9<d/><![CDATA[e]]></a>" : "<before/>");
                           EXPECT_EQ(document.LoadFromString("<later/>"), nxErrorEnum::OK);
                           EXPECT_EQ(Saved(document), "<later/>");
                       });
}

TEST(nxXMLDocumentWithoutMemory, DoesNotTakeThatForBadData) {
    for (const std::string bad : {"<a><b></a>", "<a>\xFF</a>", "<?xml version='1.2'?><a/>",
                                  "<?xml version='1.0' encoding='x-none'?><a/>"}) {
        ForEachEndOfMemory([](auto& document) { EXPECT_TRUE(document.LoadFromString("<before/>").IsOK()); },
                           [&bad](auto& document) {
                               EXPECT_EQ(document.LoadFromString(bad), nxErrorEnum::XMLParseFailed) << bad;
                           },
                           [](auto& document, bool /*isDone*/) { EXPECT_EQ(Saved(document), "<before/>"); });
    }
}

TEST(nxXMLDocumentWithoutMemory, WritesAllOrNothing) {
    const nxTempFolder folder;
    const std::string path = folder.PathOf("a.xml");
    std::string xml;
    ForEachEndOfMemory(
        [](auto& document) { EXPECT_TRUE(document.LoadFromString("<a b='c'>d<e/></a>").IsOK()); },
        [&](auto& document) {
            xml = "before";
            EXPECT_EQ(document.SaveToString(xml), nxErrorEnum::OK);
        },
        [&](auto& document, bool isDone) {
            EXPECT_EQ(xml, isDone ? "<a b=\"c\">d<e/></a>" : "before");
            EXPECT_EQ(Saved(document), "<a b=\"c\">d<e/></a>");
        });
    ForEachEndOfMemory(
        [](auto& document) { EXPECT_TRUE(document.LoadFromString("<a/>").IsOK()); },
        [&](auto& document) { EXPECT_EQ(document.SaveToFile(path), nxErrorEnum::OK); },
        [&](auto& /*document*/, bool isDone) { EXPECT_EQ(std::filesystem::exists(path), isDone); });
}

TEST(nxXMLElementWithoutMemory, StaysAsItWas) {
    const std::string text(300, 'x'); // too long for memory on the stack
    const struct {
        const char* xml;
        void (*put)(nxXMLElement root, const std::string& value);
    } cases[] = {
        {"<a/>", [](nxXMLElement root, const std::string& value) { root.AddChildElement("b", value); }},
        {"<a/>", [](nxXMLElement root, const std::string& value) { root.AddChildValue("b", value); }},
        {"<a/>", [](nxXMLElement root, const std::string& value) { root.SetValue(value); }},
        {"<a>b</a>", [](nxXMLElement root, const std::string& value) { root.SetValue(value); }},
        {"<a b=\"c\"/>", [](nxXMLElement root, const std::string& value) { root.SetAttribute("b", value); }},
        {"<a><![CDATA[b]]><![CDATA[c]]></a>",
         [](nxXMLElement root, const std::string& value) { root.SetCDATAValue(value + "]]>" + value); }},
    };
    for (const auto& example : cases) {
        const std::string xml = example.xml;
        ForEachEndOfMemory(
            [&](auto& document) { EXPECT_TRUE(document.LoadFromString(xml).IsOK()); },
            [&](auto& document) { example.put(document.GetRootElement(), text); },
            [&](auto& document, bool isDone) { EXPECT_EQ(Saved(document) == xml, !isDone) << xml; });
    }
    ForEachEndOfMemory(
        [](auto& /*document*/) {},
        [](auto& document) { EXPECT_EQ(document.CreateDocument("a"), nxErrorEnum::OK); },
        [](auto& document, bool isDone) { EXPECT_EQ(document.GetRootElement().IsValid(), isDone); });
    ForEachEndOfMemory([](auto& document) { EXPECT_TRUE(document.LoadFromString("<a/>").IsOK()); },
                       [](auto& document) { document.GetRootElement().SetValue("\x01"); }, // is noted
                       [](auto& document, bool isDone) {
                           std::string xml;
                           EXPECT_EQ(document.SaveToString(xml).IsOK(), !isDone);
                       });
}

namespace {
    // Calls visit(record, xml) for each document of the formats' pages.
    void ForEachRecord(const auto& visit) {
        for (const std::string& page : nxFormatExamples::Pages()) {
            for (const auto& example : nxFormatExamples::ExamplesOf(page)) {
                SCOPED_TRACE(page + ":" + std::to_string(example.line));
                nxFormatExamples::WithRecord(example.record, [&](auto& record) {
                    EXPECT_EQ(record.ConvertFromXML(example.xml, ""), nxErrorEnum::OK);
                    visit(record, example.xml);
                    return true;
                });
            }
        }
        testing::Test::RecordProperty("EndsOfMemory", endCount);
    }

    constexpr auto asItIs = [](auto& /*subject*/) {};

    // Whatever it holds is written, is read again, is copied, and gives way to another.
    template <class Record>
    void ExpectWhole(Record& record, const Record& other) {
        std::string xml;
        EXPECT_EQ(record.ConvertToXML(xml, ""), nxErrorEnum::OK);
        Record again;
        EXPECT_TRUE(!again.ConvertFromXML(xml, "").IsOK() || again == record) << xml;
        EXPECT_TRUE(Record(record) == record);
        record = other;
        EXPECT_TRUE(record == other);
    }
} // namespace

TEST(nxRecordWithoutMemory, IsWholeWhenItsReadingFails) {
    ForEachRecord([]<class Record>(const Record& expected, const std::string& xml) {
        for (const Record& before : {Record(), expected}) {
            Record after(before);
            EXPECT_EQ(after.ConvertFromXML(xml, ""), nxErrorEnum::OK);
            const auto check = [&](Record& record, bool isDone) {
                EXPECT_TRUE(!isDone || record == after);
                ExpectWhole(record, expected);
            };
            const auto start = [&before](Record& record) { record = before; };
            ForEachEndOfMemory<Record>(
                start, [&](Record& record) { EXPECT_TRUE(record.ConvertFromXML(xml, "").IsOK()); }, check);
            nxXMLReport report;
            ForEachEndOfMemory<Record>(
                start, [&](Record& record) { EXPECT_TRUE(report.Read(record, xml, "").IsOK()); }, check);
            EXPECT_EQ(nxXMLReport::GetListening(), nullptr);
        }
    });
}

TEST(nxRecordWithoutMemory, IsWrittenAllOrNotAtAllAndStaysAsItWas) {
    const nxTempFolder folder;
    ForEachRecord([&folder]<class Record>(const Record& expected, const std::string& /*xml*/) {
        std::string whole;
        EXPECT_EQ(Record(expected).ConvertToXML(whole, ""), nxErrorEnum::OK);
        const auto start = [&expected](Record& record) { record = expected; };
        std::string out;
        ForEachEndOfMemory<Record>(
            start,
            [&out](Record& record) {
                out = "before";
                EXPECT_EQ(record.ConvertToXML(out, ""), nxErrorEnum::OK);
            },
            [&](const Record& record, bool isDone) {
                EXPECT_EQ(out, isDone ? whole : "before");
                EXPECT_TRUE(record == expected);
            });
        const std::string path = folder.PathOf("a.xml");
        ForEachEndOfMemory<std::string>(
            asItIs,
            [&](std::string& problem) { EXPECT_TRUE(nxFileHelper::Write(path, whole, problem).IsOK()); },
            [&](const std::string& /*problem*/, bool isDone) {
                EXPECT_EQ(std::filesystem::exists(path), isDone);
                EXPECT_EQ(std::filesystem::is_empty(folder.Path()), !isDone);
            });
        std::filesystem::remove(path);
    });
}

TEST(nxRecordWithoutMemory, IsCopiedAllOrNotAtAllAndAssignedToAWholeOne) {
    ForEachRecord([]<class Record>(const Record& expected, const std::string& /*xml*/) {
        std::unique_ptr<const Record> copy;
        ForEachEndOfMemory<Record>(
            asItIs,
            [&](Record& /*record*/) { copy.reset(static_cast<const Record*>(expected.CopyInstance())); },
            [&](const Record& /*record*/, bool isDone) { EXPECT_EQ(copy && *copy == expected, isDone); });
        ForEachEndOfMemory<Record>(
            asItIs, [&](Record& record) { record = expected; },
            [&](Record& record, bool isDone) {
                EXPECT_TRUE(!isDone || record == expected);
                ExpectWhole(record, expected);
            });
    });
}
