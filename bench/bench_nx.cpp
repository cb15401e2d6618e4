// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// The library itself, on its own records.

#include "bench/job.h"
#include "core/nxDecimal.h"
#include "core/nxTime.h"
#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"
#include "xmlFramework/kestrum/nxKestrumJobSpec.h"
#include "xmlFramework/market/nxBrokerMap.h"
#include "xmlFramework/market/nxExchangeDefinitionList.h"
#include "xmlFramework/market/nxMICDefinitionList.h"
#include "xmlFramework/market/nxTradingHoursSchemeList.h"
#include "xmlFramework/spread/nxSyntheticSpreadOrderSpec_XML.h"

#include <algorithm>
#include <concepts>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

namespace {
    void RequireOK(const nxErrorEnum& result) {
        if (!result.IsOK())
            throw std::runtime_error("the library answers " + result.GetAsString());
    }

    // ---- Values

    template <class From, class To>
    requires std::convertible_to<From, To>
    void Convert(const From& from, To& to) {
        to = from;
    }
    // Documents hold an enumeration's name or its short description.
    template <const auto& Texts, std::derived_from<nxEnum> Enum>
    void Convert(const bench::Choice<Texts>& from, Enum& to) {
        const std::string text(from.Text());
        if (!to.SetFromString(text) && !to.SetFromShortDescriptionString(text))
            throw std::runtime_error("the library does not know " + text);
    }
    template <std::derived_from<nxEnum> Enum, const auto& Texts>
    void Convert(const Enum& from, bench::Choice<Texts>& to) {
        const bool isNamed = std::ranges::find(Texts, from.GetAsString()) != std::end(Texts);
        bench::FromText(isNamed ? from.GetAsString() : from.GetShortDescription(), to);
    }
    void Convert(const bench::Decimal& from, nxDecimal& to) {
        RequireOK(to.SetFromString(bench::ToText(from), '.'));
    }
    void Convert(const nxDecimal& from, bench::Decimal& to) {
        bench::FromText(from.GetAsString('.'), to);
    }
    void Convert(const bench::Seconds& from, nxTime& to) {
        to = nxTime(from);
    }
    void Convert(const nxTime& from, bench::Seconds& to) {
        bench::FromText(from.GetAsString(), to);
    }

    // ---- Fields

    // A field of a plain record, and the library's operations for it.
    template <class Plain, class Value, class Native, class Got, class Taken>
    struct Bind {
        Value Plain::*member;
        Got (Native::*get)() const;
        void (Native::*set)(Taken);

        void FromPlain(const Plain& plain, Native& native) const {
            std::remove_cvref_t<Taken> value;
            Convert(plain.*member, value);
            (native.*set)(value);
        }
        void ToPlain(const Native& native, Plain& plain) const { Convert((native.*get)(), plain.*member); }
    };
    template <class Plain, class Value, class Native, class Got, class Taken>
    Bind(Value Plain::*, Got (Native::*)() const, void (Native::*)(Taken))
        -> Bind<Plain, Value, Native, Got, Taken>;

    constexpr auto BindingsOf(const bench::Mic&) {
        using Plain = bench::Mic;
        using Native = nxMICDefinition;
        return std::tuple{
            Bind{&Plain::mic, &Native::GetMIC, &Native::SetMIC},
            Bind{&Plain::country, &Native::GetCountry, &Native::SetCountry},
            Bind{&Plain::isoCountryCode, &Native::GetIsoCountryCode, &Native::SetIsoCountryCode},
            Bind{&Plain::operatingMic, &Native::GetOperatingMIC, &Native::SetOperatingMIC},
            Bind{&Plain::isOperatingMic, &Native::GetIsOperatingMIC, &Native::GetIsOperatingMIC},
            Bind{&Plain::name, &Native::GetName, &Native::SetName},
            Bind{&Plain::acronym, &Native::GetAcronym, &Native::SetAcronym},
            Bind{&Plain::city, &Native::GetCity, &Native::SetCity},
            Bind{&Plain::website, &Native::GetWebsite, &Native::SetWebsite},
            Bind{&Plain::statusDate, &Native::GetStatusDate, &Native::SetStatusDate},
            Bind{&Plain::isActive, &Native::GetIsActive, &Native::SetIsActive},
            Bind{&Plain::creationDate, &Native::GetCreationDate, &Native::SetCreationDate},
            Bind{&Plain::comments, &Native::GetComments, &Native::SetComments},
        };
    }

