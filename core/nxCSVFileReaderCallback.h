// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"

#include <string>

// Decides which lines of a CSV file are comments. This one says that none is, as RFC 4180 does.
class NXCORE_API nxCSVFileReaderCallback {
public:
    virtual ~nxCSVFileReaderCallback();

    // Asked for each line at which a row would begin, without its line end; true skips the line.
    virtual bool IsCommentRow(const std::string& line);
};
