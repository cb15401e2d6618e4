// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/checkOutcome.h"

#include "tool/color.h"
#include "tool/findingLines.h"
#include "tool/printable.h"
#include "tool/recordFile.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace {
    using namespace tool;

    // How many findings of one sort do not count.
    std::size_t CountPassedOver(const CheckOutcome& outcome, bool losses) {
        return static_cast<std::size_t>(
            std::ranges::count_if(outcome.findings, [&](const nxXMLFinding& finding) {
                return finding.IsLoss() == losses && !outcome.Counts(finding);
            }));
    }

    std::string Remarks(const CheckOutcome& outcome) {
        const std::size_t count = CountPassedOver(outcome, true);
        return count == 0 ? std::string()
                          : std::to_string(count) + (count == 1 ? " remark" : " remarks") + ": see --strict";
    }

    std::string Defaults(const CheckOutcome& outcome) {
        const std::size_t count = outcome.isStrict ? CountPassedOver(outcome, false) : 0;
        if (count == 0)
            return {};
        return std::to_string(count) + (count == 1 ? " element is" : " elements are") + " not there and " +
               (count == 1 ? "has its default" : "have their defaults") + ": see --complete";
    }

    std::string Note(const std::string& text) {
        return text.empty() ? std::string() : "  note: " + text + "\n";
    }

    nlohmann::ordered_json AsJSON(const nxXMLFinding& finding) {
        return {{"line", finding.line},   {"column", finding.column},     {"path", finding.path},
                {"key", finding.key},     {"code", finding.GetCode()},    {"message", finding.GetMessage()},
                {"found", finding.found}, {"expected", finding.expected}, {"held", finding.held}};
    }
} // namespace

bool CheckOutcome::Counts(const nxXMLFinding& finding) const {
    const bool isRoot = finding.kind == nxXMLFinding::Kind::UnknownElement && finding.path.rfind('/') == 0;
    if (finding.kind == nxXMLFinding::Kind::NotWellFormed || IsLeftOut(finding) || (isRoot && kind.empty()))
        return true;
    return finding.IsLoss() ? isStrict : isComplete;
}

std::string tool::FormatText(const CheckOutcome& outcome) {
    std::string text;
    const std::string remarks = Remarks(outcome);
    if (outcome.result.IsOK())
        text = DisplayName(outcome.path) + ": " + Paint(Color::Green, "OK") + " (" + outcome.kind + ", " +
               outcome.summary + (remarks.empty() ? "" : ", ") + remarks + ")\n";
    else
        text = FailureLines(outcome.path, outcome.result, {}, Stream::Output);
    for (const std::string& problem : outcome.problems)
        text += "  " + Printable(problem) + "\n";
    text += Format(outcome.log);
    FindingLines lines(outcome.path, outcome.contents, Stream::Output);
    for (const nxXMLFinding& finding : outcome.findings) {
        if (outcome.Counts(finding))
            text += lines.Format(finding);
    }
    if (!outcome.result.IsOK())
        text += Note(remarks);
    return text + Note(Defaults(outcome));
}

std::string tool::FormatJSON(const CheckOutcome& outcome) {
    using JSON = nlohmann::ordered_json;
    JSON findings = JSON::array();
    for (const nxXMLFinding& finding : outcome.findings) {
        if (finding.IsLoss() || outcome.Counts(finding))
            findings.push_back(AsJSON(finding));
    }
    JSON problems = outcome.problems;
    for (const LogLine& line : outcome.log)
        problems.push_back(line.level.GetShortDescription() + (": " + line.text));
    const JSON object{{"file", outcome.path == StandardStream ? DisplayName(outcome.path) : outcome.path},
                      {"result", outcome.result.IsOK() ? "OK" : "FAILED"},
                      {"code", outcome.result.GetEnumValue()},
                      {"kind", outcome.kind},
                      {"summary", outcome.summary},
                      {"problems", problems},
                      {"findings", findings}};
    return object.dump(-1, ' ', false, JSON::error_handler_t::replace) + "\n"; // paths may be any bytes
}
