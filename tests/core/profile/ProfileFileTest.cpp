#include "core/profile/ProfileFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/core/profile/FullDisk.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace {

// One file a.ini at a time, which the short calls are about.
class ProfileFileTest : public testing::Test {
  protected:
    void Open(std::string_view contents) {
        file.Close();
        folder.Write("a.ini", contents);
    }
    int Int(const char* section, const char* key) { return file.GetInt(section, key, -1, path); }
    std::string Text(const std::string& section, const char* key,
                     std::size_t size = ProfileFile::kWholeValue) {
        return file.GetString(section, key, "none", size, path);
    }
    void Set(const char* section, const char* key, std::optional<std::string_view> value) {
        file.WriteString(section, key, value, path);
    }
    // What is in the file then.
    std::string Written() {
        EXPECT_TRUE(file.Flush());
        EXPECT_FALSE(file.IsDirty());
        return folder.Read("a.ini");
    }
    // After a change elsewhere in the file, which makes it be written back.
    std::string Rewritten(std::string_view contents) {
        Open(contents);
        Set("touched", "k", "v");
        return Written();
    }

    TemporaryFolder folder;
    const std::string path = folder.Write("a.ini", "");
    ProfileFile file;
};

TEST_F(ProfileFileTest, NamesAreFoundInEitherCaseAndAreNotTrimmed) {
    Open("[main]\nno key here\nCredits=12\nBet =5\nU=a=b\nNone=\nReal= 2.5  \n[ x ]\n=e\n");
    EXPECT_EQ(file.GetLong("MAIN", "credits", 0, path), 12);
    EXPECT_EQ(Int("main", "Bet"), -1);
    EXPECT_EQ(Int("main", "bet "), 5);
    EXPECT_EQ(Text("main", "u"), "a=b");
    EXPECT_EQ(Text("main", "no key here"), "none");
    EXPECT_EQ(Text("x", ""), "none");
    EXPECT_EQ(Text(" X ", ""), "e");
    EXPECT_EQ(Int("main", "None"), 0) << "an empty value is not a missing one";
    EXPECT_EQ(file.GetDouble("main", "None", 7, path), 0.0);
    EXPECT_EQ(Text("main", "None"), "");
    EXPECT_EQ(file.GetDouble("main", "Real", 0, path), 2.5);
    EXPECT_FALSE(file.IsDirty());
}

TEST_F(ProfileFileTest, AValueTooLongForItsSizeIsCutToTwoLess) {
    Open("[s]\nseven=1234567\neight=12345678\n");
    EXPECT_EQ(Text("s", "seven", 8), "1234567");
    EXPECT_EQ(Text("s", "eight", 8), "123456");
    EXPECT_EQ(Text("s", "missing", 4), "no") << "a default too";
    for (const std::size_t size : {0U, 1U, 2U}) EXPECT_EQ(Text("s", "seven", size), "");
}

TEST_F(ProfileFileTest, SettingAKeyKeepsItsPlaceAndANewOneFollowsTheLastLine) {
    Open("[Main]\ncredits=5\nbet=1\n[e]\n\n\n");
    file.WriteInt("MAIN", "Credits", -7, path);
    file.WriteLong("e", "first", 2147483647, path);
    Set("New", "k", "a=b");
    EXPECT_EQ(Written(), "[Main]\ncredits=-7\nbet=1\n\n[e]\nfirst=2147483647\n\n[New]\nk=a=b\n\n");
}

TEST_F(ProfileFileTest, OfTwoSectionsOrKeysOfOneNameTheFirstCounts) {
    Open("[X]\na=1\nA=2\n\n[x]\na=3\n\n");
    EXPECT_EQ(Int("x", "A"), 1);
    Set("x", "A", "9");
    EXPECT_EQ(Written(), "[X]\na=9\nA=2\n\n[x]\na=3\n\n");
    Set("x", "a", std::nullopt);
    EXPECT_EQ(Written(), "[X]\nA=2\n\n[x]\na=3\n\n");
    file.WriteString("x", std::nullopt, std::nullopt, path);
    EXPECT_EQ(Written(), "[x]\na=3\n\n");
}

