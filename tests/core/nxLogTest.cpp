// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxLog.h"

#include "core/nxDateTime.h"
#include "core/nxDecimal.h"
#include "core/nxLogManager.h"
#include "include/nxConsoleLogDevice.h"
#include "include/nxDoubleValueWrapper.h"
#include "include/nxErrorEnum.h"
#include "include/nxLogLevels.h"
#include "include/nxWriteLog.h"
#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxInThreads.h"
#include "tests/support/nxPrint.h"

#include <gtest/gtest.h>

#include <cerrno> // program_invocation_short_name
#include <limits>
#include <set>
#include <thread>

using namespace std::chrono_literals;
using namespace std::string_literals;

namespace {
    constexpr const char* SourceFile = "xmlFramework/trunk/nxLogTest";

    using Entries = std::vector<std::string>;

    std::string ManyTimes(const std::string& text, int count) {
        std::string texts;
        for (int i = 0; i < count; ++i)
            texts += text;
        return texts;
    }
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

TEST(nxLogRecord, TakesEveryValueInItsOwnTextForm) {
    using Limits = std::numeric_limits<long long>;
    nxLog log(nxLogLevels::Error, SourceFile, 42);
    char buffer[] = "buffer";
    buffer[3] = '\0';
    const auto pieces = [&log](const auto&... values) { ((log << values << ' '), ...); };
    pieces(true, 'c', std::string_view("view"), buffer, long{-1}, 2UL, Limits::min(), std::size_t{3}, 0.1,
           1e22, 0.25F, nxDoubleValueWrapper(1.5), nxDecimal(150, 2), nxDecimal());
    pieces(std::uint8_t{7}, std::int64_t{-8}, nxLogLevelEnum::Error);
    EXPECT_EQ(log.GetLogEntry(), "true c view buf -1 2 -9223372036854775808 3 0.1 1e+22 0.25 1.5 1.50 NULL "
                                 "7 -8 37 ");
}

template <class T>
concept IsStreamed = requires(nxLog& log, T value) {
    log << value;
};
static_assert(IsStreamed<const char*> && IsStreamed<bool> && IsStreamed<unsigned short>);
static_assert(!IsStreamed<const int*> && !IsStreamed<void*>, "a pointer is no flag");

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
    class BadDevice : public nxLogDevice {
        void Write(const nxLog& record) override {
            nxWriteLog({nxLogLevels::Fatal, SourceFile}, "about ", record.GetLogEntry());
            throw 42;
        }
    };
    const nxCollectedLog collected;
    const nxLogManager::Devices devices = nxLogManager::SetDevices({std::make_shared<BadDevice>()});
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

    std::jthread changing([&other](const std::stop_token& done) {
        nxLogManager::Devices devices{other};
        while (!done.stop_requested()) {
            devices = nxLogManager::SetDevices(std::move(devices));
            nxLogManager::SetThreshold(nxLogLevels::Error);
            nxLogManager::SetThreshold(nxLogLevels::Trace);
        }
    });
    nxInThreads(ThreadCount, RecordCount, [](int thread, int record) {
        nxWriteLog({nxLogLevels::Error, SourceFile}, "thread ", thread, " record ", record);
    });
    changing.request_stop();
    changing.join();

    std::multiset<std::string> expected;
    for (int i = 0; i < ThreadCount * RecordCount; ++i)
        expected.insert("thread " + std::to_string(i / RecordCount) + " record " +
                        std::to_string(i % RecordCount));
    std::multiset<std::string> seen;
    for (const auto* records : {&collected.Records(), &std::as_const(other->records)}) {
        for (const CollectedRecord& record : *records)
            seen.insert(record.entry);
    }
    EXPECT_EQ(seen, expected);
}