    constexpr auto BindingsOf(const bench::Leg&) {
        using Plain = bench::Leg;
        using Native = nxSyntheticSpreadOrderSpecLeg_XML;
        return std::tuple{
            Bind{&Plain::isWorking, &Native::GetWorkingLeg, &Native::SetWorkingLeg},
            Bind{&Plain::tailSize, &Native::GetTailSize, &Native::SetTailSize},
            Bind{&Plain::orderType, &Native::GetOrderType, &Native::SetOrderType},
            Bind{&Plain::riskRatio, &Native::GetLeaningLegRiskRatio, &Native::SetLeaningLegRiskRatio},
            Bind{&Plain::pessimisticVwap, &Native::GetPessimisticVWAP, &Native::SetPessimisticVWAP},
            Bind{&Plain::payupTicks, &Native::GetPayupTicks, &Native::SetPayupTicks},
            Bind{&Plain::conditionalTriggerVolume, &Native::GetConditionalTriggerVolume,
                 &Native::SetConditionalTriggerVolume},
            Bind{&Plain::conditionalTriggerRatio, &Native::GetConditionalTriggerRatio,
                 &Native::SetConditionalTriggerRatio},
            Bind{&Plain::finesse, &Native::GetFinesse, &Native::SetFinesse},
            Bind{&Plain::finesseTriggerVolume, &Native::GetFinesseTriggerVolume,
                 &Native::SetFinesseTriggerVolume},
            Bind{&Plain::finesseTriggerRatio, &Native::GetFinesseTriggerRatio,
                 &Native::SetFinesseTriggerRatio},
            Bind{&Plain::isAuctionModeLeg, &Native::GetIsAuctionModeLeg, &Native::SetIsAuctionModeLeg},
            Bind{&Plain::inheritsTimeRestriction, &Native::GetInheritsTimeRestrictionFromSpreadOrder,
                 &Native::SetInheritsTimeRestrictionFromSpreadOrder},
            Bind{&Plain::accountIdOverride, &Native::GetAccountIDOverride, &Native::SetAccountIDOverride},
            Bind{&Plain::hedgeAggressionMethod, &Native::GetHedgeAggressionMethod,
                 &Native::SetHedgeAggressionMethod},
            Bind{&Plain::scratchPayupTicks, &Native::GetScratchPayupTicks, &Native::SetScratchPayupTicks},
            Bind{&Plain::payupMethod, &Native::GetPayupMethod, &Native::SetPayupMethod},
            Bind{&Plain::ticks1, &Native::GetSensitivityTicks_1, &Native::SetSensitivityTicks_1},
            Bind{&Plain::range1, &Native::GetSensitivityRangeTicks_1, &Native::SetSensitivityRangeTicks_1},
            Bind{&Plain::ticks2, &Native::GetSensitivityTicks_2, &Native::SetSensitivityTicks_2},
            Bind{&Plain::range2, &Native::GetSensitivityRangeTicks_2, &Native::SetSensitivityRangeTicks_2},
            Bind{&Plain::ticks3, &Native::GetSensitivityTicks_3, &Native::SetSensitivityTicks_3},
            Bind{&Plain::range3, &Native::GetSensitivityRangeTicks_3, &Native::SetSensitivityRangeTicks_3},
            Bind{&Plain::ticks4, &Native::GetSensitivityTicks_4, &Native::SetSensitivityTicks_4},
            Bind{&Plain::range4, &Native::GetSensitivityRangeTicks_4, &Native::SetSensitivityRangeTicks_4},
            Bind{&Plain::ticks5, &Native::GetSensitivityTicks_5, &Native::SetSensitivityTicks_5},
            Bind{&Plain::range5, &Native::GetSensitivityRangeTicks_5, &Native::SetSensitivityRangeTicks_5},
            Bind{&Plain::executionRestriction, &Native::GetExecutionRestriction,
                 &Native::SetExecutionRestriction},
        };
    }

    constexpr auto BindingsOf(const bench::Spread&) {
        using Plain = bench::Spread;
        using Native = nxSyntheticSpreadOrderSpec_XML;
        return std::tuple{
            Bind{&Plain::name, &Native::GetSpecName, &Native::SetSpecName},
            Bind{&Plain::scratchIfLegged, &Native::GetScratchIfLegged, &Native::SetScratchIfLegged},
            Bind{&Plain::exchangeDestination, &Native::GetExchangeDestinationOverride,
                 &Native::SetExchangeDestinationOverride},
        };
    }

