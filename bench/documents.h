// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "bench/fields.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

// The documents measured, as plain records: the neutral form that every peer fills and writes.
namespace bench {
    // ---- Market identifier codes

    using Mic =
        Record<Field<"MIC", std::string>, Field<"Country", std::string>, Field<"ISOCountryCode", std::string>,
               Field<"OperatingMIC", std::string>, Field<"IsOperatingMIC", bool>, Field<"Name", std::string>,
               Field<"Acronym", std::string>, Field<"City", std::string>, Field<"Website", std::string>,
               Field<"StatusDate", std::string>, Field<"IsActive", bool>, Field<"CreationDate", std::string>,
               Field<"Comments", std::string>>;
    using MicList =
        Document<"MICDefinitionList", List<"MICDefinitions", "MICDefinition-", std::map<std::string, Mic>>>;

    // ---- Synthetic spread

    inline constexpr std::string_view OrderTypes[] = {"Market",
                                                      "Limit",
                                                      "Stop",
                                                      "Stop limit",
                                                      "Trailing stop",
                                                      "Market to limit",
                                                      "Iceberg",
                                                      "Pegged",
                                                      "Midpoint pegged",
                                                      "Market if touched",
                                                      "Market on open",
                                                      "Limit on open",
                                                      "Market on close",
                                                      "Limit on close",
                                                      "Limit if touched",
                                                      "Previously quoted"};
    inline constexpr std::string_view HedgeAggressionMethods[] = {"Passive", "Join",  "Improve", "Midpoint",
                                                                  "Cross",   "Sweep", "Market"};
    inline constexpr std::string_view PayupMethods[] = {"Plain", "Conditional", "Cascade"};
    inline constexpr std::string_view ExecutionRestrictions[] = {
        "No restriction", "Immediate or cancel",  "Fill or kill",
        "All or none",    "Minimum quantity",     "Book or cancel",
        "Auction only",   "Opening auction only", "Closing auction only"};

    // With everything that a leg can have.
    using Leg =
        Record<Field<"WorkingLeg", bool>, Field<"TailSize", unsigned int>,
               Field<"OrderType", Choice<OrderTypes>>, Field<"RiskRatio", unsigned int>,
               Field<"PessimisticVWAP", bool>, Field<"PayupTicks", int>,
               Field<"ConditionalTriggerVolume", unsigned int>, Field<"ConditionalTriggerRatio", Decimal>,
               Field<"Finesse", bool>, Field<"FinesseTriggerVolume", unsigned int>,
               Field<"FinesseTriggerRatio", Decimal>, Field<"IsOpenAuctionModeLeg", bool>,
               Field<"InheritTimeRestrictionFromSpreadOrder", bool>, Field<"AccountIDOverride", unsigned int>,
               Field<"HedgeAggressionMethod", Choice<HedgeAggressionMethods>>,
               Field<"ScratchPayupTicks", int>, Field<"PayupMethod", Choice<PayupMethods>>,
               Field<"ConditionalPayup", bool>, Field<"CascadeConditionalPayup", bool>,
               Field<"CascadeFinessePayup", bool>, Field<"FinessePayupTicks", unsigned int>,
               Field<"SensitivityTicks1", unsigned int>, Field<"SensitivityRangeTicks1", unsigned int>,
               Field<"SensitivityTicks2", unsigned int>, Field<"SensitivityRangeTicks2", unsigned int>,
               Field<"SensitivityTicks3", unsigned int>, Field<"SensitivityRangeTicks3", unsigned int>,
               Field<"SensitivityTicks4", unsigned int>, Field<"SensitivityRangeTicks4", unsigned int>,
               Field<"SensitivityTicks5", unsigned int>, Field<"SensitivityRangeTicks5", unsigned int>,
               Field<"ExecutionRestriction", Choice<ExecutionRestrictions>>>;

    // The older form of the payup settings, which says the same as the newer one.
    inline void DeriveOlderPayup(Leg& leg) {
        const std::string_view method = Get<"PayupMethod">(leg).Text();
        Get<"ConditionalPayup">(leg) = method != "Plain";
        Get<"CascadeConditionalPayup">(leg) = method == "Cascade";
        Get<"CascadeFinessePayup">(leg) = method == "Cascade" && Get<"Finesse">(leg);
        Get<"FinessePayupTicks">(leg) = static_cast<unsigned int>(Get<"PayupTicks">(leg));
    }

    using Spread = Document<"SyntheticSpreadSpec", Field<"SpecName", std::string>,
                            List<"Legs", "Leg-", std::vector<Leg>>, Field<"ScratchIfLegged", bool>,
                            Field<"ExchDest", std::string>>;

    // ---- Kestrum

    inline constexpr std::string_view ParameterTypes[] = {
        "PRICE",  "UNSIGNED", "QUANTITY",   "TEXT",      "DECIMAL", "FLOATING_POINT",
        "SIGNED", "BOOLEAN",  "INSTRUMENT", "DATE_TIME", "ACCOUNT"};
    inline constexpr std::string_view SyntheticOrderTypes[] = {
        "STOP",    "STOP_LIMIT", "TRAILING_STOP", "IF_TOUCHED", "ONE_CANCELS_OTHER",
        "BRACKET", "ICEBERG",    "PEGGED",        "SNIPER",     "TIMED",
        "TWAP",    "VWAP",       "PARTICIPATION", "SPREAD",     "KESTRUM_ALGORITHM"};

