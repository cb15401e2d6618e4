// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Threads with records of their own: most of use under the thread sanitizer.

#include "include/nxLogLevels.h"
#include "include/nxWriteLog.h"
#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxInThreads.h"
#include "tests/support/nxIsSanitized.h"
#include "tests/support/nxPrint.h"
#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"
#include "xmlFramework/market/nxAlgoIDMappingList.h"
#include "xmlFramework/xml/nxXMLDocument.h"
#include "xmlFramework/xml/nxXMLReport.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

constexpr int Rounds = 100;

TEST(nxXMLDataObjectInManyThreads, ConvertsRecordsOfDifferentClassesAtOnce) {
    nxInThreads(6, Rounds, [](int thread, int) {
        const bool algos = thread % 2 == 0;
        const std::string path = "n\u00E9&#xD;" + std::to_string(thread);
        const std::string xml =
            algos ? "<AlgoIDMappingList><AlgoIDMappings><AlgoMapping><AlgoPath>" + path +
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
    nxInThreads(Threads, Rounds, [](int thread, int) {
        const std::string bad[] = {"<a", "<!DOCTYPE a><a/>", "<?xml version='1.2'?><a/>", "<a>\xFF</a>"};
        EXPECT_EQ(nxXMLDocument().LoadFromString(bad[thread]), nxErrorEnum::XMLParseFailed);
        nxXMLDocument built;
        EXPECT_EQ(built.CreateDocument("a"), nxErrorEnum::OK);
        EXPECT_EQ(built.GetRootElement().SetValue("\x01"), nxErrorEnum::XMLTextNotCarried);
        std::string xml;
        EXPECT_EQ(built.SaveToString(xml), nxErrorEnum::XMLTextNotCarried);
    });
    EXPECT_EQ(log.Entries().size(), 3U * Threads * Rounds); // two for each load, one for each save
}

namespace {
    // What a child may do while threads of its parent were busy.
    bool WorksInChild() {
        const std::string xml = "<AlgoIDMappingList><AlgoIDMappings/></AlgoIDMappingList>";
        const std::unique_ptr<nxXMLDataObject> record(nxXMLDataObject::CreateInstance(0x414C4944U));
        std::string written;
        nxXMLReport report;
        nxWriteLog({nxLogLevels::Error, "child"}, "child");
        std::vector<nxKestrumParameter*> parameters;
        return record->ConvertFromXML(xml, "").IsOK() && report.Read(*record, xml, "").IsOK() &&
               record->ConvertToXML(written, "").IsOK() && written == xml &&
               nxKestrumAlgorithmSpec().ExtractParametersFromUserString("", parameters).IsOK();
    }

    // A device that takes its time, so that most forks come while it is being written to.
    class SlowDevice : public nxLogDevice {
        void Write(const nxLog& record) override {
            const std::lock_guard guard(_mutex);
            _last = record.GetLogEntry();
            std::this_thread::sleep_for(std::chrono::microseconds(20));
        }
        std::mutex _mutex;
        std::string _last;
    };
} // namespace

// The system may end a process while threads go on, as those that nobody joins do.
TEST(nxProcessEnd, MayComeWhileAThreadParses) {
    constexpr int Processes = 10;
    for (int i = 0; i < Processes; ++i)
        EXPECT_EXIT(
            {
                alarm(60);
                static std::atomic<bool> isParsing = false;
                std::thread([] {
                    for (;;) {
                        static_cast<void>(nxXMLDocument().LoadFromString("<a/>"));
                        isParsing = true;
                    }
                }).detach();
                while (!isParsing)
                    std::this_thread::yield();
                std::exit(0);
            },
            testing::ExitedWithCode(0), "");
}

TEST(nxForkedChild, ConvertsAndLogsWhateverThreadsOfItsParentDid) {
    if (nxIsSanitized)
        GTEST_SKIP() << "the sanitizer's malloc may be locked in the child";
    constexpr int Forks = 200;
    const nxCollectedLog log; // puts back the devices in the end
    nxLogManager::SetDevices({std::make_shared<SlowDevice>()});
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([](const std::stop_token& done) {
            while (!done.stop_requested()) {
                nxAlgoIDMappingList list;
                EXPECT_FALSE(list.ConvertFromXML("<a", "prefix: ").IsOK());
                std::string xml;
                EXPECT_TRUE(list.ConvertToXML(xml, "").IsOK());
            }
        });
    for (int i = 0; i < Forks; ++i) {
        const pid_t child = fork();
        if (child == 0) {
            alarm(60); // a busy machine may take some seconds
            _exit(WorksInChild() ? 0 : 1);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_EQ(status, 0) << "signal " << SIGALRM << ": hangs";
    }
}
