// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// What saving does when the system refuses a call, and when the process dies before one. A program of its
// own: the library's calls come through here.

// With it, the C library has definitions of its own of some of these calls.
#undef _FORTIFY_SOURCE

#include "core/nxFileHelper.h"
#include "tests/support/nxInThreads.h"
#include "tests/support/nxPrint.h"
#include "tests/support/nxTempFolder.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdarg>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>

namespace {
    constexpr std::string_view AnyCall;
    constexpr int Death = 0; // of the process, in place of a problem

    struct Fault {
        std::string_view call;
        int number; // of the call, from 1 on
        int problem;
        bool lasts; // calls after that fail, too
    };
    struct System {
        std::optional<Fault> fault;
        int callCount = 0; // of those that may fail
        bool hasNamelessFiles = true;
        std::size_t mostWritten = SIZE_MAX; // at once
    } theSystem;

    // Whether it is the turn of this call, and then why.
    bool Fails(std::string_view call) {
        const auto& fault = theSystem.fault;
        if (!fault || (fault->call != AnyCall && fault->call != call))
            return false;
        const int number = ++theSystem.callCount;
        if (fault->lasts ? number < fault->number : number != fault->number)
            return false;
        if (fault->problem == Death)
            kill(getpid(), SIGKILL);
        errno = fault->problem;
        return true;
    }

    template <class Function, class... Arguments>
    auto Call(Function* /*type*/, const char* name, Arguments... arguments) {
        using Result = decltype(std::declval<Function>()(arguments...));
        if (Fails(name))
            return Result{-1};
        // NOLINTNEXTLINE(performance-no-int-to-ptr): as the C library has it
        return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name))(arguments...);
    }
} // namespace

#pragma GCC visibility push(default)
extern "C" {
int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    if ((flags & O_TMPFILE) == O_TMPFILE && !theSystem.hasNamelessFiles) {
        errno = EOPNOTSUPP;
        return -1;
    }
    return Call(&open, "open", path, flags, mode);
}
ssize_t read(int file, void* to, size_t size) {
    return Call(&read, "read", file, to, size);
}
ssize_t write(int file, const void* from, size_t size) {
    return Call(&write, "write", file, from, std::min(size, theSystem.mostWritten));
}
int close(int file) {
    return Call(&close, "close", file);
}
int fsync(int /*file*/) {
    return Fails("fsync") ? -1 : 0; // no test looks at the disk itself
}
int fchmod(int file, mode_t mode) noexcept {
    return Call(&fchmod, "fchmod", file, mode);
}
ssize_t getxattr(const char* path, const char* name, void* value, size_t size) noexcept {
    return Call(&getxattr, "getxattr", path, name, value, size);
}
int fchown(int file, uid_t owner, gid_t group) noexcept {
    return Call(&fchown, "fchown", file, owner, group);
}
int fsetxattr(int file, const char* name, const void* value, size_t size, int flags) noexcept {
    return Call(&fsetxattr, "fsetxattr", file, name, value, size, flags);
}
int fremovexattr(int file, const char* name) noexcept {
    return Call(&fremovexattr, "fremovexattr", file, name);
}
int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    return Call(&linkat, "linkat", fromFolder, from, toFolder, to, flags);
}
int rename(const char* from, const char* to) noexcept {
    return Call(&rename, "rename", from, to);
}
int unlink(const char* path) noexcept {
    return Call(&unlink, "unlink", path);
}
}
#pragma GCC visibility pop

namespace {
    const std::string Before = "what was there";
    const std::string After = "what comes after, in some more words than before";
    constexpr char LeftBehind[] = ".a.xml.nx-new"; // by a process that was killed
    constexpr int Problems[] = {EIO,   ENOSPC, EDQUOT, EROFS,  EACCES, EPERM,     EINTR,
                                EBUSY, EXDEV,  ENOENT, ENOMEM, EMFILE, EOPNOTSUPP};

    using Names = std::set<std::string>;

    class FileFailure : public testing::TestWithParam<bool> {
    protected:
        FileFailure() { theSystem = {}; }
        ~FileFailure() override { theSystem = {}; }

        void Start(bool isThere) {
            std::filesystem::remove(path);
            theSystem = {};
            Save(folder.PathOf(LeftBehind), Before);
            if (isThere)
                Save(path, Before);
        }
        static void Save(const std::string& to, const std::string& text) {
            std::string problem;
            ASSERT_EQ(nxFileHelper::Write(to, text, problem), nxErrorEnum::OK) << problem;
        }
        // The outcome, and how many calls there were that might have failed.
        std::pair<nxErrorEnum, int> Write(const Fault& fault, std::string& problem) const {
            theSystem = {fault, 0, GetParam(), 20};
            const nxErrorEnum result = nxFileHelper::Write(path, After, problem);
            const int callCount = theSystem.callCount;
            theSystem = {};
            return {result, callCount};
        }
        // "none" when there is no file.
        std::string Contents() const {
            std::string contents = "none";
            std::string problem;
            EXPECT_EQ(nxFileHelper::Read(path, contents, problem).IsOK(), std::filesystem::exists(path));
            return contents;
        }
        // Nothing but the file is there, and it only when it should be.
        void ExpectAlone(bool isThere = true) const {
            Names names;
            for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
                names.insert(entry.path().filename());
            EXPECT_EQ(names, isThere ? Names{"a.xml"} : Names());
        }
        // Files that have a name from the beginning stay.
        void ExpectNextWritingTidiesUp() const {
            Save(path, After);
            EXPECT_EQ(Contents(), After);
            if (GetParam())
                ExpectAlone();
        }
        // Runs it in a process of its own, and returns how that ended.
        template <class Run, class Meanwhile>
        static int InChild(const Run& run, const Meanwhile& meanwhile) {
            const pid_t child = fork();
            if (child == 0) {
                run();
                _exit(0);
            }
            meanwhile(child);
            int status = 0;
            EXPECT_EQ(waitpid(child, &status, 0), child);
            return status;
        }

