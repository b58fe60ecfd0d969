#include "core/store/Session.h"

#include <gtest/gtest.h>

#include "core/paytable/PayTable.h"
#include "core/profile/ProfileFile.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace {

constexpr std::int64_t kNoon = 1'700'000'000;
constexpr std::int64_t kMinute = 60;

// A machine with one game file, as the window has it.
class SessionTest : public testing::Test {
  protected:
    void Open(const std::string& contents) {
        path = folder.Write("game.qdx", contents);
        LoadStatistics({file, path}, Section(), 52, statistics);
        table = LoadPayTable({file, mainPath}, CurrentTable(settings), path);
        LoadSettings({file, path}, settings, statistics, kNoon);
    }
    bool Save(bool startSession, std::int64_t now) {
        return SaveSettings({file, path}, {settings, statistics, table}, startSession, now);
    }
    std::string Section() const { return TableSection(settings.gameName, settings.activeTable); }
    // As the disk has it.
    std::string Stored(const std::string& section, const std::string& key) const {
        ProfileFile fresh;
        return fresh.GetString(section, key, "(none)", ProfileFile::kWholeValue, path);
    }
    std::string HoursStored() const { return Stored(Section(), "ElapsedTime"); }

    TemporaryFolder folder;
    const std::string mainPath = folder.Write("main.ini", "[Jacks or Better(0)]\nPayLines=2\n");
    std::string path;
    ProfileFile file;
    MachineSettings settings;
    Statistics statistics;
    PayTable table;
};

TEST_F(SessionTest, TheMinutesOfTheSessionAreAddedOnceToTheHoursSoFar) {
    Open("[Jacks or Better(0)]\nElapsedTime=1.00\n");
    Save(false, kNoon + 10 * kMinute);
    EXPECT_EQ(HoursStored(), "1.17");
    Save(false, kNoon + 90 * kMinute + 59);
    EXPECT_EQ(HoursStored(), "2.50");
    EXPECT_EQ(statistics.sessionHours, 1.5);
    Save(false, kNoon - 600 * kMinute);
    EXPECT_EQ(HoursStored(), "1.00") << "a clock set back takes nothing away";

    statistics.sessionDollarsIn = 20;
    table.lines[0].sessionWins = 3;
    Save(true, kNoon);
    EXPECT_EQ(statistics.sessionDollarsIn + table.lines[0].sessionWins, 0);
}

TEST_F(SessionTest, ASaveWritesEverySettingInOrderAndAMissingFileGivesTheDefaults) {
    Open("");
    settings = {
        PlayMode::kAutoHold, 0.05, 120, 3, 330, "Deuces Wild", 2, 40, 20, false, true, false,
        Speed::kFast};
    EXPECT_TRUE(Save(false, kNoon));
    EXPECT_TRUE(
        folder.Read("game.qdx")
            .starts_with(
                "[main]\nMode=3\nCoin=0.05\nCredits=120\nBet=3\nGameID=330\nGameName=Deuces Wild\n"
                "CreditsEntered=40\nDollarIn=20\nDoubleUp=0\nShowDollar=1\nSounds=0\nSpeed=3\n\n"
                "[ActiveTbl]\nDeuces Wild=2\n\n[Deuces Wild(2)]\nCreditsPlayed=0\n"));
    EXPECT_TRUE(folder.Read("game.qdx").ends_with("NextError=0\nElapsedTime=0.00\n\n"));

    settings.showDollar = false;
    LoadCurrentGame({file, folder.Path("missing.qdx")}, "", settings);
    ReadSettings({file, folder.Path("missing.qdx")}, settings);
    EXPECT_TRUE(Save(false, kNoon));
    EXPECT_TRUE(
        folder.Read("game.qdx")
            .starts_with(
                "[main]\nMode=1\nCoin=1.00\nCredits=0\nBet=5\nGameID=300\nGameName=Jacks or "
                "Better\n"
                "CreditsEntered=0\nDollarIn=100\nDoubleUp=1\nShowDollar=1\nSounds=1\nSpeed=2\n\n"));
}

TEST_F(SessionTest, ASaveLeavesTheRestOfTheFileAsItWas) {
    const std::string notes = "[Notes]\n" + std::string(9000, 'n') + "\nno key\n\n  a = b \n\n";
    const std::string log = "Error0=" + std::string(9000, '1') + "\n";
    Open("before\n" + notes + "[main]\ncredits=7\nTheme=dark\n\n[Jacks or Better(0)]\n" + log +
         "\n[Mine(4)]\nHandsPlayed=1\n\n");
    EXPECT_EQ(settings.credits, 7);
    settings.credits = 8;
    EXPECT_TRUE(Save(false, kNoon));
    const std::string saved = folder.Read("game.qdx");
    EXPECT_TRUE(saved.starts_with("before\n" + notes + "[main]\ncredits=8\nTheme=dark\nMode=1\n"));
    EXPECT_NE(saved.find("\n\n[Jacks or Better(0)]\n" + log + "CreditsPlayed=0\n"),
              std::string::npos);
    EXPECT_NE(saved.find("ElapsedTime=0.00\n\n[Mine(4)]\nHandsPlayed=1\n\n[ActiveTbl]\n"),
              std::string::npos);

    EXPECT_TRUE(Save(false, kNoon));
    EXPECT_EQ(folder.Read("game.qdx"), saved) << "what is not changed is the same to the byte";
}

TEST_F(SessionTest, AResetStoresZeroesAndKeepsTheLogAndTheFixedHand) {
    Open(
        "[Jacks or Better(0)]\nHandsPlayed=100\nPayLine0Won=4\nBestER=9.5\nErrCost=2\n"
        "SetCard0=33\nNextError=6\nError0=1,2\nElapsedTime=7.25\n[main]\nCreditsEntered=80\n"
        "Credits=12\n");
    statistics.handsPlayed.Add(3);
    ResetStatistics({file, path}, {settings, statistics, table}, kNoon + 99);
    EXPECT_TRUE(SaveSettings({file, path}, {settings, statistics, table}, true, kNoon + 99));
    const std::tuple<std::string, const char*, const char*> stored[] = {
        {Section(), "HandsPlayed", "0"},        {Section(), "PayLine0Won", "0"},
        {Section(), "NextError", "0"},          {Section(), "BestER", "0.0000      "},
        {Section(), "ErrCost", "0.0000      "}, {Section(), "ElapsedTime", "0.00"},
        {Section(), "SetCard0", "33"},          {Section(), "Error0", "1,2"},
        {"main", "CreditsEntered", "0"},        {"main", "Credits", "12"}};
    for (const auto& [section, key, value] : stored) EXPECT_EQ(Stored(section, key), value) << key;
    EXPECT_EQ(statistics.sessionStart, kNoon + 99);
}

}  // namespace
