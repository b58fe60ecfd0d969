#include "core/profile/ProfileFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>
#include <random>

#include "core/text/Numbers.h"
#include "tests/core/profile/FullDisk.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace {

constexpr auto kWhole = ProfileFile::kWholeValue;

// What a file with these contents is after the operation.
template <typename Operation>
std::string After(const std::string& contents, Operation operation) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a.ini", contents);
    ProfileFile file;
    operation(file, path);
    EXPECT_TRUE(file.Flush());
    EXPECT_FALSE(file.IsDirty());
    return folder.Read("a.ini");
}

// A change elsewhere in the file, which makes it be written back.
std::string Rewritten(const std::string& contents) {
    return After(contents,
                 [](auto& file, const auto& path) { file.WriteString("touched", "k", "v", path); });
}

}  // namespace

TEST(ProfileFileTest, NamesAreFoundInEitherCaseAndAreNotTrimmed) {
    const TemporaryFolder folder;
    const auto path =
        folder.Write("a.ini", "[main]\nno key here\nCredits=12\nBet =5\nU=a=b\n[ x ]\n=e\n");
    ProfileFile file;
    EXPECT_EQ(file.GetInt("main", "CREDITS", 0, path), 12);
    EXPECT_EQ(file.GetLong("MAIN", "credits", 0, path), 12);
    EXPECT_EQ(file.GetInt("main", "Bet", -1, path), -1);
    EXPECT_EQ(file.GetInt("main", "bet ", -1, path), 5);
    EXPECT_EQ(file.GetString("main", "u", "", kWhole, path), "a=b");
    EXPECT_EQ(file.GetString("main", "u=a", "none", kWhole, path), "none");
    EXPECT_EQ(file.GetString("main", "no key here", "none", kWhole, path), "none");
    EXPECT_EQ(file.GetString("x", "", "none", kWhole, path), "none");
    EXPECT_EQ(file.GetString(" X ", "", "none", kWhole, path), "e");
    EXPECT_FALSE(file.IsDirty());
}

TEST(ProfileFileTest, AnEmptyValueIsNotAMissingOne) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a.ini", "[s]\nCredits=\nReal= 2.5  \n");
    ProfileFile file;
    EXPECT_EQ(file.GetInt("s", "Credits", 7, path), 0);
    EXPECT_EQ(file.GetDouble("s", "Credits", 7, path), 0.0);
    EXPECT_EQ(file.GetString("s", "Credits", "seven", kWhole, path), "");
    EXPECT_EQ(file.GetInt("s", "Missing", 7, path), 7);
    EXPECT_EQ(file.GetDouble("missing", "Credits", 7.5, path), 7.5);
    EXPECT_EQ(file.GetString("missing", "Credits", "seven", kWhole, path), "seven");
    EXPECT_EQ(file.GetDouble("s", "Real", 0, path), 2.5);
    EXPECT_EQ(file.GetSectionText("missing", path), std::nullopt);
}

TEST(ProfileFileTest, AValueTooLongForItsSizeIsCutToTwoLess) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a.ini", "[s]\nseven=1234567\neight=12345678\nten=1234567890\n");
    ProfileFile file;
    EXPECT_EQ(file.GetString("s", "seven", "", 8, path), "1234567");
    EXPECT_EQ(file.GetString("s", "eight", "", 8, path), "123456");
    EXPECT_EQ(file.GetString("s", "ten", "", 8, path), "123456");
    EXPECT_EQ(file.GetString("s", "missing", "1234567890", 8, path), "123456");
    for (const std::size_t size : {0U, 1U, 2U})
        EXPECT_EQ(file.GetString("s", "ten", "", size, path), "");
    EXPECT_EQ(file.GetString("s", "ten", "", kWhole, path), "1234567890");
}

TEST(ProfileFileTest, SettingAKeyKeepsItsPlaceAndANewOneFollowsTheLastLine) {
    EXPECT_EQ(After("[s]\na=1\n\n",
                    [](auto& file, const auto& path) {
                        file.WriteString("s", "b", "2", path);
                        EXPECT_EQ(file.GetSectionText("s", path), "a=1\nb=2\n");
                    }),
              "[s]\na=1\nb=2\n\n");
    EXPECT_EQ(After("[Main]\ncredits=5\nbet=1\n[e]\n\n\n",
                    [](auto& file, const auto& path) {
                        file.WriteInt("MAIN", "Credits", -7, path);
                        file.WriteLong("e", "first", 2147483647, path);
                        file.WriteString("New", "k", "a=b", path);
                        EXPECT_EQ(file.GetInt("main", "credits", 0, path), -7);
                    }),
              "[Main]\ncredits=-7\nbet=1\n\n[e]\nfirst=2147483647\n\n[New]\nk=a=b\n\n");
}

