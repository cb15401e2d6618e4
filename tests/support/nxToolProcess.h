// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

using Arguments = std::vector<std::string>;

struct Outcome {
    int status; // -1: ended by a signal
    std::string out;
    std::string err;
};

// Runs the command `xmlframework`, or another, as a process in a folder of its own.
class nxTool : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = testing::TempDir() + "/nxtool.XXXXXX";
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        _folder = pattern;
    }
    void TearDown() override { std::filesystem::remove_all(_folder); }

    void _Write(const std::string& name, const std::string& contents) const {
        std::ofstream(_folder / name, std::ios::binary) << contents;
    }
    std::string _Read(const std::filesystem::path& name) const {
        std::ifstream file(_folder / name, std::ios::binary);
        EXPECT_TRUE(file) << name;
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // `largestFile`: the system refuses to let a file grow beyond.
    Outcome _Run(Arguments arguments, const std::string& in = "", rlim_t largestFile = RLIM_INFINITY) const {
        arguments.insert(arguments.begin(), NX_TOOL_PATH);
        return _RunProgram(std::move(arguments), in, largestFile);
    }
    // For programs that script(1) runs.
    bool _HasTerminals() const { return _RunProgram({"script", "-qec", "true", "/dev/null"}).status == 0; }
    // The first argument is the program; status 127 when there is none.
    Outcome _RunProgram(Arguments arguments, const std::string& in = "",
                        rlim_t largestFile = RLIM_INFINITY) const {
        _Write(".in", in);
        std::vector<char*> argv;
        std::ranges::transform(arguments, std::back_inserter(argv), [](auto& text) { return text.data(); });
        argv.push_back(nullptr);

        const pid_t child = ::fork();
        if (child == 0)
            _Become(argv, largestFile);
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, _Read(".out"), _Read(".err")};
    }

    // Runs a command that has nothing to say.
    void _RunQuietly(const Arguments& arguments) const {
        const Outcome outcome = _Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.out, "");
    }

    std::filesystem::path _folder;

private:
    [[noreturn]] void _Become(const std::vector<char*>& argv, rlim_t largestFile) const {
        const rlimit limit{largestFile, largestFile};
        const bool ready = ::chdir(_folder.c_str()) == 0 && _Redirect(".in", O_RDONLY, STDIN_FILENO) &&
                           _Redirect(".out", O_WRONLY | O_CREAT | O_TRUNC, STDOUT_FILENO) &&
                           _Redirect(".err", O_WRONLY | O_CREAT | O_TRUNC, STDERR_FILENO) &&
                           std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
        if (ready)
            ::execvp(argv.front(), argv.data());
        ::_exit(127);
    }
    static bool _Redirect(const char* path, int flags, int descriptor) {
        return ::dup2(::open(path, flags, 0600), descriptor) == descriptor;
    }
};
