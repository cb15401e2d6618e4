// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxDecimal.h"

#include "tests/support/nxExactDecimal.h"
#include "tests/support/nxPrint.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace {
    constexpr auto Min = std::numeric_limits<std::int64_t>::min();
    constexpr auto Max = std::numeric_limits<std::int64_t>::max();

    nxDecimal Decimal(std::string_view text) {
        nxDecimal value;
        EXPECT_EQ(value.SetFromString(text, '.'), nxErrorEnum::OK) << text;
        return value;
    }

    using namespace nxExactDecimal;

    // Whether some number of digits behind the point makes 64 bits of it.
    bool CanBeHeld(Wide value) {
        for (unsigned int digits = nxDecimal::MaxFractionDigits; digits > 0 && value % 10 == 0; --digits)
            value /= 10;
        return value >= Min && value <= Max;
    }
} // namespace

TEST(nxDecimalText, KeepsTheDigitsItWasGiven) {
    for (const char* text :
         {"", "0", "0.00", "1.50", "-0.05", "100", "-0.000000000000000001", "9223372036854775807",
          "-9223372036854775808", "9.223372036854775807", "-9.223372036854775808"})
        EXPECT_EQ(Decimal(text).GetAsString('.'), text);
}

TEST(nxDecimalText, DropsLeadingZerosAndTheSignOfZero) {
    EXPECT_EQ(Decimal("007.10").GetAsString('.'), "7.10");
    EXPECT_EQ(Decimal("-0.00").GetAsString('.'), "0.00");
    EXPECT_EQ(Decimal(std::string(1000, '0') + "1").GetAsString('.'), "1");
}

TEST(nxDecimalText, ThatIsNoNumberOrCannotBeHeldExactlyIsRefusedAndNeverRounded) {
    for (const char* text : {".5", "5.", "-", "-.5", "+1", " 1", "1 ", "--1", "1.-5", "1.+5", "1e3", "1,5",
                             "1.5.0", "NULL", "nan", "9223372036854775808", "-9223372036854775809",
                             "9.223372036854775808", "0.0000000000000000000"}) {
        nxDecimal value(150, 2);
        EXPECT_EQ(value.SetFromString(text, '.'), nxErrorEnum::ValueNotParsed) << text;
        EXPECT_EQ(value.GetAsString('.'), "1.50") << text;
    }
}

TEST(nxDecimalText, UsesTheGivenSeparatorOnlyAndIsEmptyForNull) {
    nxDecimal value;
    EXPECT_EQ(value.SetFromString("1,50", ','), nxErrorEnum::OK);
    EXPECT_EQ(value.GetAsString(','), "1,50");
    EXPECT_EQ(value.GetAsLogString('.'), "1.50");
    EXPECT_EQ(value.SetFromString("2.5", ','), nxErrorEnum::ValueNotParsed);
    EXPECT_EQ(value.SetFromString("-5", '-'), nxErrorEnum::ValueNotParsed);
    EXPECT_EQ(value.SetFromString("", ','), nxErrorEnum::OK);
    EXPECT_EQ(value, nxDecimal(1, nxDecimal::MaxFractionDigits + 1));
    EXPECT_EQ(value.GetAsLogString('.'), "NULL");
}

TEST(nxDecimalComparison, GoesByValueWithNullBeforeEveryNumber) {
    const nxDecimal ascending[] = {
        nxDecimal(),
        nxDecimal(Min),
        nxDecimal(Min, 18),
        nxDecimal(-1, 18),
        nxDecimal(0),
        nxDecimal(1, 18),
        Decimal("0.5"),
        nxDecimal(1),
        Decimal("1.000000000000000001"),
        nxDecimal(Max - 1, 18),
        nxDecimal(Max, 18),
        Decimal("9.3"),
        nxDecimal(Max, 1),
        nxDecimal(Max - 1),
        nxDecimal(Max),
    };
    for (const nxDecimal& left : ascending) {
        for (const nxDecimal& right : ascending)
            EXPECT_EQ(left <=> right, std::weak_ordering(&left <=> &right))
                << left.GetAsLogString('.') << " and " << right.GetAsLogString('.');
    }
    EXPECT_EQ(Decimal("1.5"), Decimal("1.500000000000000000"));
}

