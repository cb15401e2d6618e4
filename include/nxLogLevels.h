// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxLogLevelEnum.h"

// The levels by name, for logging statements. Each source file that includes this holds its own eight
// constants.
namespace nxLogLevels {
    constexpr nxLogLevelEnum Trace(nxLogLevelEnum::Trace);
    constexpr nxLogLevelEnum Debug(nxLogLevelEnum::Debug);
    constexpr nxLogLevelEnum Detail(nxLogLevelEnum::Detail);
    constexpr nxLogLevelEnum Info(nxLogLevelEnum::Info);
    constexpr nxLogLevelEnum Notice(nxLogLevelEnum::Notice);
    constexpr nxLogLevelEnum Warning(nxLogLevelEnum::Warning);
    constexpr nxLogLevelEnum Error(nxLogLevelEnum::Error);
    constexpr nxLogLevelEnum Fatal(nxLogLevelEnum::Fatal);
} // namespace nxLogLevels
