// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxStringHelper.h"
#include "tool/view.h"
#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"
#include "xmlFramework/kestrum/nxKestrumJobSpec.h"
#include "xmlFramework/kestrum/nxKestrumModuleSpec.h"
#include "xmlFramework/kestrum/nxKestrumUserLimit.h"

#include <algorithm>
#include <utility>

namespace {
    using tool::Table;
    using tool::View;

    template <class T>
    std::string Text(const T& value) {
        return nxStringHelper::GetAsString(value);
    }
    std::string Text(const nxUnsignedValueWrapper& value) {
        return value.GetAsString();
    }

    std::string Count(std::size_t count, const std::string& one) {
        return Text(count) + " " + one + (count == 1 ? "" : "s");
    }

    template <class Limits>
    Table LimitTable(const Limits& limits) {
        Table table({"PRODUCT", "SHORT", "LONG", "BUYS", "SELLS", "CLIP", "STRATEGY", "NETTING",
                     "MARGIN RISK", "ACCOUNT"});
        for (const auto& limit : limits)
            table.AddRow({limit->GetProductID(), Text(limit->GetMaxShort()), Text(limit->GetMaxLong()),
                          Text(limit->GetMaxBuys()), Text(limit->GetMaxSells()), Text(limit->GetClipLimit()),
                          Text(limit->GetIsPartOfStrategy()), Text(limit->GetAllowNetting()),
                          Text(limit->GetMarginRiskStrategy()), Text(limit->GetAccountID())});
        return table;
    }

    std::string Join(const std::vector<std::string>& texts) {
        std::string joined;
        for (const std::string& text : texts)
            joined += (joined.empty() ? "" : ", ") + text;
        return joined;
    }

    Table DefinitionTable(const char* heading, const nxKestrumAlgorithmSpec::Definitions& definitions) {
        Table table({heading, "TYPE", "OPTIONAL", "READ-ONLY", "VALID VALUES", "DESCRIPTION"});
        for (const auto& definition : definitions)
            table.AddRow({definition->GetName(), definition->GetParameterType().GetShortDescription(),
                          Text(definition->GetOptional()), Text(definition->GetReadOnly()),
                          Join(definition->GetValidValues()), definition->GetDescription()});
        return table;
    }

    Table SourceTable(const std::string& source) {
        Table table({"SOURCE CODE"});
        std::size_t start = 0;
        while (start < source.size()) {
            const std::size_t end = std::min(source.find('\n', start), source.size());
            table.AddRow({source.substr(start, end - start)});
            start = end + 1;
        }
        return table;
    }

    // Pair by pair; a text that is no user string as it stands.
    Table ParameterTable(const std::string& userString) {
        Table table({"PARAMETER", "VALUE"});
        std::map<std::string, std::string> pairs;
        const nxErrorEnum result = nxKestrumAlgorithmSpec::ExtractParametersFromUserString(userString, pairs);
        for (const auto& [name, value] : pairs)
            table.AddRow({name, value});
        if (!result.IsOK())
            table.AddRow({"(malformed user string)", userString});
        return table;
    }
} // namespace

View tool::MakeView(const nxKestrumAlgorithmSpec& record) {
    Table fields({"FIELD", "VALUE"});
    fields.AddRow({"Synthetic order type", record.GetSyntheticOrderType().GetShortDescription()});
    fields.AddRow({"Hide parent order", Text(record.GetHideParentOrder())});
    fields.AddRow({"Modules", Join({record.GetModules().begin(), record.GetModules().end()})});
    return {Count(record.GetScriptParameterDefinitions().size(), "parameter") + ", " +
                Count(record.GetLimits().size(), "limit"),
            {std::move(fields), DefinitionTable("PARAMETER", record.GetScriptParameterDefinitions()),
             DefinitionTable("OUTPUT PARAMETER", record.GetScriptOutputParameterDefinitions()),
             LimitTable(record.GetLimits()), SourceTable(record.GetScriptSourceCode())}};
}

View tool::MakeView(const nxKestrumJobSpec& record) {
    Table fields({"FIELD", "VALUE"});
    fields.AddRow({"Algorithm", record.GetAlgorithmSpecName()});
    fields.AddRow({"Account ID", Text(record.GetAccountID())});
    fields.AddRow({"Back-testing account ID", Text(record.GetBackTestingAccountID())});
    fields.AddRow({"Max transactions", Text(record.GetMaxTransactions())});
    fields.AddRow({"Max transactions per second", Text(record.GetMaxTransactionsPerSecond())});
    fields.AddRow({"Preferred exchange user", record.GetPreferredExchangeUser()});
    fields.AddRow({"Anti-cross: pull orders", Text(record.GetAntiCrossPullOrders())});
    fields.AddRow({"Disable pre-limit check", Text(record.GetDisablePreLimitCheck())});
    Table parameters = ParameterTable(record.GetParameters());
    return {Count(parameters.GetRowCount(), "parameter") + ", " + Count(record.GetLimits().size(), "limit"),
            {std::move(fields), std::move(parameters), LimitTable(record.GetLimits())}};
}

View tool::MakeView(const nxKestrumModuleSpec& record) {
    Table source = SourceTable(record.GetSourceCode());
    const std::size_t lines = source.GetRowCount();
    return {Count(lines, "line"), {std::move(source)}};
}

View tool::MakeView(const nxKestrumUserLimit& record) {
    Table fields({"CEILING", "VALUE"});
    fields.AddRow({"Max transactions", Text(record.GetMaxTransactions())});
    fields.AddRow({"Max transactions per second", Text(record.GetMaxTransactionsPerSecond())});
    fields.AddRow({"Max concurrent jobs", Text(record.GetMaxConcurrentJobs())});
    return {"3 ceilings", {std::move(fields)}};
}
