// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxTradingHoursSchemeList.h"

#include "tests/support/nxRecordText.h"

#include <vector>

namespace {
    using namespace nxRecordText;
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
        return Element("Period", Element("StartDay", day));
    }
    std::string Scheme(const std::string& name, const std::string& periods) {
        return Element("Scheme", Element("SchemeName", name) + Element("Periods", periods));
    }
} // namespace

TEST(nxTradingHoursSchemeConvertToXML, PutsIntoAnElementWhatIsReadFromOne) {
    const std::string children = Element("SchemeName", "S") + Element("Periods", Period("1") + Period("2"));
    nxTradingHoursScheme scheme, again;
    EXPECT_EQ(ReadItem(scheme, children), nxErrorEnum::OK);
    const std::string written = WrittenItem(scheme);
    EXPECT_EQ(ReadItem(again, written), nxErrorEnum::OK);
    EXPECT_TRUE(again.IsEqual(scheme));
    EXPECT_EQ(DaysOf(again), (Days{1, 2}));
    EXPECT_EQ(again.GetSchemeName(), "S");
}

TEST(nxTradingHoursSchemeConvertFromXML, TakesThePeriodsThatLeadTheListBehindTheName) {
    const std::string name = Element("SchemeName", "S");
    const auto list = [](const std::string& periods) { return Element("Periods", periods); };
    const struct {
        std::string children;
        const char* name;
        Days days;
    } cases[] = {
        {"<x/>" + name + "<y/>" + list("text" + Period("1") + "<!--c-->" + Period("2")) + list(Period("9")),
         "S",
         {0, 1, 2}},
        {name + list(Period("1") + "<period/>" + Period("2")), "S", {0, 1}},
        {"<SchemeName/>" + list("<x/>" + Period("1")), "held", {0}},
        {list(Period("1")), "held", {0, 1}},
        {list(Period("1")) + name, "S", {0}},
        {list(Period("x")), "held", {0, nxUnsignedValueWrapper::NullValue}},
    };
    for (const auto& [children, expectedName, days] : cases) {
        nxTradingHoursScheme scheme = Make("held", {0});
        EXPECT_EQ(ReadItem(scheme, children), nxErrorEnum::OK);
        EXPECT_EQ(scheme.GetSchemeName(), expectedName) << children;
        EXPECT_EQ(DaysOf(scheme), days) << children;
    }
}

TEST(nxTradingHoursSchemeIsEqual, ComparesNameAndPeriodsInOrder) {
    for (const nxTradingHoursScheme& other : {Make("s", {1, 2}), Make("S", {2, 1}), Make("S", {1, 2, 3})}) {
        EXPECT_FALSE(Make("S", {1, 2}).IsEqual(other));
        EXPECT_FALSE(other.IsEqual(Make("S", {1, 2})));
    }
}

TEST(nxTradingHoursSchemeListIsValid, WantsANameOfEverySchemeAndNothingOfThePeriods) {
    nxTradingHoursSchemeList list;
    list.GetTradingHoursSchemes()["S"] = Make("S", {7});
    EXPECT_EQ(list.IsValid(), nxErrorEnum::OK);
    list.GetTradingHoursSchemes()["T"] = Make("", {});
    EXPECT_EQ(list.IsValid(), nxErrorEnum::InvalidData);
    EXPECT_EQ(Make("S", {7}).GetAsLogString(), "SchemeName: S");
}

TEST(nxTradingHoursSchemeListConvertToXML, WritesTheSchemesInByteOrderOfTheirKeys) {
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
    const auto list = [](const std::string& schemes) { return Element("TradingHoursSchemes", schemes); };
    const struct {
        std::string children;
        DaysByName days;
    } cases[] = {
        {Scheme("S", Period("1")), {}},
        {"<x/>" + list("text" + Scheme("T", Period("2")) + "<x/>" + Scheme("S", Period("1"))) +
             list(Scheme("U", "")),
         {{"S", {1}}, {"T", {2}}}},
        {list(Scheme("S", Period("1")) + Scheme("S", Period("2")) + Scheme("HELD", Period("3"))),
         {{"S", {1}}}},
        {list("<Scheme/><scheme/>"), {{"", {}}}},
    };
    for (auto [children, days] : cases) {
        nxTradingHoursSchemeList schemes;
        schemes.GetTradingHoursSchemes()["HELD"] = Make("HELD", {0});
        Read(schemes, Element("any", children));
        days["HELD"] = {0};
        EXPECT_EQ(DaysOf(schemes), days) << children;
    }
}