TEST_F(ProfileFileTest, ADeletedSectionComesBackAtTheEndAndARenamedOneKeepsItsPlace) {
    Open("[a]\nk=1\n\n[b]\nk=2\n\n");
    EXPECT_TRUE(file.DeleteSection("A", path));
    EXPECT_FALSE(file.DeleteSection("A", path));
    Set("a", "k", "3");
    EXPECT_EQ(Written(), "[b]\nk=2\n\n[a]\nk=3\n\n");
    EXPECT_TRUE(file.RenameSection("B", "new one", path));
    EXPECT_FALSE(file.RenameSection("b", "other", path));
    for (const auto* bad : {"", "x]", "x\ny"}) EXPECT_FALSE(file.RenameSection("a", bad, path));
    EXPECT_EQ(Int("New One", "k"), 2);
    EXPECT_EQ(Written(), "[new one]\nk=2\n\n[a]\nk=3\n\n");
}

TEST_F(ProfileFileTest, SectionTextStandsAsItWasGiven) {
    Open("[a]\nold=1\n\n[b]\nk=2\n\n");
    file.SetSectionText("a", "one\n\n two = 2 \n", path);
    EXPECT_TRUE(file.IsDirty());
    file.SetSectionText("new", "last line without end", path);
    EXPECT_EQ(file.GetSectionText("a", path), "one\n\n two = 2 \n");
    EXPECT_EQ(Text("a", " two "), " 2 ");
    Set("new", "k", "v");
    file.SetSectionText("b", "", path);
    EXPECT_EQ(Written(), "[a]\none\n\n two = 2 \n\n[b]\n\n\n[new]\nlast line without end\nk=v\n\n");
}

TEST_F(ProfileFileTest, NamesThatCouldNotBeReadBackChangeNothing) {
    Open("[s]\nk=v\n\n[]\nk=1\n\n");
    for (const auto* section : {"", "a]b", "a\nb"}) {
        Set(section, "k", "v");
        file.SetSectionText(section, "k=v\n", path);
        EXPECT_FALSE(file.DeleteSection(section, path));
    }
    for (const auto* key : {"a=b", "a\nb", "[a"}) Set("s", key, "v");
    Set("fresh", "a=b", "v");
    file.WriteString(std::nullopt, "k", "v", path);
    Set("s", "missing", std::nullopt);
    Set("missing", "k", std::nullopt);
    EXPECT_EQ(Int("", "k"), -1) << "a section without a name is never found";
    EXPECT_FALSE(file.IsDirty());
    Set("s", "k", "one\r\ntwo\n[three]");
    EXPECT_EQ(Written(), "[s]\nk=one\n\n[]\nk=1\n\n");
}

TEST_F(ProfileFileTest, NothingOfAStrangeFileIsLost) {
    const std::string touched = "[touched]\nk=v\n\n";
    EXPECT_EQ(Rewritten(""), touched);
    EXPECT_EQ(Rewritten("; made by hand\n\nx=1\n\n[s]\n"),
              "; made by hand\n\nx=1\n\n[s]\n\n\n" + touched);
    EXPECT_EQ(Rewritten("\xEF\xBB\xBF[s]\r\na=1\r\n\r\n"), "\xEF\xBB\xBF[s]\na=1\n\n" + touched);
    EXPECT_EQ(Text("S", "a"), "1") << "the mark does not hide the first section";
    EXPECT_EQ(Rewritten("[s]\na=1\r\r\nb=\r2"), "[s]\na=1\nb=\r2\n\n" + touched);
    EXPECT_EQ(Rewritten("[]\nk=1\n[open\nk=2\n[t]rest\n"),
              "[]\nk=1\n\n[open]\nk=2\n\n[t]\n\n\n" + touched);
    const std::string garbage("[n\0me]\n\xFF\xFE\0=\0\n\n\n=\n==\n\n", 21);
    EXPECT_EQ(Rewritten(garbage), garbage + touched);
}

TEST_F(ProfileFileTest, NamingAnotherFileWritesTheFirstBack) {
    Open("first lines\n[s]\nk=1\n\n");
    const auto b = folder.Write("b.ini", "[s]\nk=2\n\n");
    Set("s", "k", "10");
    EXPECT_EQ(folder.Read("a.ini"), "first lines\n[s]\nk=1\n\n");
    EXPECT_EQ(file.GetInt("s", "k", 0, folder.Path("A.INI")), 10) << "the same path";
    EXPECT_TRUE(file.IsDirty());
    EXPECT_EQ(file.GetInt("s", "k", 0, b), 2);
    EXPECT_FALSE(file.IsDirty());
    EXPECT_EQ(folder.Read("a.ini"), "first lines\n[s]\nk=10\n\n");
    folder.Write("a.ini", "[s]\nk=3\n");  // read again, not remembered
    EXPECT_EQ(Int("s", "k"), 3);
}

