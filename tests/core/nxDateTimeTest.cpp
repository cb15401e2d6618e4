// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxDateTime.h"

#include "core/nxTime.h"
#include "core/nxTimeStamp.h"
#include "tests/support/nxPrint.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

using namespace std::chrono_literals;

TEST(nxDateTimeSetFromString, ReadsTheDocumentsFormAndIso8601) {
    const struct {
        const char* text;
        const char* expected;
    } cases[] = {
        {"", "NULL"},
        {"20261121:10:53:00", "2026-11-21T10:53:00Z"},
        {"2026-11-21T10:53:00Z", "2026-11-21T10:53:00Z"},
        {"20261121T105300.5", "2026-11-21T10:53:00.500Z"},
        {"2026-11-21", "2026-11-21T00:00:00Z"},
        {"20000229", "2000-02-29T00:00:00Z"},
        {"2026-11-21T10:53:00-0530", "2026-11-21T16:23:00Z"},
        {"2026-01-01T00:30:00+01", "2025-12-31T23:30:00Z"},
        {"2026-11-21T10:53:00.0001-01:00", "2026-11-21T11:53:00.000100Z"},
        {"00000101:00:00:00", "0000-01-01T00:00:00Z"},
        {"9999-12-31T23:59:59.999999999Z", "9999-12-31T23:59:59.999999999Z"},
    };
    for (const auto& [text, expected] : cases) {
        nxDateTime value(std::chrono::sys_seconds(42s));
        EXPECT_EQ(nxDateTime::SetFromString(text, value), nxErrorEnum::OK) << text;
        EXPECT_EQ(value.GetAsLogString(), expected) << text;
    }
    EXPECT_EQ(nxDateTime(std::chrono::sys_seconds(42s)).GetAsString(nxDateTime::DocumentFormat),
              "19700101:00:00:42");
}

TEST(nxDateTimeSetFromString, LeavesTheValueUntouchedForAnyOtherText) {
    const auto expectRefused = [](const std::string& text) {
        const nxDateTime before(std::chrono::sys_seconds(42s));
        nxDateTime value = before;
        EXPECT_EQ(nxDateTime::SetFromString(text, value), nxErrorEnum::ValueNotParsed) << text;
        EXPECT_EQ(value, before) << text;
    };
    for (const char* day : {"2023-02-29", "1900-02-29", "2026-13-01", "2026-00-10", "2026-01-00", "2026-1-1",
                            "+026-01-01", "10000-01-01", " 2026-11-21", "2026-11-21 ", "2026-11-21Z", "NULL"})
        expectRefused(day);
    for (const char* time : {"24:00:00", "10:60:00", "10:53:60", "10:53", "1:53:00"})
        expectRefused(std::string("20261121:") + time);
    for (const char* tail : {" ", ".", ".1234567890", ".-1", "ZZ", "+1", "+24:00", "+01:60", "+-1:00"})
        expectRefused(std::string("2026-11-21T10:53:00") + tail);
    expectRefused("2026-11-21 10:53:00");
    expectRefused("0000-01-01T00:00:00+00:01");
    expectRefused("9999-12-31T23:59:59-00:01");
}

TEST(nxDateTimeProperty, AnyTimeIsWrittenAsItsFormatSaysAndReadsBack) {
    std::mt19937_64 random(1);
    const std::chrono::sys_seconds first = std::chrono::sys_days(std::chrono::year(0) / 1 / 1);
    const std::chrono::sys_seconds end = std::chrono::sys_days(std::chrono::year(10000) / 1 / 1);
    std::uniform_int_distribution<long> seconds(0, (end - first) / 1s - 1);
    for (int i = 0; i < 10'000; ++i) {
        const nxDateTime value(first + seconds(random) * 1s);
        const std::string text = value.GetAsString(nxDateTime::DocumentFormat);
        // Not the documents' format, so it goes the way of all others.
        ASSERT_EQ(text + ".", value.GetAsString("%Y%m%d:%H:%M:%S."));
        for (const std::string& written : {text, value.GetAsLogString()}) {
            nxDateTime read;
            ASSERT_EQ(nxDateTime::SetFromString(written, read), nxErrorEnum::OK) << written;
            ASSERT_EQ(read, value) << written;
        }
    }
}

