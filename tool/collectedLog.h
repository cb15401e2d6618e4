// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxLogLevelEnum.h"

#include <string>

namespace tool {
    // From now on, log records of this level and above are kept for TakeLogLines and written nowhere else.
    void CollectLog(const nxLogLevelEnum& threshold);

    // The records since the last call, for people: indented lines "level: text", each with its line end. Very
    // long texts are cut, which the line says.
    std::string TakeLogLines();
} // namespace tool
