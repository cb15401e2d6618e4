// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxMultiLegReportingTypeEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxMultiLegReportingTypeEnum::UndefinedValue, "UNDEFINED", "Undefined",
         "Undefined multi-leg reporting type"},
        {nxMultiLegReportingTypeEnum::NoChangeValue, "NO_CHANGE", "No change",
         "No change of the multi-leg reporting type"},
        {nxMultiLegReportingTypeEnum::SingleSecurity, "SINGLE_SECURITY", "Single security",
         "Execution of a single security"},
        {nxMultiLegReportingTypeEnum::IndividualLeg, "INDIVIDUAL_LEG", "Individual leg",
         "Execution of one leg of a multi-leg security"},
        {nxMultiLegReportingTypeEnum::MultiLegSecurity, "MULTI_LEG_SECURITY", "Multi-leg security",
         "Execution of a multi-leg security as a whole"},
    };
    static_assert(nxEnumTableIsSound(Table, nxMultiLegReportingTypeEnum::MinValue,
                                     nxMultiLegReportingTypeEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxMultiLegReportingTypeEnum::Rows() {
    return Table;
}