TEST(nxDateTimeConstruction, OutsideTheYearsOrTheSecondGivesNull) {
    const std::chrono::sys_seconds first = std::chrono::sys_days(std::chrono::year(0) / 1 / 1);
    const std::chrono::sys_seconds end = std::chrono::sys_days(std::chrono::year(10000) / 1 / 1);
    EXPECT_EQ(nxDateTime(first - 1s), nxDateTime());
    EXPECT_EQ(nxDateTime(end), nxDateTime());
    EXPECT_EQ(nxDateTime(first, -1ns), nxDateTime());
    EXPECT_EQ(nxDateTime(first, 1s), nxDateTime());
    EXPECT_EQ(nxDateTime().GetAsString("%Y"), "");
    EXPECT_LT(nxDateTime(), nxDateTime(first));
    EXPECT_LT(nxDateTime(first), nxDateTime(first, 1ns));
}

TEST(nxTimeSetFromString, ReadsTheTimeOfDayAndWritesItInThreeDigitGroups) {
    const struct {
        const char* text;
        const char* written;
        std::chrono::nanoseconds sinceMidnight;
    } cases[] = {
        {"00:00:00", "00:00:00", 0ns},
        {"08:30:05.5", "08:30:05.500", 8h + 30min + 5s + 500ms},
        {"08:30:00.000", "08:30:00", 8h + 30min},
        {"00:00:00.000001", "00:00:00.000001", 1us},
        {"23:59:59.999999999", "23:59:59.999999999", 24h - 1ns},
    };
    for (const auto& [text, written, sinceMidnight] : cases) {
        nxTime value;
        EXPECT_EQ(value.SetFromString(text), nxErrorEnum::OK) << text;
        EXPECT_EQ(value.GetSinceMidnight(), sinceMidnight) << text;
        EXPECT_EQ(value.GetAsString(), written);
        EXPECT_EQ(value.GetAsLogString(), written);
    }
}

TEST(nxTimeSetFromString, LeavesTheValueUntouchedForAnyOtherText) {
    for (const char* text :
         {"24:00:00", "08:60:00", "08:30:60", "8:30:00", "08:30", "08-30:00", "08:30-00", "08:30:00.",
          "08:30:00,5", "08:30:00.1234567890", "-8:30:00", "08:-1:00", " 08:30:00", "08:30:00Z", "NULL"}) {
        nxTime value(1h);
        EXPECT_EQ(value.SetFromString(text), nxErrorEnum::ValueNotParsed) << text;
        EXPECT_EQ(value, nxTime(1h)) << text;
    }
}

TEST(nxTimeNull, IsTheEmptyTextAndComesBeforeMidnight) {
    nxTime value(1h);
    EXPECT_EQ(value.SetFromString(""), nxErrorEnum::OK);
    EXPECT_EQ(value, nxTime());
    EXPECT_EQ(value.GetAsString(), "");
    EXPECT_EQ(value.GetAsLogString(), "NULL");
    EXPECT_LT(value, nxTime(0h));
    EXPECT_EQ(nxTime(24h), nxTime());
    EXPECT_EQ(nxTime(-1ms), nxTime());
}

TEST(nxTimeStampParts, CountTowardsThePastOnBothSidesOfTheEpoch) {
    const struct {
        std::int64_t value;
        const char* dateTime;
        unsigned int parts[3];
    } cases[] = {
        {0, "1970-01-01T00:00:00Z", {0, 0, 0}},
        {-1, "1969-12-31T23:59:59.999999999Z", {999, 999, 999}},
        {-1'000'000'000, "1969-12-31T23:59:59Z", {0, 0, 0}},
        {std::numeric_limits<std::int64_t>::max(), "2262-04-11T23:47:16.854775807Z", {854, 775, 807}},
        {std::numeric_limits<std::int64_t>::min(), "1677-09-21T00:12:43.145224192Z", {145, 224, 192}},
    };
    for (const auto& [value, dateTime, parts] : cases) {
        const nxTimeStamp stamp(value);
        EXPECT_EQ(stamp.GetAsTimeValue(), value);
        EXPECT_EQ(stamp.GetAsDateTime().GetAsLogString(), dateTime);
        EXPECT_EQ(stamp.GetMilliseconds(), parts[0]) << dateTime;
        EXPECT_EQ(stamp.GetMicroseconds(), parts[1]) << dateTime;
        EXPECT_EQ(stamp.GetNanoseconds(), parts[2]) << dateTime;
    }
}

TEST(nxTimeStampNow, LiesBetweenTwoLooksAtTheClock) {
    const auto sinceEpoch = [] { return std::chrono::system_clock::now().time_since_epoch() / 1ns; };
    const std::int64_t before = sinceEpoch();
    const std::int64_t now = nxTimeStamp::Now().GetAsTimeValue();
    EXPECT_LE(before, now);
    EXPECT_LE(now, sinceEpoch());
}
