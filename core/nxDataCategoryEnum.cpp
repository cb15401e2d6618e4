// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxDataCategoryEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxDataCategoryEnum::UndefinedValue, "UNDEFINED", "Undefined", "Undefined data category"},
        {nxDataCategoryEnum::NoChangeValue, "NO_CHANGE", "No change", "No change of the data category"},
        {nxDataCategoryEnum::KestrumAlgorithmSpec, "ALGO", "Kestrum algorithm spec",
         "Script, parameters and limits of a Kestrum algorithm"},
        {nxDataCategoryEnum::AlgoIDMappingList, "ALID", "Algo ID mapping list",
         "Numeric IDs of the algorithms by their paths"},
        {nxDataCategoryEnum::BrokerMap, "BROK", "Broker map", "Names of the brokers by their IDs"},
        {nxDataCategoryEnum::ExchangeDefinitionList, "EXCH", "Exchange definition list",
         "Exchanges with their roles, market identifier codes and price streams"},
        {nxDataCategoryEnum::KestrumJobSpec, "KJOB", "Kestrum job spec",
         "Algorithm, account, parameters and limits of a Kestrum job"},
        {nxDataCategoryEnum::KestrumModuleSpec, "KMOD", "Kestrum module spec",
         "Source code of a module that Kestrum algorithms share"},
        {nxDataCategoryEnum::OrvalenPriceUsageStatistics, "OPUS", "Orvalen price usage statistics",
         "Counts of the prices used, by user and product"},
        {nxDataCategoryEnum::SyntheticSpreadOrderSpec, "SPRD", "Synthetic spread order spec",
         "Legs and settings of a synthetic spread order"},
        {nxDataCategoryEnum::SyntheticPriceServerInstanceList, "SPSI", "Synthetic price server instance list",
         "Instances of the synthetic price server"},
        {nxDataCategoryEnum::TradingHoursSchemeList, "TRSL", "Trading hours scheme list",
         "Named weekly trading hours"},
        {nxDataCategoryEnum::UserTextList, "URTL", "User text list", "History of the texts a user entered"},
        {nxDataCategoryEnum::MICDefinitionList, "XMIC", "MIC definition list",
         "Market identifier codes of the ISO 10383 register"},
    };
    static_assert(nxEnumTableIsSound(Table, nxDataCategoryEnum::MinValue, nxDataCategoryEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxDataCategoryEnum::Rows() {
    return Table;
}
