// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxStringHelper.h"

#include "core/nxBoolEnum.h"
#include "core/nxDecimal.h"
#include "core/nxTime.h"
#include "tests/support/nxPrint.h"

#include <gtest/gtest.h>

#include <bit>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

using namespace std::string_view_literals;

TEST(nxStringHelperBool, IsAWordInAnyLetterCaseOrADigit) {
    const struct {
        const char* text;
        bool value;
    } cases[] = {{"true", true},   {"tRuE", true},   {"TRUE", true},   {"1", true},
                 {"false", false}, {"False", false}, {"FALSE", false}, {"0", false}};
    for (const auto& [text, value] : cases) {
        bool read = !value;
        EXPECT_EQ(nxStringHelper::SetFromString(text, read), nxErrorEnum::OK) << text;
        EXPECT_EQ(read, value) << text;
    }
    for (const char* text : {"", "yes", "t", "truE ", " true", "01", "2", "falsefalse"}) {
        for (const bool before : {true, false}) {
            bool value = before;
            EXPECT_EQ(nxStringHelper::SetFromString(text, value), nxErrorEnum::ValueNotParsed) << text;
            EXPECT_EQ(value, before) << text;
        }
    }
    EXPECT_EQ(nxStringHelper::GetAsString(true) + nxStringHelper::GetAsString(false), "truefalse");
}

template <class Number>
class nxStringHelperInteger : public testing::Test {};
using Integers = testing::Types<int, unsigned int, long, unsigned long, long long, unsigned long long>;
TYPED_TEST_SUITE(nxStringHelperInteger, Integers);

TYPED_TEST(nxStringHelperInteger, ReadsBackUpToItsLimitsAndRefusesWhatIsBeyondOrNotDigitsOnly) {
    using Limits = std::numeric_limits<TypeParam>;
    for (const TypeParam value : {Limits::min(), TypeParam{0}, Limits::max()}) {
        TypeParam read = 7;
        EXPECT_EQ(nxStringHelper::SetFromString(nxStringHelper::GetAsString(value), read), nxErrorEnum::OK);
        EXPECT_EQ(read, value);
    }

    std::string above = nxStringHelper::GetAsString(Limits::max());
    ++above.back(); // 7 or 5 before
    std::string below = Limits::is_signed ? nxStringHelper::GetAsString(Limits::min()) : "-0";
    ++below.back(); // 8 or 0 before
    const std::string_view texts[] = {
        above,  below, "",    "-",     "+1",  " 1",  "1 ",
        "0x10", "1.0", "1e3", "1,000", "--1", "one", "\xD9\xA1" /* an Arabic 1 */,
        "1\0"sv};
    for (const std::string_view text : texts) {
        TypeParam read = 7;
        EXPECT_EQ(nxStringHelper::SetFromString(text, read), nxErrorEnum::ValueNotParsed) << text;
        EXPECT_EQ(read, TypeParam{7}) << text;
    }
}

TEST(nxStringHelperDouble, IsWrittenShortAndReadsBackEveryBit) {
    EXPECT_EQ(nxStringHelper::GetAsString(-0.1), "-0.1");
    EXPECT_EQ(nxStringHelper::GetAsString(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(nxStringHelper::GetAsString(1e22), "1e+22");
    EXPECT_EQ(nxStringHelper::GetAsString(4503599627370495.0), "4503599627370495");

    std::mt19937_64 random(20261121);
    for (int i = 0; i < 10'000; ++i) {
        const std::uint64_t bits = random();
        const auto value = std::bit_cast<double>(bits);
        if (!std::isfinite(value))
            continue;
        const std::string text = nxStringHelper::GetAsString(value);
        double read = 7;
        ASSERT_EQ(nxStringHelper::SetFromString(text, read, '.'), nxErrorEnum::OK) << text;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(read), bits) << text;
    }
}

TEST(nxStringHelperDouble, ThatIsNoNumberHasNoSign) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(nxStringHelper::GetAsString(none), "nan");
    EXPECT_EQ(nxStringHelper::GetAsString(std::copysign(none, -1.0)), "nan");
    EXPECT_EQ(nxStringHelper::GetAsString(-std::numeric_limits<double>::infinity()), "-inf");
}

TEST(nxStringHelperValues, HaveTheTextsOfTheirTypes) {
    nxBoolEnum flag;
    EXPECT_EQ(nxStringHelper::SetFromString("true", flag), nxErrorEnum::OK);
    EXPECT_EQ(nxStringHelper::GetAsString(flag), "true");
    EXPECT_EQ(nxStringHelper::SetFromString("none", flag), nxErrorEnum::ValueNotParsed);
    nxTime time;
    EXPECT_EQ(nxStringHelper::SetFromString("01:02:03.000", time), nxErrorEnum::OK);
    EXPECT_EQ(nxStringHelper::GetAsString(time), time.GetAsString());
    EXPECT_EQ(time.GetAsString().substr(0, 8), "01:02:03");
    nxDecimal price;
    EXPECT_EQ(nxStringHelper::SetFromString("1,50", price, ','), nxErrorEnum::OK);
    EXPECT_EQ(price.GetAsString('.'), "1.50");
    EXPECT_EQ(nxStringHelper::SetFromString("1.50", price, ','), nxErrorEnum::ValueNotParsed);
}