    constexpr auto BindingsOf(const bench::Limit&) {
        using Plain = bench::Limit;
        using Native = nxKestrumLimit;
        return std::tuple{
            Bind{&Plain::product, &Native::GetProductID, &Native::SetProductID},
            Bind{&Plain::maxShort, &Native::GetMaxShort, &Native::SetMaxShort},
            Bind{&Plain::maxLong, &Native::GetMaxLong, &Native::SetMaxLong},
            Bind{&Plain::maxBuys, &Native::GetMaxBuys, &Native::SetMaxBuys},
            Bind{&Plain::maxSells, &Native::GetMaxSells, &Native::SetMaxSells},
            Bind{&Plain::clipLimit, &Native::GetClipLimit, &Native::SetClipLimit},
            Bind{&Plain::isPartOfStrategy, &Native::GetIsPartOfStrategy, &Native::SetIsPartOfStrategy},
            Bind{&Plain::allowsNetting, &Native::GetAllowNetting, &Native::SetAllowNetting},
            Bind{&Plain::marginRiskStrategy, &Native::GetMarginRiskStrategy, &Native::SetMarginRiskStrategy},
            Bind{&Plain::account, &Native::GetAccountID, &Native::SetAccountID},
        };
    }

    constexpr auto BindingsOf(const bench::JobSpec&) {
        using Plain = bench::JobSpec;
        using Native = nxKestrumJobSpec;
        return std::tuple{
            Bind{&Plain::algorithm, &Native::GetAlgorithmSpecName, &Native::SetAlgorithmSpecName},
            Bind{&Plain::userString, &Native::GetParameters, &Native::SetParameters},
            Bind{&Plain::account, &Native::GetAccountID, &Native::SetAccountID},
            Bind{&Plain::maxTransactions, &Native::GetMaxTransactions, &Native::SetMaxTransactions},
            Bind{&Plain::maxTransactionsPerSecond, &Native::GetMaxTransactionsPerSecond,
                 &Native::SetMaxTransactionsPerSecond},
            Bind{&Plain::preferredExchangeUser, &Native::GetPreferredExchangeUser,
                 &Native::SetPreferredExchangeUser},
            Bind{&Plain::backTestingAccount, &Native::GetBackTestingAccountID,
                 &Native::SetBackTestingAccountID},
            Bind{&Plain::antiCrossPullOrders, &Native::GetAntiCrossPullOrders,
                 &Native::SetAntiCrossPullOrders},
            Bind{&Plain::disablesPreLimitCheck, &Native::GetDisablePreLimitCheck,
                 &Native::SetDisablePreLimitCheck},
        };
    }

    constexpr auto BindingsOf(const bench::Definition&) {
        using Plain = bench::Definition;
        using Native = nxKestrumParameterDefinition;
        return std::tuple{
            Bind{&Plain::name, &Native::GetName, &Native::SetName},
            Bind{&Plain::type, &Native::GetParameterType, &Native::SetParameterType},
            Bind{&Plain::isOptional, &Native::GetOptional, &Native::SetOptional},
            Bind{&Plain::isReadOnly, &Native::GetReadOnly, &Native::SetReadOnly},
            Bind{&Plain::description, &Native::GetDescription, &Native::SetDescription},
            Bind{&Plain::validValues, &Native::GetValidValues, &Native::SetValidValues},
        };
    }

    constexpr auto BindingsOf(const bench::AlgorithmSpec&) {
        using Plain = bench::AlgorithmSpec;
        using Native = nxKestrumAlgorithmSpec;
        return std::tuple{
            Bind{&Plain::script, &Native::GetScriptSourceCode, &Native::SetScriptSourceCode},
            Bind{&Plain::orderType, &Native::GetSyntheticOrderType, &Native::SetSyntheticOrderType},
            Bind{&Plain::hidesParentOrder, &Native::GetHideParentOrder, &Native::SetHideParentOrder},
        };
    }

    constexpr auto BindingsOf(const bench::Exchange&) {
        using Plain = bench::Exchange;
        using Native = nxExchangeDefinition;
        return std::tuple{
            Bind{&Plain::mnemonic, &Native::GetMnemonic, &Native::SetMnemonic},
            Bind{&Plain::description, &Native::GetDescription, &Native::SetDescription},
            Bind{&Plain::isExchange, &Native::IsExchange, &Native::SetIsExchange},
            Bind{&Plain::isPriceSource, &Native::IsPriceSource, &Native::SetIsPriceSource},
            Bind{&Plain::isOrderDestination, &Native::IsOrderDestination, &Native::SetIsOrderDestination},
            Bind{&Plain::mics, &Native::GetMICs, &Native::SetMICs},
            Bind{&Plain::priceStreams, &Native::GetPriceStreams, &Native::SetPriceStreams},
        };
    }

