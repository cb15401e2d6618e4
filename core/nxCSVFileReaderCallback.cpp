// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxCSVFileReaderCallback.h"

nxCSVFileReaderCallback::~nxCSVFileReaderCallback() = default;

bool nxCSVFileReaderCallback::IsCommentRow(const std::string& /*line*/) {
    return false;
}
