// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxFileHelper.h"

#include "tests/support/nxPrint.h"
#include "tests/support/nxTempFolder.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <set>

namespace fs = std::filesystem;

namespace {
    std::string Contents(const std::string& path) {
        std::string contents;
        std::string problem;
        EXPECT_EQ(nxFileHelper::Read(path, contents, problem), nxErrorEnum::OK) << problem;
        return contents;
    }

    void ExpectWritten(const std::string& path, const std::string& contents) {
        std::string problem;
        EXPECT_EQ(nxFileHelper::Write(path, contents, problem), nxErrorEnum::OK) << problem;
        EXPECT_EQ(Contents(path), contents);
    }

    void ExpectNotWritten(const std::string& path, const std::string& contents) {
        std::string problem;
        EXPECT_EQ(nxFileHelper::Write(path, contents, problem), nxErrorEnum::OutputNotWritten) << path;
        EXPECT_NE(problem, "");
    }

    std::set<std::string> NamesIn(const fs::path& folder) {
        std::set<std::string> names;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder))
            names.insert(entry.path().filename());
        return names;
    }

    mode_t ModeOf(const std::string& path) {
        return static_cast<mode_t>(fs::status(path).permissions());
    }
} // namespace

TEST(nxFileHelperWrite, MakesAndReplacesFilesOfAnyBytesAndSize) {
    const nxTempFolder folder;
    const std::string path = folder.PathOf("a.xml");
    const mode_t before = umask(027);
    ExpectWritten(path, std::string(3'000'000, 'x'));
    umask(before);
    EXPECT_EQ(ModeOf(path), 0640U);
    ExpectWritten(path, std::string((1U << 16U) + 1, 'x')); // one byte more than is read at once
    ExpectWritten(path, std::string("\0\r\n\xFF", 4));
    ExpectWritten(path, "");
    EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a.xml"});
}

TEST(nxFileHelperWrite, KeepsTheSymbolicLinksAndPermissionsOfTheFile) {
    const nxTempFolder folder;
    const std::string path = folder.PathOf("real.xml");
    fs::create_directory(folder.Path() / "links");
    fs::create_symlink("../real.xml", folder.PathOf("links/a.xml"));
    fs::create_symlink("links/a.xml", folder.PathOf("b.xml"));
    ExpectWritten(path, "before");
    for (const mode_t mode : {0600U, 0666U, 07644U}) { // as they stand, whatever the umask
        ASSERT_EQ(chmod(path.c_str(), mode), 0);
        ExpectWritten(folder.PathOf("b.xml"), "after");
        EXPECT_EQ(ModeOf(path), mode);
    }
    EXPECT_EQ(Contents(path), "after");
    EXPECT_TRUE(fs::is_symlink(folder.PathOf("links/a.xml")) && fs::is_symlink(folder.PathOf("b.xml")));
    EXPECT_EQ(NamesIn(folder.Path() / "links"), std::set<std::string>{"a.xml"});
}

