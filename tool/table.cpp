// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/table.h"

#include "tool/color.h"
#include "tool/printable.h"

#include <unicode/unistr.h>

#include <algorithm>

namespace {
    using tool::Table;

    constexpr std::size_t Gap = 2;
    // Were there no bound, one cell could fill all other rows with blanks.
    constexpr std::size_t WidestColumn = 80;
    constexpr std::string_view Cut = "\u2026";

    icu::UnicodeString Folded(std::string_view text) {
        return icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<int>(text.size())))
            .foldCase();
    }

    Table::Row Printable(const Table::Row& row) {
        Table::Row printable;
        for (const std::string& cell : row)
            printable.push_back(tool::Printable(cell));
        return printable;
    }

    // The last column runs on as long as it likes, so that no line ends in blanks.
    std::string Line(const Table::Row& cells, const std::vector<std::size_t>& widths, std::size_t width) {
        std::string line;
        std::size_t missing = 0;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (!cells[i].empty()) {
                line.append(missing, ' ').append(cells[i]);
                missing = 0;
            }
            const std::size_t columns = tool::CountColumns(cells[i]);
            missing += std::max(widths[i], columns) - columns + Gap;
        }
        if (width > 0 && tool::CountColumns(line) > width)
            line = std::string(tool::FirstColumns(line, width - 1)).append(Cut);
        return line;
    }
} // namespace

void tool::Table::KeepRowsWith(std::string_view text) {
    const icu::UnicodeString wanted = Folded(text);
    const auto holds = [&wanted](const std::string& cell) { return Folded(cell).indexOf(wanted) >= 0; };
    if (!wanted.isEmpty())
        std::erase_if(_rows, [&holds](const Row& row) { return std::ranges::none_of(row, holds); });
}

std::string tool::Table::Format(std::size_t width) const {
    std::vector<Row> lines{::Printable(_headings)};
    for (const Row& row : _rows)
        lines.push_back(::Printable(row));

    std::vector<std::size_t> widths(_headings.size());
    for (const Row& line : lines) {
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], std::min(CountColumns(line[i]), WidestColumn));
    }

    std::string text;
    for (const Row& line : lines)
        text.append(Paint(&line == &lines.front() ? Color::Bold : Color::Plain, Line(line, widths, width)))
            .append("\n");
    return text;
}
