// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxLog.h"

#include "core/nxDateTime.h"
#include "core/nxLogManager.h"
#include "include/nxConsoleLogDevice.h"
#include "include/nxErrorEnum.h"
#include "include/nxLogLevels.h"
#include "include/nxWriteLog.h"
#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxPrint.h"

#include <errno.h> // program_invocation_short_name
#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <limits>
#include <set>
#include <stdexcept>
#include <thread>

namespace {
    constexpr const char* SourceFile = "xmlFramework/trunk/nxLogTest";

    using Entries = std::vector<std::string>;

    class FunctionLogDevice : public nxLogDevice {
    public:
        explicit FunctionLogDevice(std::function<void(const nxLog&)> function)
            : _function(std::move(function)) {}
        void Write(const nxLog& record) override { _function(record); }

    private:
        std::function<void(const nxLog&)> _function;
    };
} // namespace

TEST(nxLogRecord, IsTheTextOfItsPiecesInOrder) {
    const std::string anyBytes("\0\xFF\n%s{}\x1B", 7);
    nxLog log(nxLogLevels::Error, SourceFile, 42);
    log << "MIC " << std::string("XNYS") << nxLogCharLenPair("-unterminated", 3) << " " << -5 << " " << 7U
        << " " << std::numeric_limits<unsigned long long>::max() << " " << short{-3} << " "
        << nxErrorEnum(nxErrorEnum::XMLParseFailed) << " " << nxUnsignedValueWrapper(9) << " "
        << nxUnsignedValueWrapper() << " " << nxUnsignedValueWrapper(nxNoChangeInitalizer()) << " "
        << nxIntValueWrapper(-9) << " " << nxIntValueWrapper() << anyBytes;
    EXPECT_EQ(log.GetLogEntry(), "MIC XNYS-un -5 7 18446744073709551615 -3 " +
                                     nxErrorEnum(nxErrorEnum::XMLParseFailed).GetAsString() +
                                     " 9 NULL NO_CHANGE -9 NULL" + anyBytes);
    EXPECT_EQ(log.GetLevel(), nxLogLevelEnum::Error);
    EXPECT_STREQ(log.GetSourceFile(), SourceFile);
    EXPECT_EQ(log.GetLineNumber(), 42U);
    EXPECT_LE(log.GetTimeStamp(), nxTimeStamp::Now());
}

TEST(nxLogRecord, IsAddressedByTheDestinationsStreamedIntoIt) {
    nxLog log(nxLogLevels::Error, SourceFile, 42);
    EXPECT_TRUE(log.GetDestinationUserID().IsNull());
    log << nxLog::nxLogDestinationUserID{7};
    EXPECT_EQ(log.GetDestinationUserID(), 7);
    EXPECT_EQ(log.GetSourceApplication(), "");
    log << nxLog::nxLogSourceApplicationDestUserID(8);
    EXPECT_EQ(log.GetDestinationUserID(), 8);
    EXPECT_EQ(log.GetSourceApplication(), program_invocation_short_name);
    EXPECT_EQ(log.GetLogEntry(), "");
}

TEST(nxLogRecord, IsDroppedUnlessTerminated) {
    const nxCollectedLog collected;
    { nxLog(nxLogLevels::Error, SourceFile, 1) << "dropped"; }
    nxLog(nxLogLevels::Error, SourceFile, 2) << "written" << nxLog::nxLogTerminator();
    EXPECT_EQ(collected.Entries(), Entries{"written"});
}

TEST(nxLogManagerThreshold, IsWarningUnlessSetAndLetsThatLevelAndAboveThrough) {
    EXPECT_EQ(nxLogManager::GetThreshold(), nxLogLevelEnum::Warning);
    for (unsigned int threshold = nxLogLevelEnum::Trace; threshold <= nxLogLevelEnum::Fatal; ++threshold) {
        const nxCollectedLog collected{nxLogLevelEnum(threshold)};
        for (unsigned int level = nxLogLevelEnum::Trace; level <= nxLogLevelEnum::Fatal; ++level) {
            EXPECT_EQ(nxLogManager::ShouldLog(level), level >= threshold);
            nxWriteLog({level, SourceFile}, "at ", level);
        }
        EXPECT_EQ(collected.Records().size(), nxLogLevelEnum::Fatal + 1 - threshold);
        EXPECT_EQ(collected.Records().front().level, threshold);
    }
}

TEST(nxLogManagerDevices, AreReplacedAndHandedBackAndAllOfThemGetEachRecord) {
    const nxCollectedLog outer;
    {
        const nxCollectedLog inner;
        const auto added = std::make_shared<CollectingLogDevice>();
        nxLogManager::AddDevice(added);
        nxWriteLog({nxLogLevels::Error, SourceFile}, "first");
        EXPECT_EQ(inner.Entries(), Entries{"first"});
        EXPECT_EQ(added->records.size(), 1U);
        EXPECT_EQ(nxLogManager::SetDevices({}).size(), 2U);
        nxWriteLog({nxLogLevels::Error, SourceFile}, "for nobody");
        EXPECT_EQ(inner.Records().size(), 1U);
    }
    nxWriteLog({nxLogLevels::Error, SourceFile}, "second");
    EXPECT_EQ(outer.Entries(), Entries{"second"});
}

