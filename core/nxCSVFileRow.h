// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"

#include <string>
#include <vector>

// One row of a CSV file: its column texts, in order.
class NXCORE_API nxCSVFileRow {
public:
    unsigned int GetColCount() const { return static_cast<unsigned int>(_columns.size()); }
    // The empty text for a column that the row does not have.
    std::string GetColValue(unsigned int index) const {
        return index < GetColCount() ? _columns[index] : std::string();
    }
    void AddColumn(const std::string& text) { _columns.push_back(text); }
    void Clear() { _columns.clear(); }

    bool operator==(const nxCSVFileRow&) const = default;

private:
    std::vector<std::string> _columns;
};
