// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxTradingHoursSchemeList.h"

#include "tests/support/nxRandomText.h"
#include "tests/support/nxRecordText.h"

#include <vector>

namespace {
    using nxRecordText::Read;
    using nxRecordText::Written;
    using Days = std::vector<unsigned int>;
    using DaysByName = std::map<std::string, Days>;

    // A scheme whose periods differ in their days.
    nxTradingHoursScheme Make(const std::string& name, const Days& days) {
        nxTradingHoursScheme scheme;
        scheme.SetSchemeName(name);
        for (const unsigned int day : days) {
            nxTradingHoursPeriod period;
            period.SetStartDay(day);
            scheme.AddTradingPeriod(period);
        }
        return scheme;
    }

    Days DaysOf(const nxTradingHoursScheme& scheme) {
        Days days;
        for (const nxTradingHoursPeriod& period : scheme.GetTradingPeriods())
            days.push_back(period.GetStartDay());
        return days;
    }
    DaysByName DaysOf(const nxTradingHoursSchemeList& list) {
        DaysByName days;
        for (const auto& [name, scheme] : list.GetTradingHoursSchemes())
            days.emplace(name, DaysOf(scheme));
        return days;
    }

    std::string Period(const std::string& day) {
        return "<Period><StartDay>" + day + "</StartDay></Period>";
    }
    std::string Scheme(const std::string& name, const std::string& periods) {
        return "<Scheme><SchemeName>" + name + "</SchemeName><Periods>" + periods + "</Periods></Scheme>";
    }
} // namespace

TEST(nxTradingHoursSchemeConvertFromXML, TakesThePeriodsThatLeadTheListBehindTheName) {
    const struct {
        std::string children;
        const char* name;
        Days days;
    } cases[] = {
        {"", "held", {0}},
        {"<x/><SchemeName>S</SchemeName><y/><Periods>text" + Period("1") + "<!--c-->" + Period("2") +
             "</Periods><Periods>" + Period("9") + "</Periods>",
         "S",
         {0, 1, 2}},
        {"<SchemeName>S</SchemeName><Periods>" + Period("1") + "<period/>" + Period("2") + "</Periods>",
         "S",
         {0, 1}},
        {"<SchemeName/><Periods><x/>" + Period("1") + "</Periods>", "held", {0}},
        {"<Periods>" + Period("1") + "</Periods>", "held", {0, 1}},
        {"<Periods>" + Period("1") + "</Periods><SchemeName>S</SchemeName>", "S", {0}},
        {"<Periods>" + Period("x") + "</Periods>", "held", {0, nxUnsignedValueWrapper::NullValue}},
    };
    for (const auto& [children, name, days] : cases) {
        nxTradingHoursScheme scheme = Make("held", {0});
        nxRecordText::ReadItem(scheme, children);
        EXPECT_EQ(scheme.GetSchemeName(), name) << children;
        EXPECT_EQ(DaysOf(scheme), days) << children;
    }
}

TEST(nxTradingHoursSchemeIsEqual, ComparesNameAndPeriodsInOrder) {
    for (const nxTradingHoursScheme& other :
         {Make("s", {1, 2}), Make("S", {2, 1}), Make("S", {1}), Make("S", {1, 2, 3})}) {
        EXPECT_FALSE(Make("S", {1, 2}).IsEqual(other));
        EXPECT_FALSE(other.IsEqual(Make("S", {1, 2})));
    }
}

TEST(nxTradingHoursSchemeIsValid, WantsANameAndNothingOfThePeriods) {
    EXPECT_EQ(Make("S", {7}).IsValid(), nxErrorEnum::OK);
    EXPECT_EQ(Make("", {}).IsValid(), nxErrorEnum::InvalidData);
    EXPECT_EQ(Make("S", {7}).GetAsLogString(), "SchemeName: S");

    nxTradingHoursSchemeList list;
    EXPECT_EQ(list.IsValid(), nxErrorEnum::OK);
    list.GetTradingHoursSchemes()["S"] = Make("S", {7});
    EXPECT_EQ(list.IsValid(), nxErrorEnum::OK);
    list.GetTradingHoursSchemes()["T"] = Make("", {});
    EXPECT_EQ(list.IsValid(), nxErrorEnum::InvalidData);
}

