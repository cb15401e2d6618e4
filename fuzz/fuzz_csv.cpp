// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// A CSV file. Its rows, written as a file, read back the same, and so do the register entries made of them.

#include "core/nxCSVFileReader.h"
#include "fuzz/nxFuzz.h"
#include "xmlFramework/market/nxMICDefinition.h"

#include <string>
#include <vector>

namespace {
    using nxFuzz::Require;
    using Rows = std::vector<nxCSVFileReader::Row>;

    bool AreEqual(const nxCSVFileRow& left, const nxCSVFileRow& right) {
        bool equal = left.GetColCount() == right.GetColCount();
        for (unsigned int i = 0; equal && i < left.GetColCount(); ++i)
            equal = left.GetColValue(i) == right.GetColValue(i);
        return equal;
    }

    // The columns with separators between them, as one line.
    std::string Joined(const nxCSVFileRow& columns) {
        std::string line = columns.GetColValue(0);
        for (unsigned int i = 1; i < columns.GetColCount(); ++i)
            line.append(",").append(columns.GetColValue(i));
        return line + "\r\n";
    }

    std::string FileOf(const Rows& rows) {
        std::string text;
        for (const nxCSVFileReader::Row& row : rows) {
            nxCSVFileRow quoted;
            for (unsigned int i = 0; i < row.columns.GetColCount(); ++i)
                quoted.AddColumn(nxCSVFileReader::GetAsCSVColumn(row.columns.GetColValue(i)));
            // One empty column alone would be an empty line, which is no row.
            text += row.columns.GetColCount() == 1 && row.columns.GetColValue(0).empty() ? "\"\"\n"
                                                                                         : Joined(quoted);
        }
        return text;
    }

    void CheckEntry(const nxCSVFileRow& columns) {
        nxMICDefinition definition;
        const bool taken = definition.ConvertFromCSV(columns).IsOK();
        Require(taken == (columns.GetColCount() == nxMICDefinition::CSVColumnCount));
        if (!taken)
            return;

        nxCSVFileRow written;
        Require(definition.ConvertToCSV(written).IsOK());
        nxCSVFileReader reader;
        Require(reader.ReadString(Joined(written)).IsOK() && reader.GetRows().size() == 1);
        nxMICDefinition again;
        Require(again.ConvertFromCSV(reader.GetRows().front().columns).IsOK());
        nxCSVFileRow rewritten;
        Require(again.ConvertToCSV(rewritten).IsOK() && AreEqual(written, rewritten));

        std::string changes;
        Require(again.UpdateFromCSV(columns, changes).IsOK());
        Require(again.ConvertToCSV(rewritten).IsOK() && AreEqual(written, rewritten));
    }
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    nxCSVFileReader reader;
    const nxErrorEnum result = reader.ReadString({reinterpret_cast<const char*>(data), size});
    Require(result.IsOK() == reader.GetUnusableLines().empty());

    nxCSVFileReader again;
    Require(again.ReadString(FileOf(reader.GetRows())).IsOK());
    Require(again.GetRows().size() == reader.GetRows().size());
    for (std::size_t i = 0; i < reader.GetRows().size(); ++i) {
        Require(AreEqual(again.GetRows()[i].columns, reader.GetRows()[i].columns));
        CheckEntry(reader.GetRows()[i].columns);
    }
    return 0;
}