    constexpr auto BindingsOf(const bench::Period&) {
        using Plain = bench::Period;
        using Native = nxTradingHoursPeriod;
        return std::tuple{
            Bind{&Plain::sessionType, &Native::GetSessionType, &Native::SetSessionType},
            Bind{&Plain::startRegion, &Native::GetStartTimeZoneRegion, &Native::SetStartTimeZoneRegion},
            Bind{&Plain::startTime, &Native::GetStartTime, &Native::SetStartTime},
            Bind{&Plain::startDay, &Native::GetStartDay, &Native::SetStartDay},
            Bind{&Plain::endRegion, &Native::GetEndTimeZoneRegion, &Native::SetEndTimeZoneRegion},
            Bind{&Plain::endTime, &Native::GetEndTime, &Native::SetEndTime},
            Bind{&Plain::endDay, &Native::GetEndDay, &Native::SetEndDay},
        };
    }

    template <class Plain, class Native>
    void FieldsFromPlain(const Plain& plain, Native& native) {
        std::apply([&](const auto&... field) { (field.FromPlain(plain, native), ...); }, BindingsOf(plain));
    }
    template <class Native, class Plain>
    void FieldsToPlain(const Native& native, Plain& plain) {
        std::apply([&](const auto&... field) { (field.ToPlain(native, plain), ...); }, BindingsOf(plain));
    }

    template <class Native, class Plain>
    Native FromPlain(const Plain& plain) {
        Native native;
        FieldsFromPlain(plain, native);
        return native;
    }
    template <class Plain, class Native>
    Plain ToPlain(const Native& native) {
        Plain plain;
        FieldsToPlain(native, plain);
        return plain;
    }

    // ---- Documents

    nxMICDefinitionList Make(const bench::MicList& plain) {
        nxMICDefinitionList list;
        for (const auto& [code, mic] : plain.mics)
            list.GetMICDefinitions().emplace(
                code, std::make_shared<nxMICDefinition>(FromPlain<nxMICDefinition>(mic)));
        return list;
    }
    void ToPlain(const nxMICDefinitionList& list, bench::MicList& plain) {
        for (const auto& [code, definition] : list.GetMICDefinitions())
            plain.mics.emplace(code, ToPlain<bench::Mic>(*definition));
    }

    nxSyntheticSpreadOrderSpec_XML Make(const bench::Spread& plain) {
        auto spread = FromPlain<nxSyntheticSpreadOrderSpec_XML>(plain);
        for (const bench::Leg& leg : plain.legs)
            spread.GetLegs().push_back(std::make_unique<nxSyntheticSpreadOrderSpecLeg_XML>(
                FromPlain<nxSyntheticSpreadOrderSpecLeg_XML>(leg)));
        return spread;
    }
    void ToPlain(const nxSyntheticSpreadOrderSpec_XML& spread, bench::Spread& plain) {
        FieldsToPlain(spread, plain);
        for (const auto& leg : spread.GetLegs()) {
            plain.legs.push_back(ToPlain<bench::Leg>(*leg));
            plain.legs.back().DeriveOlderPayup();
        }
    }

    constexpr std::string_view SeparatorInRecords = "\x01";
    constexpr std::string_view SeparatorInDocuments = "^^|^^";

    nxKestrumJobSpec Make(const bench::JobSpec& plain) {
        auto job = FromPlain<nxKestrumJobSpec>(plain);
        std::string userString = plain.userString;
        nxStringHelper::Replace(userString, SeparatorInDocuments, SeparatorInRecords);
        job.SetParameters(userString);
        for (const bench::Limit& limit : plain.limits)
            job.AddLimit(FromPlain<nxKestrumLimit>(limit));
        return job;
    }
    void ToPlain(const nxKestrumJobSpec& job, bench::JobSpec& plain) {
        FieldsToPlain(job, plain);
        nxStringHelper::Replace(plain.userString, SeparatorInRecords, SeparatorInDocuments);
        for (const auto& limit : job.GetLimits())
            plain.limits.push_back(ToPlain<bench::Limit>(*limit));
    }

