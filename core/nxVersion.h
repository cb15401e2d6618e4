// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"

// The version of the two libraries and the tool, which are released as one: see docs/building.md for what a
// change of each number means. It stands here and nowhere else; the build reads these three lines.
#define XMLFRAMEWORK_VERSION_MAJOR 1
#define XMLFRAMEWORK_VERSION_MINOR 0
#define XMLFRAMEWORK_VERSION_PATCH 0

// One number that grows with the version, for the preprocessor: 10203 is 1.2.3.
#define XMLFRAMEWORK_VERSION                                                                                 \
    (XMLFRAMEWORK_VERSION_MAJOR * 10000 + XMLFRAMEWORK_VERSION_MINOR * 100 + XMLFRAMEWORK_VERSION_PATCH)

namespace nxVersion {
    // What the program was compiled against.
    inline constexpr unsigned int Compiled = XMLFRAMEWORK_VERSION;

    // What is loaded now, which may be later: as a number like XMLFRAMEWORK_VERSION, and as "1.0.0".
    NXCORE_API unsigned int GetLoaded();
    NXCORE_API const char* GetLoadedText();
} // namespace nxVersion
