// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// How the time for a list grows with the number of its items: reading, writing, copying and destroying lists
// of 1,000, 10,000 and 100,000, in microseconds of processor time an item, the least of several runs. `parse`
// is the parser alone on the same text (nxXMLDocument::LoadFromString and the document's release), `save` the
// serialiser alone, so that `read - parse` and `write - save` are what the record adds.

#include "xmlFramework/market/nxBrokerMap.h"
#include "xmlFramework/market/nxExchangeDefinitionList.h"
#include "xmlFramework/market/nxMICDefinitionList.h"
#include "xmlFramework/market/nxTradingHoursSchemeList.h"
#include "xmlFramework/market/nxUserTextList.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string>

namespace {
    using Record = std::unique_ptr<nxXMLDataObject>;

    struct Kind {
        const char* name;
        Record (*make)(unsigned int count);
    };

    // Keys of one length, so that all lists have items of one size.
    std::string Key(const char* prefix, unsigned int number) {
        return prefix + std::to_string(1'000'000 + number);
    }

    Record MakeExchanges(unsigned int count) {
        auto list = std::make_unique<nxExchangeDefinitionList>();
        for (unsigned int i = 0; i < count; ++i) {
            auto venue = std::make_shared<nxExchangeDefinition>();
            venue->SetMnemonic(Key("VENUE", i));
            venue->SetDescription("A venue for instruments of all kinds");
            venue->SetIsExchange(true);
            venue->SetMICs({Key("X", i), Key("Y", i)});
            venue->SetPriceStreams({"LEVEL1", "LEVEL2"});
            list->GetExchangeDefinitions().emplace(venue->GetMnemonic(), venue);
        }
        return list;
    }

    Record MakeMICs(unsigned int count) {
        auto list = std::make_unique<nxMICDefinitionList>();
        for (unsigned int i = 0; i < count; ++i) {
            auto definition = std::make_shared<nxMICDefinition>();
            definition->SetMIC(Key("X", i));
            definition->SetOperatingMIC(Key("X", i));
            definition->SetCountry("UNITED KINGDOM");
            definition->SetIsoCountryCode("GB");
            definition->SetName("A market for instruments of all kinds");
            definition->SetCity("LONDON");
            definition->SetWebsite("WWW.EXAMPLE.COM");
            definition->SetIsActive(true);
            list->GetMICDefinitions().emplace(definition->GetMIC(), definition);
        }
        return list;
    }

    Record MakeTradingHours(unsigned int count) {
        nxTradingHoursPeriod period;
        period.SetSessionType(nxTradingSessionTypeEnum::ContinuousTrading);
        period.SetStartTimeZoneRegion("America/New_York");
        period.SetEndTimeZoneRegion("America/New_York");
        period.SetStartTime(nxTime(std::chrono::hours(9)));
        period.SetEndTime(nxTime(std::chrono::hours(17)));
        period.SetStartDay(1);
        period.SetEndDay(5);

        auto list = std::make_unique<nxTradingHoursSchemeList>();
        for (unsigned int i = 0; i < count; ++i) {
            nxTradingHoursScheme scheme;
            scheme.SetSchemeName(Key("SCHEME", i));
            scheme.AddTradingPeriod(period);
            scheme.AddTradingPeriod(period);
            list->GetTradingHoursSchemes().emplace(scheme.GetSchemeName(), scheme);
        }
        return list;
    }

    Record MakeBrokers(unsigned int count) {
        auto brokers = std::make_unique<nxBrokerMap>();
        for (unsigned int i = 0; i < count; ++i)
            brokers->SetBrokerIDAndName(i, Key("BROKER", i));
        return brokers;
    }

    // Not by AddUserTextEntry, which looks through all texts for the new one.
    Record MakeUserTexts(unsigned int count) {
        auto list = std::make_unique<nxUserTextList>();
        for (unsigned int i = 0; i < count; ++i)
            list->GetUserTextEntries().push_back(Key("Cancel all orders of account ", i));
        return list;
    }

    void Check(const nxErrorEnum& result) {
        if (!result.IsOK())
            throw std::runtime_error(result.GetAsString());
    }

    template <class Work>
    double Seconds(Work work) {
        const std::clock_t start = std::clock();
        work();
        return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    }

    // The least of several times that `sample` gives, in microseconds an item.
    template <class Sample>
    double PerItem(unsigned int count, Sample sample) {
        double least = sample();
        for (unsigned int run = std::max(5U, 50'000 / count); run > 1; --run)
            least = std::min(least, sample());
        return least / count * 1e6;
    }

    double ReadTime(const nxXMLDataObject& record, const std::string& xml) {
        const Record read(record.CreateInstance());
        return Seconds([&] { Check(read->ConvertFromXML(xml, "")); });
    }

    double ParseTime(const std::string& xml) {
        return Seconds([&xml] { Check(nxXMLDocument().LoadFromString(xml)); });
    }

    double WriteTime(nxXMLDataObject& record) {
        std::string written;
        return Seconds([&] { Check(record.ConvertToXML(written, "")); });
    }

    double SaveTime(nxXMLDocument& document) {
        std::string written;
        return Seconds([&] { Check(document.SaveToString(written)); });
    }

    double CopyTime(const nxXMLDataObject& record) {
        Record copy;
        return Seconds([&] { copy.reset(record.CopyInstance()); });
    }

    double DestroyTime(const nxXMLDataObject& record) {
        Record copy(record.CopyInstance());
        return Seconds([&copy] { copy.reset(); });
    }

    void Measure(const Kind& kind, unsigned int count) {
        const Record record = kind.make(count);
        std::string xml;
        Check(record->ConvertToXML(xml, ""));
        const Record again(record->CreateInstance());
        Check(again->ConvertFromXML(xml, ""));
        std::string xmlAgain;
        Check(again->ConvertToXML(xmlAgain, ""));
        if (xmlAgain != xml)
            throw std::runtime_error("what is read is not what was written");
        nxXMLDocument document;
        Check(document.LoadFromString(xml));

        const double read = PerItem(count, [&] { return ReadTime(*record, xml); });
        const double parse = PerItem(count, [&] { return ParseTime(xml); });
        const double write = PerItem(count, [&] { return WriteTime(*record); });
        const double save = PerItem(count, [&] { return SaveTime(document); });
        const double copy = PerItem(count, [&] { return CopyTime(*record); });
        const double destroy = PerItem(count, [&] { return DestroyTime(*record); });
        std::printf("%-14s%8u%8zu%9.2f%9.2f%9.2f%9.2f%9.2f%9.2f%9.3f%9.3f\n", kind.name, count,
                    xml.size() / count, read, parse, read - parse, write, save, write - save, copy, destroy);
        std::fflush(stdout);
    }
} // namespace

int main() {
    constexpr Kind Kinds[] = {
        {"exchanges", MakeExchanges},        {"MICs", MakeMICs},
        {"trading hours", MakeTradingHours}, {"brokers", MakeBrokers},
        {"user texts", MakeUserTexts},
    };
    std::printf("%-14s%8s%8s%9s%9s%9s%9s%9s%9s%9s%9s\n", "us an item", "items", "bytes", "read", "parse",
                "own", "write", "save", "own", "copy", "destroy");
    try {
        for (const Kind& kind : Kinds)
            for (const unsigned int count : {1'000U, 10'000U, 100'000U})
                Measure(kind, count);
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "growth: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
