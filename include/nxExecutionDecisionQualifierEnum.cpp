// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxExecutionDecisionQualifierEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxExecutionDecisionQualifierEnum::UndefinedValue, "UNDEFINED", "Undefined",
         "Undefined execution decision maker"},
        {nxExecutionDecisionQualifierEnum::NoChangeValue, "NO_CHANGE", "No change",
         "No change of the execution decision maker"},
        {nxExecutionDecisionQualifierEnum::Algorithm, "ALGORITHM", "Algorithm",
         "Execution decided by an algorithm"},
        {nxExecutionDecisionQualifierEnum::NaturalPerson, "NATURAL_PERSON", "Natural person",
         "Execution decided by a natural person"},
        {nxExecutionDecisionQualifierEnum::Client, "CLIENT", "NORE",
         "Time and place of execution set by the client"},
    };
    static_assert(nxEnumTableIsSound(Table, nxExecutionDecisionQualifierEnum::MinValue,
                                     nxExecutionDecisionQualifierEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxExecutionDecisionQualifierEnum::Rows() {
    return Table;
}
