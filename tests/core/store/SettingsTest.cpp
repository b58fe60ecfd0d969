#include "core/store/Settings.h"

#include <gtest/gtest.h>

#include "core/profile/ProfileFile.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace {

class SettingsTest : public testing::Test {
  protected:
    // What a game file of this main section gives.
    MachineSettings Loaded(const std::string& mainSection) {
        const std::string path = folder.Write("game.qdx", "[main]\n" + mainSection);
        MachineSettings settings;
        ProfileFile file;
        LoadCurrentGame({file, path}, mainPath, settings);
        ReadSettings({file, path}, settings);
        return settings;
    }
    // "id name(table)"
    std::string Game(const std::string& mainSection) {
        const MachineSettings settings = Loaded(mainSection);
        return std::to_string(settings.gameId) + " " + settings.gameName + "(" +
               std::to_string(settings.activeTable) + ")";
    }

    TemporaryFolder folder;
    std::string mainPath = folder.Write(
        "main.ini",
        "[User Games]\n3=9003,Mine\n4=9007,Odd\n[Jacks or Better(0)]\nPayLines=9\n"
        "[Jacks or Better(2)]\nPayLines=9\n[Jacks or Better(3)]\nPayLines=0\n[Mine(1)]\n"
        "PayLines=1\n");
};

TEST_F(SettingsTest, ValuesByHandAreMendedSoThatTheMachineCanBePlayed) {
    const auto settings = Loaded(
        "Mode=9\nCoin=-0.25\nCredits=-99999999999\nBet=-3\nSpeed=7\nSounds=7\nDoubleUp=\n"
        "DollarIn=99999999999\n");
    EXPECT_EQ(settings.mode, PlayMode::kCasino);
    EXPECT_EQ(Loaded("Mode=4\n").mode, PlayMode::kErrorLog) << "the last there is";
    EXPECT_EQ(settings.credits, 0);
    EXPECT_EQ(settings.bet, 1);
    EXPECT_EQ(DelaysOf(settings.speed).deal, DelaysOf(Speed::kSlow).deal);
    EXPECT_TRUE(settings.sounds);
    EXPECT_FALSE(settings.doubleUp);
    EXPECT_EQ(settings.dollarIn, 2147483647);
    const std::pair<const char*, double> coins[] = {{"-0.25", 1}, {"0.001", 1},   {"1e999", 1},
                                                    {"nan", 1},   {"0.01", 0.01}, {" .250", 0.25}};
    for (const auto& [stored, coin] : coins) {
        EXPECT_EQ(Loaded("Coin=" + std::string(stored) + "\n").coin, coin) << stored;
    }
}

TEST_F(SettingsTest, TheNameOfTheGameDecides) {
    EXPECT_EQ(Game("GameID=77\nGameName=Deuces Wild\n"), "330 Deuces Wild(0)");
    EXPECT_EQ(Game("GameID=356\nGameName=Super Bonus Poker\n"), "356 Super Bonus Poker(0)");
    EXPECT_EQ(Game("GameID=9003\nGameName=Mine\n"), "9003 Mine(0)");
    EXPECT_EQ(Game("GameID=9007\nGameName=Odd\n"), "9007 Odd(0)") << "the id of its entry";
    for (const char* unknown : {"GameID=330\nGameName=\n", "GameID=330\nGameName=Nobody's\n",
                                "GameID=99999999999\n", "GameID=9001\nGameName=(\n"}) {
        EXPECT_EQ(Game(unknown), "300 Jacks or Better(0)") << unknown;
    }
}

TEST_F(SettingsTest, AnActiveTableIsOneThatExists) {
    EXPECT_EQ(Game("[ActiveTbl]\njacks or better=2\n"), "300 Jacks or Better(2)");
    EXPECT_EQ(Game("GameName=Mine\n[ActiveTbl]\nMine=1\nJacks or Better=2\n"), "9003 Mine(1)");
    for (const char* nowhere : {"1", "3", "-1", "garbage"}) {
        EXPECT_EQ(Game("[ActiveTbl]\nJacks or Better=" + std::string(nowhere) + "\n"),
                  "300 Jacks or Better(0)")
            << nowhere;
    }
}

}  // namespace
