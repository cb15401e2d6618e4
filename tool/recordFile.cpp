// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/recordFile.h"

#include "core/nxFileHelper.h"
#include "core/nxStringHelper.h"
#include "tool/findingLines.h"
#include "tool/nearest.h"
#include "tool/printable.h"
#include "tool/terminal.h"
#include "xmlFramework/xml/nxXMLDocument.h"
#include "xmlFramework/xml/nxXMLTree.h"

#include <algorithm>
#include <iostream>
#include <iterator>

namespace {
    using namespace tool;

    void SkipBehind(std::string_view& text, std::string_view mark) {
        const std::size_t found = text.find(mark);
        text.remove_prefix(found == std::string_view::npos ? text.size() : found + mark.size());
    }

    // What seems to be the root element's name. It is the true one when a record has such a name and the
    // document is well-formed, which reading it will tell; for all others the parser is asked.
    std::string_view GuessRoot(std::string_view xml) {
        constexpr std::string_view Blanks = " \t\r\n";
        if (constexpr std::string_view Mark = "\xEF\xBB\xBF"; xml.starts_with(Mark))
            xml.remove_prefix(Mark.size());
        for (;;) {
            xml.remove_prefix(std::min(xml.find_first_not_of(Blanks), xml.size()));
            if (xml.starts_with("<?"))
                SkipBehind(xml, "?>");
            else if (xml.starts_with("<!--"))
                SkipBehind(xml, "-->");
            else
                break;
        }
        if (!xml.starts_with('<'))
            return {};
        xml.remove_prefix(1);
        return xml.substr(0, xml.find_first_of(" \t\r\n/>"));
    }

    // These two are read by a report as if they were records of the library.
    struct Root {
        std::string name;

        nxErrorEnum ConvertFromXML(const std::string& xml, const std::string& /*logPrefix*/) {
            nxXMLDocument document;
            const nxErrorEnum result = document.LoadFromString(xml);
            name = document.GetRootElement().GetName();
            return result;
        }
    };
    struct AnyRecord {
        Record& record;

        nxErrorEnum ConvertFromXML(const std::string& xml, const std::string& /*logPrefix*/) {
            return record.ConvertFromXML(xml);
        }
    };

    std::string SuggestRoot(const std::string& root) {
        std::vector<std::string> roots;
        std::ranges::transform(RecordKinds(), std::back_inserter(roots), &RecordKind::root);
        return SuggestName(root, roots);
    }

    // A finding for a root element that no record has. `name` is where it stands in the contents.
    nxXMLFinding UnknownRoot(std::string_view contents, std::string_view name) {
        const nxXMLPlace place = nxXMLPlaces(contents).Of(name.data() - 1); // of the "<"
        nxXMLFinding finding;
        finding.path = "/" + std::string(name);
        finding.name = name;
        finding.line = place.line;
        finding.column = place.column;
        return finding;
    }

    // The kind that the root element tells. Null, with the result in the file, when there is none.
    const RecordKind* FindKind(RecordFile& file, nxXMLReport& report) {
        const std::string_view guess = GuessRoot(file.contents);
        if (const RecordKind* const kind = FindKindByRoot(guess))
            return kind;
        Root root;
        file.result = report.Read(root, file.contents, {});
        if (!file.result.IsOK())
            return nullptr;
        const RecordKind* const kind = FindKindByRoot(root.name);
        if (!kind) {
            file.result = nxErrorEnum::InvalidData;
            if (guess == root.name)
                report.Add(UnknownRoot(file.contents, guess));
            file.problem = "no record has the root element \"" + root.name + "\"" + SuggestRoot(root.name);
        }
        return kind;
    }

    void ReadContents(RecordFile& file, const RecordKind* kind, nxXMLReport& report) {
        if (!kind)
            kind = FindKind(file, report);
        if (!kind)
            return;
        auto record = kind->make();
        AnyRecord any{*record};
        file.result = report.Read(any, file.contents, {});
        if (!file.result.IsOK())
            return;
        file.kind = kind;
        file.record = std::move(record);
    }
} // namespace

std::string tool::DisplayName(const std::string& path) {
    if (path.empty())
        return "''";
    return path == StandardStream ? "<stdin>" : Printable(path);
}

nxErrorEnum tool::ReadInput(const std::string& path, std::string& contents, std::string& problem) {
    return path == StandardStream ? ReadStandardInput(contents, problem)
                                  : nxFileHelper::Read(path, contents, problem);
}

bool tool::WriteOutput(const std::string& path, std::string_view contents) {
    if (std::ostream* const stream = FindOutputStream(path)) {
        *stream << contents;
        if (stream == &std::cout && OutputWidth() > 0 && !contents.ends_with('\n'))
            std::cout << '\n';
        return stream == &std::cout || stream->good(); // main looks at standard output
    }

    std::string problem;
    if (nxFileHelper::Write(path, contents, problem).IsOK())
        return true;
    std::cerr << "xmlframework: cannot write " << DisplayName(path) << ": " << problem << '\n';
    return false;
}

RecordFile tool::ReadRecord(const std::string& path, const RecordKind* kind) {
    RecordFile file;
    file.result = ReadInput(path, file.contents, file.problem);
    if (!file.result.IsOK())
        return file;

    nxXMLReport report;
    ReadContents(file, kind, report);
    file.findings = report.GetFindings();
    file.log = TakeLog();
    using Kind = nxXMLFinding::Kind;
    if (std::ranges::find(file.findings, Kind::NotWellFormed, &nxXMLFinding::kind) != file.findings.end()) {
        file.result = nxErrorEnum::XMLParseFailed; // as records do not say it
        file.log.shown.clear();                    // it says the same, of a text without a name
    }
    return file;
}

bool tool::IsLeftOut(const nxXMLFinding& finding) {
    return finding.kind == nxXMLFinding::Kind::ItemLeftOut;
}

std::string tool::FailureLines(const std::string& path, const nxErrorEnum& result, const std::string& problem,
                               Stream stream) {
    std::string lines = DisplayName(path) + ": " + Paint(Color::Red, "FAILED", stream) + " " +
                        nxStringHelper::GetAsString(result.GetEnumValue()) + " " +
                        result.GetShortDescription() + "\n";
    if (!problem.empty())
        lines += "  " + Printable(problem) + "\n";
    return lines;
}

RecordFile tool::ReadRecordOrComplain(const std::string& path) {
    RecordFile file = ReadRecord(path);
    const std::string log = Format(file.log.shown);
    if (!file.result.IsOK())
        std::cerr << FailureLines(path, file.result, file.problem) << log
                  << FormatLosses(path, file.contents, file.findings);
    else if (!log.empty())
        std::cerr << DisplayName(path) << ":\n" << log;
    return file;
}