    using Limit =
        Record<Field<"ProductID", std::string>, Field<"MaxShort", unsigned int>,
               Field<"MaxLong", unsigned int>, Field<"MaxBuys", unsigned int>,
               Field<"MaxSells", unsigned int>, Field<"ClipLimit", unsigned int>, Field<"Strategy", bool>,
               Field<"Netting", bool>, Field<"MarginRiskStrategy", bool>, Field<"AccountID", unsigned int>>;

    // The parameters are in the form that documents hold.
    using JobSpec =
        Document<"KestrumJobSpec", Field<"AlgorithmSpecName", std::string>, Field<"Parameters", std::string>,
                 List<"Limits", "Limit", std::vector<Limit>>, Field<"AccountID", unsigned int>,
                 Field<"MaxTrans", unsigned int>, Field<"MaxTransPS", unsigned int>,
                 Field<"PreferredExchangeUser", std::string>, Field<"BackTestingAccountID", unsigned int>,
                 Field<"AntiCrossPullOrders", bool>, Field<"DisablePreLimitCheck", bool>>;

    using Definition = Record<Field<"Name", std::string>, Field<"ParameterType", Choice<ParameterTypes>>,
                              Field<"Optional", bool>, Field<"SystemParameter", bool>,
                              Field<"ReadOnly", bool>, Field<"Description", std::string>,
                              List<"ValidValues", "ValidValue", std::vector<std::string>>>;
    using Module = Record<Field<"Name", std::string>>;
    using AlgorithmSpec = Document<
        "KestrumAlgorithmSpec", Field<"ScriptSourceCode", std::string>,
        List<"Parameters", "Parameter", std::vector<Definition>>,
        Field<"SyntheticOrderType", Choice<SyntheticOrderTypes>>, List<"Limits", "Limit", std::vector<Limit>>,
        List<"Modules", "Module", std::map<std::string, Module>>,
        List<"OutputParameters", "OutputParameter", std::vector<Definition>>, Field<"HideParentOrder", bool>>;

    // ---- Exchanges

    using Exchange =
        Record<Field<"Mnemonic", std::string>, Field<"Description", std::string>, Field<"IsExchange", bool>,
               Field<"IsPriceSource", bool>, Field<"IsOrderDestination", bool>,
               Field<"MICs", std::vector<std::string>>, Field<"PriceStreams", std::vector<std::string>>>;
    using ExchangeList =
        Document<"ExchangeDefinitionList",
                 List<"ExchangeDefinitions", "ExchangeDefinition-", std::map<std::string, Exchange>>>;

    // ---- Trading hours

    inline constexpr std::string_view SessionTypes[] = {
        "PRE_TRADING",     "OPENING_AUCTION", "CONTINUOUS_TRADING", "INTRADAY_AUCTION", "BREAK",
        "CLOSING_AUCTION", "TRADE_AT_CLOSE",  "POST_TRADING",       "AFTER_HOURS",      "CLOSED"};

    using Period = Record<Field<"SessionType", Choice<SessionTypes>>,
                          Field<"StartTimeZoneRegion", std::string>, Field<"StartTime", Seconds>,
                          Field<"StartDay", unsigned int>, Field<"EndTimeZoneRegion", std::string>,
                          Field<"EndTime", Seconds>, Field<"EndDay", unsigned int>>;
    using Scheme = Record<Field<"SchemeName", std::string>, List<"Periods", "Period", std::vector<Period>>>;
    using SchemeList = Document<"TradingHoursSchemesList",
                                List<"TradingHoursSchemes", "Scheme", std::map<std::string, Scheme>>>;

    // ---- Brokers

    using Broker = Record<Attribute<"id", unsigned int>, Attribute<"name", std::string>>;

    // Brokers are looked up both ways.
    struct BrokersBothWays {
        std::map<unsigned int, Broker> byId;
        std::map<std::string, unsigned int> idsByName;

        auto begin() const { return byId.begin(); }
        auto end() const { return byId.end(); }
        bool operator==(const BrokersBothWays&) const = default;
    };

    inline Broker ItemType(const BrokersBothWays&);

    inline void Insert(BrokersBothWays& brokers, Broker broker) {
        const unsigned int id = Get<"id">(broker);
        brokers.idsByName.insert_or_assign(Get<"name">(broker), id);
        brokers.byId.insert_or_assign(id, std::move(broker));
    }

    using BrokerMap = Document<"BrokerMap", Items<"Broker", BrokersBothWays>>;

    // ---- All of them

    // A text, and the records that a reader must find in it.
    template <class Plain>
    struct Sample {
        std::string name;
        std::string text;
        Plain records;
    };

    // The same on every call and every machine. Lists have so many times their usual number of items.
    Sample<MicList> MakeMics(std::size_t times = 1);
    Sample<ExchangeList> MakeExchanges(std::size_t times = 1);
    Sample<SchemeList> MakeHours(std::size_t times = 1);
    Sample<BrokerMap> MakeBrokers(std::size_t times = 1);

    using Samples = std::tuple<Sample<MicList>, Sample<Spread>, Sample<JobSpec>, Sample<AlgorithmSpec>,
                               Sample<ExchangeList>, Sample<SchemeList>, Sample<BrokerMap>>;

    Samples MakeSamples();
} // namespace bench
