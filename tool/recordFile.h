// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"
#include "tool/recordKinds.h"

#include <memory>
#include <string>
#include <string_view>

namespace tool {
    // In place of a file name: standard input, or standard output.
    inline constexpr std::string_view StandardStream = "-";

    // The whole file. nxErrorEnum::InputNotUsable, with `problem` for people, when it cannot be read.
    nxErrorEnum ReadInput(const std::string& path, std::string& contents, std::string& problem);

    // Puts the whole text to the file, which appears whole or not at all, or to standard output. False, said
    // on standard error, when that cannot be done.
    bool WriteOutput(const std::string& path, std::string_view contents);

    // A record from a file. What the library has to say goes to the log.
    struct RecordFile {
        nxErrorEnum result;
        std::string problem;              // what the log does not say of it; may be empty
        const RecordKind* kind = nullptr; // these two are there when the result is OK
        std::unique_ptr<Record> record;
    };
    // `kind` null: the one that the root element tells.
    RecordFile ReadRecord(const std::string& path, const RecordKind* kind = nullptr);

    // What there is to say of a file, in lines: "mics.xml: FAILED 1000002 Invalid data", the problem where it
    // is known, and the log lines since the last time.
    std::string FailureLines(const std::string& path, const nxErrorEnum& result, const std::string& problem);

    // For commands that work on one record: reads it and says on standard error what there is to say. The
    // record is null when it cannot be read.
    RecordFile ReadRecordOrComplain(const std::string& path);
} // namespace tool
