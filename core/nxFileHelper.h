// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"
#include "include/nxErrorEnum.h"

#include <string>
#include <string_view>

// Whole files, byte for byte. Paths are bytes as the operating system has them. On failure the result is
// nxErrorEnum::InputNotUsable or nxErrorEnum::OutputNotWritten, `problem` says why, for people, and nothing
// else is changed.
class NXCORE_API nxFileHelper {
public:
    nxFileHelper() = delete;

    [[nodiscard]] static nxErrorEnum Read(const std::string& path, std::string& contents,
                                          std::string& problem);

    // The file appears whole or not at all: it is written as a file without a name, flushed to the disk and
    // only then put in its place, so that a failure leaves a file that was there before as it was, and a
    // process that is killed leaves nothing. Its permissions, an access control list included, and a symbolic
    // link to it are kept; its owner and group where the process may set them. Else its set-user-id bit ends
    // with another owner, and all that its group might do with another group. Other extended attributes, hard
    // links and a link that leads nowhere are not kept. A file that may not be written is not replaced.
    //
    // While "a.xml" is replaced it is ".a.xml.nx-new" for a moment; what a killed process leaves there goes
    // with the next writing of "a.xml". Where the file system knows no files without a name, as in most
    // network folders, the file is written as ".nx-PROCESS-NUMBER.tmp", which stays when the process is
    // killed. Nothing ever reads such a file: it may be deleted.
    //
    // Written in place is what is no regular file (a pipe, a terminal), and a file that may be written, but
    // where no other may be put: its folder allows none, it is a mount of its own, or no other could have its
    // access list there. Such a file is cut off
    // when the writing fails halfway, and whoever reads it meanwhile sees a part.
    //
    // Signals are the process's own affair, as with any writing: SIGPIPE for a pipe that nobody reads any
    // more and SIGXFSZ beyond the size that files may have end it unless it ignores them. Then this fails.
    [[nodiscard]] static nxErrorEnum Write(const std::string& path, std::string_view contents,
                                           std::string& problem);
};
