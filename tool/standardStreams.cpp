// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/standardStreams.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <iostream>
#include <mutex>
#include <system_error>
#include <utility>

namespace {
    // Zero, or the number of what went wrong. Not by the name of a file: a socket has none that can be
    // opened.
    int ReadToEnd(int descriptor, std::string& contents) {
        std::array<char, 1U << 16U> buffer;
        for (;;) {
            const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
            if (count > 0)
                contents.append(buffer.data(), static_cast<std::size_t>(count));
            else if (count == 0)
                return 0;
            else if (errno != EINTR)
                return errno;
        }
    }
} // namespace

nxErrorEnum tool::ReadStandardInput(std::string& contents, std::string& problem) {
    static std::mutex mutex;
    static bool isRead = false;
    const std::lock_guard guard(mutex);
    if (std::exchange(isRead, true)) {
        problem = NamedTwice;
        return nxErrorEnum::InputNotUsable;
    }
    std::string read;
    if (const int error = ReadToEnd(STDIN_FILENO, read); error != 0) {
        problem = std::generic_category().message(error);
        return nxErrorEnum::InputNotUsable;
    }
    contents = std::move(read);
    return nxErrorEnum::OK;
}

bool tool::IsStandardInput(const std::string& path) {
    struct stat input = {};
    struct stat file = {};
    return ::fstat(STDIN_FILENO, &input) == 0 && ::stat(path.c_str(), &file) == 0 && S_ISREG(input.st_mode) &&
           input.st_dev == file.st_dev && input.st_ino == file.st_ino;
}

std::ostream* tool::FindOutputStream(std::string_view path) {
    const std::pair<std::string_view, std::ostream*> names[] = {
        {StandardStream, &std::cout},    {"/dev/stdout", &std::cout}, {"/dev/fd/1", &std::cout},
        {"/proc/self/fd/1", &std::cout}, {"/dev/stderr", &std::cerr}, {"/dev/fd/2", &std::cerr},
        {"/proc/self/fd/2", &std::cerr},
    };
    const auto* const found =
        std::ranges::find(names, path, &std::pair<std::string_view, std::ostream*>::first);
    return found == std::end(names) ? nullptr : found->second;
}

bool tool::IsStandardOutput(std::string_view path) {
    return FindOutputStream(path) == &std::cout;
}
