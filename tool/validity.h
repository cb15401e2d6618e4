// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"
#include "tool/recordFile.h"

#include <string>
#include <vector>

namespace tool {
    // Whether a record is valid, and if not, which of its items is not, and why.
    struct Validity {
        nxErrorEnum result;
        std::vector<std::string> reasons; // for people; a spread's stand in the log
    };

    // Takes the record's own word, and looks at the periods of trading hours besides. `file.record` is there.
    Validity FindValidity(const RecordFile& file);

    // The items of a list without the key that it finds them by: written, they would keep every reader from
    // what stands behind them.
    std::vector<std::string> FindItemsWithoutKey(const RecordFile& file);
} // namespace tool