TEST(ProfileFileTest, OfTwoSectionsOrKeysOfOneNameTheFirstCounts) {
    EXPECT_EQ(After("[X]\na=1\nA=2\n\n[x]\na=3\n\n",
                    [](auto& file, const auto& path) {
                        EXPECT_EQ(file.GetInt("x", "A", 0, path), 1);
                        file.WriteString("x", "A", "9", path);
                    }),
              "[X]\na=9\nA=2\n\n[x]\na=3\n\n");
    EXPECT_EQ(After("[X]\na=1\nA=2\n\n[x]\na=3\n\n",
                    [](auto& file, const auto& path) {
                        file.WriteString("x", "a", std::nullopt, path);
                        EXPECT_EQ(file.GetInt("x", "a", 0, path), 2);
                        file.WriteString("x", std::nullopt, std::nullopt, path);
                        EXPECT_EQ(file.GetInt("x", "a", 0, path), 3);
                    }),
              "[x]\na=3\n\n");
}

TEST(ProfileFileTest, ADeletedSectionComesBackAtTheEnd) {
    EXPECT_EQ(After("[a]\nk=1\n\n[b]\nk=2\n\n",
                    [](auto& file, const auto& path) {
                        EXPECT_TRUE(file.DeleteSection("A", path));
                        EXPECT_FALSE(file.DeleteSection("A", path));
                        EXPECT_EQ(file.GetSectionText("a", path), std::nullopt);
                        file.WriteString("a", "k", "3", path);
                    }),
              "[b]\nk=2\n\n[a]\nk=3\n\n");
}

TEST(ProfileFileTest, ARenamedSectionKeepsLinesAndPlace) {
    EXPECT_EQ(After("[a]\nk=1\n\n[b]\nk=2\n\n",
                    [](auto& file, const auto& path) {
                        EXPECT_TRUE(file.RenameSection("A", "new one", path));
                        EXPECT_FALSE(file.RenameSection("a", "other", path));
                        for (const auto* bad : {"", "x]", "x\ny"}) {
                            EXPECT_FALSE(file.RenameSection("b", bad, path)) << bad;
                        }
                        EXPECT_EQ(file.GetInt("New One", "k", 0, path), 1);
                    }),
              "[new one]\nk=1\n\n[b]\nk=2\n\n");
}

TEST(ProfileFileTest, SectionTextStandsAsItWasGiven) {
    EXPECT_EQ(After("[a]\nold=1\n\n[b]\nk=2\n\n",
                    [](auto& file, const auto& path) {
                        file.SetSectionText("a", "one\n\n two = 2 \n", path);
                        file.SetSectionText("new", "last line without end", path);
                        EXPECT_EQ(file.GetSectionText("a", path), "one\n\n two = 2 \n");
                        EXPECT_EQ(file.GetString("a", " two ", "", kWhole, path), " 2 ");
                        file.WriteString("new", "k", "v", path);
                        file.SetSectionText("b", "", path);
                    }),
              "[a]\none\n\n two = 2 \n\n[b]\n\n\n[new]\nlast line without end\nk=v\n\n");
}

TEST(ProfileFileTest, NumbersAreStoredInTheCallersFormat) {
    EXPECT_EQ(After("[s]\n",
                    [](auto& file, const auto& path) {
                        file.WriteDouble("s", "a", 0, "%-12.4f", path);
                        file.WriteDouble("s", "b", 2.345, "%.2f", path);
                        EXPECT_EQ(file.GetString("s", "a", "", kWhole, path), "0.0000      ");
                        EXPECT_EQ(file.GetDouble("s", "a", 1, path), 0.0);
                        EXPECT_EQ(file.GetDouble("s", "b", 1, path), 2.35);
                    }),
              "[s]\na=0.0000      \nb=2.35\n\n");  // the double nearest 2.345 lies above it
}

