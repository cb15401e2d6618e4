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

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

template <class Enum>
class nxEnumOfAnyClass : public testing::Test {
protected:
    static std::string _DocumentedSection() {
        std::ostringstream section;
        section << "## " << Enum::ClassName << "\n\n"
                << "| Value | Name | Short description | Long description |\n|---|---|---|---|\n";
        for (const nxEnumRow& row : Enum::Rows())
            section << "| " << row.value << " | `" << row.name << "` | " << row.shortDescription << " | "
                    << row.longDescription << " |\n";
        return section.str() + "\n";
    }
};

using nxEnumClasses =
    testing::Types<nxBoolEnum, nxDataCategoryEnum, nxExecutionRestrictionEnum, nxKestrumParameterTypeEnum,
                   nxLogLevelEnum, nxOrderTypeEnum, nxSpreadMachineHedgeAggressionMethodEnum,
                   nxSyntheticOrderTypeEnum, nxSyntheticSpreadPayupMethodEnum, nxTradingSessionTypeEnum,
                   nxValueStatusEnum, nxClientIDQualifierEnum, nxErrorEnum, nxExecutionDecisionQualifierEnum,
                   nxInvestmentDecisionQualifierEnum, nxMarketByOrderActionTypeEnum,
                   nxMultiLegReportingTypeEnum, nxPositionTypeEnum, nxTradingCapacityEnum>;

struct nxEnumClassNames {
    template <class Enum>
    static std::string GetName(int) {
        return Enum().GetClassName();
    }
};

TYPED_TEST_SUITE(nxEnumOfAnyClass, nxEnumClasses, nxEnumClassNames);

TYPED_TEST(nxEnumOfAnyClass, StoresItsRangeWithoutTheBoundsAndZeroAndTwo) {
    const unsigned int min = TypeParam()._MinValue();
    const unsigned int max = TypeParam()._MaxValue();
    for (const unsigned int kept : {0U, 2U, min + 1, max - 1}) {
        TypeParam assigned;
        assigned = kept;
        EXPECT_EQ(assigned.GetEnumValue(), kept);
        EXPECT_EQ(TypeParam(kept), assigned);
        EXPECT_EQ(assigned.IsNoChange(), kept == 2);
    }
    for (const unsigned int refused : {1U, 3U, min, max, 0xFFFFFFFFU}) {
        TypeParam assigned = min + 1;
        assigned = refused;
        EXPECT_EQ(assigned.GetEnumValue(), 0U) << refused;
        EXPECT_EQ(TypeParam(refused).GetEnumValue(), 0U) << refused;
    }
    EXPECT_TRUE(TypeParam().IsUndefined());
    EXPECT_FALSE(TypeParam(2).IsUndefined());
    EXPECT_LT(TypeParam(min + 1), TypeParam(max - 1));
}

TYPED_TEST(nxEnumOfAnyClass, ReadsBackTheTextsOfEveryValue) {
    for (const nxEnumRow& row : TypeParam::Rows()) {
        const TypeParam written = row.value;
        TypeParam read = TypeParam::MinValue + 1;
        EXPECT_TRUE(read.SetFromString(written.GetAsString()));
        EXPECT_EQ(read, written) << row.name;
        read = TypeParam::MinValue + 1;
        EXPECT_TRUE(read.SetFromShortDescriptionString(written.GetShortDescription()));
        EXPECT_EQ(read, written) << row.shortDescription;
    }
}

TYPED_TEST(nxEnumOfAnyClass, KeepsItsValueWhenATextIsUnknown) {
    TypeParam value = TypeParam::MaxValue - 1;
    for (const char* unknown : {"", "neither", "NO_CHANGE ", "No Change"}) {
        EXPECT_FALSE(value.SetFromString(unknown));
        EXPECT_FALSE(value.SetFromShortDescriptionString(unknown));
    }
    EXPECT_EQ(value, TypeParam(TypeParam::MaxValue - 1));
}

TYPED_TEST(nxEnumOfAnyClass, GivesMeaningToItsWholeRangeUnlessTheRangeIsMeantToBeWider) {
    const bool wider = TypeParam::ClassName == nxErrorEnum::ClassName ||
                       TypeParam::ClassName == nxDataCategoryEnum::ClassName;
    const std::size_t ordinaryRows = TypeParam::Rows().size() - 2;
    EXPECT_EQ(ordinaryRows < TypeParam::MaxValue - TypeParam::MinValue - 1, wider);
}

TYPED_TEST(nxEnumOfAnyClass, IsDocumentedWithAllItsRows) {
    std::ostringstream page;
    page << std::ifstream(NX_SOURCE_DIR "/docs/enumerations.md").rdbuf();
    EXPECT_NE(page.str().find(this->_DocumentedSection()), std::string::npos)
        << "docs/enumerations.md should hold\n"
        << this->_DocumentedSection();
}

TEST(nxEnumValue, KeepsTheNumbersThatOtherProgramsKnow) {
    const std::pair<unsigned int, unsigned int> numbers[] = {
        {nxValueStatusEnum::Valid, 241},
        {nxValueStatusEnum::Null, 242},
        {nxValueStatusEnum::NoChange, 243},
        {nxLogLevelEnum::Trace, 31},
        {nxLogLevelEnum::Error, 37},
        {nxExecutionRestrictionEnum::NoRestriction, 1051},
        {nxSyntheticOrderTypeEnum::KestrumAlgorithm, 5915},
        {nxKestrumParameterTypeEnum::MinValue + 1, 9601},
        {nxKestrumParameterTypeEnum::Unsigned, 9602},
        {nxKestrumParameterTypeEnum::Decimal, 9605},
        {nxKestrumParameterTypeEnum::FloatingPoint, 9606},
        {nxKestrumParameterTypeEnum::Signed, 9607},
        {nxKestrumParameterTypeEnum::Boolean, 9608},
        {nxKestrumParameterTypeEnum::DateTime, 9610},
        {nxKestrumParameterTypeEnum::MaxValue - 1, 9611},
        {nxSyntheticSpreadPayupMethodEnum::Plain, 13001},
        {nxSyntheticSpreadPayupMethodEnum::Conditional, 13002},
        {nxSyntheticSpreadPayupMethodEnum::Cascade, 13003},
        {nxDataCategoryEnum::AlgoIDMappingList, 0x414C4944},
        {nxDataCategoryEnum::SyntheticSpreadOrderSpec, 0x53505244},
        {nxDataCategoryEnum::UserTextList, 0x5552544C},
    };
    for (const auto& [named, number] : numbers)
        EXPECT_EQ(named, number);
}

TEST(nxBoolEnumSetFromString, ReadsWhatGetShortDescriptionWrites) {
    nxBoolEnum value;
    EXPECT_TRUE(value.SetFromString(nxBoolEnum(nxBoolEnum::True).GetShortDescription()));
    EXPECT_EQ(value, nxBoolEnum::True);
    EXPECT_EQ(value.GetShortDescription(), "true");
}

TEST(nxDataCategoryEnumValue, KeepsACodeThatNoRecordHasAndCallsItUndefined) {
    const nxDataCategoryEnum unknown = nxDataCategoryCode("AB  ");
    EXPECT_EQ(unknown.GetEnumValue(), 0x41422020U);
    EXPECT_TRUE(unknown.IsUndefined());
    EXPECT_EQ(unknown.GetShortDescription(), "1094852640");
    EXPECT_EQ(nxDataCategoryEnum(0x584D4943).GetAsString(), "XMIC");
}
