// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// What documents and elements do when memory ends, at each of the places where they ask for some.

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxPrint.h"
#include "tests/support/nxTempFolder.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

namespace {
    constexpr int Never = -1;
    int allocationsLeft = Never;

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
    // Runs the operation on documents made by `prepare` with one allocation more each time, until they are
    // enough. Before that std::bad_alloc is to leave, and nothing else.
    template <class Prepare, class Operation, class Check>
    void ForEachEndOfMemory(const Prepare& prepare, const Operation& operation, const Check& check) {
        bool isDone = false;
        for (int count = 1; !isDone; ++count) {
            ASSERT_LT(count, 10'000);
            const nxCollectedLog log;
            nxXMLDocument document;
            prepare(document);
            allocationsLeft = count;
            try {
                operation(document);
                isDone = true;
            } catch (const std::bad_alloc&) { // NOLINT(bugprone-empty-catch): as it should be
            } catch (...) {
                allocationsLeft = Never;
                FAIL() << "something else was thrown after " << count << " allocations";
            }
            allocationsLeft = Never;
            check(document, isDone);
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
