// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <cerrno>
#include <cstdlib> // mkdtemp
#include <filesystem>
#include <string>
#include <system_error>

// An empty folder of a test's own, gone with everything in it when the test is over.
class nxTempFolder {
public:
    nxTempFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "nxtest-XXXXXX").native();
        if (!mkdtemp(name.data()))
            throw std::system_error(errno, std::generic_category(), name);
        _path = name;
    }
    ~nxTempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(_path, ignored);
    }
    nxTempFolder(const nxTempFolder&) = delete;
    nxTempFolder& operator=(const nxTempFolder&) = delete;

    const std::filesystem::path& Path() const { return _path; }
    std::string PathOf(const std::string& name) const { return (_path / name).native(); }

private:
    std::filesystem::path _path;
};
