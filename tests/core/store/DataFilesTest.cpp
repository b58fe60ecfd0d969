#include "core/store/DataFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "core/profile/ProfileFile.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace {

DataEnvironment InstalledProgram() {
    return {.programFile = "/opt/games/Tolvane", .xdgDataHome = "", .home = "/home/zoë"};
}

// The files of a program that lies in the folder and may write there.
DataFilePaths Portable(const TemporaryFolder& folder) {
    return *FindDataFiles(
        {folder.Path("Tolvane"), /*programFolderWritable=*/true, "", "/home/nobody"});
}

TEST(DataFilesTest, DataLieBesideAProgramWhoseFolderCanBeWrittenAndAreNamedAfterIt) {
    const auto paths = FindDataFiles({"/media/Stick Ü.b/Poker 2.exe", true, "/data", "/home/zoë"});
    ASSERT_TRUE(paths);
    EXPECT_EQ(paths->folder, "/media/Stick Ü.b/");
    EXPECT_EQ(paths->releaseFolder, "/media/Stick Ü.b/");
    EXPECT_EQ(paths->mainProfile, "/media/Stick Ü.b/Poker 2.ini");
    EXPECT_EQ(paths->defaultGame, "/media/Stick Ü.b/Default.qdx");
    EXPECT_EQ(paths->analysisCache, "/media/Stick Ü.b/Game Analyses.ini");
    EXPECT_EQ(paths->strategyCharts, "/media/Stick Ü.b/Strategy Charts.ini");
    EXPECT_EQ(FindDataFiles({"", false, "", "/h"})->mainProfile,
              "/h/.local/share/Tolvane/Tolvane.ini");
}

TEST(DataFilesTest, DataOfAnInstalledProgramLieAmongTheUsers) {
    DataEnvironment environment = InstalledProgram();
    environment.xdgDataHome = "relative";
    EXPECT_EQ(FindDataFolder(environment), "/home/zoë/.local/share/Tolvane") << "as without one";
    environment.xdgDataHome = "/srv/my data";
    EXPECT_EQ(FindDataFolder(environment), "/srv/my data/Tolvane");
    EXPECT_EQ(FindDataFiles(environment)->releaseFolder, "/opt/games/");

    EXPECT_FALSE(FindDataFiles({"/opt/games/Tolvane", false, "", ""}));
}

TEST(DataFilesTest, ABuildKeepsItsDataBesideItself) {
    const std::filesystem::path folder = FindDataFolder(ReadDataEnvironment());
    EXPECT_TRUE(std::filesystem::exists(folder / "DataFilesTest")) << folder;
}

TEST(DataFilesTest, TheDataFolderIsMadeWithAllAboveItUnlessAFileIsInTheWay) {
    const TemporaryFolder folder;
    DataEnvironment environment = InstalledProgram();
    environment.home = folder.Path("new home");
    EXPECT_TRUE(CreateDataFolder(*FindDataFiles(environment)));
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path("new home/.local/share/Tolvane")));

    environment.home = folder.Write("file", "");
    EXPECT_FALSE(CreateDataFolder(*FindDataFiles(environment)));
}

TEST(DataFilesTest, TheCurrentGameFileIsRememberedInTheMainProfile) {
    const TemporaryFolder folder;
    const DataFilePaths paths = Portable(folder);
    const std::string chosen = folder.Path("Ferien Müller.qdx");
    folder.Write("Tolvane.ini", "[main]\nVer=114\n");
    ProfileFile file;
    EXPECT_EQ(CurrentGamePath(paths, file), folder.Path("Default.qdx"));
    StoreCurrentGamePath(chosen, paths, file);
    EXPECT_TRUE(file.Flush());
    EXPECT_EQ(CurrentGamePath(paths, file), chosen);
    EXPECT_EQ(folder.Read("Tolvane.ini"),
              "[main]\nVer=114\nCurrGame=" + chosen + "\nDataFolder=" + paths.folder + "\n\n");
    StoreCurrentGamePath("/media/usb/Else.qdx", paths, file);
    EXPECT_TRUE(file.Flush());
    EXPECT_EQ(folder.Read("Tolvane.ini"), "[main]\nVer=114\nCurrGame=/media/usb/Else.qdx\n\n");
}

TEST(DataFilesTest, TheCurrentGameFileMovesWithItsFolder) {
    const TemporaryFolder folder;
    const DataFilePaths paths = Portable(folder);
    const std::string here = folder.Write("Holiday.qdx", "[main]\n");
    const auto current = [&](const std::string& main) {
        folder.Write("Tolvane.ini", "[main]\n" + main);
        return CurrentGamePath(paths, *std::make_unique<ProfileFile>());
    };
    EXPECT_EQ(current("CurrGame=/old/Holiday.qdx\nDataFolder=/old/\n"), here);
    EXPECT_EQ(current("CurrGame=/old/Gone.qdx\nDataFolder=/old/\n"), "/old/Gone.qdx");
    EXPECT_EQ(current("CurrGame=/usb/Holiday.qdx\nDataFolder=/old/\n"), "/usb/Holiday.qdx")
        << "another player's, on a disk that is away";
}

TEST(DataFilesTest, TheTitleNamesTheGameFileUnlessItIsTheDefaultOne) {
    const TemporaryFolder folder;
    const DataFilePaths paths = Portable(folder);
    EXPECT_EQ(DocumentTitle("Deuces Wild", folder.Path("DEFAULT.QDX"), paths), "Deuces Wild");
    EXPECT_EQ(DocumentTitle("Deuces Wild", "/else/Default.qdx", paths),
              "Deuces Wild (Default.qdx)");
}

}  // namespace
