// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// A register of market identifier codes. Each row that can be used becomes a definition, XML carries them
// all, and the register that is written of them has the same rows.

#include "fuzz/nxFuzz.h"
#include "tool/micRegister.h"
#include "xmlFramework/market/nxMICDefinitionList.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>

namespace {
    using nxFuzz::Require;
    using tool::MICRegister;

    nxMICDefinitionList ListOf(const MICRegister& source) {
        nxMICDefinitionList list;
        for (const MICRegister::Row& row : source.rows) {
            auto definition = std::make_shared<nxMICDefinition>();
            Require(definition->ConvertFromCSV(row.columns).IsOK());
            if (tool::FindMissingValue(row).empty())
                Require(list.GetMICDefinitions().emplace(definition->GetMIC(), std::move(definition)).second);
        }
        return list;
    }

    void CheckRegister(const MICRegister& source, std::size_t lineCount) {
        Require(source.problem.empty() || source.rows.empty());
        for (const MICRegister::Row& row : source.rows)
            Require(row.line >= 1 && row.line <= lineCount);
        for (const MICRegister::UnusableRow& row : source.unusableRows)
            Require(row.line >= 1 && row.line <= lineCount && !row.reason.empty());
    }

    void CheckList(nxMICDefinitionList& list) {
        std::string xml;
        Require(list.IsValid().IsOK() && list.ConvertToXML(xml, "").IsOK());
        nxMICDefinitionList read;
        Require(read.ConvertFromXML(xml, "").IsOK() && read == list);

        const std::string csv = tool::WriteMICRegister(list);
        const MICRegister written = tool::ReadMICRegister(csv, tool::TextEncoding::UTF8);
        Require(written.problem.empty() && written.unusableRows.empty() && written.headingsNotHeld.empty());
        const nxMICDefinitionList again = ListOf(written);
        Require(again == list && tool::WriteMICRegister(again) == csv);
    }
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string csv(reinterpret_cast<const char*>(data), size);
    const MICRegister source = tool::ReadMICRegister(csv, std::nullopt);
    CheckRegister(source, static_cast<std::size_t>(std::ranges::count(csv, '\n')) + 1);
    nxMICDefinitionList list = ListOf(source);
    CheckList(list);
    return 0;
}
