// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxClientIDQualifierEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxClientIDQualifierEnum::UndefinedValue, "UNDEFINED", "Undefined", "Undefined client qualifier"},
        {nxClientIDQualifierEnum::NoChangeValue, "NO_CHANGE", "No change",
         "No change of the client qualifier"},
        {nxClientIDQualifierEnum::NoClient, "NO_CLIENT", "No client", "Own account, there is no client"},
        {nxClientIDQualifierEnum::LegalEntity, "LEGAL_ENTITY", "Legal entity", "Firm or legal entity"},
        {nxClientIDQualifierEnum::NaturalPerson, "NATURAL_PERSON", "Natural person", "Natural person"},
        {nxClientIDQualifierEnum::Aggregated, "AGGREGATED", "AGGR", "Aggregated order of several clients"},
        {nxClientIDQualifierEnum::PendingAllocation, "PENDING_ALLOCATION", "PNAL",
         "Client not allocated yet"},
    };
    static_assert(nxEnumTableIsSound(Table, nxClientIDQualifierEnum::MinValue,
                                     nxClientIDQualifierEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxClientIDQualifierEnum::Rows() {
    return Table;
}
