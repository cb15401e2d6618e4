// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tool {
    // Texts in rows and columns, for people.
    class Table {
    public:
        using Row = std::vector<std::string>;

        explicit Table(Row headings) : _headings(std::move(headings)) {}
        // One cell a heading, in any UTF-8 text.
        void AddRow(Row cells) { _rows.push_back(std::move(cells)); }
        std::size_t GetRowCount() const { return _rows.size(); }
        // Keeps the rows that have `text` in some cell, in whatever letter case.
        void KeepRowsWith(std::string_view text);

        // A line for the headings and one for each row, with the columns one under the other, but
        // a cell of more than 80 columns pushes the rest of its own row to the right. Lines of more
        // than `width` columns are cut, which a dot-dot-dot shows; 0 stands for any width.
        std::string Format(std::size_t width = 0) const;

    private:
        Row _headings;
        std::vector<Row> _rows;
    };
} // namespace tool
