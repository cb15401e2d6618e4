// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumParameter.h"

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxPrint.h"
#include "xmlFramework/kestrum/nxKestrumParameterTemplate.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace {
    using Type = nxKestrumParameterTypeEnum;

    std::unique_ptr<nxKestrumParameter> Make(unsigned int type) {
        return std::unique_ptr<nxKestrumParameter>(nxKestrumParameter::CreateInstance(type));
    }

    std::string TextOf(const nxKestrumParameter& parameter) {
        std::string text = "before";
        parameter.PersistValueToString(text);
        return text;
    }

    // A text that every one of the types reads as a value.
    const char* AnyValue(unsigned int type) {
        if (type == Type::Boolean)
            return "true";
        return type == Type::DateTime ? "20261121" : "1";
    }

    template <class Parameter>
    auto ValueFrom(const std::string& text) {
        const auto parameter = Make(Parameter().GetParameterType().GetEnumValue());
        EXPECT_EQ(parameter->PersistValueFromString(text), nxErrorEnum::OK);
        return dynamic_cast<Parameter&>(*parameter).GetValue();
    }
} // namespace

TEST(nxKestrumParameterConstructor, TakesNameAndValue) {
    const nxKestrumPriceParameter price("Limit price", nxDecimal(10150, 2));
    EXPECT_EQ(price.GetName(), "Limit price");
    EXPECT_EQ(TextOf(price), "101.50");
    EXPECT_EQ(TextOf(nxKestrumQuantityParameter("Contracts", 40)), "40");
    EXPECT_EQ(TextOf(nxKestrumTextParameter("Note", "roll")), "roll");
    EXPECT_EQ(TextOf(nxKestrumBooleanParameter("On", nxBoolEnum::True)), "true");
}

TEST(nxKestrumParameterCreateInstance, LogsATypeWithoutClass) {
    const struct {
        unsigned int type;
        const char* text;
    } cases[] = {{9600, "UNDEFINED"}, {9612, "UNDEFINED"}, {0, "UNDEFINED"}, {2, "NO_CHANGE"}};
    for (const auto& [type, text] : cases) {
        const nxCollectedLog log;
        EXPECT_FALSE(Make(type)) << type;
        ASSERT_EQ(log.Records().size(), 1U);
        EXPECT_EQ(log.Records()[0].entry,
                  std::string("Failed to create nxKestrumParameter instance for parameterType: ") + text);
        EXPECT_EQ(log.Records()[0].level, nxLogLevelEnum::Error);
        EXPECT_EQ(log.Records()[0].sourceFile, "xmlFramework/trunk/nxKestrumParameter");
    }
}

