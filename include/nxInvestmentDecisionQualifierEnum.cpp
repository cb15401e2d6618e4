// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxInvestmentDecisionQualifierEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxInvestmentDecisionQualifierEnum::UndefinedValue, "UNDEFINED", "Undefined",
         "Undefined investment decision maker"},
        {nxInvestmentDecisionQualifierEnum::NoChangeValue, "NO_CHANGE", "No change",
         "No change of the investment decision maker"},
        {nxInvestmentDecisionQualifierEnum::Algorithm, "ALGORITHM", "Algorithm",
         "Investment decided by an algorithm"},
        {nxInvestmentDecisionQualifierEnum::NaturalPerson, "NATURAL_PERSON", "Natural person",
         "Investment decided by a natural person"},
        {nxInvestmentDecisionQualifierEnum::Client, "CLIENT", "Client",
         "Investment decided outside the firm, by the client"},
    };
    static_assert(nxEnumTableIsSound(Table, nxInvestmentDecisionQualifierEnum::MinValue,
                                     nxInvestmentDecisionQualifierEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxInvestmentDecisionQualifierEnum::Rows() {
    return Table;
}
