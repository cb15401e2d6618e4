// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/findingLines.h"

#include "tool/printable.h"
#include "tool/recordFile.h"

#include <algorithm>

namespace {
    using namespace tool;

    // As much of a line as is shown before a place and behind it: documents are often one long line.
    constexpr std::size_t ShownBefore = 30;
    constexpr std::size_t ShownBehind = 50;
    constexpr std::string_view Cut = "…";

    // A line of the text, counted from 1. The byte-order mark is no part of the first.
    std::string_view FindLine(std::string_view text, std::size_t number) {
        if (constexpr std::string_view Mark = "\xEF\xBB\xBF"; text.starts_with(Mark))
            text.remove_prefix(Mark.size());
        while (--number > 0)
            text.remove_prefix(std::min(text.find('\n'), text.size() - 1) + 1);
        text = text.substr(0, text.find('\n'));
        if (text.ends_with('\r'))
            text.remove_suffix(1);
        return text;
    }

    // A line in two pieces, before a place and behind it, of which each may be cut at its outer end.
    struct MarkedLine {
        std::string before;
        std::string behind;
    };
    MarkedLine Split(std::string_view line, std::size_t column) {
        const std::string_view before = FirstCharacters(line, column - 1);
        const std::string_view behind = line.substr(before.size());
        const std::size_t hidden = CountCharacters(before) - std::min(CountCharacters(before), ShownBefore);
        const std::string_view shown = FirstCharacters(behind, ShownBehind);
        MarkedLine marked{Printable(before.substr(FirstCharacters(before, hidden).size())), Printable(shown)};
        if (hidden > 0)
            marked.before.insert(0, Cut);
        if (shown.size() < behind.size())
            marked.behind += Cut;
        return marked;
    }

    std::string SourceLines(std::string_view contents, const nxXMLFinding& finding) {
        if (finding.line == 0 || contents.find('\0') != std::string_view::npos) // the latter is UTF-16 or so
            return {};
        const MarkedLine marked = Split(FindLine(contents, finding.line), finding.column);
        const std::string number = std::to_string(finding.line);
        std::string lines = "  " + number + " | " + marked.before + marked.behind + "\n";
        return lines.append(2 + number.size(), ' ') + " | " +
               std::string(CountCharacters(marked.before), ' ') + "^\n";
    }
} // namespace

std::string tool::FindingLine(const std::string& path, std::string_view contents,
                              const nxXMLFinding& finding) {
    std::string line = DisplayName(path);
    if (finding.line > 0)
        line += ":" + std::to_string(finding.line) + ":" + std::to_string(finding.column);
    line += ": ";
    if (!finding.path.empty())
        line += Printable(finding.path) + ": ";
    return line + Printable(finding.GetMessage()) + "\n" + SourceLines(contents, finding);
}

std::string tool::FindingLines(const std::string& path, std::string_view contents,
                               const std::vector<nxXMLFinding>& findings) {
    std::string lines;
    for (const nxXMLFinding& finding : findings) {
        if (finding.IsLoss())
            lines += FindingLine(path, contents, finding);
    }
    return lines;
}
