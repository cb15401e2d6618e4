// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxDateTime.h"
#include "core/nxDecimal.h"
#include "core/nxStringHelper.h"
#include "core/nxTime.h"
#include "include/nxConsoleLogDevice.h"
#include "include/nxLog.h"
#include "include/nxLogLevels.h"
#include "tests/support/nxPrint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <locale>
#include <sstream>
#include <string_view>

namespace {
    // Numbers and names as Germans write them; facets of our own, since the machine may have no such locale.
    class GermanNumbers : public std::numpunct<char> {
    protected:
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    class GermanNames : public std::time_put<char> {
    protected:
        iter_type do_put(iter_type out, std::ios_base&, char, const std::tm*, char, char) const override {
            return std::ranges::copy(std::string_view("Samstag"), out).out;
        }
    };
} // namespace

TEST(nxGermanLocale, ChangesNoTextOfTheLibrary) {
    const std::locale numbers(std::locale(), new GermanNumbers);
    const std::locale before = std::locale::global(std::locale(numbers, new GermanNames));
    std::ostringstream german;
    german << 1234567.5;
    EXPECT_EQ(german.str(), "1,23457e+06"); // the locale is in force

    EXPECT_EQ(nxStringHelper::GetAsString(1234567), "1234567");
    EXPECT_EQ(nxStringHelper::GetAsString(1234567.5), "1234567.5");
    EXPECT_EQ(nxDecimal(123456750, 2).GetAsString('.'), "1234567.50");
    double number = 0;
    EXPECT_EQ(nxStringHelper::SetFromString("1234567.5", number, '.'), nxErrorEnum::OK);
    EXPECT_EQ(number, 1234567.5);
    EXPECT_EQ(nxStringHelper::SetFromString("1.234.567", number, '.'), nxErrorEnum::ValueNotParsed);

    nxDateTime dateTime;
    EXPECT_EQ(nxDateTime::SetFromString("2026-11-21T10:53:00.001", dateTime), nxErrorEnum::OK);
    EXPECT_EQ(dateTime.GetAsLogString(), "2026-11-21T10:53:00.001Z");
    EXPECT_EQ(dateTime.GetAsString("%A, %d %B %Y"), "Saturday, 21 November 2026");
    nxTime time;
    EXPECT_EQ(time.SetFromString("08:30:00.001"), nxErrorEnum::OK);
    EXPECT_EQ(time.GetAsString(), "08:30:00.001");

    testing::internal::CaptureStderr();
    nxLog record(nxLogLevels::Error, "source", 1234567);
    record << 7654321;
    nxConsoleLogDevice().Write(record);
    const std::string line = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(line.ends_with("Z error source:1234567 7654321\n")) << line;
    std::locale::global(before);
}