TEST(ProfileFileTest, NamesThatCouldNotBeReadBackChangeNothing) {
    const std::string contents = "[s]\nk=v\n\n";
    const TemporaryFolder folder;
    const auto path = folder.Write("a.ini", contents);
    ProfileFile file;
    for (const auto* section : {"", "a]b", "a\nb"}) {
        file.WriteString(section, "k", "v", path);
        file.SetSectionText(section, "k=v\n", path);
    }
    for (const auto* key : {"a=b", "a\nb", "[a"}) file.WriteString("s", key, "v", path);
    file.WriteString("fresh", "a=b", "v", path);
    file.WriteString(std::nullopt, "k", "v", path);
    file.WriteString("s", "missing", std::nullopt, path);
    file.WriteString("missing", "k", std::nullopt, path);
    EXPECT_FALSE(file.IsDirty());
    file.WriteString("s", "k", "one\r\ntwo\n[three]", path);
    EXPECT_TRUE(file.Flush());
    EXPECT_EQ(folder.Read("a.ini"), "[s]\nk=one\n\n");
}

TEST(ProfileFileTest, NothingOfAStrangeFileIsLost) {
    const std::string touched = "[touched]\nk=v\n\n";
    EXPECT_EQ(Rewritten(""), touched);
    EXPECT_EQ(Rewritten("; made by hand\n\nx=1\n\n[s]\n"),
              "; made by hand\n\nx=1\n\n[s]\n\n\n" + touched);
    EXPECT_EQ(Rewritten("\xEF\xBB\xBF[s]\r\na=1\r\n\r\n"), "\xEF\xBB\xBF[s]\na=1\n\n" + touched);
    EXPECT_EQ(Rewritten("just this"), "just this\n" + touched);
    EXPECT_EQ(Rewritten("[s]\na=1\r\r\nb=\r2"), "[s]\na=1\nb=\r2\n\n" + touched);
    EXPECT_EQ(Rewritten("[]\nk=1\n[open\nk=2\n[t]rest\n"),
              "[]\nk=1\n\n[open]\nk=2\n\n[t]\n\n\n" + touched);
    const std::string garbage("[n\0me]\n\xFF\xFE\0=\0\n\n\n=\n==\n\n", 21);
    EXPECT_EQ(Rewritten(garbage), garbage + touched);
}

TEST(ProfileFileTest, ASectionWithoutANameIsNeverFound) {
    EXPECT_EQ(After("[]\nk=1\n\n[s]\nk=2\n\n",
                    [](auto& file, const auto& path) {
                        EXPECT_EQ(file.GetInt("", "k", 7, path), 7);
                        EXPECT_FALSE(file.DeleteSection("", path));
                        file.WriteInt("", "k", 3, path);
                        EXPECT_FALSE(file.IsDirty());
                    }),
              "[]\nk=1\n\n[s]\nk=2\n\n");
}

TEST(ProfileFileTest, AByteOrderMarkDoesNotHideTheFirstSection) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a.ini", "\xEF\xBB\xBF[Main]\r\nCredits=12\r\nName=x");
    ProfileFile file;
    EXPECT_EQ(file.GetInt("main", "credits", 0, path), 12);
    EXPECT_EQ(file.GetString("main", "name", "", kWhole, path), "x");
    EXPECT_EQ(file.GetSectionText("main", path), "Credits=12\nName=x\n");
}

