// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "bench/fields.h"

#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

// The documents measured, as plain records: the neutral form that every peer fills and writes.
namespace bench {
    // ---- Market identifier codes

    struct Mic {
        std::string mic;
        std::string country;
        std::string isoCountryCode;
        std::string operatingMic;
        bool isOperatingMic = false;
        std::string name;
        std::string acronym;
        std::string city;
        std::string website;
        std::string statusDate;
        bool isActive = false;
        std::string creationDate;
        std::string comments;

        static constexpr auto Key = &Mic::mic;
        static constexpr std::tuple Fields{
            Field{"MIC", &Mic::mic},
            Field{"Country", &Mic::country},
            Field{"ISOCountryCode", &Mic::isoCountryCode},
            Field{"OperatingMIC", &Mic::operatingMic},
            Field{"IsOperatingMIC", &Mic::isOperatingMic},
            Field{"Name", &Mic::name},
            Field{"Acronym", &Mic::acronym},
            Field{"City", &Mic::city},
            Field{"Website", &Mic::website},
            Field{"StatusDate", &Mic::statusDate},
            Field{"IsActive", &Mic::isActive},
            Field{"CreationDate", &Mic::creationDate},
            Field{"Comments", &Mic::comments},
        };
        bool operator==(const Mic&) const = default;
    };

    struct MicList {
        std::map<std::string, Mic> mics;

        static constexpr const char* Root = "MICDefinitionList";
        static constexpr std::tuple Fields{
            List{"MICDefinitions", Items{"MICDefinition-", &MicList::mics}},
        };
        bool operator==(const MicList&) const = default;
    };

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
    struct Leg {
        bool isWorking = false;
        unsigned int tailSize = 0;
        Choice<OrderTypes> orderType;
        unsigned int riskRatio = 0;
        bool pessimisticVwap = false;
        int payupTicks = 0;
        unsigned int conditionalTriggerVolume = 0;
        Decimal conditionalTriggerRatio;
        bool finesse = true;
        unsigned int finesseTriggerVolume = 0;
        Decimal finesseTriggerRatio;
        bool isAuctionModeLeg = false;
        bool inheritsTimeRestriction = false;
        unsigned int accountIdOverride = 0;
        Choice<HedgeAggressionMethods> hedgeAggressionMethod;
        int scratchPayupTicks = 0;
        Choice<PayupMethods> payupMethod;
        bool conditionalPayup = false; // from here to finessePayupTicks: see DeriveOlderPayup
        bool cascadeConditionalPayup = false;
        bool cascadeFinessePayup = false;
        unsigned int finessePayupTicks = 0;
        unsigned int ticks1 = 0, ticks2 = 0, ticks3 = 0, ticks4 = 0, ticks5 = 0;
        unsigned int range1 = 0, range2 = 0, range3 = 0, range4 = 0, range5 = 0;
        Choice<ExecutionRestrictions> executionRestriction;

