// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/view.h"
#include "xmlFramework/market/nxTradingHoursSchemeList.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace {
    using tool::View;
    using Period = nxTradingHoursPeriod;

    constexpr std::array<const char*, 7> DayNames{"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
    constexpr std::size_t CellsPerDay = 8; // a cell for three hours
    constexpr auto CellLength = 24h / CellsPerDay;

    std::string DayName(const nxUnsignedValueWrapper& day) {
        return day < DayNames.size() ? DayNames[day] : day.GetAsString();
    }

    std::string Place(const nxUnsignedValueWrapper& day, const nxTime& time, const std::string& region) {
        return DayName(day) + " " + time.GetAsLogString() + (region.empty() ? "" : " " + region);
    }

    // The cell of the week in which a time lies; a time that is not set counts as the day's `otherwise`.
    std::size_t Cell(const nxUnsignedValueWrapper& day, const nxTime& time,
                     std::chrono::nanoseconds otherwise) {
        const auto sinceMidnight = time.IsNull() ? otherwise : time.GetSinceMidnight();
        return static_cast<unsigned int>(day) * CellsPerDay +
               static_cast<std::size_t>(sinceMidnight / CellLength);
    }

    // The week as a line, "=" where the period runs; clock times as they stand, whatever their regions. Empty
    // for a period without days.
    std::string Week(const Period& period) {
        if (!period.IsValid().IsOK())
            return "(not valid)";
        const std::size_t first = Cell(period.GetStartDay(), period.GetStartTime(), 0h);
        const std::size_t last = Cell(period.GetEndDay(), period.GetEndTime(), 24h - 1ns);
        std::string week;
        for (std::size_t cell = 0; cell < DayNames.size() * CellsPerDay; ++cell) {
            if (cell % CellsPerDay == 0)
                week += '|';
            week += cell >= first && cell <= last ? '=' : ' ';
        }
        return week + "|";
    }

    // Over the week's line: each day's name and number.
    std::string WeekHeading() {
        std::string heading;
        for (std::size_t day = 0; day < DayNames.size(); ++day) {
            const std::string name = DayNames[day] + (" " + std::to_string(day));
            heading += ' ' + name + std::string(CellsPerDay - name.size(), ' ');
        }
        return heading;
    }
} // namespace

View tool::MakeView(const nxTradingHoursSchemeList& record) {
    Table table({"SCHEME", "SESSION", WeekHeading(), "FROM", "TO"});
    for (const auto& [name, scheme] : record.GetTradingHoursSchemes()) {
        std::string shownName = name; // with the first period only
        for (const Period& period : scheme.GetTradingPeriods()) {
            table.AddRow({std::exchange(shownName, {}), period.GetSessionType().GetShortDescription(),
                          Week(period),
                          Place(period.GetStartDay(), period.GetStartTime(), period.GetStartTimeZoneRegion()),
                          Place(period.GetEndDay(), period.GetEndTime(), period.GetEndTimeZoneRegion())});
        }
        if (scheme.GetTradingPeriods().empty())
            table.AddRow({name, "(no periods)", {}, {}, {}});
    }
    const std::size_t count = record.GetTradingHoursSchemes().size();
    return {std::to_string(count) + (count == 1 ? " scheme" : " schemes"), {std::move(table)}};
}