TEST(nxLogManagerDevices, ThatThrowOrLogThemselvesDisturbNobody) {
    const nxCollectedLog collected;
    const nxLogManager::Devices devices = nxLogManager::SetDevices({});
    nxLogManager::AddDevice(std::make_shared<FunctionLogDevice>([](const nxLog&) { throw 42; }));
    nxLogManager::AddDevice(std::make_shared<FunctionLogDevice>([](const nxLog& record) {
        nxWriteLog({nxLogLevels::Fatal, SourceFile}, "about ", record.GetLogEntry());
        throw std::runtime_error("full");
    }));
    nxLogManager::AddDevice(devices.front());
    EXPECT_NO_THROW(nxWriteLog({nxLogLevels::Error, SourceFile}, "first"));
    EXPECT_NO_THROW(nxWriteLog({nxLogLevels::Error, SourceFile}, "second"));
    EXPECT_EQ(collected.Entries(), (Entries{"first", "second"}));
}

TEST(nxWriteLogPieces, AreComputedOnlyWhenTheLevelIsWanted) {
    const nxCollectedLog collected(nxLogLevels::Error);
    int computed = 0;
    const auto expensive = [&computed] { return "computed " + std::to_string(++computed); };
    nxWriteLog({nxLogLevels::Warning, SourceFile}, expensive);
    EXPECT_EQ(computed, 0);
    nxWriteLog({nxLogLevels::Error, SourceFile}, "lazily ", expensive, ", ", [] { return 7U; });
    EXPECT_EQ(collected.Entries(), Entries{"lazily computed 1, 7"});
}

TEST(nxWriteLogSite, IsTheStatementThatLogs) {
    const nxCollectedLog collected;
    nxWriteLog({nxLogLevels::Error, SourceFile}, "one line");
    const unsigned int line = __LINE__ - 1;
    nxWriteLog({nxLogLevels::Error, SourceFile}, "several lines of one statement, because this text is ",
               "longer than one line of source can be");
    ASSERT_EQ(collected.Records().size(), 2U);
    EXPECT_EQ(collected.Records()[0].line, line);
    EXPECT_EQ(collected.Records()[0].sourceFile, SourceFile);
    EXPECT_EQ(collected.Records()[1].line, line + 2);
}

TEST(nxWriteLogThreads, LoseAndMixNothingWhileDevicesAndThresholdChange) {
    constexpr int ThreadCount = 4;
    constexpr int RecordCount = 500;
    const nxCollectedLog collected;
    const auto other = std::make_shared<CollectingLogDevice>();

    std::atomic<bool> done = false;
    std::thread changing([&done, &other] {
        nxLogManager::Devices devices{other};
        while (!done) {
            devices = nxLogManager::SetDevices(std::move(devices));
            nxLogManager::SetThreshold(nxLogLevels::Error);
            nxLogManager::SetThreshold(nxLogLevels::Trace);
        }
    });
    std::vector<std::thread> threads;
    for (int thread = 0; thread < ThreadCount; ++thread)
        threads.emplace_back([thread] {
            for (int record = 0; record < RecordCount; ++record)
                nxWriteLog({nxLogLevels::Error, SourceFile}, "thread ", thread, " record ", record);
        });
    for (std::thread& thread : threads)
        thread.join();
    done = true;
    changing.join();

    std::multiset<std::string> seen;
    for (const auto* records : {&collected.Records(), &std::as_const(other->records)}) {
        for (const CollectedRecord& record : *records)
            seen.insert(record.entry);
    }
    std::multiset<std::string> expected;
    for (int thread = 0; thread < ThreadCount; ++thread) {
        for (int record = 0; record < RecordCount; ++record)
            expected.insert("thread " + std::to_string(thread) + " record " + std::to_string(record));
    }
    EXPECT_EQ(seen, expected);
}

class nxConsoleLogDeviceOutput : public testing::Test {
protected:
    // What the device writes to standard error for one record.
    static std::string _Written(const nxLogLevelEnum& level, const std::string& text) {
        testing::internal::CaptureStderr();
        nxConsoleLogDevice device;
        nxLog record(level, SourceFile, 12345);
        record << text;
        nxConsoleLogDevice(device).Write(record);
        return testing::internal::GetCapturedStderr();
    }
};

TEST_F(nxConsoleLogDeviceOutput, IsOneLineWithTimeLevelSourceAndText) {
    for (unsigned int level = nxLogLevelEnum::Trace; level <= nxLogLevelEnum::Fatal; ++level) {
        const nxDateTime before = nxTimeStamp::Now().GetAsDateTime();
        const std::string written = _Written(level, "%v {} text");
        const std::size_t blank = written.find(' ');
        nxDateTime time;
        EXPECT_EQ(nxDateTime::SetFromString(written.substr(0, blank), time), nxErrorEnum::OK) << written;
        EXPECT_EQ(blank, std::string_view("2026-11-21T10:53:00.123456Z").size());
        EXPECT_GE(time.GetTime(), before.GetTime());
        EXPECT_EQ(written.substr(blank), " " + nxLogLevelEnum(level).GetShortDescription() +
                                             " xmlFramework/trunk/nxLogTest:12345 %v {} text\n");
    }
}

TEST_F(nxConsoleLogDeviceOutput, KeepsToOneLineWhateverBytesTheTextHoldsAndHoweverMany) {
    using namespace std::string_literals;
    const std::string bytes = _Written(nxLogLevels::Error, "a\0b\nc\r\x1B[2J\x7F\xC3\xA9\t\\n"s);
    EXPECT_TRUE(bytes.ends_with(" a\\x00b\\nc\\r\\x1B[2J\\x7F\xC3\xA9\\t\\n\n")) << bytes;

    const std::string longText(1'000'000, 'x');
    EXPECT_TRUE(_Written(nxLogLevels::Error, longText).ends_with(" " + longText + "\n"));
}
