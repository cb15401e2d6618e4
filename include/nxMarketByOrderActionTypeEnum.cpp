// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxMarketByOrderActionTypeEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxMarketByOrderActionTypeEnum::UndefinedValue, "UNDEFINED", "Undefined",
         "Undefined market-by-order action"},
        {nxMarketByOrderActionTypeEnum::NoChangeValue, "NO_CHANGE", "No change",
         "No change of the market-by-order action"},
        {nxMarketByOrderActionTypeEnum::Add, "ADD", "Add", "Order enters the book"},
        {nxMarketByOrderActionTypeEnum::Modify, "MODIFY", "Modify",
         "Order changes and keeps its place in the queue"},
        {nxMarketByOrderActionTypeEnum::Replace, "REPLACE", "Replace",
         "Order changes and goes to the end of the queue"},
        {nxMarketByOrderActionTypeEnum::Delete, "DELETE", "Delete", "Order leaves the book"},
        {nxMarketByOrderActionTypeEnum::Execute, "EXECUTE", "Execute", "Order is filled, in part or whole"},
        {nxMarketByOrderActionTypeEnum::Clear, "CLEAR", "Clear", "Book is emptied"},
    };
    static_assert(nxEnumTableIsSound(Table, nxMarketByOrderActionTypeEnum::MinValue,
                                     nxMarketByOrderActionTypeEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxMarketByOrderActionTypeEnum::Rows() {
    return Table;
}
