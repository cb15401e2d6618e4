// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxFileHelper.h"

#include "tests/support/nxFullDisk.h"
#include "tests/support/nxPrint.h"
#include "tests/support/nxTempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

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

TEST(nxFileHelperWrite, ThatFailsHalfwayLeavesTheFileOfBeforeAndNothingElse) {
    const nxTempFolder folder;
    const std::string path = folder.PathOf("a.xml");
    ExpectWritten(path, "before");
    {
        const nxFullDisk limit(1000);
        ExpectNotWritten(path, std::string(100'000, 'x'));
        ExpectNotWritten(folder.PathOf("new.xml"), std::string(100'000, 'x'));
    }
    EXPECT_EQ(Contents(path), "before");
    EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a.xml"});
}

TEST(nxFileHelperWrite, MakesAndReplacesFilesOfAnyBytesAndSize) {
    const nxTempFolder folder;
    const std::string path = folder.PathOf("a.xml");
    const mode_t before = umask(027);
    ExpectWritten(path, std::string(3'000'000, 'x'));
    umask(before);
    EXPECT_EQ(ModeOf(path), 0640U);
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
    for (const mode_t mode : {0600U, 0444U, 0666U}) { // as they stand, whatever the umask
        ASSERT_EQ(chmod(path.c_str(), mode), 0);
        ExpectWritten(folder.PathOf("b.xml"), "after");
        EXPECT_EQ(ModeOf(path), mode);
    }
    EXPECT_EQ(Contents(path), "after");
    EXPECT_TRUE(fs::is_symlink(folder.PathOf("links/a.xml")) && fs::is_symlink(folder.PathOf("b.xml")));
    EXPECT_EQ(NamesIn(folder.Path() / "links"), std::set<std::string>{"a.xml"});
}

TEST(nxFileHelperWrite, WritesDevicesInPlaceAndSaysWhatIsNoPlaceForAFile) {
    const nxTempFolder folder;
    for (const std::string& path :
         {std::string("/dev/full"), folder.PathOf("missing/a.xml"), folder.Path().native(), std::string()})
        ExpectNotWritten(path, "text");
    ExpectWritten("/dev/null", "");
    EXPECT_TRUE(fs::is_character_file("/dev/full") && fs::is_character_file("/dev/null"));
    EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>());
}

TEST(nxFileHelperRead, LeavesTheContentsUntouchedWhenThereAreNone) {
    const nxTempFolder folder;
    for (const std::string& path : {folder.PathOf("missing.xml"), folder.Path().native(), std::string()}) {
        std::string contents = "before";
        std::string problem;
        EXPECT_EQ(nxFileHelper::Read(path, contents, problem), nxErrorEnum::InputNotUsable) << path;
        EXPECT_EQ(contents, "before") << path;
        EXPECT_NE(problem, "") << path;
    }
}