namespace {
    // An access control list as the system keeps it: a user besides the owner, and whatever the mask leaves
    // him.
    std::string AccessListWithUser(unsigned char rights) {
        const struct {
            std::uint16_t kind;
            std::uint16_t rights;
            std::uint32_t id;
        } entries[] = {{1, 6, ~0U}, {2, rights, 1234}, {4, 0, ~0U}, {16, rights, ~0U}, {32, 0, ~0U}};
        const std::uint32_t version = 2;
        std::string list(reinterpret_cast<const char*>(&version), sizeof version);
        return list.append(reinterpret_cast<const char*>(entries), sizeof entries);
    }
    bool SetList(const fs::path& path, const char* kind, const std::string& list) {
        return setxattr(path.c_str(), kind, list.data(), list.size(), 0) == 0;
    }
    std::string AccessListOf(const std::string& path) {
        std::string list(1000, ' ');
        const ssize_t size = getxattr(path.c_str(), "system.posix_acl_access", list.data(), list.size());
        return list.substr(0, static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    }
} // namespace

TEST(nxFileHelperWrite, OpensTheFileToNobodyElse) {
    const nxTempFolder folder;
    const std::string path = folder.PathOf("a.xml");
    ExpectWritten(path, "before");
    if (!SetList(path, "system.posix_acl_access", AccessListWithUser(6)))
        GTEST_SKIP() << "no access control lists here";
    ExpectWritten(path, "after");
    EXPECT_EQ(AccessListOf(path), AccessListWithUser(6));
    EXPECT_EQ(ModeOf(path), 0660U); // with a list, the group's place tells the mask

    if (!SetList(folder.Path(), "system.posix_acl_default", AccessListWithUser(4))) // for new files
        GTEST_SKIP() << "no access control lists of folders here";
    const std::string plain = folder.PathOf("b.xml");
    ExpectWritten(plain, "before");
    EXPECT_NE(AccessListOf(plain), "");
    ASSERT_EQ(removexattr(plain.c_str(), "system.posix_acl_access"), 0);
    ASSERT_EQ(chmod(plain.c_str(), 0640), 0);
    ExpectWritten(plain, "after");
    EXPECT_EQ(AccessListOf(plain), "");
    EXPECT_EQ(ModeOf(plain), 0640U);
}

TEST(nxFileHelperWrite, LeavesTheFileToItsOwnerAndGroup) {
    const nxTempFolder folder;
    const std::string path = folder.PathOf("a.xml");
    ExpectWritten(path, "before");
    if (chown(path.c_str(), 1234, 1235) != 0 || chmod(path.c_str(), 06640) != 0 ||
        access(path.c_str(), W_OK) != 0)
        GTEST_SKIP() << "no file of somebody else can be made and written here";
    ExpectWritten(path, "after");
    struct stat status = {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 1234U);
    EXPECT_EQ(status.st_gid, 1235U);
    EXPECT_EQ(status.st_mode & 07777U, 06640U);
}

// In a process of its own, since it gives up rights.
TEST(nxFileHelperWrite, WritesAFileInPlaceWhereNoOtherMayBePutAndNoneThatIsProtected) {
    const nxTempFolder folder;
    fs::permissions(folder.Path(), fs::perms{0755});
    const std::string path = folder.PathOf("closed/a.xml");
    const std::string protectedPath = folder.PathOf("closed/b.xml");
    fs::create_directory(folder.PathOf("closed"));
    for (const auto& [file, mode] : {std::pair(path, 0666U), std::pair(protectedPath, 0444U)}) {
        ExpectWritten(file, "longer than what comes after");
        ASSERT_EQ(chmod(file.c_str(), mode), 0);
    }
    fs::permissions(folder.PathOf("closed"), fs::perms{0555});
    const std::string protectedInOpen = folder.PathOf("open/c.xml");
    fs::create_directory(folder.PathOf("open"));
    fs::permissions(folder.PathOf("open"), fs::perms{0777});
    ExpectWritten(protectedInOpen, "before");
    ASSERT_EQ(chmod(protectedInOpen.c_str(), 0444), 0);
    const std::string ofOthers = folder.PathOf("open/d.xml");
    ExpectWritten(ofOthers, "before");
    ASSERT_EQ(chmod(ofOthers.c_str(), 06676), 0);
    constexpr int NotGranted = 77;
    const auto write = [&] {
        constexpr unsigned int Nobody = 65534;
        if (geteuid() == 0 && (setgroups(0, nullptr) != 0 || setgid(Nobody) != 0 || setuid(Nobody) != 0))
            _exit(NotGranted);
        ExpectWritten(path, "after");
        ExpectNotWritten(protectedPath, "after");
        ExpectNotWritten(protectedInOpen, "after");
        ExpectWritten(ofOthers, "after");
        ExpectNotWritten(folder.PathOf("closed/new.xml"), "after");
        _exit(testing::Test::HasFailure() ? 1 : 0);
    };
    int status = 0;
    EXPECT_EXIT(
        write(),
        [&status](int ended) {
            status = ended;
            return WIFEXITED(ended) && (WEXITSTATUS(ended) == 0 || WEXITSTATUS(ended) == NotGranted);
        },
        "");
    if (status != 0) {
        fs::permissions(folder.PathOf("closed"), fs::perms{0755});
        GTEST_SKIP() << "rights cannot be given up here";
    }
    EXPECT_EQ(Contents(path), "after");
    EXPECT_EQ(ModeOf(ofOthers), geteuid() == 0 ? 0606U : 06676U); // with another group, nothing for that
    EXPECT_EQ(Contents(protectedPath), "longer than what comes after");
    EXPECT_EQ(Contents(protectedInOpen), "before");
    EXPECT_EQ(NamesIn(folder.PathOf("closed")), (std::set<std::string>{"a.xml", "b.xml"}));
    fs::permissions(folder.PathOf("closed"), fs::perms{0755});
}

// In a process with mounts of its own, where the system grants that.
TEST(nxFileHelperWrite, WritesAFileInPlaceThatIsAMount) {
    const nxTempFolder folder;
    const std::string source = folder.PathOf("source.xml");
    const std::string path = folder.PathOf("mount.xml");
    ExpectWritten(source, "longer than what comes after");
    ExpectWritten(path, "behind the mount");
    constexpr int NotGranted = 77;
    const auto write = [&] {
        const int rights = geteuid() == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER;
        if (unshare(rights) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount(source.c_str(), path.c_str(), nullptr, MS_BIND, nullptr) != 0)
            _exit(NotGranted);
        ExpectWritten(path, "after");
        _exit(testing::Test::HasFailure() ? 1 : 0);
    };
    const pid_t child = fork();
    if (child == 0)
        write();
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    if (WIFEXITED(status) && WEXITSTATUS(status) == NotGranted)
        GTEST_SKIP() << "no mounts of its own for a process here";
    EXPECT_EQ(status, 0);
    EXPECT_EQ(Contents(source), "after");
    EXPECT_EQ(Contents(path), "behind the mount");
    EXPECT_EQ(NamesIn(folder.Path()), (std::set<std::string>{"mount.xml", "source.xml"}));
}

TEST(nxFileHelperWrite, WritesDevicesInPlaceAndSaysWhatIsNoPlaceForAFile) {
    const nxTempFolder folder;
    for (const std::string& path :
         {std::string("/dev/full"), folder.PathOf("missing/a.xml"), folder.Path().native(), std::string(),
          folder.PathOf("a.xml") + '\0'}) // a NUL that would cut off the path
        ExpectNotWritten(path, "text");
    ExpectWritten("/dev/null", "");
    EXPECT_TRUE(fs::is_character_file("/dev/full") && fs::is_character_file("/dev/null"));
    EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>());
}

TEST(nxFileHelperRead, LeavesTheContentsUntouchedWhenThereAreNone) {
    const nxTempFolder folder;
    const std::string present = folder.PathOf("a.xml");
    ExpectWritten(present, "contents");
    for (const std::string& path : {folder.PathOf("missing.xml"), folder.Path().native(), std::string(),
                                    present + '\0', present + std::string("\0.xml", 5)}) {
        std::string contents = "before";
        std::string problem;
        EXPECT_EQ(nxFileHelper::Read(path, contents, problem), nxErrorEnum::InputNotUsable) << path;
        EXPECT_EQ(contents, "before") << path;
        EXPECT_NE(problem, "") << path;
    }
}
