// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxLogManager.h"
#include "include/nxLog.h"

#include <concepts>

// Which statement logs, and how much it matters. `sourceFile` must outlive the record.
struct nxLogSite {
    // The line is the caller's; a builtin, since clang 14 has no std::source_location.
    nxLogSite(const nxLogLevelEnum& siteLevel, const char* siteSourceFile,
              unsigned int siteLine = __builtin_LINE())
        : level(siteLevel), sourceFile(siteSourceFile), line(siteLine) {}

    nxLogLevelEnum level;
    const char* sourceFile;
    unsigned int line;
};

// Logs one record made of `pieces`, in order. A piece is anything that nxLog streams, or a function without
// arguments that returns such a thing: it is called only when the level is wanted.
template <class... Pieces>
void nxWriteLog(const nxLogSite& site, const Pieces&... pieces) {
    if (!nxLogManager::ShouldLog(site.level))
        return;

    nxLog log(site.level, site.sourceFile, site.line);
    const auto stream = [&log](const auto& piece) {
        if constexpr (std::invocable<decltype(piece)>)
            log << piece();
        else
            log << piece;
    };
    (stream(pieces), ...);
    log << nxLog::nxLogTerminator();
}
