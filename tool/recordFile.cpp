// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/recordFile.h"

#include "core/nxFileHelper.h"
#include "core/nxStringHelper.h"
#include "tool/collectedLog.h"
#include "tool/printable.h"
#include "tool/terminal.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <filesystem>
#include <iostream>
#include <iterator>
#include <system_error>

namespace {
    using namespace tool;

    // A file is loaded by its name, so that the parser's messages have it. What can be read but once (a pipe,
    // standard input) is loaded from what was read.
    nxErrorEnum Load(nxXMLDocument& document, const std::string& path, const std::string& contents) {
        std::error_code ignored;
        const bool isFile = path != StandardStream && std::filesystem::is_regular_file(path, ignored);
        return isFile ? document.LoadFromFile(path) : document.LoadFromString(contents);
    }

    nxErrorEnum ReadRoot(const std::string& path, const std::string& contents, std::string& root) {
        nxXMLDocument document;
        const nxErrorEnum result = Load(document, path, contents);
        root = document.GetRootElement().GetName();
        return result;
    }

    RecordFile Failure(const nxErrorEnum& result, const std::string& problem) {
        return {result, problem, nullptr, nullptr};
    }
} // namespace

nxErrorEnum tool::ReadInput(const std::string& path, std::string& contents, std::string& problem) {
    if (path != StandardStream)
        return nxFileHelper::Read(path, contents, problem);
    contents.assign(std::istreambuf_iterator<char>(std::cin), {});
    return nxErrorEnum::OK;
}

bool tool::WriteOutput(const std::string& path, std::string_view contents) {
    if (path == StandardStream) {
        std::cout << contents;
        if (OutputWidth() > 0 && !contents.ends_with('\n'))
            std::cout << '\n';
        return true; // main looks at the stream's state
    }

    std::string problem;
    if (nxFileHelper::Write(path, contents, problem).IsOK())
        return true;
    std::cerr << "xmlframework: cannot write " << Printable(path) << ": " << problem << '\n';
    return false;
}

RecordFile tool::ReadRecord(const std::string& path, const RecordKind* kind) {
    std::string contents;
    std::string text;
    nxErrorEnum result = ReadInput(path, contents, text);
    if (!result.IsOK())
        return Failure(result, text);
    result = ReadRoot(path, contents, text);
    if (!result.IsOK())
        return Failure(result, {});
    if (!kind)
        kind = FindKindByRoot(text);
    if (!kind)
        return Failure(nxErrorEnum::InvalidData, "no record has the root element \"" + text + "\"");

    auto record = kind->make();
    result = record->ConvertFromXML(contents);
    if (!result.IsOK())
        return Failure(result, {});
    return {result, {}, kind, std::move(record)};
}

std::string tool::FailureLines(const std::string& path, const nxErrorEnum& result,
                               const std::string& problem) {
    std::string lines = Printable(path) + ": FAILED " + nxStringHelper::GetAsString(result.GetEnumValue()) +
                        " " + result.GetShortDescription() + "\n";
    if (!problem.empty())
        lines += "  " + Printable(problem) + "\n";
    return lines + TakeLogLines();
}

RecordFile tool::ReadRecordOrComplain(const std::string& path) {
    RecordFile file = ReadRecord(path);
    if (!file.result.IsOK())
        std::cerr << FailureLines(path, file.result, file.problem);
    else if (const std::string log = TakeLogLines(); !log.empty())
        std::cerr << Printable(path) << ":\n" << log;
    return file;
}