        const nxTempFolder folder;
        const std::string path = folder.PathOf("a.xml");
    };
} // namespace

TEST_P(FileFailure, OfAnyCallLeavesTheOldFileOrTheNewOne) {
    int faultCount = 0;
    // False when there were not so many calls.
    const auto check = [&](const Fault& fault, bool isThere) {
        SCOPED_TRACE(testing::Message() << fault.call << " " << fault.number << ": " << fault.problem);
        Start(isThere);
        std::string problem;
        const auto [result, callCount] = Write(fault, problem);
        if (callCount < fault.number)
            return false;
        ++faultCount;
        const std::string old = isThere ? Before : "none";
        EXPECT_EQ(Contents(), result.IsOK() ? After : old);
        EXPECT_EQ(problem, result.IsOK() ? "" : std::generic_category().message(fault.problem));
        if (fault.problem == EINTR) {
            EXPECT_TRUE(result.IsOK());
        } else if (fault.call == "write" || fault.call == "fsync") { // which no other way mends
            EXPECT_FALSE(result.IsOK());
        }
        std::filesystem::remove(folder.PathOf(LeftBehind)); // where unlink failed, or all did
        ExpectAlone(result.IsOK() || isThere);
        return true;
    };
    const std::pair<const char*, bool> calls[] = {
        {"open", true},         {"write", true}, {"fsync", true},   {"fchmod", true},  {"getxattr", true},
        {"fremovexattr", true}, {"close", true}, {"linkat", false}, {"rename", false}, {"unlink", false}};
    for (const auto& [call, mayBeCutShort] : calls) {
        for (const int problem : Problems) {
            for (const bool lasts : {false, true}) {
                const bool isKnown = problem != EINTR || (!lasts && mayBeCutShort);
                for (const bool isThere : {false, true}) {
                    for (int number = 1; isKnown && check({call, number, problem, lasts}, isThere);)
                        ++number;
                }
            }
        }
    }
    RecordProperty("FailingCalls", faultCount);
}

TEST_P(FileFailure, ToReadLeavesTheContentsAlone) {
    Start(true);
    for (const std::string_view call : {"open", "read"}) {
        for (const int code : Problems) {
            theSystem = {Fault{call, 1, code, false}};
            std::string contents = "untouched";
            std::string problem;
            const bool isRead = nxFileHelper::Read(path, contents, problem).IsOK();
            EXPECT_EQ(isRead, code == EINTR) << call;
            EXPECT_EQ(contents, isRead ? Before : "untouched") << call;
        }
    }
}

TEST_P(FileFailure, ByDeathBeforeAnyCallLeavesAWholeFileAndTheNextWritingTidiesUp) {
    int deathCount = 0;
    for (bool isDead = true; isDead; ++deathCount) {
        SCOPED_TRACE(deathCount);
        Start(true);
        const auto write = [&] {
            std::string problem;
            Write({AnyCall, deathCount + 1, Death, false}, problem);
        };
        const int status = InChild(write, [](pid_t /*child*/) {});
        isDead = WIFSIGNALED(status);
        EXPECT_EQ(status, isDead ? SIGKILL : 0);
        const std::string contents = Contents();
        EXPECT_TRUE(contents == After || (isDead && contents == Before)) << contents;
        ExpectNextWritingTidiesUp();
    }
    EXPECT_GT(deathCount, 6);
    RecordProperty("Deaths", deathCount - 1);
}

TEST_P(FileFailure, ByDeathAtAnyMomentLeavesAWholeFileAndTheNextWritingTidiesUp) {
    constexpr int Kills = 200;
    std::mt19937 random(1);
    const std::string texts[] = {std::string(30'000, 'a'), std::string(50'000, 'b')};
    Save(path, texts[0]);
    for (int i = 0; i < Kills; ++i) {
        const auto saveOnAndOn = [&] {
            theSystem.hasNamelessFiles = GetParam();
            for (std::size_t next = 0;; next = 1 - next)
                Save(path, texts[next]);
        };
        const int status = InChild(saveOnAndOn, [&random](pid_t child) {
            std::this_thread::sleep_for(std::chrono::microseconds(500 + random() % 3000));
            kill(child, SIGKILL);
        });
        ASSERT_EQ(status, SIGKILL);
        const std::string contents = Contents();
        ASSERT_TRUE(contents == texts[0] || contents == texts[1]) << contents.size();
    }
    ExpectNextWritingTidiesUp();
}

TEST_P(FileFailure, IsNoneWhenManyWriteTheSameFile) {
    theSystem.hasNamelessFiles = GetParam();
    nxInThreads(4, 200, [this](int thread, int /*round*/) {
        Save(path, std::string(5000, static_cast<char>('a' + thread)));
    });
    const std::string contents = Contents();
    EXPECT_EQ(contents, std::string(5000, contents.front()));
    ExpectAlone();
}

INSTANTIATE_TEST_SUITE_P(disk, FileFailure, testing::Bool(), [](const auto& nameless) {
    return nameless.param ? "WithNamelessFiles" : "WithoutNamelessFiles";
});