    void ToPlain(const nxKestrumAlgorithmSpec::Definitions& definitions,
                 std::vector<bench::Definition>& plain) {
        for (const auto& definition : definitions) {
            plain.push_back(ToPlain<bench::Definition>(*definition));
            plain.back().isSystemParameter = definition->GetIsSystemParameter(); // nobody can set it
        }
    }

    nxKestrumAlgorithmSpec Make(const bench::AlgorithmSpec& plain) {
        auto algorithm = FromPlain<nxKestrumAlgorithmSpec>(plain);
        for (const bench::Definition& definition : plain.parameters)
            algorithm.AddScriptParameterDefinition(FromPlain<nxKestrumParameterDefinition>(definition));
        for (const bench::Limit& limit : plain.limits)
            algorithm.AddLimit(FromPlain<nxKestrumLimit>(limit));
        for (const auto& [name, module] : plain.modules)
            algorithm.AddModule(name);
        for (const bench::Definition& definition : plain.outputParameters)
            algorithm.AddScriptOutputParameterDefinition(FromPlain<nxKestrumParameterDefinition>(definition));
        return algorithm;
    }
    void ToPlain(const nxKestrumAlgorithmSpec& algorithm, bench::AlgorithmSpec& plain) {
        FieldsToPlain(algorithm, plain);
        ToPlain(algorithm.GetScriptParameterDefinitions(), plain.parameters);
        for (const auto& limit : algorithm.GetLimits())
            plain.limits.push_back(ToPlain<bench::Limit>(*limit));
        for (const std::string& name : algorithm.GetModules())
            plain.modules.emplace(name, bench::Module{name});
        ToPlain(algorithm.GetScriptOutputParameterDefinitions(), plain.outputParameters);
    }

    nxExchangeDefinitionList Make(const bench::ExchangeList& plain) {
        nxExchangeDefinitionList list;
        for (const auto& [mnemonic, exchange] : plain.exchanges)
            list.GetExchangeDefinitions().emplace(
                mnemonic, std::make_shared<nxExchangeDefinition>(FromPlain<nxExchangeDefinition>(exchange)));
        return list;
    }
    void ToPlain(const nxExchangeDefinitionList& list, bench::ExchangeList& plain) {
        for (const auto& [mnemonic, definition] : list.GetExchangeDefinitions())
            plain.exchanges.emplace(mnemonic, ToPlain<bench::Exchange>(*definition));
    }

    nxTradingHoursSchemeList Make(const bench::SchemeList& plain) {
        nxTradingHoursSchemeList list;
        for (const auto& [name, scheme] : plain.schemes) {
            nxTradingHoursScheme& made = list.GetTradingHoursSchemes()[name];
            made.SetSchemeName(scheme.name);
            for (const bench::Period& period : scheme.periods)
                made.AddTradingPeriod(FromPlain<nxTradingHoursPeriod>(period));
        }
        return list;
    }
    void ToPlain(const nxTradingHoursSchemeList& list, bench::SchemeList& plain) {
        for (const auto& [name, scheme] : list.GetTradingHoursSchemes()) {
            bench::Scheme& made = plain.schemes[name];
            made.name = scheme.GetSchemeName();
            for (const nxTradingHoursPeriod& period : scheme.GetTradingPeriods())
                made.periods.push_back(ToPlain<bench::Period>(period));
        }
    }

    nxBrokerMap Make(const bench::BrokerMap& plain) {
        nxBrokerMap map;
        for (const auto& [id, broker] : plain.brokers)
            map.SetBrokerIDAndName(id, broker.name);
        return map;
    }
    void ToPlain(const nxBrokerMap& map, bench::BrokerMap& plain) {
        for (const auto& [id, name] : map.GetBrokerIDMap()) {
            plain.brokers.byId[id] = {id, name};
            plain.brokers.idsByName[name] = map.GetBrokerID(name);
        }
    }

    struct Library {
        template <class Plain>
        static auto Make(const Plain& plain) {
            return ::Make(plain);
        }
        template <class Native>
        static void Read(const std::string& text, Native& record) {
            RequireOK(record.ConvertFromXML(text, ""));
        }
        template <class Native>
        static void Write(Native& record, std::string& text) {
            RequireOK(record.ConvertToXML(text, ""));
        }
        template <class Native, class Plain>
        static bool Holds(const Native& record, const Plain& plain) {
            Plain found;
            ToPlain(record, found);
            return found == plain;
        }
    };
} // namespace

int main(int argc, char** argv) {
    return bench::RunStack(argc, argv, "XMLFramework", bench::MakeJobs<Library>());
}
