// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "bench/documents.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {
    using bench::Mic;

    constexpr std::uint64_t Seed = 20170701;

    // splitmix64: unlike the standard distributions, the same numbers with every standard library.
    class Random {
    public:
        explicit Random(std::uint64_t seed) : _state(seed) {}

        std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(_Next() % limit); }
        bool Permille(std::size_t chance) { return Below(1000) < chance; }

        template <class Item, std::size_t Count>
        const Item& Of(const Item (&items)[Count]) {
            return items[Below(Count)];
        }

    private:
        std::uint64_t _Next() {
            _state += 0x9e3779b97f4a7c15U;
            std::uint64_t bits = _state;
            bits = (bits ^ (bits >> 30U)) * 0xbf58476d1ce4e5b9U;
            bits = (bits ^ (bits >> 27U)) * 0x94d049bb133111ebU;
            return bits ^ (bits >> 31U);
        }

        std::uint64_t _state;
    };

    struct Place {
        const char* country;
        const char* code;
        const char* cities[2];
    };

    constexpr Place Places[] = {
        {"UNITED STATES OF AMERICA", "US", {"NEW YORK", "CHICAGO"}},
        {"UNITED KINGDOM", "GB", {"LONDON", "EDINBURGH"}},
        {"GERMANY", "DE", {"FRANKFURT", "STUTTGART"}},
        {"FRANCE", "FR", {"PARIS", "LYON"}},
        {"JAPAN", "JP", {"TOKYO", "OSAKA"}},
        {"AUSTRALIA", "AU", {"SYDNEY", "MELBOURNE"}},
        {"NORWAY", "NO", {"OSLO", "BERGEN"}},
        {"SWEDEN", "SE", {"STOCKHOLM", "GOTHENBURG"}},
        {"INDIA", "IN", {"MUMBAI", "NEW DELHI"}},
        {"BRAZIL", "BR", {"SAO PAULO", "RIO DE JANEIRO"}},
        {"CHINA", "CN", {"SHANGHAI", "SHENZHEN"}},
        {"ITALY", "IT", {"MILAN", "ROME"}},
        {"SPAIN", "ES", {"MADRID", "BARCELONA"}},
        {"THE NETHERLANDS", "NL", {"AMSTERDAM", "ROTTERDAM"}},
        {"BOSNIA AND HERZEGOVINA", "BA", {"SARAJEVO", "BANJA LUKA"}},
        {"PERU", "PE", {"LIMA", "CUSCO"}},
    };

    constexpr const char* Words[] = {
        "ALTERNATIVE", "BANK",    "BLOCK",  "BOARD",      "BOND",      "CAPITAL",  "CENTRAL",   "COMMODITY",
        "CROSS",       "DARK",    "DEBT",   "ELECTRIC",   "EQUITIES",  "EXCHANGE", "FACILITY",  "FUND",
        "FUTURES",     "GLOBAL",  "GROWTH", "HARBOUR",    "LIMITED",   "LTD",      "MARKET",    "METALS",
        "NORTH",       "OPTIONS", "ORDER",  "PLATFORM",   "REGULATED", "SA",       "SEGMENT",   "SECURITIES",
        "SOUTH",       "STOCK",   "SYSTEM", "SYSTEMATIC", "TRADING",   "VENUE",    "WAREHOUSE", "YIELD",
    };

    // What XML has to escape, and what takes two or three bytes in UTF-8.
    constexpr const char* RareWords[] = {
        "B\u00d6RSE", "COM\u00c9RCIO", "\u2013", "\u201cBOARD\u201d", "&",
        "M&A",        "< 100",         "> 1",    "P.L.C.'S",          "A\u00c7\u00d5ES",
    };

    constexpr const char* Months[] = {"JANUARY", "FEBRUARY", "MARCH",     "APRIL",   "MAY",      "JUNE",
                                      "JULY",    "AUGUST",   "SEPTEMBER", "OCTOBER", "NOVEMBER", "DECEMBER"};

    constexpr const char* Regions[] = {"America/New_York", "Asia/Tokyo", "Europe/London", "Europe/Oslo"};

    // Lengths at even steps of the distribution that registers of this kind show.
    constexpr std::size_t NameLengths[] = {8, 11, 15, 18, 21, 25, 28, 32, 38, 44, 52, 80};
    constexpr std::size_t CommentLengths[] = {0, 0, 0, 0, 18, 24, 30, 42, 60, 75, 90, 200};

    std::string Phrase(Random& random, std::size_t length) {
        std::string text;
        while (text.size() < length) {
            if (!text.empty())
                text += ' ';
            text += random.Permille(12) ? random.Of(RareWords) : random.Of(Words);
        }
        return text;
    }

    std::string Letters(Random& random, std::size_t length) {
        std::string text;
        for (std::size_t i = 0; i < length; ++i)
            text += static_cast<char>('A' + static_cast<char>(random.Below(26)));
        return text;
    }

    std::string MonthAndYear(Random& random) {
        return std::string(random.Of(Months)) + ' ' + std::to_string(2003 + random.Below(20));
    }

    Mic MakeMic(Random& random, const std::string& code, const std::string& operatingMic) {
        const Place& place = random.Of(Places);
        Mic mic;
        Get<"MIC">(mic) = code;
        Get<"Country">(mic) = place.country;
        Get<"ISOCountryCode">(mic) = place.code;
        Get<"OperatingMIC">(mic) = operatingMic;
        Get<"IsOperatingMIC">(mic) = code == operatingMic;
        Get<"Name">(mic) = Phrase(random, random.Of(NameLengths));
        if (random.Permille(370))
            Get<"Acronym">(mic) = Letters(random, 3 + random.Below(4));
        Get<"City">(mic) = random.Of(place.cities);
        if (!random.Permille(20))
            Get<"Website">(mic) = "WWW." + Letters(random, 4 + random.Below(14)) + ".COM";
        Get<"StatusDate">(mic) = MonthAndYear(random);
        Get<"IsActive">(mic) = random.Permille(800);
        Get<"CreationDate">(mic) = MonthAndYear(random);
        Get<"Comments">(mic) = Phrase(random, random.Of(CommentLengths));
        return mic;
    }

    bench::MicList MakeMicList(std::size_t count) {
        Random random(Seed);
        bench::MicList list;
        std::string operatingMic;
        auto& mics = Get<"MICDefinitions">(list);
        while (mics.size() < count) {
            const std::string code = Letters(random, 4);
            if (operatingMic.empty() || random.Permille(570))
                operatingMic = code;
            mics.try_emplace(code, MakeMic(random, code, operatingMic));
        }
        return list;
    }

    // ---- The other documents: any values, but for those that have to be special

    void Fill(Random& random, std::string& value) {
        value = Phrase(random, random.Of(NameLengths));
    }
    void Fill(Random& random, bool& value) {
        value = random.Permille(500);
    }
    template <std::integral Number>
    void Fill(Random& random, Number& value) {
        value = static_cast<Number>(random.Below(10000));
    }
    void Fill(Random& random, bench::Decimal& value) {
        value = {random.Below(10000), random.Below(4)};
    }
    void Fill(Random& random, bench::Seconds& value) {
        value = bench::Seconds(random.Below(86'400));
    }
    void Fill(Random& random, std::vector<std::string>& value) {
        value.resize(1 + random.Below(3));
        for (std::string& item : value)
            item = Letters(random, 4);
    }
    template <const auto& Texts>
    void Fill(Random& random, bench::Choice<Texts>& value) {
        value.index = random.Below(std::size(Texts));
    }

    template <bench::Name Text, class Value>
    void FillField(Random& random, bench::Field<Text, Value>& field) {
        Fill(random, field.value);
    }
    template <bench::Name Text, class Value>
    void FillField(Random& random, bench::Attribute<Text, Value>& attribute) {
        Fill(random, attribute.value);
    }
    template <class Lists>
    void FillField(Random&, Lists&) {}

    // A record with everything but its lists.
    template <class Record>
    Record Make(Random& random) {
        Record record;
        ForEachField(record, [&random](auto& field) { FillField(random, field); });
        return record;
    }

    bench::Leg MakeLeg(Random& random, bool isWorking) {
        auto leg = Make<bench::Leg>(random);
        Get<"WorkingLeg">(leg) = isWorking;
        Get<"Finesse">(leg) = true; // or else some elements are left out
        DeriveOlderPayup(leg);
        return leg;
    }

    bench::Spread MakeSpread() {
        Random random(Seed);
        auto spread = Make<bench::Spread>(random);
        Get<"Legs">(spread) = {MakeLeg(random, true), MakeLeg(random, false)};
        return spread;
    }

    bench::JobSpec MakeJobSpec() {
        Random random(Seed);
        auto job = Make<bench::JobSpec>(random);
        std::string& parameters = Get<"Parameters">(job);
        parameters.clear();
        for (std::size_t i = 0; i < 20; ++i)
            parameters += Letters(random, 10) + '=' + std::to_string(random.Below(100000)) + "^^|^^";
        for (std::size_t i = 0; i < 5; ++i)
            Get<"Limits">(job).push_back(Make<bench::Limit>(random));
        return job;
    }

    std::vector<bench::Definition> MakeDefinitions(Random& random, std::size_t count) {
        std::vector<bench::Definition> definitions;
        for (std::size_t i = 0; i < count; ++i) {
            auto definition = Make<bench::Definition>(random);
            Get<"Name">(definition) = Letters(random, 10) + std::to_string(i);
            Get<"SystemParameter">(definition) = false; // those stand in no document
            if (random.Permille(200))
                Fill(random, Get<"ValidValues">(definition));
            definitions.push_back(std::move(definition));
        }
        return definitions;
    }

    std::string MakeScript(Random& random) {
        std::string script;
        while (script.size() < 20'480) {
            script += "\tif price <= " + std::to_string(random.Below(1000)) + " && isOpen:\n";
            script += "\t\tlog(\"" + Phrase(random, random.Of(NameLengths)) + "\")\n";
        }
        return script;
    }

    bench::AlgorithmSpec MakeAlgorithmSpec() {
        Random random(Seed);
        auto algorithm = Make<bench::AlgorithmSpec>(random);
        Get<"ScriptSourceCode">(algorithm) = MakeScript(random);
        Get<"Parameters">(algorithm) = MakeDefinitions(random, 50);
        Get<"Limits">(algorithm).push_back(Make<bench::Limit>(random));
        for (const char* name : {"schedule", "venues"}) {
            bench::Module module;
            Get<"Name">(module) = name;
            Insert(Get<"Modules">(algorithm), module);
        }
        Get<"OutputParameters">(algorithm) = MakeDefinitions(random, 2);
        return algorithm;
    }

    bench::ExchangeList MakeExchangeList(std::size_t count) {
        Random random(Seed);
        bench::ExchangeList list;
        auto& exchanges = Get<"ExchangeDefinitions">(list);
        while (exchanges.size() < count) {
            auto exchange = Make<bench::Exchange>(random);
            Get<"Mnemonic">(exchange) = Letters(random, 3 + random.Below(5));
            Insert(exchanges, exchange);
        }
        return list;
    }

    bench::SchemeList MakeSchemeList(std::size_t count) {
        Random random(Seed);
        bench::SchemeList list;
        auto& schemes = Get<"TradingHoursSchemes">(list);
        while (schemes.size() < count) {
            auto scheme = Make<bench::Scheme>(random);
            auto& periods = Get<"Periods">(scheme);
            while (periods.size() < 10) {
                auto period = Make<bench::Period>(random);
                Get<"StartTimeZoneRegion">(period) = random.Of(Regions);
                Get<"EndTimeZoneRegion">(period) = Get<"StartTimeZoneRegion">(period);
                Get<"StartDay">(period) = 1;
                Get<"EndDay">(period) = 5;
                periods.push_back(std::move(period));
            }
            Insert(schemes, scheme);
        }
        return list;
    }

    bench::BrokerMap MakeBrokerMap(std::size_t count) {
        Random random(Seed);
        bench::BrokerMap map;
        auto& brokers = Get<"Broker">(map);
        while (brokers.byId.size() < count) {
            auto broker = Make<bench::Broker>(random);
            Get<"id">(broker) = static_cast<unsigned int>(brokers.byId.size() * 7);
            Insert(brokers, broker);
        }
        return map;
    }

    // ---- Their texts

    void AppendEscaped(std::string& xml, std::string_view text, std::string_view escaped) {
        for (const char c : text) {
            if (escaped.find(c) == std::string_view::npos)
                xml += c;
            else
                xml += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : "&quot;";
        }
    }

    // An element written by hand, so that none of the stacks measured has a say in it.
    class Node {
    public:
        Node(std::string& xml, std::string name) : _xml(xml), _name(std::move(name)) { _xml += '<' + _name; }
        Node(const Node&) = delete;
        Node& operator=(const Node&) = delete;
        ~Node() { _xml += _hasContent ? "</" + _name + '>' : "/>"; }

        Node Append(const char* name) {
            _BeginContent();
            return {_xml, name};
        }
        void SetText(std::string_view text) {
            _BeginContent();
            AppendEscaped(_xml, text, "&<>");
        }
        void SetAttribute(const char* name, std::string_view text) {
            _xml.append(" ").append(name).append("=\"");
            AppendEscaped(_xml, text, "&<\"");
            _xml += '"';
        }

    private:
        void _BeginContent() {
            if (!_hasContent)
                _xml += '>';
            _hasContent = true;
        }

        std::string& _xml;
        std::string _name;
        bool _hasContent = false;
    };

    template <class Plain>
    bench::Sample<Plain> MakeSample(const char* name, Plain records) {
        std::string xml;
        WriteValue(Node(xml, Plain::Root), records);
        return {name, std::move(xml), std::move(records)};
    }
} // namespace

bench::Sample<bench::MicList> bench::MakeMics(std::size_t times) {
    return MakeSample("mics", MakeMicList(2017 * times));
}

bench::Sample<bench::ExchangeList> bench::MakeExchanges(std::size_t times) {
    return MakeSample("exchanges", MakeExchangeList(500 * times));
}

bench::Sample<bench::SchemeList> bench::MakeHours(std::size_t times) {
    return MakeSample("hours", MakeSchemeList(200 * times));
}

bench::Sample<bench::BrokerMap> bench::MakeBrokers(std::size_t times) {
    return MakeSample("brokers", MakeBrokerMap(5000 * times));
}

bench::Samples bench::MakeSamples() {
    return {
        MakeMics(),
        MakeSample("spread", MakeSpread()),
        MakeSample("job", MakeJobSpec()),
        MakeSample("algorithm", MakeAlgorithmSpec()),
        MakeExchanges(),
        MakeHours(),
        MakeBrokers(),
    };
}
