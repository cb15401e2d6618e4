// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxStringHelper.h"
#include "tool/view.h"
#include "xmlFramework/spread/nxSyntheticSpreadOrderSpec_XML.h"

#include <string>
#include <utility>

namespace {
    using tool::Table;
    using tool::View;
    using Leg = nxSyntheticSpreadOrderSpecLeg_XML;

    std::string Text(bool value) {
        return nxStringHelper::GetAsString(value);
    }
    template <class T, T Null, T NoChange>
    std::string Text(const nxValueWrapper<T, Null, NoChange>& value) {
        return value.IsNull() ? std::string() : value.GetAsString();
    }
    std::string Text(const nxDecimal& value) {
        return value.GetAsString('.');
    }
    std::string Text(const nxEnum& value) {
        return value.IsUndefined() ? std::string() : value.GetShortDescription();
    }

    template <auto Get>
    std::string TextOf(const Leg& leg) {
        return Text((leg.*Get)());
    }

    // A band of which only one half is set says so: it is not valid, or does nothing.
    template <auto GetRange, auto GetTicks>
    std::string BandOf(const Leg& leg) {
        const nxUnsignedValueWrapper range = (leg.*GetRange)(), ticks = (leg.*GetTicks)();
        if (range.IsNull() && ticks.IsNull())
            return {};
        return range.GetAsString() + " wide: " + ticks.GetAsString();
    }

    struct Setting {
        const char* name;
        std::string (*text)(const Leg&);
    };

    // What is not set shows as an empty cell.
    constexpr Setting Settings[] = {
        {"Working leg", TextOf<&Leg::GetWorkingLeg>},
        {"Order type", TextOf<&Leg::GetOrderType>},
        {"Risk ratio", TextOf<&Leg::GetLeaningLegRiskRatio>},
        {"Tail size", TextOf<&Leg::GetTailSize>},
        {"Payup method", TextOf<&Leg::GetPayupMethod>},
        {"Payup ticks", TextOf<&Leg::GetPayupTicks>},
        {"Conditional trigger volume", TextOf<&Leg::GetConditionalTriggerVolume>},
        {"Conditional trigger ratio", TextOf<&Leg::GetConditionalTriggerRatio>},
        {"Pessimistic VWAP", TextOf<&Leg::GetPessimisticVWAP>},
        {"Finesse", TextOf<&Leg::GetFinesse>},
        {"Finesse trigger volume", TextOf<&Leg::GetFinesseTriggerVolume>},
        {"Finesse trigger ratio", TextOf<&Leg::GetFinesseTriggerRatio>},
        {"Auction mode leg", TextOf<&Leg::GetIsAuctionModeLeg>},
        {"Hedge aggression method", TextOf<&Leg::GetHedgeAggressionMethod>},
        {"Scratch payup ticks", TextOf<&Leg::GetScratchPayupTicks>},
        {"Sensitivity band 1", BandOf<&Leg::GetSensitivityRangeTicks_1, &Leg::GetSensitivityTicks_1>},
        {"Sensitivity band 2", BandOf<&Leg::GetSensitivityRangeTicks_2, &Leg::GetSensitivityTicks_2>},
        {"Sensitivity band 3", BandOf<&Leg::GetSensitivityRangeTicks_3, &Leg::GetSensitivityTicks_3>},
        {"Sensitivity band 4", BandOf<&Leg::GetSensitivityRangeTicks_4, &Leg::GetSensitivityTicks_4>},
        {"Sensitivity band 5", BandOf<&Leg::GetSensitivityRangeTicks_5, &Leg::GetSensitivityTicks_5>},
        {"Time restriction from order", TextOf<&Leg::GetInheritsTimeRestrictionFromSpreadOrder>},
        {"Account ID override", TextOf<&Leg::GetAccountIDOverride>},
        {"Execution restriction", TextOf<&Leg::GetExecutionRestriction>},
    };

    // Leg by leg, side by side.
    Table LegTable(const nxSyntheticSpreadOrderSpec_XML::Legs& legs) {
        Table::Row headings{"SETTING"};
        for (std::size_t i = 0; i < legs.size(); ++i)
            headings.push_back("LEG " + std::to_string(i));
        Table table(std::move(headings));
        for (const Setting& setting : Settings) {
            Table::Row row{setting.name};
            for (const auto& leg : legs)
                row.push_back(setting.text(*leg));
            table.AddRow(std::move(row));
        }
        return table;
    }
} // namespace

View tool::MakeView(const nxSyntheticSpreadOrderSpec_XML& record) {
    Table fields({"FIELD", "VALUE"});
    fields.AddRow({"Name", record.GetSpecName()});
    fields.AddRow({"Scratch if legged", Text(record.GetScratchIfLegged())});
    fields.AddRow({"Exchange destination", record.GetExchangeDestinationOverride()});
    const std::size_t count = record.GetLegs().size();
    return {std::to_string(count) + (count == 1 ? " leg" : " legs"),
            {std::move(fields), LegTable(record.GetLegs())}};
}