        static constexpr std::tuple Fields{
            Field{"WorkingLeg", &Leg::isWorking},
            Field{"TailSize", &Leg::tailSize},
            Field{"OrderType", &Leg::orderType},
            Field{"RiskRatio", &Leg::riskRatio},
            Field{"PessimisticVWAP", &Leg::pessimisticVwap},
            Field{"PayupTicks", &Leg::payupTicks},
            Field{"ConditionalTriggerVolume", &Leg::conditionalTriggerVolume},
            Field{"ConditionalTriggerRatio", &Leg::conditionalTriggerRatio},
            Field{"Finesse", &Leg::finesse},
            Field{"FinesseTriggerVolume", &Leg::finesseTriggerVolume},
            Field{"FinesseTriggerRatio", &Leg::finesseTriggerRatio},
            Field{"IsOpenAuctionModeLeg", &Leg::isAuctionModeLeg},
            Field{"InheritTimeRestrictionFromSpreadOrder", &Leg::inheritsTimeRestriction},
            Field{"AccountIDOverride", &Leg::accountIdOverride},
            Field{"HedgeAggressionMethod", &Leg::hedgeAggressionMethod},
            Field{"ScratchPayupTicks", &Leg::scratchPayupTicks},
            Field{"PayupMethod", &Leg::payupMethod},
            Field{"ConditionalPayup", &Leg::conditionalPayup},
            Field{"CascadeConditionalPayup", &Leg::cascadeConditionalPayup},
            Field{"CascadeFinessePayup", &Leg::cascadeFinessePayup},
            Field{"FinessePayupTicks", &Leg::finessePayupTicks},
            Field{"SensitivityTicks1", &Leg::ticks1},
            Field{"SensitivityRangeTicks1", &Leg::range1},
            Field{"SensitivityTicks2", &Leg::ticks2},
            Field{"SensitivityRangeTicks2", &Leg::range2},
            Field{"SensitivityTicks3", &Leg::ticks3},
            Field{"SensitivityRangeTicks3", &Leg::range3},
            Field{"SensitivityTicks4", &Leg::ticks4},
            Field{"SensitivityRangeTicks4", &Leg::range4},
            Field{"SensitivityTicks5", &Leg::ticks5},
            Field{"SensitivityRangeTicks5", &Leg::range5},
            Field{"ExecutionRestriction", &Leg::executionRestriction},
        };
        bool operator==(const Leg&) const = default;

        // The older form of the payup settings, which says the same as the newer one.
        void DeriveOlderPayup() {
            conditionalPayup = payupMethod.Text() != "Plain";
            cascadeConditionalPayup = payupMethod.Text() == "Cascade";
            cascadeFinessePayup = cascadeConditionalPayup && finesse;
            finessePayupTicks = static_cast<unsigned int>(payupTicks);
        }
    };

    struct Spread {
        std::string name;
        std::vector<Leg> legs;
        bool scratchIfLegged = false;
        std::string exchangeDestination;

        static constexpr const char* Root = "SyntheticSpreadSpec";
        static constexpr std::tuple Fields{
            Field{"SpecName", &Spread::name},
            List{"Legs", Items{"Leg-", &Spread::legs}},
            Field{"ScratchIfLegged", &Spread::scratchIfLegged},
            Field{"ExchDest", &Spread::exchangeDestination},
        };
        bool operator==(const Spread&) const = default;
    };

    // ---- Kestrum

    inline constexpr std::string_view ParameterTypes[] = {
        "PRICE",  "UNSIGNED", "QUANTITY",   "TEXT",      "DECIMAL", "FLOATING_POINT",
        "SIGNED", "BOOLEAN",  "INSTRUMENT", "DATE_TIME", "ACCOUNT"};
    inline constexpr std::string_view SyntheticOrderTypes[] = {
        "STOP",    "STOP_LIMIT", "TRAILING_STOP", "IF_TOUCHED", "ONE_CANCELS_OTHER",
        "BRACKET", "ICEBERG",    "PEGGED",        "SNIPER",     "TIMED",
        "TWAP",    "VWAP",       "PARTICIPATION", "SPREAD",     "KESTRUM_ALGORITHM"};

    struct Limit {
        std::string product;
        unsigned int maxShort = 0;
        unsigned int maxLong = 0;
        unsigned int maxBuys = 0;
        unsigned int maxSells = 0;
        unsigned int clipLimit = 0;
        bool isPartOfStrategy = false;
        bool allowsNetting = false;
        bool marginRiskStrategy = false;
        unsigned int account = 0;

        static constexpr std::tuple Fields{
            Field{"ProductID", &Limit::product},
            Field{"MaxShort", &Limit::maxShort},
            Field{"MaxLong", &Limit::maxLong},
            Field{"MaxBuys", &Limit::maxBuys},
            Field{"MaxSells", &Limit::maxSells},
            Field{"ClipLimit", &Limit::clipLimit},
            Field{"Strategy", &Limit::isPartOfStrategy},
            Field{"Netting", &Limit::allowsNetting},
            Field{"MarginRiskStrategy", &Limit::marginRiskStrategy},
            Field{"AccountID", &Limit::account},
        };
        bool operator==(const Limit&) const = default;
    };