TEST(nxStringHelperDouble, RefusesWhateverIsNoFiniteNumberInTheGivenNotation) {
    double value = 0;
    EXPECT_EQ(nxStringHelper::SetFromString("-1,25e2", value, ','), nxErrorEnum::OK);
    EXPECT_EQ(value, -125);
    EXPECT_EQ(nxStringHelper::SetFromString("1.5", value, ','), nxErrorEnum::ValueNotParsed);
    const std::string zeros(100, '0');
    EXPECT_EQ(nxStringHelper::SetFromString("-" + zeros + "125," + zeros, value, ','), nxErrorEnum::OK);
    EXPECT_EQ(value, -125);
    for (const char* text : {"", "abc", "1.5x", " 1", "1 ", "+1", "1,5", "0x1p3", "inf", "-inf", "nan", "NAN",
                             ".", "-", "e5", "1e", "1e400"}) {
        EXPECT_EQ(nxStringHelper::SetFromString(text, value, '.'), nxErrorEnum::ValueNotParsed) << text;
        EXPECT_EQ(value, -125) << text;
    }
}

TEST(nxStringHelperTrim, TakesAsciiWhiteSpaceFromItsOwnSideOnly) {
    const struct {
        const char* text;
        const char* left;
        const char* right;
    } cases[] = {
        {"  XN YS ", "XN YS ", "  XN YS"},
        {" \t\n\v\f\rX\r\f\v\n\t ", "X\r\f\v\n\t ", " \t\n\v\f\rX"},
        {" \t\n\v\f\r", "", ""},
        {"\xC2\xA0X\xC2\xA0", "\xC2\xA0X\xC2\xA0", "\xC2\xA0X\xC2\xA0"}, // no-break spaces are text
    };
    for (const auto& [text, left, right] : cases) {
        std::string leftTrimmed = text;
        nxStringHelper::LeftTrim(leftTrimmed);
        EXPECT_EQ(leftTrimmed, left);
        std::string rightTrimmed = text;
        nxStringHelper::RightTrim(rightTrimmed);
        EXPECT_EQ(rightTrimmed, right);
        EXPECT_EQ(nxStringHelper::GetRightTrimmed(text), right);
        nxStringHelper::RightTrim(leftTrimmed);
        EXPECT_EQ(nxStringHelper::Trimmed(text), leftTrimmed);
    }
}

TEST(nxStringHelperGetShortened, KeepsWholeCharactersOnly) {
    const struct {
        const char* text;
        std::size_t longest;
        const char* shortened;
    } cases[] = {{"aé", 3, "aé"},
                 {"aéb", 3, "aé..."},
                 {"aé", 2, "a..."},
                 {"é", 1, "..."},
                 {"", 0, ""},
                 {"\xA9", 0, "..."},
                 {"\x80\x80\x80\x80\x80\x80", 5, "\x80\x80\x80\x80\x80..."}};
    for (const auto& [text, longest, shortened] : cases)
        EXPECT_EQ(nxStringHelper::GetShortened(text, longest), shortened) << text << longest;
}

TEST(nxStringHelperReplace, ReplacesFromLeftToRightAndNeverWhatItPutThere) {
    const struct {
        const char* text;
        const char* from;
        const char* to;
        const char* result;
    } cases[] = {
        {"a^^|^^z^^|^^", "^^|^^", "\x01", "a\x01z\x01"},
        {"aaa", "aa", "b", "ba"},
        {"a.a", "a", "aa", "aa.aa"},
        {"xabx", "ab", "", "xx"},
        {"text", "", "x", "text"},
        {"text", "longer than the text", "x", "text"},
    };
    for (const auto& [text, from, to, result] : cases) {
        std::string replaced = text;
        nxStringHelper::Replace(replaced, from, to);
        EXPECT_EQ(replaced, result) << text;
    }

    std::string itself = "ab";
    nxStringHelper::Replace(itself, itself, itself);
    EXPECT_EQ(itself, "ab");
}

TEST(nxStringHelperReplace, OfMillionsOfOccurrencesTakesLinearTime) {
    std::string text(4'000'000, '\x01');
    const auto start = std::chrono::steady_clock::now();
    nxStringHelper::Replace(text, "\x01", "^^|^^");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5)); // quadratic: minutes
    EXPECT_EQ(text.size(), 20'000'000U);
}
