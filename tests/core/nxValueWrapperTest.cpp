// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxValueWrapper.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxDoubleValueWrapper.h"
#include "include/nxStringValue.h"
#include "tests/support/nxPrint.h"

#include <gtest/gtest.h>

#include <string>

template <class Wrapper>
void ExpectReadsBack(Wrapper value, const char* text) {
    EXPECT_EQ(value.GetAsString(), text);
    Wrapper read = 7;
    EXPECT_EQ(read.SetFromString(text), nxErrorEnum::OK) << text;
    EXPECT_EQ(read, value) << text;
}

TEST(nxValueWrapperState, IsAReservedValueOfTheNumberItselfAndNamedInTexts) {
    nxIntValueWrapper value;
    EXPECT_TRUE(value.IsNull() && !value.IsNoChange() && !value.IsValid());
    value.SetNoChange();
    EXPECT_TRUE(value.IsNoChange() && !value.IsNull() && !value.IsValid());
    value = 0;
    EXPECT_TRUE(value.IsValid());

    ExpectReadsBack<nxUnsignedValueWrapper>(4294967295, "NULL");
    ExpectReadsBack<nxUnsignedValueWrapper>(4294967294, "NO_CHANGE");
    ExpectReadsBack<nxUnsignedValueWrapper>(4294967293, "4294967293");
    ExpectReadsBack<nxIntValueWrapper>(-2147483648, "-2147483648");
    ExpectReadsBack<nxIntValueWrapper>(2147483647, "NULL");
    ExpectReadsBack<nxIntValueWrapper>(2147483646, "NO_CHANGE");
    ExpectReadsBack<nxIntValueWrapper>(nxNullInitalizer(), "NULL");
    ExpectReadsBack<nxIntValueWrapper>(nxNoChangeInitalizer(), "NO_CHANGE");
}

TEST(nxValueWrapperSetFromString, ReadsReservedDigitsAndLeavesTheValueForAnyOtherText) {
    nxUnsignedValueWrapper value;
    EXPECT_EQ(value.SetFromString("4294967294"), nxErrorEnum::OK);
    EXPECT_TRUE(value.IsNoChange());
    for (const char* text : {"", "null", "NULL ", "No change", "-1", "4294967296", "1.0"}) {
        value = 7;
        EXPECT_EQ(value.SetFromString(text), nxErrorEnum::ValueNotParsed) << text;
        EXPECT_EQ(value, 7U) << text;
    }
}

TEST(nxValueWrapperComparison, GoesByTheRawValueWhateverTypeTheOtherSideHas) {
    const nxUnsignedValueWrapper seven = 7;
    EXPECT_TRUE(seven == 7 && 7 == seven && seven == 7U && seven == 7LL && seven == short{7});
    EXPECT_TRUE(seven != 8 && seven < 8 && seven <= 7 && 8 > seven && seven >= 7UL);
    EXPECT_TRUE(seven > -1 && seven != -1 && -1 < seven && nxUnsignedValueWrapper() != -1);
    EXPECT_FALSE(seven == 4294967303); // 7 and 2 to the 32nd
    EXPECT_TRUE(nxUnsignedValueWrapper() > seven && nxUnsignedValueWrapper() > 4294967294U);
    const nxUnsignedValueWrapper category = nxDataCategoryCode("XMIC");
    EXPECT_TRUE(category == nxDataCategoryEnum::MICDefinitionList);
    EXPECT_TRUE(category > nxDataCategoryEnum::BrokerMap);

    const nxIntValueWrapper minusFive = -5;
    EXPECT_TRUE(minusFive == -5 && minusFive < 0U && minusFive != 4294967291U);
    EXPECT_TRUE(minusFive < nxIntValueWrapper(3) && nxIntValueWrapper() > nxIntValueWrapper(3));
}

TEST(nxDoubleValueWrapperState, OfTheTaggedConstructorsIsCrossedOver) {
    EXPECT_TRUE(nxDoubleValueWrapper().IsNull());
    EXPECT_TRUE(nxDoubleValueWrapper(nxNoChangeInitalizer()).IsNull());
    EXPECT_TRUE(nxDoubleValueWrapper(nxNullInitalizer()).IsNoChange());

    nxDoubleValueWrapper value(1.5);
    EXPECT_EQ(value.GetStatus(), nxValueStatusEnum::Valid);
    value.SetNull();
    EXPECT_TRUE(value.IsNull() && !value.IsValid());
    EXPECT_EQ(value.GetStatus(), nxValueStatusEnum::Null);
    value.SetNoChange();
    EXPECT_TRUE(value.IsNoChange() && !value.IsValid());
    EXPECT_EQ(value.GetStatus(), nxValueStatusEnum::NoChange);
}

TEST(nxDoubleValueWrapperText, IsEmptyForBothStatesAndShowsTheDigitsOfNullInLogs) {
    const struct {
        nxDoubleValueWrapper value;
        const char* text;
        const char* logText;
    } cases[] = {
        {-0.1, "-0.1", "-0.1"},
        {4503599627370495.0, "", "4503599627370495"},
        {4503599627370494.0, "", "NO_CHANGE"},
    };
    for (const auto& [value, text, logText] : cases) {
        EXPECT_EQ(value.GetAsString(), text);
        EXPECT_EQ(value.GetAsLogString(), logText);
    }

    nxDoubleValueWrapper value;
    EXPECT_EQ(value.SetFromString("-1.25"), nxErrorEnum::OK);
    EXPECT_EQ(value, -1.25);
    EXPECT_EQ(value.SetFromString("1,25"), nxErrorEnum::ValueNotParsed);
    EXPECT_TRUE(value.IsNull());
}

TEST(nxDoubleValueWrapperArithmetic, WorksOnTheRawValue) {
    nxDoubleValueWrapper value = 6;
    EXPECT_EQ(3 / value, 0.5);
    value += 4;
    value -= 1;
    value *= 2;
    value /= 3;
    EXPECT_EQ(value.GetValue(), 6);
    value.SetNull();
    value -= 1;
    EXPECT_TRUE(value.IsNoChange());
    EXPECT_TRUE(nxDoubleValueWrapper() > 1e15 && nxDoubleValueWrapper(2) == 2 && nxDoubleValueWrapper(2) < 3);
    EXPECT_TRUE(nxDoubleValueWrapper::GetMax(1, nxDoubleValueWrapper()).IsNull());
    EXPECT_EQ(nxDoubleValueWrapper::GetMin(1, nxDoubleValueWrapper()), 1);
}

TEST(nxStringValueState, IsKeptBesideTheText) {
    const struct {
        nxStringValue value;
        unsigned int status;
    } cases[] = {
        {nxStringValue(), nxValueStatusEnum::Null},
        {nxNullInitalizer(), nxValueStatusEnum::Null},
        {nxNoChangeInitalizer(), nxValueStatusEnum::NoChange},
        {"", nxValueStatusEnum::Valid},
    };
    for (const auto& [value, status] : cases) {
        EXPECT_EQ(value.GetStatus(), status);
        EXPECT_EQ(value.IsValid(), status == nxValueStatusEnum::Valid);
        EXPECT_EQ(value.IsNull(), status == nxValueStatusEnum::Null);
        EXPECT_EQ(value.IsNoChange(), status == nxValueStatusEnum::NoChange);
        EXPECT_EQ(value == nxStringValue(), status == nxValueStatusEnum::Null);
    }
    EXPECT_EQ(nxStringValue("a").GetValue(), "a");
}
