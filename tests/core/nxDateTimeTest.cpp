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
using namespace std::string_literals;

TEST(nxDateTimeSetFromString, ReadsTheDocumentsFormAndIso8601) {
    const struct {
        const char* text;
        const char* expected;
    } cases[] = {
        {"", "NULL"},
        {"20261121:10:53:00", "2026-11-21T10:53:00Z"},
        {"2026-11-21T10:53:00", "2026-11-21T10:53:00Z"},
        {"20261121T105300", "2026-11-21T10:53:00Z"},
        {"2026-11-21", "2026-11-21T00:00:00Z"},
        {"20261121", "2026-11-21T00:00:00Z"},
        {"2026-11-21T10:53:00Z", "2026-11-21T10:53:00Z"},
        {"2026-11-21T10:53:00+01:00", "2026-11-21T09:53:00Z"},
        {"2026-11-21T10:53:00-0530", "2026-11-21T16:23:00Z"},
        {"2026-01-01T00:30:00+01", "2025-12-31T23:30:00Z"},
        {"2026-11-21T10:53:00.5", "2026-11-21T10:53:00.500Z"},
        {"2026-11-21T10:53:00.0001-01:00", "2026-11-21T11:53:00.000100Z"},
        {"20261121T105300.123456789Z", "2026-11-21T10:53:00.123456789Z"},
        {"2024-02-29", "2024-02-29T00:00:00Z"},
        {"20000229:23:59:59", "2000-02-29T23:59:59Z"},
        {"00000101:00:00:00", "0000-01-01T00:00:00Z"},
        {"9999-12-31T23:59:59.999999999Z", "9999-12-31T23:59:59.999999999Z"},
    };
    for (const auto& [text, expected] : cases) {
        nxDateTime value(std::chrono::sys_seconds(42s));
        EXPECT_EQ(nxDateTime::SetFromString(text, value), nxErrorEnum::OK) << text;
        EXPECT_EQ(value.GetAsLogString(), expected) << text;
    }
}

TEST(nxDateTimeSetFromString, LeavesTheValueUntouchedForAnyOtherText) {
    const nxDateTime before(std::chrono::sys_seconds(42s));
    for (const std::string& text : {"2023-02-29"s,
                                    "1900-02-29"s,
                                    "2026-13-01"s,
                                    "2026-00-10"s,
                                    "2026-04-31"s,
                                    "2026-01-00"s,
                                    "20261121:24:00:00"s,
                                    "20261121:10:60:00"s,
                                    "20261121:10:53:60"s,
                                    "20261121:10:53"s,
                                    "20261121:1:53:00"s,
                                    "2026-1-1"s,
                                    "+026-01-01"s,
                                    "-001-01-01"s,
                                    "10000-01-01"s,
                                    "26-11-21"s,
                                    " 2026-11-21"s,
                                    "2026-11-21 "s,
                                    "2026-11-21Z"s,
                                    "2026-11-21T"s,
                                    "2026-11-21 10:53:00"s,
                                    "2026-11-21T10:53:00."s,
                                    "2026-11-21T10:53:00.1234567890"s,
                                    "2026-11-21T10:53:00.-1"s,
                                    "2026-11-21T10:53:00z"s,
                                    "2026-11-21T10:53:00ZZ"s,
                                    "2026-11-21T10:53:00+"s,
                                    "2026-11-21T10:53:00+1"s,
                                    "2026-11-21T10:53:00+24:00"s,
                                    "2026-11-21T10:53:00+01:60"s,
                                    "2026-11-21T10:53:00+-1:00"s,
                                    "2026-11-21T10:53:00+01:00:00"s,
                                    "20261121:10:53:00\0"s,
                                    "0000-01-01T00:00:00+00:01"s,
                                    "9999-12-31T23:59:59-00:01"s,
                                    "NULL"s,
                                    "now"s}) {
        nxDateTime value = before;
        EXPECT_EQ(nxDateTime::SetFromString(text, value), nxErrorEnum::ValueNotParsed) << text;
        EXPECT_EQ(value, before) << text;
    }
}

TEST(nxDateTimeProperty, WhatIsWrittenReadsBackInEveryYear) {
    std::mt19937_64 random(1);
    for (int year = 0; year <= 9999; ++year) {
        const std::chrono::sys_days newYear(std::chrono::year(year) / 1 / 1);
        const std::chrono::sys_seconds time = newYear + std::chrono::seconds(random() % (365 * 86400));
        const nxDateTime whole(time);
        const nxDateTime precise(time, std::chrono::nanoseconds(random() % 1'000'000'000));

        nxDateTime read;
        ASSERT_TRUE(nxDateTime::SetFromString(whole.GetAsString(nxDateTime::DocumentFormat), read).IsOK());
        ASSERT_EQ(read, whole) << whole.GetAsLogString();
        ASSERT_TRUE(nxDateTime::SetFromString(precise.GetAsLogString(), read).IsOK());
        ASSERT_EQ(read, precise) << precise.GetAsLogString();
    }
}

TEST(nxDateTimeConstruction, OutsideTheYearsOrTheSecondGivesNull) {
    const std::chrono::sys_seconds first = std::chrono::sys_days(std::chrono::year(0) / 1 / 1);
    const std::chrono::sys_seconds end = std::chrono::sys_days(std::chrono::year(10000) / 1 / 1);
    EXPECT_FALSE(nxDateTime(first).IsNull());
    EXPECT_TRUE(nxDateTime(first - 1s).IsNull());
    EXPECT_FALSE(nxDateTime(end - 1s, 999999999ns).IsNull());
    EXPECT_TRUE(nxDateTime(end).IsNull());
    EXPECT_TRUE(nxDateTime(first, -1ns).IsNull());
    EXPECT_TRUE(nxDateTime(first, 1s).IsNull());
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
        {"08:30:05", "08:30:05", 8h + 30min + 5s},
        {"08:30:00.5", "08:30:00.500", 8h + 30min + 500ms},
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
    for (const std::string& text :
         {"24:00:00"s, "08:60:00"s, "08:30:60"s, "8:30:00"s, "08:30"s, "083000"s, "08-30-00"s, "08:30:00."s,
          "08:30:00,5"s, "08:30:00.1234567890"s, "-8:30:00"s, "08:-1:00"s, "+8:30:00"s, " 08:30:00"s,
          "08:30:00 "s, "08:30:00Z"s, "08:30:00\0"s, "NULL"s}) {
        nxTime value(1h);
        EXPECT_EQ(value.SetFromString(text), nxErrorEnum::ValueNotParsed) << text;
        EXPECT_EQ(value, nxTime(1h)) << text;
    }
}

TEST(nxTimeNull, IsTheEmptyTextAndComesBeforeMidnight) {
    nxTime value(1h);
    EXPECT_EQ(value.SetFromString(""), nxErrorEnum::OK);
    EXPECT_TRUE(value.IsNull());
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
        {123'456'789, "1970-01-01T00:00:00.123456789Z", {123, 456, 789}},
        {-1, "1969-12-31T23:59:59.999999999Z", {999, 999, 999}},
        {-1'000'000'000, "1969-12-31T23:59:59Z", {0, 0, 0}},
        {1'795'258'380'000'001'000, "2026-11-21T10:53:00.000001Z", {0, 1, 0}},
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