TEST(ProfileFileTest, SizesPastThePromisedOnesSurvive) {
    std::string contents;
    for (int i = 0; i < 300; ++i)
        contents += "[" + std::to_string(i) + "]\nk=" + std::to_string(i) + "\n\n";
    std::string longText;
    while (longText.size() < 10'000) longText += "line\n";
    contents += "[" + std::string(1'000, 'n') + "]\n" + longText +
                "long=" + std::string(2'000, 'v') + "\n\n";
    EXPECT_EQ(Rewritten(contents), contents + "[touched]\nk=v\n\n");

    const TemporaryFolder folder;
    const auto path = folder.Write("a.ini", contents);
    ProfileFile file;
    EXPECT_EQ(file.GetInt("299", "k", 0, path), 299);
    EXPECT_EQ(file.GetString(std::string(1'000, 'N'), "long", "", kWhole, path),
              std::string(2'000, 'v'));
    EXPECT_EQ(file.GetString(std::string(1'000, 'N'), "long", "", 80, path), std::string(78, 'v'));
}

TEST(ProfileFileTest, NamingAnotherFileWritesTheFirstBack) {
    const TemporaryFolder folder;
    const auto a = folder.Write("a.ini", "first lines\n[s]\nk=1\n\n");
    const auto b = folder.Write("b.ini", "[s]\nk=2\n\n");
    ProfileFile file;
    file.WriteInt("s", "k", 10, a);
    EXPECT_TRUE(file.IsDirty());
    EXPECT_EQ(folder.Read("a.ini"), "first lines\n[s]\nk=1\n\n");
    EXPECT_EQ(file.GetInt("s", "k", 0, folder.Path("A.INI")), 10);  // the same path
    EXPECT_TRUE(file.IsDirty());
    EXPECT_EQ(file.GetInt("s", "k", 0, b), 2);
    EXPECT_FALSE(file.IsDirty());
    EXPECT_EQ(folder.Read("a.ini"), "first lines\n[s]\nk=10\n\n");
    file.WriteInt("s", "k", 20, b);
    EXPECT_TRUE(file.Flush());
    EXPECT_EQ(folder.Read("b.ini"), "[s]\nk=20\n\n");  // nothing of the first file has come along
    folder.Write("a.ini", "[s]\nk=3\n");               // read again, not remembered
    EXPECT_EQ(file.GetInt("s", "k", 0, a), 3);
}

TEST(ProfileFileTest, FlushAndTheEndOfTheProgramWriteBack) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a.ini", "[s]\nk=1\n\n");
    {
        ProfileFile file;
        EXPECT_TRUE(file.Flush());
        file.WriteInt("s", "k", 2, path);
        file.WriteString(std::nullopt, std::nullopt, std::nullopt, path);
        EXPECT_FALSE(file.IsDirty());
        EXPECT_EQ(folder.Read("a.ini"), "[s]\nk=2\n\n");
        file.WriteInt("s", "k", 3, path);
    }
    EXPECT_EQ(folder.Read("a.ini"), "[s]\nk=3\n\n");
}

TEST(ProfileFileTest, AMissingFileIsNeverCreatedAndIsFoundOnceItIsThere) {
    const TemporaryFolder folder;
    const auto path = folder.Path("a.ini");
    ProfileFile file;
    file.WriteString("s", "k", "v", path);
    file.SetSectionText("s", "k=v\n", path);
    EXPECT_FALSE(file.RenameSection("s", "t", path));
    EXPECT_FALSE(file.DeleteSection("s", path));
    EXPECT_EQ(file.GetInt("s", "k", 7, path), 7);
    EXPECT_EQ(file.GetDouble("s", "k", 7.5, path), 7.5);
    EXPECT_EQ(file.GetString("s", "k", "seven", kWhole, path), "seven");
    EXPECT_EQ(file.GetSectionText("s", path), std::nullopt);
    EXPECT_FALSE(file.IsDirty());
    EXPECT_TRUE(file.Flush());
    EXPECT_EQ(folder.FileCount(), 0);
    std::filesystem::rename(folder.Write("b.ini", "[s]\nk=8\n"), path);
    EXPECT_EQ(file.GetInt("s", "k", 7, path), 8);
}

TEST(ProfileFileTest, WhatCannotBeReadToItsEndIsNotLoaded) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path("folder"));
    ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0666), 0);
    ProfileFile file;
    // The last one is a plain file that opens, and whose first read fails.
    for (const auto& path : {std::string(), folder.Path("folder"), folder.Path("pipe"),
                             std::string("/proc/self/mem")}) {
        file.WriteString("s", "k", "v", path);
        EXPECT_FALSE(file.IsDirty()) << path;
        EXPECT_EQ(file.GetInt("s", "k", 7, path), 7) << path;
    }
}

TEST(ProfileFileTest, AFailedWriteKeepsTheChangesForTheNextOne) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path("here"));
    const auto path = folder.Write("here/a.ini", "[s]\nk=1\n\n");
    ProfileFile file;
    file.WriteInt("s", "k", 2, path);
    std::filesystem::rename(folder.Path("here"), folder.Path("away"));
    EXPECT_FALSE(file.Flush());
    EXPECT_TRUE(file.IsDirty());
    EXPECT_EQ(file.GetInt("s", "k", 0, path), 2);
    EXPECT_EQ(folder.Read("away/a.ini"), "[s]\nk=1\n\n");
    std::filesystem::rename(folder.Path("away"), folder.Path("here"));
    EXPECT_TRUE(file.Flush());
    EXPECT_FALSE(file.IsDirty());
    EXPECT_EQ(folder.Read("here/a.ini"), "[s]\nk=2\n\n");
}

namespace {

// A folder with a file that cannot be written while the folder is away, and one elsewhere.
struct AwayFolder {
    AwayFolder() { std::filesystem::create_directory(folder.Path("here")); }
    void GoAway() const { std::filesystem::rename(folder.Path("here"), folder.Path("away")); }
    void ComeBack() const { std::filesystem::rename(folder.Path("away"), folder.Path("here")); }

    TemporaryFolder folder;
};

}  // namespace

TEST(ProfileFileTest, AnotherFileMayBeUsedWhileChangesWaitForTheDisk) {
    const TemporaryFolder folder;
    const auto a = folder.Write("a.ini", "first\n[s]\nk=1\n\n");
    const auto b = folder.Write("b.ini", "[s]\nk=2\n\n");
    const auto small = folder.Write("small.ini", "[s]\nk=3\n\n");
    ProfileFile file;
    {
        const FullDisk disk(9);  // as long as small.ini
        for (int i = 12; i < 15; ++i) {
            file.WriteInt("s", "k", i, a);
            file.WriteInt("s", "k", i + 10, b);
            EXPECT_EQ(file.GetInt("s", "k", 0, folder.Path("A.INI")), i);
            EXPECT_EQ(file.GetInt("s", "k", 0, b), i + 10);
            file.WriteInt("s", "k", i - 10, small);
            EXPECT_TRUE(file.Save(small)) << "the others do not matter";
            EXPECT_FALSE(file.Save(a));
        }
        EXPECT_EQ(file.GetInt("s", "k", 0, small), 4);
        EXPECT_TRUE(file.IsDirty());
        EXPECT_FALSE(file.Flush());
    }
    EXPECT_EQ(folder.Read("a.ini"), "first\n[s]\nk=1\n\n");
    EXPECT_EQ(folder.Read("b.ini"), "[s]\nk=2\n\n");
    EXPECT_TRUE(file.Flush());
    EXPECT_FALSE(file.IsDirty());
    EXPECT_EQ(folder.Read("a.ini"), "first\n[s]\nk=14\n\n");
    EXPECT_EQ(folder.Read("b.ini"), "[s]\nk=24\n\n");
    EXPECT_EQ(folder.Read("small.ini"), "[s]\nk=4\n\n");
}

TEST(ProfileFileTest, TheEndOfTheProgramTriesAllOnceMore) {
    const AwayFolder disk;
    const auto a = disk.folder.Write("here/a.ini", "[s]\nk=1\n\n");
    const auto b = disk.folder.Write("b.ini", "[s]\nk=2\n\n");
    {
        ProfileFile file;
        file.WriteInt("s", "k", 10, a);
        disk.GoAway();
        EXPECT_EQ(file.GetInt("s", "k", 0, b), 2);
        disk.ComeBack();
    }
    EXPECT_EQ(disk.folder.Read("here/a.ini"), "[s]\nk=10\n\n");
}

TEST(ProfileFileTest, WhatIsForgottenOrClosedIsReadAnew) {
    const AwayFolder disk;
    const auto a = disk.folder.Write("here/a.ini", "[s]\nk=1\n\n");
    const auto b = disk.folder.Write("here/b.ini", "[s]\nk=2\n\n");
    ProfileFile file;
    for (const bool close : {false, true}) {
        file.WriteInt("s", "k", 10, a);
        file.GetInt("s", "k", 0, a);
        disk.GoAway();
        file.WriteInt("s", "k", 20, b);
        if (close) {
            file.Close();
        } else {
            file.Forget(disk.folder.Path("here/A.ini"));
            file.Forget(b);
        }
        EXPECT_FALSE(file.IsDirty());
        disk.ComeBack();
        EXPECT_EQ(file.GetInt("s", "k", 0, a), 1);
        EXPECT_EQ(file.GetInt("s", "k", 0, b), 2);
    }
}

namespace {

// The rules once more, with lists of lines instead of texts.
struct Model {
    struct Section {
        std::string name;
        std::vector<std::string> lines;
    };
    std::vector<Section> sections;

    Section* Find(const std::string& name) {
        for (auto& section : sections) {
            if (SameText(section.name, name)) return &section;
        }
        return nullptr;
    }

    Section& FindOrAppend(const std::string& name) {
        if (auto* section = Find(name)) return *section;
        return sections.emplace_back(Section{name, {}});
    }

    static std::string* FindLine(Section* section, const std::string& key) {
        if (!section) return nullptr;
        for (auto& line : section->lines) {
            const auto equals = line.find('=');
            if (equals != std::string::npos && SameText(line.substr(0, equals), key)) return &line;
        }
        return nullptr;
    }

    void Set(const std::string& name, const std::string& key, const std::string& value) {
        auto& section = FindOrAppend(name);
        if (auto* line = FindLine(&section, key)) {
            *line = line->substr(0, line->find('=') + 1) + value;
        } else {
            while (!section.lines.empty() && section.lines.back().empty()) section.lines.pop_back();
            section.lines.push_back(key + "=" + value);
        }
    }

    void Delete(const std::string& name, const std::string& key) {
        auto* section = Find(name);
        if (const auto* line = FindLine(section, key)) {
            section->lines.erase(section->lines.begin() + (line - section->lines.data()));
        }
    }

    void DeleteSection(const std::string& name) {
        if (const auto* section = Find(name))
            sections.erase(sections.begin() + (section - sections.data()));
    }

    void SetText(const std::string& name, const std::string& text) {
        auto& section = FindOrAppend(name);
        section.lines.clear();
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) section.lines.push_back(line);
    }

    std::string Written() const {
        std::string text;
        for (const auto& section : sections) {
            text += "[" + section.name + "]\n";
            auto lines = section.lines;
            while (!lines.empty() && lines.back().empty()) lines.pop_back();
            for (const auto& line : lines) text += line + "\n";
            text += lines.empty() ? "\n\n" : "\n";
        }
        return text;
    }
};

template <std::size_t N>
std::string AnyOf(const std::array<const char*, N>& words, std::mt19937& random) {
    return words.at(random() % N);
}

}  // namespace

TEST(ProfileFileTest, AThousandRandomChangesAgreeWithAListOfLines) {
    constexpr std::array kSections = {"a", "A", "b", " b", "main", "Main", "x y"};
    constexpr std::array kKeys = {"k", "K", "credits", "Credits ", "", "no.1"};
    constexpr std::array kValues = {"", "1", " 2", "a=b", "[v]", "   "};
    constexpr std::array kTexts = {"", "\n\n", "k=1\n\nK=2\n", "plain\n", "\n=\n==\n\n"};
    const TemporaryFolder folder;
    const auto path = folder.Write("a.ini", "");
    const auto other = folder.Write("b.ini", "");
    std::mt19937 random(2024);
    ProfileFile file;
    Model model;
    for (int step = 0; step < 1000; ++step) {
        const auto section = AnyOf(kSections, random);
        const auto key = AnyOf(kKeys, random);
        const auto value = AnyOf(kValues, random);
        switch (random() % 10) {
            case 0:
                file.WriteString(section, key, std::nullopt, path);
                model.Delete(section, key);
                break;
            case 1:
                file.DeleteSection(section, path);
                model.DeleteSection(section);
                break;
            case 2:
                ASSERT_EQ(file.RenameSection(section, key, path),
                          model.Find(section) && !key.empty());
                if (!key.empty() && model.Find(section)) model.Find(section)->name = key;
                break;
            case 3: {
                const auto text = AnyOf(kTexts, random);
                file.SetSectionText(section, text, path);
                model.SetText(section, text);
                break;
            }
            case 4:
                file.GetInt("s", "k", 0, other);  // writes the first file, so that it is read again
                ASSERT_EQ(folder.Read("a.ini"), model.Written()) << step;
                break;
            default:
                file.WriteString(section, key, value, path);
                model.Set(section, key, value);
        }
        const auto* line = Model::FindLine(model.Find(section), key);
        const auto expected = line ? line->substr(line->find('=') + 1) : "none";
        ASSERT_EQ(file.GetString(section, key, "none", kWhole, path), expected) << step;
    }
}
