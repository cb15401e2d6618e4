// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"
#include "tool/collectedLog.h"
#include "tool/color.h"
#include "tool/recordKinds.h"
#include "tool/standardStreams.h"
#include "xmlFramework/xml/nxXMLReport.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tool {
    // What messages call a file: "<stdin>" for standard input, and two quotes for no name at all.
    std::string DisplayName(const std::string& path);

    // The whole file. nxErrorEnum::InputNotUsable, with `problem` for people, when it cannot be read.
    nxErrorEnum ReadInput(const std::string& path, std::string& contents, std::string& problem);

    // Puts the whole text to the file, which appears whole or not at all, or to a standard stream. False,
    // said on standard error, when that cannot be done.
    bool WriteOutput(const std::string& path, std::string_view contents);

    // A record from a file.
    struct RecordFile {
        nxErrorEnum result;
        std::string problem;              // what neither log nor findings say of it; may be empty
        const RecordKind* kind = nullptr; // these two are there when the result is OK
        std::unique_ptr<Record> record;
        std::string contents;
        std::vector<nxXMLFinding> findings; // those of a text that is no document stand here, not in the log
        LogLines log;                       // what was logged while it was read
    };
    // `kind` null: the one that the root element tells.
    RecordFile ReadRecord(const std::string& path, const RecordKind* kind = nullptr);

    // Whether an item of the document is not in the record.
    bool IsLeftOut(const nxXMLFinding& finding);

    // "mics.xml: FAILED 1000002 Invalid data", and the problem in a line of its own where it is known.
    std::string FailureLines(const std::string& path, const nxErrorEnum& result, const std::string& problem,
                             Stream stream = Stream::Error);

    // For commands that work on one record: reads it and says on standard error what there is to say. The
    // record is null when it cannot be read.
    RecordFile ReadRecordOrComplain(const std::string& path);
} // namespace tool