TEST(nxDecimalProperty, AnyNumberReadsBackAndComparesAsExactArithmeticDoes) {
    std::mt19937_64 random(1);
    // Numbers of every magnitude, so that some pairs are close to each other.
    const auto units = [&random] { return std::int64_t(random()) >> random() % 63; };
    const auto digits = [&random] { return unsigned(random() % (nxDecimal::MaxFractionDigits + 1)); };
    for (int i = 0; i < 20'000; ++i) {
        const std::int64_t leftUnits = units();
        const std::int64_t rightUnits = units();
        const unsigned int leftDigits = digits();
        const unsigned int rightDigits = digits();
        const nxDecimal left(leftUnits, leftDigits);
        const nxDecimal right(rightUnits, rightDigits);

        const nxDecimal read = Decimal(left.GetAsString('.'));
        ASSERT_EQ(read.GetAsString('.'), left.GetAsString('.'));
        ASSERT_EQ(read, left);
        const std::weak_ordering order = Exact(leftUnits, leftDigits) <=> Exact(rightUnits, rightDigits);
        ASSERT_EQ(left <=> right, order) << left.GetAsString('.') << " and " << right.GetAsString('.');

        // A wrong sum, a missing one and one that is not untouched after a failure all show here.
        nxDecimal sum = left;
        const Wide exact = Exact(leftUnits, leftDigits) + Exact(rightUnits, rightDigits);
        const bool isHeld = sum.Add(right).IsOK();
        ASSERT_EQ(Exact(sum.GetUnits(), sum.GetFractionDigits()),
                  isHeld ? exact : Exact(leftUnits, leftDigits));
        ASSERT_EQ(isHeld, CanBeHeld(exact)) << left.GetAsString('.') << " and " << right.GetAsString('.');
    }
}

TEST(nxDecimalAdd, KeepsTheDigitsAndSaysWhatItCannotHold) {
    const struct {
        nxDecimal left;
        nxDecimal right;
        const char* sum;
        const char* difference;
    } cases[] = {
        {Decimal("1.50"), Decimal("0.5"), "2.00", "1.00"},
        {Decimal("0.1"), Decimal("0.2"), "0.3", "-0.1"},
        {nxDecimal(Max), Decimal("0.000"), "9223372036854775807", "9223372036854775807"},
        {nxDecimal(Max), Decimal("0.1"), nullptr, nullptr},
        {nxDecimal(Max), nxDecimal(1), nullptr, "9223372036854775806"},
        {nxDecimal(0), nxDecimal(Min), "-9223372036854775808", nullptr},
        {nxDecimal(Min, 18), nxDecimal(Min, 18), nullptr, "0.000000000000000000"},
    };
    const auto expect = [](nxErrorEnum (nxDecimal::*operation)(const nxDecimal&), nxDecimal left,
                           const nxDecimal& right, const char* text) {
        const std::string before = left.GetAsString('.');
        EXPECT_EQ((left.*operation)(right), text ? nxErrorEnum::OK : nxErrorEnum::ValueOutOfRange) << before;
        EXPECT_EQ(left.GetAsString('.'), text ? text : before) << right.GetAsString('.');
    };
    for (const auto& [left, right, sum, difference] : cases) {
        expect(&nxDecimal::Add, left, right, sum);
        expect(&nxDecimal::Subtract, left, right, difference);
    }

    nxDecimal null;
    nxDecimal one(1);
    EXPECT_EQ(null.Add(one), nxErrorEnum::InvalidData);
    EXPECT_EQ(one.Add(null), nxErrorEnum::InvalidData);
    EXPECT_EQ(one, nxDecimal(1));
}
