// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "tests/support/nxRecordText.h"
#include "xmlFramework/spread/nxSyntheticSpreadOrderSpecLeg_XML.h"

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <type_traits>
#include <utility>

// Spread legs from text, and legs of any content.
namespace nxSpreadSample {
    using Leg = nxSyntheticSpreadOrderSpecLeg_XML;

    inline Leg Read(const std::string& children, Leg into = Leg()) {
        EXPECT_EQ(nxRecordText::ReadItem(into, children), nxErrorEnum::OK);
        return into;
    }

    // The values of a type by number: 0 is null or undefined, 1 is no change (where the type has them), and
    // the rest is the type's whole range. Numbers that follow each other are different values.
    template <class Value>
    Value Nth(std::uint64_t n) {
        if constexpr (std::is_same_v<Value, bool>) {
            return n % 2 == 1;
        } else if constexpr (std::is_same_v<Value, nxDecimal>) {
            constexpr std::uint64_t Units = 1'000'000'000'000'000'000;
            const auto units = static_cast<std::int64_t>(n % Units);
            return n == 0 ? nxDecimal()
                          : nxDecimal(n % 2 == 0 ? units : -units, static_cast<unsigned>(n / Units));
        } else if constexpr (std::is_same_v<Value, nxSyntheticSpreadPayupMethodEnum>) {
            return Value::Plain + static_cast<unsigned>(n % 3); // a leg holds no other
        } else if constexpr (std::is_base_of_v<nxEnum, Value>) {
            const auto nth = static_cast<unsigned>(n % (Value::MaxValue - Value::MinValue + 1));
            return nth < 2 ? nth * nxEnum::NoChangeValue : Value::MinValue + nth - 1;
        } else {
            const unsigned value = static_cast<unsigned>(Value::NullValue) - static_cast<unsigned>(n);
            return static_cast<decltype(Value::NullValue)>(value);
        }
    }

    // One setting of a leg, by its accessors.
    struct Setting {
        void (*set)(Leg& leg, std::uint64_t n);
        bool (*holds)(const Leg& leg, std::uint64_t n);
    };
    template <auto Get, auto Set>
    constexpr Setting Accessors() {
        using Value = std::remove_cvref_t<decltype((std::declval<const Leg&>().*Get)())>;
        return {[](Leg& leg, std::uint64_t n) { (leg.*Set)(Nth<Value>(n)); },
                [](const Leg& leg, std::uint64_t n) { return (leg.*Get)() == Nth<Value>(n); }};
    }

    inline constexpr Setting Settings[] = {
        Accessors<&Leg::GetWorkingLeg, &Leg::SetWorkingLeg>(),
        Accessors<&Leg::GetOrderType, &Leg::SetOrderType>(),
        Accessors<&Leg::GetLeaningLegRiskRatio, &Leg::SetLeaningLegRiskRatio>(),
        Accessors<&Leg::GetTailSize, &Leg::SetTailSize>(),
        Accessors<&Leg::GetPayupTicks, &Leg::SetPayupTicks>(),
        Accessors<&Leg::GetPayupMethod, &Leg::SetPayupMethod>(),
        Accessors<&Leg::GetConditionalTriggerVolume, &Leg::SetConditionalTriggerVolume>(),
        Accessors<&Leg::GetConditionalTriggerRatio, &Leg::SetConditionalTriggerRatio>(),
        Accessors<&Leg::GetPessimisticVWAP, &Leg::SetPessimisticVWAP>(),
        Accessors<&Leg::GetFinesse, &Leg::SetFinesse>(),
        Accessors<&Leg::GetFinesseTriggerVolume, &Leg::SetFinesseTriggerVolume>(),
        Accessors<&Leg::GetFinesseTriggerRatio, &Leg::SetFinesseTriggerRatio>(),
        Accessors<&Leg::GetIsAuctionModeLeg, &Leg::SetIsAuctionModeLeg>(),
        Accessors<&Leg::GetHedgeAggressionMethod, &Leg::SetHedgeAggressionMethod>(),
        Accessors<&Leg::GetScratchPayupTicks, &Leg::SetScratchPayupTicks>(),
        Accessors<&Leg::GetSensitivityRangeTicks_1, &Leg::SetSensitivityRangeTicks_1>(),
        Accessors<&Leg::GetSensitivityTicks_1, &Leg::SetSensitivityTicks_1>(),
        Accessors<&Leg::GetSensitivityRangeTicks_2, &Leg::SetSensitivityRangeTicks_2>(),
        Accessors<&Leg::GetSensitivityTicks_2, &Leg::SetSensitivityTicks_2>(),
        Accessors<&Leg::GetSensitivityRangeTicks_3, &Leg::SetSensitivityRangeTicks_3>(),
        Accessors<&Leg::GetSensitivityTicks_3, &Leg::SetSensitivityTicks_3>(),
        Accessors<&Leg::GetSensitivityRangeTicks_4, &Leg::SetSensitivityRangeTicks_4>(),
        Accessors<&Leg::GetSensitivityTicks_4, &Leg::SetSensitivityTicks_4>(),
        Accessors<&Leg::GetSensitivityRangeTicks_5, &Leg::SetSensitivityRangeTicks_5>(),
        Accessors<&Leg::GetSensitivityTicks_5, &Leg::SetSensitivityTicks_5>(),
        Accessors<&Leg::GetInheritsTimeRestrictionFromSpreadOrder,
                  &Leg::SetInheritsTimeRestrictionFromSpreadOrder>(),
        Accessors<&Leg::GetAccountIDOverride, &Leg::SetAccountIDOverride>(),
        Accessors<&Leg::GetExecutionRestriction, &Leg::SetExecutionRestriction>(),
    };
    constexpr std::size_t FirstBand = 15; // its range, then its ticks

    using Numbers = std::array<std::uint64_t, std::size(Settings)>;

    inline Leg MakeLeg(const Numbers& numbers) {
        Leg leg;
        for (std::size_t i = 0; i < numbers.size(); ++i)
            Settings[i].set(leg, numbers[i]);
        return leg;
    }

    // Null, no change and the values next to them as often as any.
    inline Numbers RandomNumbers(std::mt19937_64& random) {
        Numbers numbers;
        for (std::uint64_t& n : numbers)
            n = random() % 2 == 0 ? random() % 4 : random();
        return numbers;
    }
} // namespace nxSpreadSample
