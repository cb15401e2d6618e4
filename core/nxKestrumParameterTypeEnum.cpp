// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxKestrumParameterTypeEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxKestrumParameterTypeEnum::UndefinedValue, "UNDEFINED", "Undefined", "Undefined parameter type"},
        {nxKestrumParameterTypeEnum::NoChangeValue, "NO_CHANGE", "No change",
         "No change of the parameter type"},
        {nxKestrumParameterTypeEnum::Price, "PRICE", "Price", "Price, an exact decimal number"},
        {nxKestrumParameterTypeEnum::Unsigned, "UNSIGNED", "Unsigned", "Whole number from zero upwards"},
        {nxKestrumParameterTypeEnum::Quantity, "QUANTITY", "Quantity",
         "Order quantity, a whole number from zero upwards"},
        {nxKestrumParameterTypeEnum::Text, "TEXT", "Text", "Text"},
        {nxKestrumParameterTypeEnum::Decimal, "DECIMAL", "Decimal", "Exact decimal number"},
        {nxKestrumParameterTypeEnum::FloatingPoint, "FLOATING_POINT", "Floating point",
         "Floating-point number"},
        {nxKestrumParameterTypeEnum::Signed, "SIGNED", "Signed", "Whole number of either sign"},
        {nxKestrumParameterTypeEnum::Boolean, "BOOLEAN", "Boolean", "Yes or no"},
        {nxKestrumParameterTypeEnum::Instrument, "INSTRUMENT", "Instrument", "Instrument symbol"},
        {nxKestrumParameterTypeEnum::DateTime, "DATE_TIME", "Date and time", "Date and time of day"},
        {nxKestrumParameterTypeEnum::Account, "ACCOUNT", "Account", "Account name"},
    };
    static_assert(nxEnumTableIsSound(Table, nxKestrumParameterTypeEnum::MinValue,
                                     nxKestrumParameterTypeEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxKestrumParameterTypeEnum::Rows() {
    return Table;
}
