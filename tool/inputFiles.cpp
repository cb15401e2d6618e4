// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/inputFiles.h"

#include "tool/printable.h"
#include "tool/recordFile.h"
#include "tool/standardStreams.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <utility>

namespace {
    using namespace tool;

    // Adds what is in a folder, subfolders to those that wait for the same.
    void ListFolder(const std::filesystem::path& folder, std::vector<std::filesystem::path>& waiting,
                    InputFiles& found) {
        std::error_code error;
        std::filesystem::directory_iterator entry(folder, error);
        for (; !error && entry != end(entry); entry.increment(error)) {
            std::error_code ignored; // a link that leads nowhere is a file that cannot be read
            const bool isFolder = entry->is_directory(ignored);
            if (isFolder && !entry->is_symlink(ignored))
                waiting.push_back(entry->path());
            if (!isFolder && entry->path().extension() == ".xml")
                found.paths.push_back(entry->path().string());
        }
        if (error)
            found.problems.push_back(Printable(folder.string()) + ": " + error.message());
    }

    void AddFolder(const std::string& folder, InputFiles& files) {
        InputFiles found;
        for (std::vector<std::filesystem::path> waiting{folder}; !waiting.empty();) {
            const std::filesystem::path next = std::move(waiting.back());
            waiting.pop_back();
            ListFolder(next, waiting, found);
        }
        if (found.paths.empty() && found.problems.empty())
            found.problems.push_back(Printable(folder) + ": there is no *.xml in this folder");
        std::ranges::sort(found.paths);
        std::ranges::sort(found.problems);
        std::ranges::move(found.paths, std::back_inserter(files.paths));
        std::ranges::move(found.problems, std::back_inserter(files.problems));
    }

    void Add(const std::string& path, InputFiles& files) {
        std::error_code ignored;
        if (std::filesystem::is_directory(path, ignored))
            AddFolder(path, files);
        else if (path == StandardStream && std::ranges::find(files.paths, path) != files.paths.end())
            files.problems.push_back(DisplayName(path) + ": " + NamedTwice); // whichever is read first
        else
            files.paths.push_back(path);
    }

    void AddList(const std::string& list, InputFiles& files) {
        std::string text;
        std::string problem;
        if (!ReadInput(list, text, problem).IsOK()) {
            files.problems.push_back(DisplayName(list) + ": " + problem);
            return;
        }
        bool isEmpty = true;
        for (std::string_view rest = text; !rest.empty();) {
            const std::string_view line = rest.substr(0, rest.find('\n'));
            rest.remove_prefix(std::min(rest.size(), line.size() + 1));
            const std::string_view path = line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
            if (path.empty())
                continue;
            Add(std::string(path), files);
            isEmpty = false;
        }
        if (isEmpty)
            files.problems.push_back(DisplayName(list) + ": there is no path in this list");
    }
} // namespace

InputFiles tool::FindInputFiles(const std::vector<std::string>& arguments) {
    InputFiles files;
    for (const std::string& argument : arguments) {
        if (argument.starts_with('@'))
            AddList(argument.substr(1), files);
        else
            Add(argument, files);
    }
    return files;
}
