// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "bench/mics.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace {
    using bench::Mic;
    using bench::Mics;

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
        mic.mic = code;
        mic.country = place.country;
        mic.isoCountryCode = place.code;
        mic.operatingMic = operatingMic;
        mic.isOperatingMic = code == operatingMic;
        mic.name = Phrase(random, random.Of(NameLengths));
        if (random.Permille(370))
            mic.acronym = Letters(random, 3 + random.Below(4));
        mic.city = random.Of(place.cities);
        if (!random.Permille(20))
            mic.website = "WWW." + Letters(random, 4 + random.Below(14)) + ".COM";
        mic.statusDate = MonthAndYear(random);
        mic.isActive = random.Permille(800);
        mic.creationDate = MonthAndYear(random);
        mic.comments = Phrase(random, random.Of(CommentLengths));
        return mic;
    }

    Mics MakeMics(std::size_t count) {
        Random random(20170701);
        Mics mics;
        std::string operatingMic;
        while (mics.size() < count) {
            const std::string code = Letters(random, 4);
            if (operatingMic.empty() || random.Permille(570))
                operatingMic = code;
            mics.try_emplace(code, MakeMic(random, code, operatingMic));
        }
        return mics;
    }

    void AppendEscaped(std::string& xml, std::string_view text) {
        for (const char c : text) {
            switch (c) {
            case '&':
                xml += "&amp;";
                break;
            case '<':
                xml += "&lt;";
                break;
            case '>':
                xml += "&gt;";
                break;
            default:
                xml += c;
            }
        }
    }

    void AppendTag(std::string& xml, std::string_view opening, std::string_view name) {
        xml += opening;
        xml += name;
        xml += '>';
    }

    // The document by hand, so that none of the stacks measured has a say in it.
    std::string MakeText(const Mics& mics) {
        std::string xml;
        AppendTag(xml, "<", bench::MicRootName);
        AppendTag(xml, "<", bench::MicContainerName);
        for (const auto& [code, mic] : mics) {
            const std::string itemName = std::string(bench::MicItemPrefix) + code;
            AppendTag(xml, "<", itemName);
            for (const bench::MicField& field : bench::MicFields) {
                AppendTag(xml, "<", field.name);
                AppendEscaped(xml, bench::MicFieldText(mic, field));
                AppendTag(xml, "</", field.name);
            }
            AppendTag(xml, "</", itemName);
        }
        AppendTag(xml, "</", bench::MicContainerName);
        AppendTag(xml, "</", bench::MicRootName);
        return xml;
    }

    bench::Document<Mics> MakeDocument(const std::string& name, std::size_t count) {
        Mics mics = MakeMics(count);
        std::string text = MakeText(mics);
        return {name, std::move(text), std::move(mics)};
    }
} // namespace

std::string bench::Canonical(const Mics& mics) {
    std::string canonical;
    for (const auto& [code, mic] : mics) {
        canonical += code + '\n';
        for (const MicField& field : MicFields) {
            const std::string text = MicFieldText(mic, field);
            canonical += std::to_string(text.size()) + ':' + text + '\n';
        }
    }
    return canonical;
}

std::vector<bench::Document<Mics>> bench::MicDocuments() {
    return {MakeDocument("mics", 2017), MakeDocument("mic", 1)};
}