    struct JobSpec {
        std::string algorithm;
        std::string userString; // in the form that documents hold
        std::vector<Limit> limits;
        unsigned int account = 0;
        unsigned int maxTransactions = 0;
        unsigned int maxTransactionsPerSecond = 0;
        std::string preferredExchangeUser;
        unsigned int backTestingAccount = 0;
        bool antiCrossPullOrders = false;
        bool disablesPreLimitCheck = false;

        static constexpr const char* Root = "KestrumJobSpec";
        static constexpr std::tuple Fields{
            Field{"AlgorithmSpecName", &JobSpec::algorithm},
            Field{"Parameters", &JobSpec::userString},
            List{"Limits", Items{"Limit", &JobSpec::limits}},
            Field{"AccountID", &JobSpec::account},
            Field{"MaxTrans", &JobSpec::maxTransactions},
            Field{"MaxTransPS", &JobSpec::maxTransactionsPerSecond},
            Field{"PreferredExchangeUser", &JobSpec::preferredExchangeUser},
            Field{"BackTestingAccountID", &JobSpec::backTestingAccount},
            Field{"AntiCrossPullOrders", &JobSpec::antiCrossPullOrders},
            Field{"DisablePreLimitCheck", &JobSpec::disablesPreLimitCheck},
        };
        bool operator==(const JobSpec&) const = default;
    };

    struct Definition {
        std::string name;
        Choice<ParameterTypes> type;
        bool isOptional = false;
        bool isSystemParameter = false;
        bool isReadOnly = false;
        std::string description;
        std::vector<std::string> validValues;

        static constexpr std::tuple Fields{
            Field{"Name", &Definition::name},
            Field{"ParameterType", &Definition::type},
            Field{"Optional", &Definition::isOptional},
            Field{"SystemParameter", &Definition::isSystemParameter},
            Field{"ReadOnly", &Definition::isReadOnly},
            Field{"Description", &Definition::description},
            List{"ValidValues", Items{"ValidValue", &Definition::validValues}},
        };
        bool operator==(const Definition&) const = default;
    };

    struct Module {
        std::string name;

        static constexpr auto Key = &Module::name;
        static constexpr std::tuple Fields{Field{"Name", &Module::name}};
        bool operator==(const Module&) const = default;
    };

    struct AlgorithmSpec {
        std::string script;
        std::vector<Definition> parameters;
        Choice<SyntheticOrderTypes> orderType;
        std::vector<Limit> limits;
        std::map<std::string, Module> modules;
        std::vector<Definition> outputParameters;
        bool hidesParentOrder = false;

        static constexpr const char* Root = "KestrumAlgorithmSpec";
        static constexpr std::tuple Fields{
            Field{"ScriptSourceCode", &AlgorithmSpec::script},
            List{"Parameters", Items{"Parameter", &AlgorithmSpec::parameters}},
            Field{"SyntheticOrderType", &AlgorithmSpec::orderType},
            List{"Limits", Items{"Limit", &AlgorithmSpec::limits}},
            List{"Modules", Items{"Module", &AlgorithmSpec::modules}},
            List{"OutputParameters", Items{"OutputParameter", &AlgorithmSpec::outputParameters}},
            Field{"HideParentOrder", &AlgorithmSpec::hidesParentOrder},
        };
        bool operator==(const AlgorithmSpec&) const = default;
    };

    // ---- Exchanges

    struct Exchange {
        std::string mnemonic;
        std::string description;
        bool isExchange = false;
        bool isPriceSource = false;
        bool isOrderDestination = false;
        std::vector<std::string> mics;
        std::vector<std::string> priceStreams;

