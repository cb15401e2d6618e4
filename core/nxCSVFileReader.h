// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCSVFileReaderCallback.h"
#include "core/nxCSVFileRow.h"
#include "core/nxCoreExport.h"
#include "include/nxErrorEnum.h"

#include <string>
#include <string_view>
#include <vector>

// Reads the rows of a CSV file as RFC 4180 has them: quoted columns with doubled quotes, separators and line
// breaks inside quotes, rows ended by CR LF, LF or CR, the last one with or without, an optional UTF-8
// byte-order mark. Column texts keep their blanks and bytes as they stand. Empty lines are no rows. Used by
// one thread at a time.
class NXCORE_API nxCSVFileReader {
public:
    // Tells where in the input a row stands.
    struct Row {
        nxCSVFileRow columns;
        unsigned int line = 0; // on which the row begins, counted from 1

        bool operator==(const Row&) const = default;
    };

    nxCSVFileReader() = default; // separator ',', no header row, no comments
    // With `hasHeaderRow` the first row is kept apart, as GetHeader; no later row takes the place of a first
    // one that is unusable. The callback stays the caller's and must outlive the reader and its copies; null
    // stands for the default one.
    nxCSVFileReader(char separator, bool hasHeaderRow, nxCSVFileReaderCallback* callback);

    // Reads the whole input in place of the rows held before. nxErrorEnum::InputNotUsable when the file
    // cannot be read, with the rows held before untouched, or when some row breaks the rules of quoting: such
    // rows stand in GetUnusableLines with the line on which they begin, and all others are there. Behind such
    // a row the reading goes on with its second line, whatever that may be.
    [[nodiscard]] nxErrorEnum ReadFile(const std::string& path);
    [[nodiscard]] nxErrorEnum ReadString(std::string_view text);

    const nxCSVFileRow& GetHeader() const { return _header; } // without columns unless hasHeaderRow
    const std::vector<Row>& GetRows() const { return _rows; }
    const std::vector<unsigned int>& GetUnusableLines() const { return _unusableLines; }

    // `text` made fit to stand as one column: in quotes, with its quotes doubled, where the reader would
    // otherwise split or misread it; else as it is. (A row of one empty column is an empty line, hence no
    // row.)
    static std::string GetAsCSVColumn(std::string_view text, char separator = ',');

private:
    char _separator = ',';
    bool _hasHeaderRow = false;
    nxCSVFileReaderCallback* _callback = nullptr;
    nxCSVFileRow _header;
    std::vector<Row> _rows;
    std::vector<unsigned int> _unusableLines;
};