TEST_F(ProfileFileTest, TwoFilesOfOneFolderThatDifferInLetterCaseOnlyAreTwo) {
    Open("[s]\nk=1\n\n");
    const auto twin = folder.Write("A.INI", "[s]\nk=2\n\n");
    if (folder.Read("a.ini") != "[s]\nk=1\n\n") GTEST_SKIP() << "not on this file system";
    Set("s", "k", "10");
    EXPECT_EQ(file.GetInt("s", "k", 0, twin), 2);
    file.WriteInt("s", "k", 20, twin);
    EXPECT_TRUE(file.Flush());
    EXPECT_EQ(folder.Read("a.ini"), "[s]\nk=10\n\n");
    EXPECT_EQ(folder.Read("A.INI"), "[s]\nk=20\n\n");
}

TEST_F(ProfileFileTest, AMissingFileIsNeverCreatedAndIsFoundOnceItIsThere) {
    std::filesystem::remove(path);
    Set("s", "k", "v");
    file.SetSectionText("s", "k=v\n", path);
    EXPECT_FALSE(file.RenameSection("s", "t", path));
    EXPECT_FALSE(file.DeleteSection("s", path));
    EXPECT_EQ(Int("s", "k"), -1);
    EXPECT_EQ(Written(), "(missing)");
    folder.Write("a.ini", "[s]\nk=8\n");
    EXPECT_EQ(Int("s", "k"), 8);
}

TEST_F(ProfileFileTest, WhatCannotBeReadToItsEndIsNotLoaded) {
    ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0666), 0);
    // The last one is a plain file that opens, and whose first read fails.
    for (const auto& odd :
         {std::string(), folder.Path(), folder.Path("pipe"), std::string("/proc/self/mem")}) {
        file.WriteString("s", "k", "v", odd);
        EXPECT_FALSE(file.IsDirty()) << odd;
        EXPECT_EQ(file.GetInt("s", "k", 7, odd), 7) << odd;
    }
}

TEST_F(ProfileFileTest, AnotherFileMayBeUsedWhileChangesWaitForTheDisk) {
    Open("first\n[s]\nk=1\n\n");
    const auto b = folder.Write("b.ini", "[s]\nk=2\n\n");
    {
        const FullDisk disk(9);  // as long as b.ini
        for (int i = 12; i < 15; ++i) {
            file.WriteInt("s", "k", i, path);
            file.WriteInt("s", "k", i - 10, b);
            EXPECT_EQ(file.GetInt("s", "k", 0, folder.Path("A.INI")), i);
            EXPECT_TRUE(file.Save(b)) << "the other does not matter";
            EXPECT_FALSE(file.Save(path));
        }
        EXPECT_EQ(file.GetInt("s", "k", 0, b), 4);
        EXPECT_TRUE(file.IsDirty());
        EXPECT_FALSE(file.Flush());
    }
    EXPECT_EQ(folder.Read("a.ini"), "first\n[s]\nk=1\n\n");
    EXPECT_EQ(Written(), "first\n[s]\nk=14\n\n");
    EXPECT_EQ(folder.Read("b.ini"), "[s]\nk=4\n\n");
}

TEST_F(ProfileFileTest, TheEndOfTheProgramTriesAllOnceMore) {
    Open("[s]\nk=1\n\n");
    const auto b = folder.Write("b.ini", "[s]\nk=2\n\n");
    {
        ProfileFile ending;
        ending.WriteInt("s", "k", 9, path);
        ending.WriteString(std::nullopt, std::nullopt, std::nullopt, path);
        EXPECT_EQ(folder.Read("a.ini"), "[s]\nk=9\n\n") << "no section and no key: a flush";
        ending.WriteInt("s", "k", 10, path);
        std::optional<FullDisk> disk(0);
        EXPECT_EQ(ending.GetInt("s", "k", 0, b), 2);
        disk.reset();
    }
    EXPECT_EQ(folder.Read("a.ini"), "[s]\nk=10\n\n");
}

TEST_F(ProfileFileTest, WhatIsForgottenOrClosedIsReadAnew) {
    Open("[s]\nk=1\n\n");
    for (const bool close : {false, true}) {
        const FullDisk disk(0);
        Set("s", "k", "10");
        EXPECT_EQ(file.GetInt("s", "k", 0, folder.Path("other.ini")), 0) << "the change waits";
        if (close) {
            file.Close();
        } else {
            file.Forget(folder.Path("A.ini"));
        }
        EXPECT_FALSE(file.IsDirty());
        EXPECT_EQ(Int("s", "k"), 1);
    }
}

