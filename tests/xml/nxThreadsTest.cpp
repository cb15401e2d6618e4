// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Threads with records of their own: most of use under the thread sanitizer.

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxPrint.h"
#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {
    constexpr int Rounds = 100;

    // Starts all threads at once.
    void InThreads(int count, const std::function<void(int)>& work) {
        std::atomic<bool> go = false;
        std::vector<std::thread> threads;
        for (int i = 0; i < count; ++i) {
            threads.emplace_back([&go, &work, i] {
                while (!go)
                    std::this_thread::yield();
                for (int round = 0; round < Rounds; ++round)
                    work(i);
            });
        }
        go = true;
        for (std::thread& thread : threads)
            thread.join();
    }
} // namespace

TEST(nxXMLDataObjectInManyThreads, ConvertsRecordsOfDifferentClassesAtOnce) {
    InThreads(6, [](int thread) {
        const bool algos = thread % 2 == 0;
        const std::string name = "n\u00E9\r" + std::to_string(thread);
        const std::string escaped = "n\u00E9&#xD;" + std::to_string(thread);
        const std::string xml =
            algos ? "<AlgoIDMappingList><AlgoIDMappings><AlgoMapping><AlgoPath>" + escaped +
                        "</AlgoPath><AlgoID>1</AlgoID></AlgoMapping></AlgoIDMappings></AlgoIDMappingList>"
                  : "<MICDefinitionList><MICDefinitions/></MICDefinitionList>";
        const std::unique_ptr<nxXMLDataObject> record(
            nxXMLDataObject::CreateInstance(algos ? 0x414C4944U : 0x584D4943U));
        EXPECT_EQ(record->ConvertFromXML(xml, ""), nxErrorEnum::OK);
        std::string written;
        EXPECT_EQ(record->ConvertToXML(written, ""), nxErrorEnum::OK);
        EXPECT_EQ(written, xml);
    });
}

TEST(nxXMLDocumentInManyThreads, FailsAndLogsInEachForItself) {
    constexpr int Threads = 4;
    const nxCollectedLog log;
    std::atomic<int> refused = 0;
    InThreads(Threads, [&refused](int thread) {
        const std::string bad[] = {"<a", "<!DOCTYPE a><a/>", "<?xml version='1.2'?><a/>", "<a>\xFF</a>"};
        nxXMLDocument document;
        refused += document.LoadFromString(bad[thread]) == nxErrorEnum(nxErrorEnum::XMLParseFailed) ? 1 : 0;
        nxXMLDocument built;
        EXPECT_EQ(built.CreateDocument("a"), nxErrorEnum::OK);
        EXPECT_EQ(built.GetRootElement().SetValue("\x01"), nxErrorEnum::XMLTextNotCarried);
        std::string xml;
        EXPECT_EQ(built.SaveToString(xml), nxErrorEnum::XMLTextNotCarried);
    });
    EXPECT_EQ(refused, Threads * Rounds);
    EXPECT_EQ(log.Entries().size(), 3U * Threads * Rounds); // two for each load, one for each save
}
