// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"

#include <iosfwd>
#include <string>
#include <string_view>

namespace tool {
    // In place of a file name: standard input, or standard output.
    inline constexpr std::string_view StandardStream = "-";

    // What is wrong with a second one.
    inline constexpr char NamedTwice[] = "standard input is named twice, and can be read only once";

    // All of standard input. nxErrorEnum::InputNotUsable, with `problem` for people, when it cannot be read
    // to its end, or has been read already.
    nxErrorEnum ReadStandardInput(std::string& contents, std::string& problem);

    // Whether standard input is the file of that name, as in `<mics.xml`; false for what is no regular file.
    bool IsStandardInput(const std::string& path);

    // The stream that an output of that name is: "-" and "/dev/stdout" are standard output, for one. Null
    // when it is a file. Put in the place of what the system has under such a name, a new file would take
    // away what was written before.
    std::ostream* FindOutputStream(std::string_view path);
    bool IsStandardOutput(std::string_view path);
} // namespace tool
