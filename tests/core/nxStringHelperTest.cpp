// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxStringHelper.h"

#include "tests/support/nxPrint.h"

#include <gtest/gtest.h>

#include <bit>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

TEST(nxStringHelperBool, IsWrittenAsAWordAndReadInAnyLetterCaseAndAsADigit) {
    EXPECT_EQ(nxStringHelper::GetAsString(true), "true");
    EXPECT_EQ(nxStringHelper::GetAsString(false), "false");
    for (const char* text : {"true", "TRUE", "tRuE", "1"}) {
        bool value = false;
        EXPECT_EQ(nxStringHelper::SetFromString(text, value), nxErrorEnum::OK) << text;
        EXPECT_TRUE(value) << text;
    }
    for (const char* text : {"false", "False", "FALSE", "0"}) {
        bool value = true;
        EXPECT_EQ(nxStringHelper::SetFromString(text, value), nxErrorEnum::OK) << text;
        EXPECT_FALSE(value) << text;
    }
}

TEST(nxStringHelperBool, LeavesTheValueUntouchedForAnyOtherText) {
    for (const char* text : {"", "yes", "t", "truE ", " true", "01", "2", "-1", "falsefalse"}) {
        for (const bool before : {true, false}) {
            bool value = before;
            EXPECT_EQ(nxStringHelper::SetFromString(text, value), nxErrorEnum::ValueNotParsed) << text;
            EXPECT_EQ(value, before) << text;
        }
    }
}

template <class Number>
class nxStringHelperInteger : public testing::Test {};
using Integers = testing::Types<int, unsigned int, long, unsigned long, long long, unsigned long long>;
TYPED_TEST_SUITE(nxStringHelperInteger, Integers);

TYPED_TEST(nxStringHelperInteger, ReadsBackUpToItsLimitsAndNotBeyond) {
    using Limits = std::numeric_limits<TypeParam>;
    for (const TypeParam value : {Limits::min(), TypeParam{0}, TypeParam{42}, Limits::max()}) {
        TypeParam read = 7;
        EXPECT_EQ(nxStringHelper::SetFromString(nxStringHelper::GetAsString(value), read), nxErrorEnum::OK);
        EXPECT_EQ(read, value);
    }

    std::string above = nxStringHelper::GetAsString(Limits::max());
    ++above.back(); // 7 or 5 before
    std::string below = Limits::is_signed ? nxStringHelper::GetAsString(Limits::min()) : "-0";
    ++below.back(); // 8 or 0 before
    for (const std::string& text : {above, below, above + "0", std::string(1000, '9')}) {
        TypeParam read = 7;
        EXPECT_EQ(nxStringHelper::SetFromString(text, read), nxErrorEnum::ValueNotParsed) << text;
        EXPECT_EQ(read, TypeParam{7}) << text;
    }
}

TYPED_TEST(nxStringHelperInteger, RefusesWhateverIsNotDigitsOnly) {
    using namespace std::string_literals;
    for (const std::string& text : {""s, "-"s, "+1"s, " 1"s, "1 "s, "1\n"s, "0x10"s, "1.0"s, "1e3"s, "1,000"s,
                                    "--1"s, "1-"s, "one"s, "\xD9\xA1"s /* an Arabic 1 */, "1\0"s}) {
        TypeParam read = 7;
        EXPECT_EQ(nxStringHelper::SetFromString(text, read), nxErrorEnum::ValueNotParsed) << text;
        EXPECT_EQ(read, TypeParam{7}) << text;
    }
}

TEST(nxStringHelperDouble, IsWrittenAsTheShortestTextThatReadsBack) {
    const struct {
        double value;
        const char* text;
    } cases[] = {
        {0.0, "0"},
        {-0.0, "-0"},
        {0.1, "0.1"},
        {0.1 + 0.2, "0.30000000000000004"},
        {1.0 / 3, "0.3333333333333333"},
        {-1234567.5, "-1234567.5"},
        {1e22, "1e+22"},
        {4503599627370495.0, "4503599627370495"},
        {std::numeric_limits<double>::max(), "1.7976931348623157e+308"},
        {std::numeric_limits<double>::min(), "2.2250738585072014e-308"},
        {std::numeric_limits<double>::denorm_min(), "5e-324"},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(nxStringHelper::GetAsString(value), text);
}

TEST(nxStringHelperDouble, ReadsBackEveryBitPatternAndNoShorterMantissaWould) {
    std::mt19937_64 random(20261121);
    for (int i = 0; i < 50'000; ++i) {
        const std::uint64_t bits = random();
        const auto value = std::bit_cast<double>(bits);
        if (!std::isfinite(value))
            continue;
        const std::string text = nxStringHelper::GetAsString(value);
        double read = 7;
        ASSERT_EQ(nxStringHelper::SetFromString(text, read, '.'), nxErrorEnum::OK) << text;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(read), bits) << text;

        const std::size_t exponent = text.find('e');
        const auto digits = exponent - (text.front() == '-') - (text.find('.') != std::string::npos);
        if (exponent == std::string::npos || digits == 1)
            continue;
        char shorter[64];
        std::snprintf(shorter, sizeof shorter, "%.*e", static_cast<int>(digits) - 2, value);
        ASSERT_NE(std::strtod(shorter, nullptr), value) << text;
    }
}

TEST(nxStringHelperDouble, RefusesWhateverIsNoFiniteNumberInTheGivenNotation) {
    const struct {
        const char* text;
        char separator;
    } cases[] = {
        {"", '.'},      {"abc", '.'},    {"1.5x", '.'},  {" 1", '.'},    {"1 ", '.'},  {"+1", '.'},
        {"1,5", '.'},   {"1.5", ','},    {"1,5,5", ','}, {"0x1p3", '.'}, {"inf", '.'}, {"-inf", '.'},
        {"nan", '.'},   {"NAN", '.'},    {".", '.'},     {"-", '.'},     {"e5", '.'},  {"infinity", '.'},
        {"1e400", '.'}, {"-1e400", '.'}, {"1e", '.'},
    };
    for (const auto& [text, separator] : cases) {
        double value = 7;
        EXPECT_EQ(nxStringHelper::SetFromString(text, value, separator), nxErrorEnum::ValueNotParsed) << text;
        EXPECT_EQ(value, 7) << text;
    }
    double value = 0;
    EXPECT_EQ(nxStringHelper::SetFromString("-1,25e2", value, ','), nxErrorEnum::OK);
    EXPECT_EQ(value, -125);
}

TEST(nxStringHelperTrim, TakesAsciiWhiteSpaceFromItsOwnSideOnly) {
    const struct {
        const char* text;
        const char* left;
        const char* right;
    } cases[] = {
        {"", "", ""},
        {"XNYS", "XNYS", "XNYS"},
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
    }
}

TEST(nxStringHelperReplace, ReplacesFromLeftToRightAndNeverWhatItPutThere) {
    const struct {
        const char* text;
        const char* from;
        const char* to;
        const char* result;
    } cases[] = {
        {"a=1\x01"
         "b=2\x01",
         "\x01", "^^|^^", "a=1^^|^^b=2^^|^^"},
        {"a=1^^|^^b=2^^|^^", "^^|^^", "\x01",
         "a=1\x01"
         "b=2\x01"},
        {"aaa", "aa", "b", "ba"},
        {"a.a", "a", "aa", "aa.aa"},
        {"xabx", "ab", "", "xx"},
        {"text", "", "x", "text"},
        {"text", "longer than the text", "x", "text"},
        {"", "a", "b", ""},
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
    EXPECT_TRUE(text.ends_with("^^|^^^^|^^"));
}
