// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// User strings: split, typed, written and validated by an algorithm spec. The tests write "|" for the byte
// 0x01.

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxMilliseconds.h"
#include "tests/support/nxPrint.h"
#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {
    using Definition = nxKestrumParameterDefinition;
    using Type = nxKestrumParameterTypeEnum;
    using Strings = std::vector<std::string>;
    using Texts = std::map<std::string, std::string>;

    std::string UserString(std::string text) {
        std::ranges::replace(text, '|', '\x01');
        return text;
    }

    // Parameters that the caller of an extraction owns.
    struct Parameters {
        ~Parameters() {
            for (const nxKestrumParameter* parameter : items)
                delete parameter;
        }
        // Each as "name:type=value", with "$" behind the type of a system parameter.
        Strings Shown() const {
            Strings shown;
            for (const nxKestrumParameter* parameter : items) {
                std::string value;
                parameter->PersistValueToString(value);
                shown.push_back(parameter->GetName() + ":" +
                                std::to_string(parameter->GetParameterType().GetEnumValue()) +
                                (parameter->GetIsSystemParameter() ? "$=" : "=") +
                                (parameter->IsNull() ? "(null)" : value));
            }
            return shown;
        }

        std::vector<nxKestrumParameter*> items;
    };

    nxKestrumAlgorithmSpec Spec() {
        nxKestrumAlgorithmSpec spec;
        spec.AddScriptParameterDefinition(Definition("Qty", Type::Quantity, false));
        spec.AddScriptParameterDefinition(Definition("Px", Type::Price, false));
        spec.AddScriptParameterDefinition(Definition("Flag", Type::Boolean, true));
        spec.AddScriptParameterDefinition(Definition("a", Type::Text, false));
        spec.AddScriptParameterDefinition(Definition("None", 0, true));
        spec.AddScriptOutputParameterDefinition(Definition("Out", Type::Price, false));
        return spec;
    }
} // namespace

TEST(nxKestrumUserString, IsSplitIntoNamesAndTexts) {
    const struct {
        const char* text;
        nxErrorEnum result;
        Texts texts;
    } cases[] = {
        {"", nxErrorEnum::OK, {}},
        {"Qty=100|Side=Buy|", nxErrorEnum::OK, {{"Qty", "100"}, {"Side", "Buy"}}},
        {" A = \u00E9 |", nxErrorEnum::OK, {{" A ", " \u00E9 "}}},
        {"A=x=y|B=|", nxErrorEnum::OK, {{"A", "x=y"}, {"B", ""}}},
        {"A=1|A=2|", nxErrorEnum::OK, {{"A", "2"}}},
        {"A=1|=5|", nxErrorEnum::OK, {{"A", "1"}, {"", "5"}}},
        {"A=1||X=2|", nxErrorEnum::OK, {{"A", "1"}, {"\x01X", "2"}}},
        {"A=1|B=2", nxErrorEnum::InvalidData, {{"A", "1"}}},
        {"A=1|B|", nxErrorEnum::InvalidData, {{"A", "1"}}},
        {"A=1||", nxErrorEnum::InvalidData, {{"A", "1"}}},
        {"=5|", nxErrorEnum::InvalidData, {}},
        {"A", nxErrorEnum::InvalidData, {}},
    };
    for (const auto& [text, result, expected] : cases) {
        Texts texts{{"held", "before"}};
        EXPECT_EQ(nxKestrumAlgorithmSpec::ExtractParametersFromUserString(UserString(text), texts), result)
            << text;
        EXPECT_EQ(texts, expected) << text;
    }
}

TEST(nxKestrumUserString, IsLoggedPairByPair) {
    const nxCollectedLog log;
    Texts texts;
    nxKestrumAlgorithmSpec::ExtractParametersFromUserString(UserString("A=1|=x=y|B=2"), texts);
    EXPECT_EQ(log.EntriesAt(nxLogLevelEnum::Trace),
              (Strings{"fieldName: A value: 1", "fieldName:  value: x=y"}));
    EXPECT_EQ(log.Records().size(), 2U);
    EXPECT_EQ(log.Records()[0].sourceFile, "xmlFramework/trunk/nxKestrumAlgorithmSpec");
}