TEST_F(ProfileFileTest, WhatSomebodyElseHasChangedIsNotWrittenOver) {
    using Standing = ProfileFile::Standing;
    Open("[s]\nk=1\n\n");
    Set("s", "k", "10");
    EXPECT_EQ(file.StandingOf(path), Standing::kOurs);
    folder.Write("a.ini", "[s]\nk=2\nmore=1\n\n");
    EXPECT_EQ(file.StandingOf(path), Standing::kChanged);
    EXPECT_FALSE(file.Flush());
    EXPECT_EQ(Int("s", "k"), 10) << "but waits";
    EXPECT_EQ(folder.Read("a.ini"), "[s]\nk=2\nmore=1\n\n");
    folder.Write("a.ini", "[s]\nk=1\n\n");
    EXPECT_EQ(Written(), "[s]\nk=10\n\n") << "the same contents are the same file";

    std::filesystem::rename(path, folder.Path("away"));
    Set("s", "k", "11");
    EXPECT_EQ(file.StandingOf(path), Standing::kMissing);
    EXPECT_FALSE(file.Flush());
    EXPECT_EQ(folder.Read("a.ini"), "(missing)");
    std::filesystem::rename(folder.Path("away"), path);
    EXPECT_EQ(Written(), "[s]\nk=11\n\n");
    folder.Write("a.ini", "[s]\nk=4\n\n");
    EXPECT_EQ(Int("s", "k"), 4) << "nothing waits that this would mix with";
}

TEST_F(ProfileFileTest, AHeldFileIsReadAsItWasWhenItWasHeld) {
    const auto b = folder.Write("b.ini", "[s]\nk=2\n\n");
    Open("[s]\nk=1\n\n");
    EXPECT_TRUE(file.Hold(path));
    folder.Write("a.ini", "[s]\nk=3\n\n");
    EXPECT_EQ(file.GetInt("s", "k", 0, b), 2);
    EXPECT_EQ(Int("s", "k"), 1);
    Set("s", "k", "10");
    EXPECT_FALSE(file.Save(path));
    EXPECT_EQ(file.WholeText(path), "[s]\nk=10\n\n");
    file.Forget(path);
    EXPECT_TRUE(file.Hold(path));
    EXPECT_EQ(Int("s", "k"), 3);

    EXPECT_FALSE(file.Hold(folder.Path("none.ini")));
    file.WriteInt("s", "k", 5, folder.Path("none.ini"));
    folder.Write("none.ini", "[s]\nk=6\n\n");
    EXPECT_EQ(file.GetInt("s", "k", 0, folder.Path("none.ini")), 5) << "in memory alone";
    EXPECT_EQ(file.StandingOf(folder.Path("none.ini")), ProfileFile::Standing::kNotRead);
    EXPECT_FALSE(file.Flush());
    EXPECT_EQ(folder.Read("none.ini"), "[s]\nk=6\n\n");
    EXPECT_TRUE(file.Hold(b));
    EXPECT_TRUE(file.Flush()) << "nothing of it is left";
}

TEST_F(ProfileFileTest, AFileIsMadeAtOnceOrNotAtAll) {
    Open("[s]\nk=1\n\n");
    const auto make = [&](const std::string& at) {
        return file.Make(at, "[t]\nx=1\n\n", [&] { file.WriteInt("s", "k", 7, at); });
    };
    Set("s", "k", "2");
    {
        const FullDisk disk(8);
        EXPECT_FALSE(make(path));
        EXPECT_FALSE(make(folder.Path("new.ini")));
        EXPECT_FALSE(make(folder.Path("missing/new.ini")));
    }
    EXPECT_EQ(folder.FileCount(), 1);
    EXPECT_EQ(Written(), "[s]\nk=2\n\n") << "what waited goes on waiting";
    Set("s", "k", "3");
    EXPECT_TRUE(make(path));
    EXPECT_EQ(Written(), "[t]\nx=1\n\n[s]\nk=7\n\n") << "in place of what waited";
    EXPECT_TRUE(make(folder.Path("new.ini")));
    EXPECT_EQ(folder.Read("new.ini"), "[t]\nx=1\n\n[s]\nk=7\n\n");
}

}  // namespace