TEST(nxConsoleLogDeviceOutput, IsOneLineWithTimeLevelSourceAndTextWhateverItsBytes) {
    const struct {
        std::string text;
        std::string shown;
    } cases[] = {
        {"%v {} text", "%v {} text"},
        {"a\0b\nc\r\x1B[2J\x7F\xC3\xA9\t\\n"s, "a\\x00b\\nc\\r\\x1B[2J\\x7F\xC3\xA9\\t\\n"},
        {"\xC2\x9B\xC2\xA0\xD8\x9C\xE2\x80\x8D\xE2\x80\xAE\xE2\x81\xA6|\xE2\x81\xAA\xEF\xBF\xBD\xF0\x9F\x98\x80"s,
         "\\xC2\\x9B\xC2\xA0\\xD8\\x9C\xE2\x80\x8D\\xE2\\x80\\xAE\\xE2\\x81\\xA6|\xE2\x81\xAA\xEF\xBF\xBD"
         "\xF0\x9F\x98\x80"},
        // no UTF-8: cut, too long, a surrogate, beyond all characters, a byte of a character's inside alone
        {"\xC3(\xE2\x82 \xC0\xAF\xE0\x9F\xBF\xED\xA0\x80\xF4\x90\x80\x80\x9B\xF0\x9F\x98"s,
         "\\xC3(\\xE2\\x82 \\xC0\\xAF\\xE0\\x9F\\xBF\\xED\\xA0\\x80\\xF4\\x90\\x80\\x80\\x9B\\xF0\\x9F\\x98"},
        {std::string(8192, 'x'), std::string(8192, 'x')},
        {std::string(8193, '\n'), ManyTimes("\\n", 8192) + "... (1 more bytes)"},
        // the limit comes within a character; within what is none
        {std::string(8190, 'x') + "\xF0\x9F\x98\x80", std::string(8190, 'x') + "... (4 more bytes)"},
        {std::string(8189, 'x') + "\xF0\x9F\x98\x80y", std::string(8189, 'x') + "... (5 more bytes)"},
        {std::string(8188, 'x') + "\xF0\x9F\x98\x80y",
         std::string(8188, 'x') + "\xF0\x9F\x98\x80... (1 more bytes)"},
        {std::string(10'000, '\x80'), ManyTimes("\\x80", 8192) + "... (1808 more bytes)"},
    };
    for (const auto& [text, shown] : cases) {
        for (unsigned int level = nxLogLevelEnum::Trace; level <= nxLogLevelEnum::Fatal; ++level) {
            nxLog record(level, SourceFile, 12345);
            record << text;
            testing::internal::CaptureStderr();
            nxConsoleLogDevice().Write(record);
            const std::string line = testing::internal::GetCapturedStderr();

            const std::size_t blank = line.find(' ');
            nxDateTime time;
            EXPECT_EQ(nxDateTime::SetFromString(line.substr(0, blank), time), nxErrorEnum::OK) << line;
            const nxDateTime begun = record.GetTimeStamp().GetAsDateTime();
            EXPECT_EQ(time.GetTime(), begun.GetTime());
            EXPECT_EQ(time.GetFraction(), begun.GetFraction() / 1us * 1us);
            EXPECT_EQ(line.substr(blank), " " + nxLogLevelEnum(level).GetShortDescription() +
                                              " xmlFramework/trunk/nxLogTest:12345 " + shown + "\n");
        }
    }
}

TEST(nxConsoleLogDeviceOutput, IsAsLongAsItsOwnerWants) {
    nxLog record(nxLogLevels::Error, SourceFile, 1);
    record << std::string(1'000'000, 'x');
    const auto shown = [&record](std::size_t longest) {
        testing::internal::CaptureStderr();
        nxConsoleLogDevice(longest).Write(record);
        const std::string line = testing::internal::GetCapturedStderr();
        return line.substr(line.rfind(' ', line.find('x', line.find(":1 "))) + 1);
    };
    EXPECT_EQ(shown(nxConsoleLogDevice::AnyLength), record.GetLogEntry() + "\n");
    EXPECT_EQ(shown(1), "x... (999999 more bytes)\n");
}