TEST(nxKestrumUserString, GivesParametersOfTheDefinedTypesUpToTheFirstFailure) {
    const struct {
        const char* text;
        nxErrorEnum result;
        Strings parameters;
        Strings errors;
    } cases[] = {
        {"Qty=100|a=x=y|Px=-1.50|Flag=true|Qty=7|",
         nxErrorEnum::OK,
         {"Qty:9603=100", "a:9604=x=y", "Px:9601=-1.50", "Flag:9608=true", "Qty:9603=7"},
         {}},
        {"$backTestingEnabled=false|$backTestingStartTime=20261121|$backTestingEndTime=20261122:01:00:00|"
         "$backTestingSpeedMultiplier=2.5|$classroomPlaybackEnabled=true|$classroomNumber=7|",
         nxErrorEnum::OK,
         {"$backTestingEnabled:9608$=false", "$backTestingStartTime:9610$=20261121:00:00:00",
          "$backTestingEndTime:9610$=20261122:01:00:00", "$backTestingSpeedMultiplier:9605$=2.5",
          "$classroomPlaybackEnabled:9608$=true", "$classroomNumber:9602$=7"},
         {}},
        {"Qty=1|Out=2|Px=3|",
         nxErrorEnum::InvalidData,
         {"Qty:9603=1"},
         {"Unable to find parameter definition for parameter named: Out"}},
        {"Qty=1|None=2|",
         nxErrorEnum::InvalidData,
         {"Qty:9603=1"},
         {"Failed to create nxKestrumParameter instance for parameterType: UNDEFINED"}},
        {"Qty=1|Px=abc|a=x|", nxErrorEnum::ValueNotParsed, {"Qty:9603=1", "Px:9601=(null)"}, {}},
        {"Flag=maybe|Qty=1|", nxErrorEnum::InvalidData, {"Flag:9608=(null)"}, {}},
    };
    for (const auto& [text, result, expected, errors] : cases) {
        const nxCollectedLog log;
        Parameters parameters;
        EXPECT_EQ(Spec().ExtractParametersFromUserString(UserString(text), parameters.items), result) << text;
        EXPECT_EQ(parameters.Shown(), expected);
        EXPECT_EQ(log.EntriesAt(nxLogLevelEnum::Error), errors);
    }
}

TEST(nxKestrumUserString, NamesTheScriptsParametersBeforeTheSystems) {
    nxKestrumAlgorithmSpec spec;
    spec.AddScriptParameterDefinition(Definition("$classroomNumber", Type::Text, true));
    Parameters parameters;
    EXPECT_EQ(spec.ExtractParametersFromUserString(UserString("$classroomNumber=x|"), parameters.items),
              nxErrorEnum::OK);
    EXPECT_EQ(parameters.Shown(), Strings{"$classroomNumber:9604=x"});
}

TEST(nxKestrumUserString, TakesThePairsOfParametersThatAreNotNull) {
    Parameters parameters;
    const std::string given =
        "a=|Flag=false|Px=|a= x=y |Qty=4294967295|Qty=4294967294|Flag=undefined|Px=1.50|";
    EXPECT_EQ(Spec().ExtractParametersFromUserString(UserString(given), parameters.items), nxErrorEnum::OK);
    const std::string pairs = UserString("Flag=false|a= x=y |Qty=|Px=1.50|"); // a quantity of no change
    std::string text = "before";
    EXPECT_EQ(nxKestrumAlgorithmSpec::AddParametersToUserString(parameters.items, text), nxErrorEnum::OK);
    EXPECT_EQ(text, "before" + pairs);
    const std::vector<const nxKestrumParameter*> constant(parameters.items.begin(), parameters.items.end());
    EXPECT_EQ(nxKestrumAlgorithmSpec::AddParametersToUserString(constant, text), nxErrorEnum::OK);
    EXPECT_EQ(text, "before" + pairs + pairs);
}

TEST(nxKestrumUserString, IsParsedInTimeLinearInItsLength) {
    const nxCollectedLog quiet(nxLogLevelEnum::Error);
    const nxKestrumAlgorithmSpec spec = Spec();
    double texts[2] = {};
    double parameters[2] = {};
    for (const int i : {0, 1}) {
        std::string text;
        for (const std::size_t size = i == 0 ? 100'000 : 1'000'000; text.size() < size;)
            text += UserString("Qty=1234|Px=7|Flag=true|$classroomNumber=9|");
        texts[i] = nxMilliseconds([&text] {
            Texts read;
            ASSERT_EQ(nxKestrumAlgorithmSpec::ExtractParametersFromUserString(text, read), nxErrorEnum::OK);
        });
        parameters[i] = nxMilliseconds([&] {
            Parameters read;
            ASSERT_EQ(spec.ExtractParametersFromUserString(text, read.items), nxErrorEnum::OK);
        });
        std::printf("%zu bytes: texts %.2f ms, parameters %.2f ms\n", text.size(), texts[i], parameters[i]);
    }
    // Ten times the length; quadratic would be a hundred times the time.
    EXPECT_LT(texts[1], 40 * texts[0]);
    EXPECT_LT(parameters[1], 40 * parameters[0]);
}

TEST(nxKestrumAlgorithmSpecValidateParameters, NamesAMandatoryParameterThatIsNotSet) {
    // "Qty", "Px" and "a" are mandatory; in byte order "Px" comes first.
    const struct {
        const char* text;
        const char* missing;
    } cases[] = {
        {"", "Px"},
        {"Px=1|", "Qty"},
        {"Qty=1|Px=1|", "a"},
        {"a=x|Qty=1|Px=1|", ""},
        {"a=x|Qty=1|Px=1|a=|Px=|", ""}, // the second of a name does not count
        {"a=|Qty=1|Px=1|a=x|", "a"},
        {"Qty=4294967295|", "Qty"},
        {"Flag=undefined|Qty=4294967294|a= |Px=0|", ""}, // no change is set
    };
    for (const auto& [text, missing] : cases) {
        Parameters parameters;
        EXPECT_EQ(Spec().ExtractParametersFromUserString(UserString(text), parameters.items),
                  nxErrorEnum::OK);
        std::string error = "before";
        EXPECT_EQ(Spec().ValidateParameters(parameters.items, error), *missing == '\0') << text;
        EXPECT_EQ(error, *missing ? std::string("Mandatory parameter: ") + missing + " is not set" : "");
    }
}
