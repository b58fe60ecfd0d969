#include "core/profile/AtomicFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <set>

#include "tests/core/profile/TemporaryFolder.h"

namespace {

struct stat StatusOf(const std::string& path) {
    struct stat status = {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return status;
}

mode_t ModeOf(const std::string& path) { return StatusOf(path).st_mode & 07777; }

}  // namespace

TEST(AtomicFileTest, ReplacesTheContentsAndLeavesNothingBeside) {
    const TemporaryFolder folder;
    const std::string longest(255, 'n');
    const auto path = folder.Write(longest, "old and much longer");
    const std::string contents("new\r\n\0\xFF", 7);
    EXPECT_TRUE(ReplaceFile(path, contents));
    EXPECT_EQ(folder.Read(longest), contents);
    EXPECT_EQ(folder.FileCount(), 1);
}

TEST(AtomicFileTest, KeepsTheModeAndTheOwnerAndGivesANewFileTheOrdinaryOne) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a.ini", "old");
    const bool given = chown(path.c_str(), 1234, 5678) == 0;  // as the administrator
    for (const mode_t mode : {0600U, 0640U, 0666U, 0755U}) {
        ASSERT_EQ(chmod(path.c_str(), mode), 0);
        EXPECT_TRUE(ReplaceFile(path, "new"));
        EXPECT_EQ(ModeOf(path), mode);
    }
    EXPECT_TRUE(!given || (StatusOf(path).st_uid == 1234 && StatusOf(path).st_gid == 5678));
    const mode_t umaskBefore = umask(027);
    EXPECT_TRUE(ReplaceFile(folder.Path("b.ini"), "first"));
    umask(umaskBefore);
    EXPECT_EQ(ModeOf(folder.Path("b.ini")), 0640);
    EXPECT_EQ(folder.Read("b.ini"), "first");
}

TEST(AtomicFileTest, WritesTheFileBehindALinkOfLinks) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path("real"));
    folder.Write("real/a.ini", "old");
    std::filesystem::create_symlink("a.ini", folder.Path("real/inner"));
    std::filesystem::create_symlink("real/inner", folder.Path("outer"));
    EXPECT_TRUE(ReplaceFile(folder.Path("outer"), "new"));
    EXPECT_EQ(folder.Read("real/a.ini"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("outer")));
}

TEST(AtomicFileTest, NobodyCanForeseeWhereAFileIsWritten) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a.ini", "old");
    const auto victim = folder.Write("victim", "the player's own");
    // Once the names were made of the process and a number.
    const std::string planted = ".tolvane-new-" + std::to_string(getpid()) + "-0";
    std::filesystem::create_symlink(victim, folder.Path(planted));
    std::set<std::string> names;
    for (int i = 0; i < 3; ++i) {
        FileReplacement file(path);
        EXPECT_TRUE(file.Write("new") && file.Write("er"));
        EXPECT_EQ(folder.Read("a.ini"), i == 0 ? "old" : "newer");
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
            const std::string name = entry.path().filename().string();
            if (name != planted && name.starts_with(".")) names.insert(name);
        }
        EXPECT_TRUE(file.Commit());
    }
    ASSERT_EQ(names.size(), 3U);
    for (const auto& name : names) {
        EXPECT_EQ(name.find_first_not_of("0123456789abcdef", 13), std::string::npos) << name;
        EXPECT_EQ(name.size(), 13U + 128 / 4) << name;
    }
    EXPECT_EQ(folder.Read("victim"), "the player's own");

    { FileReplacement(path).Write("given up"); }
    EXPECT_EQ(folder.Read("a.ini"), "newer");
    EXPECT_EQ(folder.FileCount(), 3);
}

TEST(AtomicFileTest, WhatAKilledProgramLeftIsLaterCleared) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a.ini", "old");
    for (const auto* name : {".tolvane-new-0123456789abcdef0123456789abcdef", ".tolvane-new-71-0",
                             ".tolvane-new-game", ".tolvane-new-cafe"}) {
        folder.Write(name, "half");
    }
    EXPECT_TRUE(ReplaceFile(path, "new"));
    EXPECT_EQ(folder.FileCount(), 5) << "perhaps they are being written";
    folder.MakeOld();
    EXPECT_TRUE(ReplaceFile(path, "newer"));
    EXPECT_EQ(folder.Read("a.ini"), "newer");
    EXPECT_EQ(folder.Read(".tolvane-new-cafe"), "half") << "the player's own";
    EXPECT_EQ(folder.FileCount(), 2);
}

TEST(AtomicFileTest, WhatMayNotBeWrittenStaysAsItIs) {
    const TemporaryFolder folder;
    const auto locked = folder.Write("locked.ini", "old");
    std::filesystem::create_directory(folder.Path("closed"));
    const auto inside = folder.Write("closed/a.ini", "old");
    chmod(folder.Path().c_str(), 0777);
    chmod(locked.c_str(), 0444);
    chmod(inside.c_str(), 0666);
    chmod(folder.Path("closed").c_str(), 0555);
    {
        const OrdinaryUser user;
        if (!user.bound) GTEST_SKIP() << "permissions do not bind here";
        EXPECT_FALSE(ReplaceFile(locked, "new"));
        EXPECT_FALSE(ReplaceFile(inside, "new"));
    }
    chmod(folder.Path("closed").c_str(), 0755);
    EXPECT_EQ(folder.Read("locked.ini"), "old");
    EXPECT_EQ(folder.Read("closed/a.ini"), "old");
}

TEST(AtomicFileTest, OnlyAPlainFileIsReplaced) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path("sub"));
    ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0666), 0);
    std::filesystem::create_symlink("circle", folder.Path("circle"));
    for (const auto* name : {"sub", "pipe", "circle", "missing/a.ini", "sub/"}) {
        EXPECT_FALSE(ReplaceFile(folder.Path(name), "new")) << name;
    }
    EXPECT_FALSE(ReplaceFile("", "new"));
    EXPECT_TRUE(std::filesystem::is_fifo(folder.Path("pipe")));
}
