// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxErrorEnum.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

namespace {
    // "| 1000002 | `INVALID_DATA` |", as a row of the page's table begins.
    std::string RowBegin(const nxEnumRow& row) {
        return "| " + std::to_string(row.value) + " | `" + std::string(row.name) + "` |";
    }

    std::vector<std::string> RowBeginsOfPage() {
        std::vector<std::string> begins;
        std::ifstream page(NX_SOURCE_DIR "/docs/errors.md");
        for (std::string line; std::getline(page, line);) {
            const bool isRow = line.size() > 2 && line[2] >= '0' && line[2] <= '9' && line.starts_with("| ");
            if (isRow)
                begins.push_back(line.substr(0, line.find('|', line.find('|', 1) + 1) + 1));
        }
        return begins;
    }
} // namespace

TEST(nxErrorEnumPage, HasARowForEachCodeInOrder) {
    std::vector<std::string> expected;
    for (const nxEnumRow& row : nxErrorEnum::Rows()) {
        if (row.value != nxErrorEnum::NoChangeValue) // no operation returns it
            expected.push_back(RowBegin(row));
    }
    EXPECT_EQ(RowBeginsOfPage(), expected);
}