TEST(nxKestrumParameterPersistValueFromString, ReadsEachTypesTextAndIsNullAfterAFailure) {
    // NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): fields in the order in which a row reads
    const struct {
        unsigned int type;
        const char* text;
        nxErrorEnum result;
        const char* written;
        bool isNull;
    } cases[] = {
        {Type::Price, "1.50", nxErrorEnum::OK, "1.50", false},
        {Type::Price, "", nxErrorEnum::OK, "", true},
        {Type::Price, "1,5", nxErrorEnum::ValueNotParsed, "", true},
        {Type::Decimal, "0.000000000000000001", nxErrorEnum::OK, "0.000000000000000001", false},
        {Type::Decimal, "1e3", nxErrorEnum::ValueNotParsed, "", true},
        {Type::Unsigned, "4294967293", nxErrorEnum::OK, "4294967293", false},
        {Type::Unsigned, "4294967294", nxErrorEnum::OK, "", false}, // no change is not null
        {Type::Unsigned, "4294967295", nxErrorEnum::OK, "", true},
        {Type::Unsigned, "-1", nxErrorEnum::ValueNotParsed, "", true},
        {Type::Quantity, "100", nxErrorEnum::OK, "100", false},
        {Type::Quantity, "NULL", nxErrorEnum::ValueNotParsed, "", true},
        {Type::Text, "  a=b\r\n\u00E9 ", nxErrorEnum::OK, "  a=b\r\n\u00E9 ", false},
        {Type::Text, "", nxErrorEnum::OK, "", true},
        {Type::FloatingPoint, "-0.1", nxErrorEnum::OK, "-0.1", false},
        {Type::FloatingPoint, "4503599627370494", nxErrorEnum::OK, "", false},
        {Type::FloatingPoint, "4503599627370495", nxErrorEnum::OK, "", true},
        {Type::FloatingPoint, "", nxErrorEnum::ValueNotParsed, "", true},
        {Type::Signed, "-2147483648", nxErrorEnum::OK, "-2147483648", false},
        {Type::Signed, "2147483646", nxErrorEnum::OK, "", false},
        {Type::Signed, "2147483647", nxErrorEnum::OK, "", true},
        {Type::Signed, "abc", nxErrorEnum::ValueNotParsed, "", true},
        {Type::Boolean, "false", nxErrorEnum::OK, "false", false},
        {Type::Boolean, "no change", nxErrorEnum::OK, "no change", false},
        {Type::Boolean, "undefined", nxErrorEnum::OK, "undefined", true},
        {Type::Boolean, "1", nxErrorEnum::InvalidData, "undefined", true},
        {Type::Instrument, " ESZ6 ", nxErrorEnum::OK, " ESZ6 ", false},
        {Type::Account, "", nxErrorEnum::OK, "", true},
        {Type::DateTime, "20261121:10:53:09", nxErrorEnum::OK, "20261121:10:53:09", false},
        {Type::DateTime, "2026-11-21T10:53:00.999+01:00", nxErrorEnum::OK, "20261121:09:53:00", false},
        {Type::DateTime, "", nxErrorEnum::OK, "", true},
        {Type::DateTime, "20261121:24:00:00", nxErrorEnum::ValueNotParsed, "", true},
    };
    for (const auto& [type, text, result, written, isNull] : cases) {
        SCOPED_TRACE(std::to_string(type) + " '" + text + "'");
        const auto parameter = Make(type);
        EXPECT_EQ(parameter->PersistValueFromString(AnyValue(type)), nxErrorEnum::OK);
        EXPECT_FALSE(parameter->IsNull());
        EXPECT_EQ(parameter->PersistValueFromString(text), result);
        EXPECT_EQ(TextOf(*parameter), written);
        EXPECT_EQ(parameter->IsNull(), isNull);
    }
}

TEST(nxKestrumParameterPersistValueFromString, GivesTheValueTheTypesOwnClass) {
    using namespace std::chrono;
    EXPECT_EQ(ValueFrom<nxKestrumPriceParameter>("1.50"), nxDecimal(15, 1));
    EXPECT_EQ(ValueFrom<nxKestrumUnsignedParameter>("7"), 7U);
    EXPECT_EQ(ValueFrom<nxKestrumQuantityParameter>("8"), 8U);
    EXPECT_EQ(ValueFrom<nxKestrumTextParameter>("t"), "t");
    EXPECT_EQ(ValueFrom<nxKestrumDecimalParameter>("-2"), nxDecimal(-2));
    EXPECT_EQ(ValueFrom<nxKestrumFloatingPointParameter>("0.5"), 0.5);
    EXPECT_EQ(ValueFrom<nxKestrumSignedParameter>("-7"), -7);
    EXPECT_EQ(ValueFrom<nxKestrumBooleanParameter>("true"), nxBoolEnum::True);
    EXPECT_EQ(ValueFrom<nxKestrumInstrumentParameter>("i"), "i");
    EXPECT_EQ(ValueFrom<nxKestrumDateTimeParameter>("20261121:10:53:09"),
              nxDateTime(sys_days(2026y / 11 / 21) + 10h + 53min + 9s));
    EXPECT_EQ(ValueFrom<nxKestrumAccountParameter>("a"), "a");
}

TEST(nxKestrumParameterInstances, AreMadeNullAndCopiedWhole) {
    for (unsigned int type = Type::Price; type <= Type::Account; ++type) {
        SCOPED_TRACE(type);
        const auto original = Make(type);
        ASSERT_TRUE(original);
        EXPECT_TRUE(original->IsNull());
        EXPECT_FALSE(original->GetIsSystemParameter());
        const std::string null = TextOf(*original);
        EXPECT_EQ(null, type == Type::Boolean ? "undefined" : "");

        original->SetName("name");
        EXPECT_EQ(original->PersistValueFromString(AnyValue(type)), nxErrorEnum::OK);
        const std::unique_ptr<nxKestrumParameter> copy(original->CopyInstance());
        const std::string text = TextOf(*original);
        original->SetNull();
        EXPECT_EQ(TextOf(*original), null);
        EXPECT_EQ(copy->GetParameterType().GetEnumValue(), type);
        EXPECT_EQ(copy->GetName(), "name");
        EXPECT_EQ(TextOf(*copy), text);
    }
}
