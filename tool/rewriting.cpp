// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/rewriting.h"

#include "tool/findingLines.h"
#include "tool/printable.h"
#include "tool/validity.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <system_error>

namespace {
    using namespace tool;

    bool IsOntoInput(const Rewriting& rewriting) {
        if (IsStandardOutput(rewriting.output))
            return false;
        if (rewriting.input == StandardStream)
            return IsStandardInput(rewriting.output);
        std::error_code ignored; // what is not there is no other file
        return std::filesystem::equivalent(rewriting.input, rewriting.output, ignored);
    }

    bool HasLosses(const RecordFile& file) {
        return file.log.hasErrors || std::ranges::any_of(file.findings, &nxXMLFinding::IsLoss);
    }

    bool ReadsBack(const RecordKind& kind, const std::string& xml) {
        const std::unique_ptr<Record> again = kind.make();
        std::string written;
        return again->ConvertFromXML(xml).IsOK() && again->ConvertToXML(written).IsOK() && written == xml;
    }
} // namespace

std::optional<ExitStatus> tool::JudgeLosses(const Rewriting& rewriting, const RecordFile& file) {
    const std::vector<std::string> withoutKey = FindItemsWithoutKey(file);
    if (!withoutKey.empty()) {
        std::cerr << FailureLines(rewriting.input, nxErrorEnum::InvalidData,
                                  "readers would not find what is written of it");
        for (const std::string& reason : withoutKey)
            std::cerr << "  " << Printable(reason) << '\n';
        return std::nullopt;
    }
    if (!HasLosses(file))
        return AllGood;

    const std::string name = DisplayName(rewriting.input);
    std::cerr << name << ": note: what is named here is not in the output\n"
              << FormatLosses(rewriting.input, file.contents, file.findings);
    if (!IsOntoInput(rewriting) || rewriting.isLossy)
        return SomeLeftOut;
    std::cerr << "xmlframework: " << name << " is not written over, since that would be lost; see --lossy\n";
    return std::nullopt;
}

bool tool::WriteXML(const std::string& path, Record& record, const RecordKind& kind, std::string& xml) {
    nxErrorEnum result = record.ConvertToXML(xml);
    std::string problem = "the record cannot be written";
    std::string log = Format(TakeLog().shown);
    if (result.IsOK() && !ReadsBack(kind, xml)) {
        result = nxErrorEnum::InvalidData;
        problem = "the record could be written, but not be read back as it is";
        log = Format(TakeLog().shown);
    }
    if (result.IsOK())
        return true;
    std::cerr << FailureLines(path, result, problem) << log;
    return false;
}
