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
#include <functional>
#include <iterator>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace {
    void RequireOK(const nxErrorEnum& result) {
        if (!result.IsOK())
            throw std::runtime_error("the library answers " + result.GetAsString());
    }

    // The one of two operations that changes nothing.
    template <class Native, class Got>
    constexpr auto Const(Got (Native::*get)() const) {
        return get;
    }

    // What the library's records hold, for the plain record's fields in their order. What is ignored the
    // library derives when it writes.
    constexpr auto GettersOf(const nxMICDefinition&) {
        using N = nxMICDefinition;
        return std::make_tuple(&N::GetMIC, &N::GetCountry, &N::GetIsoCountryCode, &N::GetOperatingMIC,
                               Const(&N::GetIsOperatingMIC), &N::GetName, &N::GetAcronym, &N::GetCity,
                               &N::GetWebsite, &N::GetStatusDate, &N::GetIsActive, &N::GetCreationDate,
                               &N::GetComments);
    }
    constexpr auto GettersOf(const nxMICDefinitionList&) {
        return std::make_tuple(Const(&nxMICDefinitionList::GetMICDefinitions));
    }
    constexpr auto GettersOf(const nxSyntheticSpreadOrderSpecLeg_XML&) {
        using N = nxSyntheticSpreadOrderSpecLeg_XML;
        return std::make_tuple(
            &N::GetWorkingLeg, &N::GetTailSize, &N::GetOrderType, &N::GetLeaningLegRiskRatio,
            &N::GetPessimisticVWAP, &N::GetPayupTicks, &N::GetConditionalTriggerVolume,
            &N::GetConditionalTriggerRatio, &N::GetFinesse, &N::GetFinesseTriggerVolume,
            &N::GetFinesseTriggerRatio, &N::GetIsAuctionModeLeg,
            &N::GetInheritsTimeRestrictionFromSpreadOrder, &N::GetAccountIDOverride,
            &N::GetHedgeAggressionMethod, &N::GetScratchPayupTicks, &N::GetPayupMethod, std::ignore,
            std::ignore, std::ignore, std::ignore, &N::GetSensitivityTicks_1, &N::GetSensitivityRangeTicks_1,
            &N::GetSensitivityTicks_2, &N::GetSensitivityRangeTicks_2, &N::GetSensitivityTicks_3,
            &N::GetSensitivityRangeTicks_3, &N::GetSensitivityTicks_4, &N::GetSensitivityRangeTicks_4,
            &N::GetSensitivityTicks_5, &N::GetSensitivityRangeTicks_5, &N::GetExecutionRestriction);
    }
    constexpr auto GettersOf(const nxSyntheticSpreadOrderSpec_XML&) {
        using N = nxSyntheticSpreadOrderSpec_XML;
        return std::make_tuple(&N::GetSpecName, Const(&N::GetLegs), &N::GetScratchIfLegged,
                               &N::GetExchangeDestinationOverride);
    }
    constexpr auto GettersOf(const nxKestrumLimit&) {
        using N = nxKestrumLimit;
        return std::make_tuple(&N::GetProductID, &N::GetMaxShort, &N::GetMaxLong, &N::GetMaxBuys,
                               &N::GetMaxSells, &N::GetClipLimit, &N::GetIsPartOfStrategy,
                               &N::GetAllowNetting, &N::GetMarginRiskStrategy, &N::GetAccountID);
    }
    constexpr auto GettersOf(const nxKestrumJobSpec&) {
        using N = nxKestrumJobSpec;
        // Documents have a separator that people can read.
        const auto getParameters = [](const N& job) {
            std::string parameters = job.GetParameters();
            nxStringHelper::Replace(parameters, "\x01", "^^|^^");
            return parameters;
        };
        return std::make_tuple(&N::GetAlgorithmSpecName, getParameters, &N::GetLimits, &N::GetAccountID,
                               &N::GetMaxTransactions, &N::GetMaxTransactionsPerSecond,
                               &N::GetPreferredExchangeUser, &N::GetBackTestingAccountID,
                               &N::GetAntiCrossPullOrders, &N::GetDisablePreLimitCheck);
    }
    constexpr auto GettersOf(const nxKestrumParameterDefinition&) {
        using N = nxKestrumParameterDefinition;
        return std::make_tuple(&N::GetName, &N::GetParameterType, &N::GetOptional, &N::GetIsSystemParameter,
                               &N::GetReadOnly, &N::GetDescription, &N::GetValidValues);
    }
    constexpr auto GettersOf(const nxKestrumAlgorithmSpec&) {
        using N = nxKestrumAlgorithmSpec;
        return std::make_tuple(&N::GetScriptSourceCode, Const(&N::GetScriptParameterDefinitions),
                               &N::GetSyntheticOrderType, &N::GetLimits, &N::GetModules,
                               Const(&N::GetScriptOutputParameterDefinitions), &N::GetHideParentOrder);
    }
    constexpr auto GettersOf(const nxExchangeDefinition&) {
        using N = nxExchangeDefinition;
        return std::make_tuple(&N::GetMnemonic, &N::GetDescription, &N::IsExchange, &N::IsPriceSource,
                               &N::IsOrderDestination, &N::GetMICs, &N::GetPriceStreams);
    }
    constexpr auto GettersOf(const nxExchangeDefinitionList&) {
        return std::make_tuple(Const(&nxExchangeDefinitionList::GetExchangeDefinitions));
    }
    constexpr auto GettersOf(const nxTradingHoursPeriod&) {
        using N = nxTradingHoursPeriod;
        return std::make_tuple(&N::GetSessionType, &N::GetStartTimeZoneRegion, &N::GetStartTime,
                               &N::GetStartDay, &N::GetEndTimeZoneRegion, &N::GetEndTime, &N::GetEndDay);
    }
    constexpr auto GettersOf(const nxTradingHoursScheme&) {
        using N = nxTradingHoursScheme;
        return std::make_tuple(&N::GetSchemeName, &N::GetTradingPeriods);
    }
    constexpr auto GettersOf(const nxTradingHoursSchemeList&) {
        return std::make_tuple(Const(&nxTradingHoursSchemeList::GetTradingHoursSchemes));
    }
    constexpr auto GettersOf(const nxBrokerMap&) {
        return std::make_tuple([](const nxBrokerMap& map) -> const nxBrokerMap& { return map; });
    }

    // From what the library has to what plain records have.
    class ToPlain {
    public:
        template <class From, class To>
        requires std::convertible_to<From, To>
        static void Convert(const From& from, To& to) { to = from; }

        // Documents hold an enumeration's name or its short description.
        template <std::derived_from<nxEnum> Enum, const auto& Texts>
        static void Convert(const Enum& from, bench::Choice<Texts>& to) {
            const bool isNamed = std::ranges::find(Texts, from.GetAsString()) != std::end(Texts);
            bench::FromText(isNamed ? from.GetAsString() : from.GetShortDescription(), to);
        }
        static void Convert(const nxDecimal& from, bench::Decimal& to) {
            bench::FromText(from.GetAsString('.'), to);
        }
        static void Convert(const nxTime& from, bench::Seconds& to) {
            bench::FromText(from.GetAsString(), to);
        }

        template <class Native, class... Fields>
        static void Convert(const Native& from, bench::Record<Fields...>& to) {
            const auto getters = GettersOf(from);
            static_assert(std::tuple_size_v<decltype(getters)> == sizeof...(Fields));
            std::apply([&](auto... get) { (ConvertField(from, get, static_cast<Fields&>(to).value), ...); },
                       getters);
        }
        static void Convert(const nxSyntheticSpreadOrderSpecLeg_XML& from, bench::Leg& to) {
            Convert<nxSyntheticSpreadOrderSpecLeg_XML>(from, to);
            DeriveOlderPayup(to);
        }

        template <class From, bench::Name Text, class Container>
        static void Convert(const From& from, bench::Items<Text, Container>& to) {
            Convert(from, to.value);
        }
        template <class From, class Item>
        requires(!std::convertible_to<From, std::vector<Item>>) static void Convert(const From& from,
                                                                                    std::vector<Item>& to) {
            for (const auto& item : from)
                Convert(Pointee(item), to.emplace_back());
        }
        template <class Key, class From, class Item>
        static void Convert(const std::map<Key, From>& from, std::map<Key, Item>& to) {
            for (const auto& [key, item] : from)
                Convert(Pointee(item), to[key]);
        }
        static void Convert(const std::set<std::string>& from, std::map<std::string, bench::Module>& to) {
            for (const std::string& name : from)
                bench::Get<"Name">(to[name]) = name;
        }
        static void Convert(const nxBrokerMap& from, bench::BrokersBothWays& to) {
            for (const auto& [id, name] : from.GetBrokerIDMap()) {
                bench::Broker& broker = to.byId[id];
                bench::Get<"id">(broker) = id;
                bench::Get<"name">(broker) = name;
                to.idsByName[name] = from.GetBrokerID(name);
            }
        }

    private:
        template <class Native, class Getter, class To>
        static void ConvertField(const Native& from, Getter get, To& to) {
            if constexpr (!std::same_as<Getter, std::remove_cv_t<decltype(std::ignore)>>)
                Convert(std::invoke(get, from), to);
        }

        template <class Item>
        static const auto& Pointee(const Item& item) {
            if constexpr (requires { *item.get(); })
                return *item;
            else
                return item;
        }
    };

    template <class Native>
    Native Load(const std::string& text) {
        Native record;
        RequireOK(record.ConvertFromXML(text, ""));
        return record;
    }

    struct Library {
        static auto Make(const bench::Sample<bench::MicList>& sample) {
            return Load<nxMICDefinitionList>(sample.text);
        }
        static auto Make(const bench::Sample<bench::Spread>& sample) {
            return Load<nxSyntheticSpreadOrderSpec_XML>(sample.text);
        }
        static auto Make(const bench::Sample<bench::JobSpec>& sample) {
            return Load<nxKestrumJobSpec>(sample.text);
        }
        static auto Make(const bench::Sample<bench::AlgorithmSpec>& sample) {
            return Load<nxKestrumAlgorithmSpec>(sample.text);
        }
        static auto Make(const bench::Sample<bench::ExchangeList>& sample) {
            return Load<nxExchangeDefinitionList>(sample.text);
        }
        static auto Make(const bench::Sample<bench::SchemeList>& sample) {
            return Load<nxTradingHoursSchemeList>(sample.text);
        }
        static auto Make(const bench::Sample<bench::BrokerMap>& sample) {
            return Load<nxBrokerMap>(sample.text);
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
            ToPlain::Convert(record, found);
            return found == plain;
        }
    };
} // namespace

int main(int argc, char** argv) {
    return bench::RunStack(argc, argv, "XMLFramework", bench::MakeJobs<Library>());
}