        static constexpr auto Key = &Exchange::mnemonic;
        static constexpr std::tuple Fields{
            Field{"Mnemonic", &Exchange::mnemonic},
            Field{"Description", &Exchange::description},
            Field{"IsExchange", &Exchange::isExchange},
            Field{"IsPriceSource", &Exchange::isPriceSource},
            Field{"IsOrderDestination", &Exchange::isOrderDestination},
            Field{"MICs", &Exchange::mics},
            Field{"PriceStreams", &Exchange::priceStreams},
        };
        bool operator==(const Exchange&) const = default;
    };

    struct ExchangeList {
        std::map<std::string, Exchange> exchanges;

        static constexpr const char* Root = "ExchangeDefinitionList";
        static constexpr std::tuple Fields{
            List{"ExchangeDefinitions", Items{"ExchangeDefinition-", &ExchangeList::exchanges}},
        };
        bool operator==(const ExchangeList&) const = default;
    };

    // ---- Trading hours

    inline constexpr std::string_view SessionTypes[] = {
        "PRE_TRADING",     "OPENING_AUCTION", "CONTINUOUS_TRADING", "INTRADAY_AUCTION", "BREAK",
        "CLOSING_AUCTION", "TRADE_AT_CLOSE",  "POST_TRADING",       "AFTER_HOURS",      "CLOSED"};

    struct Period {
        Choice<SessionTypes> sessionType;
        std::string startRegion;
        Seconds startTime{};
        unsigned int startDay = 0;
        std::string endRegion;
        Seconds endTime{};
        unsigned int endDay = 0;

        static constexpr std::tuple Fields{
            Field{"SessionType", &Period::sessionType},
            Field{"StartTimeZoneRegion", &Period::startRegion},
            Field{"StartTime", &Period::startTime},
            Field{"StartDay", &Period::startDay},
            Field{"EndTimeZoneRegion", &Period::endRegion},
            Field{"EndTime", &Period::endTime},
            Field{"EndDay", &Period::endDay},
        };
        bool operator==(const Period&) const = default;
    };

    struct Scheme {
        std::string name;
        std::vector<Period> periods;

        static constexpr auto Key = &Scheme::name;
        static constexpr std::tuple Fields{
            Field{"SchemeName", &Scheme::name},
            List{"Periods", Items{"Period", &Scheme::periods}},
        };
        bool operator==(const Scheme&) const = default;
    };

    struct SchemeList {
        std::map<std::string, Scheme> schemes;

        static constexpr const char* Root = "TradingHoursSchemesList";
        static constexpr std::tuple Fields{
            List{"TradingHoursSchemes", Items{"Scheme", &SchemeList::schemes}},
        };
        bool operator==(const SchemeList&) const = default;
    };

    // ---- Brokers

    struct Broker {
        unsigned int id = 0;
        std::string name;

        static constexpr std::tuple Fields{
            Attribute{"id", &Broker::id},
            Attribute{"name", &Broker::name},
        };
        bool operator==(const Broker&) const = default;
    };

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
        brokers.idsByName.insert_or_assign(broker.name, broker.id);
        brokers.byId.insert_or_assign(broker.id, std::move(broker));
    }

    struct BrokerMap {
        BrokersBothWays brokers;

        static constexpr const char* Root = "BrokerMap";
        static constexpr std::tuple Fields{Items{"Broker", &BrokerMap::brokers}};
        bool operator==(const BrokerMap&) const = default;
    };

    // ---- All of them

    // A text, and the records that a reader must find in it.
    template <class Plain>
    struct Document {
        std::string name;
        std::string text;
        Plain records;
    };

    using Documents =
        std::tuple<Document<MicList>, Document<Spread>, Document<JobSpec>, Document<AlgorithmSpec>,
                   Document<ExchangeList>, Document<SchemeList>, Document<BrokerMap>>;

    // The same on every call and every machine.
    Documents MakeDocuments();
} // namespace bench
