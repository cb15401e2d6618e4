// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxStringHelper.h"
#include "tool/view.h"
#include "xmlFramework/spread/nxSyntheticSpreadOrderSpec_XML.h"

#include <functional>
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

    std::string Band(const nxUnsignedValueWrapper& range, const nxUnsignedValueWrapper& ticks) {
        if (range.IsNull() && ticks.IsNull())
            return {};
        return Text(range) + " wide: " + Text(ticks);
    }

    struct Setting {
        const char* name;
        std::function<std::string(const Leg&)> text;
    };

    // What is not set shows as an empty cell.
    const Setting Settings[] = {
        {"Working leg", [](const Leg& leg) { return Text(leg.GetWorkingLeg()); }},
        {"Order type", [](const Leg& leg) { return Text(leg.GetOrderType()); }},
        {"Risk ratio", [](const Leg& leg) { return Text(leg.GetLeaningLegRiskRatio()); }},
        {"Tail size", [](const Leg& leg) { return Text(leg.GetTailSize()); }},
        {"Payup method", [](const Leg& leg) { return Text(leg.GetPayupMethod()); }},
        {"Payup ticks", [](const Leg& leg) { return Text(leg.GetPayupTicks()); }},
        {"Conditional trigger volume",
         [](const Leg& leg) { return Text(leg.GetConditionalTriggerVolume()); }},
        {"Conditional trigger ratio", [](const Leg& leg) { return Text(leg.GetConditionalTriggerRatio()); }},
        {"Pessimistic VWAP", [](const Leg& leg) { return Text(leg.GetPessimisticVWAP()); }},
        {"Finesse", [](const Leg& leg) { return Text(leg.GetFinesse()); }},
        {"Finesse trigger volume", [](const Leg& leg) { return Text(leg.GetFinesseTriggerVolume()); }},
        {"Finesse trigger ratio", [](const Leg& leg) { return Text(leg.GetFinesseTriggerRatio()); }},
        {"Auction mode leg", [](const Leg& leg) { return Text(leg.GetIsAuctionModeLeg()); }},
        {"Hedge aggression method", [](const Leg& leg) { return Text(leg.GetHedgeAggressionMethod()); }},
        {"Scratch payup ticks", [](const Leg& leg) { return Text(leg.GetScratchPayupTicks()); }},
        {"Sensitivity band 1",
         [](const Leg& leg) { return Band(leg.GetSensitivityRangeTicks_1(), leg.GetSensitivityTicks_1()); }},
        {"Sensitivity band 2",
         [](const Leg& leg) { return Band(leg.GetSensitivityRangeTicks_2(), leg.GetSensitivityTicks_2()); }},
        {"Sensitivity band 3",
         [](const Leg& leg) { return Band(leg.GetSensitivityRangeTicks_3(), leg.GetSensitivityTicks_3()); }},
        {"Sensitivity band 4",
         [](const Leg& leg) { return Band(leg.GetSensitivityRangeTicks_4(), leg.GetSensitivityTicks_4()); }},
        {"Sensitivity band 5",
         [](const Leg& leg) { return Band(leg.GetSensitivityRangeTicks_5(), leg.GetSensitivityTicks_5()); }},
        {"Time restriction from order",
         [](const Leg& leg) { return Text(leg.GetInheritsTimeRestrictionFromSpreadOrder()); }},
        {"Account ID override", [](const Leg& leg) { return Text(leg.GetAccountIDOverride()); }},
        {"Execution restriction", [](const Leg& leg) { return Text(leg.GetExecutionRestriction()); }},
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
