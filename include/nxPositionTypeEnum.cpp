// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxPositionTypeEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxPositionTypeEnum::UndefinedValue, "UNDEFINED", "Undefined", "Undefined position type"},
        {nxPositionTypeEnum::NoChangeValue, "NO_CHANGE", "No change", "No change of the position type"},
        {nxPositionTypeEnum::StartOfDay, "START_OF_DAY", "Start of day",
         "Position carried over from the day before"},
        {nxPositionTypeEnum::Intraday, "INTRADAY", "Intraday", "Position from the trades of the day"},
        {nxPositionTypeEnum::EndOfDay, "END_OF_DAY", "End of day", "Position at the end of the day"},
        {nxPositionTypeEnum::Allocation, "ALLOCATION", "Allocation",
         "Position from trades given up or allocated"},
        {nxPositionTypeEnum::Transfer, "TRANSFER", "Transfer", "Position moved from or to another account"},
        {nxPositionTypeEnum::Exercise, "EXERCISE", "Exercise", "Position from exercised options"},
        {nxPositionTypeEnum::Assignment, "ASSIGNMENT", "Assignment", "Position from assigned options"},
        {nxPositionTypeEnum::Delivery, "DELIVERY", "Delivery", "Position in delivery"},
        {nxPositionTypeEnum::CorporateAction, "CORPORATE_ACTION", "Corporate action",
         "Position changed by a corporate action"},
        {nxPositionTypeEnum::Adjustment, "ADJUSTMENT", "Adjustment", "Position corrected by hand"},
        {nxPositionTypeEnum::Total, "TOTAL", "Total", "Sum of all positions"},
    };
    static_assert(nxEnumTableIsSound(Table, nxPositionTypeEnum::MinValue, nxPositionTypeEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxPositionTypeEnum::Rows() {
    return Table;
}
