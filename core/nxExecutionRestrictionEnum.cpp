// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxExecutionRestrictionEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxExecutionRestrictionEnum::UndefinedValue, "UNDEFINED", "Undefined",
         "Undefined execution restriction"},
        {nxExecutionRestrictionEnum::NoChangeValue, "NO_CHANGE", "No change",
         "No change of the execution restriction"},
        {nxExecutionRestrictionEnum::NoRestriction, "NO_RESTRICTION", "No restriction",
         "Execution without restriction"},
        {nxExecutionRestrictionEnum::ImmediateOrCancel, "IMMEDIATE_OR_CANCEL", "Immediate or cancel",
         "Fill what is possible at once and cancel the rest"},
        {nxExecutionRestrictionEnum::FillOrKill, "FILL_OR_KILL", "Fill or kill",
         "Fill the whole quantity at once or cancel it"},
        {nxExecutionRestrictionEnum::AllOrNone, "ALL_OR_NONE", "All or none",
         "Fill the whole quantity or nothing"},
        {nxExecutionRestrictionEnum::MinimumQuantity, "MINIMUM_QUANTITY", "Minimum quantity",
         "Fill at least the minimum quantity"},
        {nxExecutionRestrictionEnum::BookOrCancel, "BOOK_OR_CANCEL", "Book or cancel",
         "Rest in the book without trading at once, or cancel"},
        {nxExecutionRestrictionEnum::AuctionOnly, "AUCTION_ONLY", "Auction only",
         "Execution in auctions only"},
        {nxExecutionRestrictionEnum::OpeningAuctionOnly, "OPENING_AUCTION_ONLY", "Opening auction only",
         "Execution in the opening auction only"},
        {nxExecutionRestrictionEnum::ClosingAuctionOnly, "CLOSING_AUCTION_ONLY", "Closing auction only",
         "Execution in the closing auction only"},
    };
    static_assert(nxEnumTableIsSound(Table, nxExecutionRestrictionEnum::MinValue,
                                     nxExecutionRestrictionEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxExecutionRestrictionEnum::Rows() {
    return Table;
}
