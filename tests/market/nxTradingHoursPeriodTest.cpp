// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxTradingHoursPeriod.h"

#include "tests/support/nxRecordText.h"

#include <chrono>

namespace {
    using namespace nxRecordText;
    using namespace std::chrono_literals;
    using Session = nxTradingSessionTypeEnum;
    constexpr unsigned int Null = nxUnsignedValueWrapper::NullValue;
    constexpr unsigned int NoChange = nxUnsignedValueWrapper::NoChangeValue;

    // Plain parts, from which the tests make periods.
    struct Parts {
        unsigned int type = Session::Closed;
        const char* startRegion = "Europe/Oslo";
        const char* endRegion = "Europe/Oslo";
        nxTime start = nxTime(9h);
        nxTime end = nxTime(17h + 30min);
        unsigned int startDay = 1;
        unsigned int endDay = 5;
    };

    nxTradingHoursPeriod Make(const Parts& parts) {
        nxTradingHoursPeriod period;
        period.SetSessionType(parts.type);
        period.SetStartTimeZoneRegion(parts.startRegion);
        period.SetEndTimeZoneRegion(parts.endRegion);
        period.SetStartTime(parts.start);
        period.SetEndTime(parts.end);
        period.SetStartDay(parts.startDay);
        period.SetEndDay(parts.endDay);
        return period;
    }
} // namespace

TEST(nxTradingHoursPeriodIsValid, WantsATypeARegionATimeAndDaysWithinOneWeek) {
    const nxTime none;
    const struct {
        Parts parts;
        bool isValid;
    } cases[] = {
        {{}, true},
        {{.type = Session::UndefinedValue}, false},
        {{.type = Session::NoChangeValue}, false},
        {{.startRegion = ""}, true},
        {{.endRegion = ""}, true},
        {{.startRegion = "", .endRegion = ""}, false},
        {{.start = none}, true},
        {{.end = none}, true},
        {{.start = none, .end = none}, false},
        {{.start = nxTime(18h)}, true}, // ends before it starts
        {{.startDay = 0, .endDay = 6}, true},
        {{.startDay = 5, .endDay = 1}, false},
        {{.startDay = 5, .endDay = 7}, false},
        {{.startDay = Null}, false},
        {{.startDay = NoChange, .endDay = NoChange}, false},
        {{.startDay = NoChange, .endDay = Null}, false},
    };
    for (const auto& [parts, isValid] : cases) {
        const nxTradingHoursPeriod period = Make(parts);
        EXPECT_EQ(period.IsValid(), isValid ? nxErrorEnum::OK : nxErrorEnum::InvalidData)
            << period.GetAsLogString();
    }
}

TEST(nxTradingHoursPeriodIsEqual, LooksAtEveryMember) {
    EXPECT_TRUE(Make({}).IsEqual(Make({})));
    for (const Parts& other :
         {Parts{.type = Session::Break}, Parts{.startRegion = ""}, Parts{.endRegion = "europe/oslo"},
          Parts{.start = nxTime()}, Parts{.end = nxTime(17h)}, Parts{.startDay = 0}, Parts{.endDay = Null}})
        EXPECT_FALSE(Make({}).IsEqual(Make(other))) << Make(other).GetAsLogString();
}

TEST(nxTradingHoursPeriodGetAsLogString, LeavesOutAnEndThatIsAsTheStart) {
    const struct {
        Parts parts;
        const char* text;
    } cases[] = {
        {{.endDay = 1}, "1 Market closed Europe/Oslo 09:00:00 - 17:30:00"},
        {{.type = Session::OpeningAuction, .endRegion = "UTC", .start = nxTime(), .startDay = 5, .endDay = 1},
         "5-1 Opening auction Europe/Oslo NULL - UTC 17:30:00"},
        {{.endRegion = "", .end = nxTime(500ms), .startDay = NoChange},
         "NO_CHANGE-5 Market closed Europe/Oslo 09:00:00 -  00:00:00.500"},
    };
    for (const auto& [parts, text] : cases)
        EXPECT_EQ(Make(parts).GetAsLogString(), text);
    EXPECT_EQ(nxTradingHoursPeriod().GetAsLogString(), "NULL Undefined session type  NULL - NULL");
}

TEST(nxTradingHoursPeriodConvertToXML, WritesAllSevenMembersAlways) {
    EXPECT_EQ(WrittenItem(nxTradingHoursPeriod()),
              Elements("SessionType=UNDEFINED StartTimeZoneRegion= StartTime= StartDay=4294967295 "
                       "EndTimeZoneRegion= EndTime= EndDay=4294967295"));
    EXPECT_EQ(WrittenItem(Make({.endRegion = "UTC", .end = nxTime(17h + 1ns), .startDay = NoChange})),
              Elements("SessionType=CLOSED StartTimeZoneRegion=Europe/Oslo StartTime=09:00:00 "
                       "StartDay=4294967294 EndTimeZoneRegion=UTC EndTime=17:00:00.000000001 EndDay=5"));
}

TEST(nxTradingHoursPeriodConvertFromXML, ReadsEachMemberBehindTheOneFoundBefore) {
    const struct {
        const char* elements;
        Parts parts;
    } cases[] = {
        {"SessionType=BREAK other=y StartDay=0 EndDay=6",
         {.type = Session::Break, .startDay = 0, .endDay = 6}},
        // The region is looked for behind the type; as it is not there, what follows starts from the first.
        {"StartTimeZoneRegion=UTC StartTime=01:00:00 StartDay=2 SessionType=BREAK",
         {.type = Session::Break, .start = nxTime(1h), .startDay = 2}},
        // The second of a name counts where the first stands too early.
        {"EndDay=3 EndTime=18:00:00 EndDay=4", {.end = nxTime(18h), .endDay = 4}},
        {"StartDay=2 StartDay=3", {.startDay = 2}},
        // What cannot be parsed was found all the same.
        {"StartDay=2 SessionType=none StartTimeZoneRegion=UTC StartTime= StartDay=", {.startRegion = "UTC"}},
        {"SessionType=Break StartTimeZoneRegion= StartTime=24:00:00 StartDay=-1 EndTimeZoneRegion=<x/>UTC "
         "EndTime=9 EndDay=five",
         {}},
        {"StartDay=4294967295 EndDay=9", {.startDay = Null, .endDay = 9}},
    };
    for (const auto& [elements, parts] : cases) {
        nxTradingHoursPeriod period = Make({});
        EXPECT_EQ(ReadItem(period, Elements(elements)), nxErrorEnum::OK);
        EXPECT_TRUE(period.IsEqual(Make(parts))) << elements << '\n' << period.GetAsLogString();
    }
}
