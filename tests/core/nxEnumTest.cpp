// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxBoolEnum.h"
#include "core/nxDataCategoryEnum.h"
#include "core/nxExecutionRestrictionEnum.h"
#include "core/nxKestrumParameterTypeEnum.h"
#include "core/nxLogLevelEnum.h"
#include "core/nxOrderTypeEnum.h"
#include "core/nxSpreadMachineHedgeAggressionMethodEnum.h"
#include "core/nxSyntheticOrderTypeEnum.h"
#include "core/nxSyntheticSpreadPayupMethodEnum.h"
#include "core/nxTradingSessionTypeEnum.h"
#include "core/nxValueStatusEnum.h"
#include "include/nxClientIDQualifierEnum.h"
#include "include/nxErrorEnum.h"
#include "include/nxExecutionDecisionQualifierEnum.h"
#include "include/nxInvestmentDecisionQualifierEnum.h"
#include "include/nxMarketByOrderActionTypeEnum.h"
#include "include/nxMultiLegReportingTypeEnum.h"
#include "include/nxPositionTypeEnum.h"
#include "include/nxTradingCapacityEnum.h"
#include "tests/support/nxIsValue.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace {
    std::string Page(const std::string& name) {
        std::ostringstream page;
        page << std::ifstream(NX_SOURCE_DIR "/docs/" + name).rdbuf();
        return page.str();
    }
} // namespace

template <class Enum>
class nxEnumOfAnyClass : public testing::Test {
    static_assert(nxIsValue<Enum>);
};

using nxEnumClasses =
    testing::Types<nxBoolEnum, nxDataCategoryEnum, nxExecutionRestrictionEnum, nxKestrumParameterTypeEnum,
                   nxLogLevelEnum, nxOrderTypeEnum, nxSpreadMachineHedgeAggressionMethodEnum,
                   nxSyntheticOrderTypeEnum, nxSyntheticSpreadPayupMethodEnum, nxTradingSessionTypeEnum,
                   nxValueStatusEnum, nxClientIDQualifierEnum, nxErrorEnum, nxExecutionDecisionQualifierEnum,
                   nxInvestmentDecisionQualifierEnum, nxMarketByOrderActionTypeEnum,
                   nxMultiLegReportingTypeEnum, nxPositionTypeEnum, nxTradingCapacityEnum>;
TYPED_TEST_SUITE(nxEnumOfAnyClass, nxEnumClasses);

TYPED_TEST(nxEnumOfAnyClass, IsDocumentedWithAllItsRows) {
    std::ostringstream section;
    section << "## " << TypeParam().GetClassName() << "\n\n"
            << "| Value | Name | Short description | Long description |\n|---|---|---|---|\n";
    for (const nxEnumRow& row : TypeParam::Rows())
        section << "| " << row.value << " | `" << row.name << "` | " << row.shortDescription << " | "
                << row.longDescription << " |\n";
    section << '\n';
    EXPECT_NE(Page("enumerations.md").find(section.str()), std::string::npos)
        << "docs/enumerations.md should hold\n"
        << section.str();
}

TYPED_TEST(nxEnumOfAnyClass, GivesMeaningToItsWholeRangeUnlessTheRangeIsMeantToBeWider) {
    const bool wider = TypeParam::ClassName == nxErrorEnum::ClassName ||
                       TypeParam::ClassName == nxDataCategoryEnum::ClassName;
    const std::size_t ordinaryRows = TypeParam::Rows().size() - 2;
    EXPECT_EQ(ordinaryRows < TypeParam::MaxValue - TypeParam::MinValue - 1, wider);
}

TEST(nxEnumValue, IsStoredInsideTheRangeWithoutItsBoundsAndWhenItIsZeroOrTwo) {
    for (const unsigned int kept : {0U, 2U, 242U, 241U, 243U}) {
        nxValueStatusEnum assigned;
        assigned = kept;
        EXPECT_EQ(assigned.GetEnumValue(), kept);
        EXPECT_EQ(nxValueStatusEnum(kept), assigned);
        EXPECT_EQ(assigned.IsNoChange(), kept == 2);
        EXPECT_EQ(assigned.IsUndefined(), kept == 0);
    }
    for (const unsigned int refused : {1U, 3U, nxValueStatusEnum::MinValue, nxValueStatusEnum::MaxValue}) {
        nxValueStatusEnum assigned = nxValueStatusEnum::Null;
        assigned = refused;
        EXPECT_EQ(assigned.GetEnumValue(), 0U) << refused;
        EXPECT_EQ(nxValueStatusEnum(refused).GetEnumValue(), 0U) << refused;
    }
    EXPECT_LT(nxValueStatusEnum(241), nxValueStatusEnum(242));
}

TEST(nxEnumTexts, ReadBackAndLeaveTheValueWhenTheyAreUnknown) {
    for (const nxEnumRow& row : nxOrderTypeEnum::Rows()) {
        const nxOrderTypeEnum written = row.value;
        nxOrderTypeEnum read = nxOrderTypeEnum::MinValue + 1;
        EXPECT_TRUE(read.SetFromString(written.GetAsString()));
        EXPECT_EQ(read, written) << row.name;
        read = nxOrderTypeEnum::MinValue + 1;
        EXPECT_TRUE(read.SetFromShortDescriptionString(written.GetShortDescription()));
        EXPECT_EQ(read, written) << row.shortDescription;
        for (const char* unknown : {"", "neither", "NO_CHANGE ", "No Change"}) {
            EXPECT_FALSE(read.SetFromString(unknown));
            EXPECT_FALSE(read.SetFromShortDescriptionString(unknown));
        }
        EXPECT_EQ(read, written);
    }
    EXPECT_EQ(nxOrderTypeEnum(nxOrderTypeEnum::NoChangeValue).GetLongDescription(),
              "No change of the order type");
}

TEST(nxDataCategoryEnumValue, KeepsACodeOfPrintableCharactersThatNoRecordHas) {
    for (const unsigned int kept : {nxDataCategoryCode("    "), nxDataCategoryCode("~~~~")})
        EXPECT_EQ(nxDataCategoryEnum(kept).GetEnumValue(), kept);
    for (const unsigned int refused : {nxDataCategoryCode("    ") - 1, nxDataCategoryCode("~~~~") + 1})
        EXPECT_EQ(nxDataCategoryEnum(refused).GetEnumValue(), 0U);
    const nxDataCategoryEnum unknown = nxDataCategoryCode("AB  ");
    EXPECT_EQ(unknown.GetEnumValue(), 0x41422020U);
    EXPECT_TRUE(unknown.IsUndefined());
    EXPECT_EQ(unknown.GetShortDescription(), "1094852640");
}

TEST(nxErrorEnumPage, HasARowForEachCode) {
    const std::string page = Page("errors.md");
    for (const nxEnumRow& row : nxErrorEnum::Rows()) {
        const std::string begin = "\n| " + std::to_string(row.value) + " | `" + std::string(row.name) + "` |";
        const bool isReturned = row.value != nxErrorEnum::NoChangeValue;
        EXPECT_EQ(page.find(begin) != std::string::npos, isReturned) << begin;
    }
}