TEST(nxTradingHoursSchemeListConvertToXML, WritesTheSchemesInByteOrderOfTheirNames) {
    nxTradingHoursSchemeList list;
    EXPECT_EQ(Written(list), "<TradingHoursSchemesList><TradingHoursSchemes/></TradingHoursSchemesList>");
    list.GetTradingHoursSchemes()["a b"] = Make("a b", {});
    list.GetTradingHoursSchemes()["B"] = Make("other", {});
    EXPECT_EQ(Written(list), "<TradingHoursSchemesList><TradingHoursSchemes>"
                             "<Scheme><SchemeName>other</SchemeName><Periods/></Scheme>"
                             "<Scheme><SchemeName>a b</SchemeName><Periods/></Scheme>"
                             "</TradingHoursSchemes></TradingHoursSchemesList>");
}

TEST(nxTradingHoursSchemeListConvertFromXML, AddsTheSchemesOfTheFirstListByTheirNames) {
    const struct {
        std::string children;
        DaysByName days;
    } cases[] = {
        {Scheme("S", Period("1")), {}},
        {"<x/><TradingHoursSchemes>text" + Scheme("T", Period("2")) + "<x/>" + Scheme("S", Period("1")) +
             "</TradingHoursSchemes><TradingHoursSchemes>" + Scheme("U", "") + "</TradingHoursSchemes>",
         {{"S", {1}}, {"T", {2}}}},
        {"<TradingHoursSchemes>" + Scheme("S", Period("1")) + Scheme("S", Period("2")) +
             Scheme("HELD", Period("3")) + "</TradingHoursSchemes>",
         {{"S", {1}}}},
        {"<TradingHoursSchemes><Scheme/><scheme/></TradingHoursSchemes>", {{"", {}}}},
    };
    for (auto [children, days] : cases) {
        nxTradingHoursSchemeList list;
        list.GetTradingHoursSchemes()["HELD"] = Make("HELD", {0});
        nxRecordText::ExpectRefused(list, "<any>" + children,
                                    "Failed to convert XML data to trading hours scheme list. "
                                    "Unable to create XML document from XML string",
                                    "nxTradingHoursSchemeList");
        Read(list, "<any>" + children + "</any>");
        days["HELD"] = {0};
        EXPECT_EQ(DaysOf(list), days) << children;
    }
}

TEST(nxTradingHoursSchemeListRoundTrip, KeepsEveryMemberOfEveryPeriod) {
    nxRandomText random(13);
    const auto day = [&random] { return random.Flag() ? random.Below(7) : 0xFFFFFFFF - random.Below(2); };
    const auto time = [&random] {
        const std::chrono::nanoseconds late(86'400'000'000'000LL - 1 - random.Below(0xFFFFFFFF));
        return random.Flag() ? nxTime(late) : nxTime(); // fractions of a second in all lengths
    };
    for (int round = 0; round < 100; ++round) {
        nxTradingHoursSchemeList list;
        for (unsigned int count = random.Below(4); count > 0; --count) {
            nxTradingHoursScheme scheme = Make(random.Text(), {});
            for (unsigned int periods = random.Below(4); periods > 0; --periods) {
                nxTradingHoursPeriod period;
                period.SetSessionType(random.Flag() ? 6101 + random.Below(10) : 2 * random.Below(2));
                period.SetStartTimeZoneRegion(random.Text());
                period.SetEndTimeZoneRegion(random.Text());
                period.SetStartTime(time());
                period.SetEndTime(time());
                period.SetStartDay(day());
                period.SetEndDay(day());
                scheme.AddTradingPeriod(period);
            }
            list.GetTradingHoursSchemes()[scheme.GetSchemeName()] = scheme;
        }
        nxTradingHoursSchemeList read;
        Read(read, Written(list));
        ASSERT_EQ(read.GetTradingHoursSchemes().size(), list.GetTradingHoursSchemes().size());
        for (const auto& [name, scheme] : list.GetTradingHoursSchemes())
            ASSERT_TRUE(read.GetTradingHoursSchemes().at(name).IsEqual(scheme)) << Written(list);
    }
}
