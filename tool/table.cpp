// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/table.h"

#include "tool/color.h"
#include "tool/printable.h"

#include <algorithm>

namespace {
    using tool::Table;

    constexpr std::size_t Gap = 2;
    constexpr std::string_view Cut = "\u2026";

    char LowerCase(char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }

    bool Contains(std::string_view cell, std::string_view text) {
        const auto same = [](char a, char b) { return LowerCase(a) == LowerCase(b); };
        return text.empty() ||
               std::search(cell.begin(), cell.end(), text.begin(), text.end(), same) != cell.end();
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
            missing += widths[i] - tool::CountColumns(cells[i]) + Gap;
        }
        if (width > 0 && tool::CountColumns(line) > width)
            line = std::string(tool::FirstColumns(line, width - 1)).append(Cut);
        return line;
    }
} // namespace

void tool::Table::KeepRowsWith(std::string_view text) {
    std::erase_if(_rows, [text](const Row& row) {
        return std::ranges::none_of(row, [text](const std::string& cell) { return Contains(cell, text); });
    });
}

std::string tool::Table::Format(std::size_t width) const {
    std::vector<Row> lines{::Printable(_headings)};
    for (const Row& row : _rows)
        lines.push_back(::Printable(row));

    std::vector<std::size_t> widths(_headings.size());
    for (const Row& line : lines) {
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], CountColumns(line[i]));
    }

    std::string text;
    for (const Row& line : lines)
        text.append(Paint(&line == &lines.front() ? Color::Bold : Color::Plain, Line(line, widths, width)))
            .append("\n");
    return text;
}
