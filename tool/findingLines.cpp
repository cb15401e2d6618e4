// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/findingLines.h"

#include "tool/printable.h"
#include "tool/recordFile.h"

#include <algorithm>

namespace {
    // As many characters as are shown before a place and behind it: documents are often one long line.
    constexpr std::size_t ShownBefore = 30;
    constexpr std::size_t ShownBehind = 50;
    constexpr std::string_view Cut = "…";

    bool IsContinuation(char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    }

    // In bytes. A byte that begins no character of UTF-8 counts as one, as it is in other encodings.
    std::size_t CharacterSize(std::string_view text) {
        const auto first = static_cast<unsigned char>(text.front());
        const std::size_t size = first < 0xC2 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
        const std::string_view rest = text.substr(0, size).substr(1);
        return rest.size() == size - 1 && std::ranges::all_of(rest, IsContinuation) ? size : 1;
    }

    // Up to the end of the line, or somewhat more than is shown: the line may have millions of characters.
    std::string_view RestOfLine(std::string_view text) {
        text = text.substr(0, 4 * ShownBehind + 1);
        return text.substr(0, text.find_first_of("\r\n"));
    }

    // The beginning of the text, and not more than is shown.
    std::string_view Behind(std::string_view text) {
        std::size_t size = 0;
        for (std::size_t i = 0; i < ShownBehind && size < text.size(); ++i)
            size += CharacterSize(text.substr(size));
        return text.substr(0, size);
    }

    // The end of the text, likewise.
    std::string_view Before(std::string_view text) {
        std::size_t begin = text.size();
        for (std::size_t i = 0; i < ShownBefore && begin > 0; ++i) {
            --begin;
            for (int bytes = 1; bytes < 4 && begin > 0 && IsContinuation(text[begin]); ++bytes)
                --begin;
        }
        return text.substr(begin);
    }

    // Whether a line ends with the first character of the text, as findings count lines: a carriage return
    // without a line feed ends one as well.
    bool EndsLine(std::string_view text) {
        return text.starts_with('\n') || (text.starts_with('\r') && !text.starts_with("\r\n"));
    }
} // namespace

tool::FindingLines::FindingLines(const std::string& path, std::string_view contents, Stream stream)
    : _name(DisplayName(path)), _stream(stream), _contents(contents) {
    if (constexpr std::string_view Mark = "\xEF\xBB\xBF"; _contents.starts_with(Mark))
        _contents.remove_prefix(Mark.size());
    if (_contents.find('\0') != std::string_view::npos)
        _contents = {};
    _at = _lineBegin = _contents.data();
}

void tool::FindingLines::_GoTo(std::size_t line, std::size_t column) {
    const char* const end = _contents.data() + _contents.size();
    while (_at < end && (_line < line || (_line == line && _column < column))) {
        if (EndsLine({_at, end})) {
            ++_line;
            _column = 1;
            _lineBegin = ++_at;
        } else {
            ++_column;
            _at += CharacterSize({_at, end});
        }
    }
}

std::string tool::FindingLines::_FormatSource(const nxXMLFinding& finding) {
    if (finding.line == 0 || _contents.empty())
        return {};
    _GoTo(finding.line, finding.column);
    const std::string_view before = Before({_lineBegin, _at});
    const std::string_view rest = RestOfLine({_at, _contents.data() + _contents.size()});
    const std::string_view behind = Behind(rest);
    const bool isCutBefore = before.data() > _lineBegin;
    const bool isCutBehind = behind.size() < rest.size();

    const std::string margin(2 + std::to_string(finding.line).size(), ' ');
    const std::string shown = std::string(isCutBefore ? Cut : "") + Printable(before);
    return "  " + std::to_string(finding.line) + " | " + shown + Printable(behind) +
           std::string(isCutBehind ? Cut : "") + "\n" + margin + " | " +
           std::string(CountColumns(shown), ' ') + Paint(Color::Green, "^", _stream) + "\n";
}

std::string tool::FindingLines::Format(const nxXMLFinding& finding) {
    std::string line = _name;
    if (finding.line > 0)
        line += ":" + std::to_string(finding.line) + ":" + std::to_string(finding.column);
    line = Paint(Color::Bold, line, _stream) + ": ";
    if (!finding.path.empty())
        line += Printable(finding.path) + ": ";
    return line + Printable(finding.GetMessage()) + "\n" + _FormatSource(finding);
}

std::string tool::FormatLosses(const std::string& path, std::string_view contents,
                               const std::vector<nxXMLFinding>& findings) {
    FindingLines lines(path, contents, Stream::Error);
    std::string text;
    for (const nxXMLFinding& finding : findings) {
        if (finding.IsLoss())
            text += lines.Format(finding);
    }
    return text;
}
