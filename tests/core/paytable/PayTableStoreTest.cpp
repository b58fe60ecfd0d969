#include "core/paytable/PayTableStore.h"

#include <gtest/gtest.h>

#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace {

const TableOfGame kMine{9003, "My Game"};

// A table with so many lines, of payouts 1, 2, ...
PayTableTexts Table(int lines) {
    PayTableTexts table;
    for (int i = 0; i < lines; ++i) {
        auto& line = table.lines[static_cast<std::size_t>(i)];
        line = {HandRank::kFlush, "FLUSH;FL", std::to_string(i + 1), "", "", "", false};
    }
    return table;
}

// A data folder with the player's own game "My Game" in slot 3.
class PayTableStoreTest : public testing::Test {
  protected:
    PayTableStoreTest() {
        folder.Write("main.ini", "[main]\nVer=114\n\n[User Games]\n3=9003,My Game\n\n");
        folder.Write("cache.ini", "[x]\n");
    }

    // The chain 0 -> 1 -> ..., each table with a cached analysis.
    void WriteChain(int tables) {
        EXPECT_EQ(AppendTable(files, kMine, Table(1)), 0);
        for (int i = 1; i < tables; ++i) EXPECT_EQ(AppendTable(files, kMine, Table(i + 1)), i);
        for (int i = 0; i < tables; ++i) {
            file.WriteString(TableSection("My Game", i), "Cost", "1", files.analysisPath);
        }
    }

    // "0>1>3", checked along "PrevIndex" too.
    std::string Chain(const std::string& game = "My Game") {
        std::string text;
        int before = -1;
        for (const int index : TableChain(files.main, game)) {
            EXPECT_EQ(PreviousTable(files.main, game, index), before);
            text += (before < 0 ? "" : ">") + std::to_string(index);
            before = index;
        }
        return text;
    }

    bool HasAnalysis(const std::string& game, int index) {
        return file.GetInt(TableSection(game, index), "Cost", 0, files.analysisPath) != 0;
    }

    std::string Main() {
        file.Flush();
        return folder.Read("main.ini");
    }

    TemporaryFolder folder;
    ProfileFile file;
    PayTableFiles files{file, folder.Path("main.ini"), folder.Path("cache.ini")};
};

TEST_F(PayTableStoreTest, ATableIsWrittenKeyByKeyInOrder) {
    PayTableTexts table;
    table.type = GameType::kOneEyedJacks;
    table.usesWilds = true;
    table.jokers = "1";
    table.wildRanks = "2, a";
    table.minPair = "a";
    table.maxBet = "10";
    table.spinBonus = true;
    table.lines[0] = {HandRank::kBonusFourOfAKind, "FOUR; 4", "80", "400", "2,k", "q;3", true};
    table.lines[1] = {HandRank::kFlush, "FLUSH", "6", "30", "no rank", "", false};
    table.lines[3] = {HandRank::kStraight, "behind the end", "4", "20", "", "", false};
    ASSERT_TRUE(WritePayTable(files, {9003, "My Game", 0}, table, kNoNeighbours));
    EXPECT_EQ(folder.Read("main.ini"),
              "[main]\nVer=114\n\n[User Games]\n3=9003,My Game\n\n[My Game(0)]\n"
              "NextIndex=-1\nPrevIndex=-1\nType=3\nUsesWilds=1\nJokers=1\nWildCard=2,1\n"
              "MinPair=14\nMaxBet=10\nCharlieBonus=0\nRBBonus=0\nSpinBonus=1\nTgtBonus=0\n"
              "Rank0=2\nDescr0=FOUR; 4\nPayout0=80\nMaxPayout0=400\nBonusQuads0=2,13\n"
              "Trailer0=12,3\nWildsOK0=1\n"
              "Rank1=7\nDescr1=FLUSH\nPayout1=6\nMaxPayout1=30\nBonusQuads1=\nTrailer1=\n"
              "WildsOK1=0\nPayLines=2\n\n");
}

TEST_F(PayTableStoreTest, AShippedTableReadAndWrittenIsTheSame) {
    const std::string shipped = TOLVANE_DATA_FOLDER "/Tolvane.ini";
    const PayTableFiles release{file, shipped, ""};
    for (const BuiltInGame& game : BuiltInGames()) {
        const std::string name(game.name);
        const TableOfGame built{game.id, name};
        ASSERT_TRUE(
            WritePayTable(files, built, ReadPayTableTexts(release.main, name, 0), kNoNeighbours));
        const std::string section = TableSection(name, 0);
        EXPECT_EQ(file.GetSectionText(section, files.main.path),
                  file.GetSectionText(section, shipped));
    }
    EXPECT_EQ(UserGameName(files.main, 3), "My Game") << "a built-in game has no slot";
}

TEST_F(PayTableStoreTest, OnlyWildJacksAreTakenIntoNewLinesByThemselves) {
    for (const GameType type : {GameType::kStandard, GameType::kOneEyedJacks}) {
        PayTableTexts table = Table(2);
        table.type = type;
        table.usesWilds = true;
        ASSERT_TRUE(WritePayTable(files, {9003, "My Game", 0}, table, kNoNeighbours));
        const auto read = ReadPayTableTexts(files.main, kMine.gameName, 0);
        EXPECT_FALSE(read.lines[1].wildsOK) << "as stored";
        EXPECT_EQ(read.lines[2].wildsOK, type == GameType::kOneEyedJacks);
        EXPECT_EQ(read.minPair, "") << "a blank lowest pair is stored blank";
    }
}

TEST_F(PayTableStoreTest, AShorterTableLeavesNoLinesOfALongerOneAndKeepsTheChain) {
    WriteChain(3);
    ASSERT_TRUE(WritePayTable(files, {9003, "My Game", 1}, Table(6), kStoredLinks));
    file.WriteString("My Game(1)", "Descr14", "behind a gap", files.main.path);
    ASSERT_TRUE(WritePayTable(files, {9003, "My Game", 1}, Table(4), kStoredLinks));
    const auto text = file.GetSectionText("My Game(1)", files.main.path);
    EXPECT_EQ(text->find("Rank4="), std::string::npos);
    EXPECT_EQ(text->find("14="), std::string::npos);
    EXPECT_EQ(ReadPayTableTexts(files.main, "My Game", 1), Table(4));
    EXPECT_EQ(Chain(), "0>1>2");
}

TEST_F(PayTableStoreTest, AppendingOverwritesNoTableThatTheChainMisses) {
    WriteChain(3);
    file.WriteString("My Game(0)", "NextIndex", "-1", files.main.path);
    EXPECT_EQ(AppendTable(files, kMine, Table(9)), 3);
    EXPECT_EQ(Chain(), "0>3");
    EXPECT_EQ(ReadPayTableTexts(files.main, "My Game", 1), Table(2));
    ASSERT_TRUE(WritePayTable(files, {9003, "My Game", kLastTableIndex - 1}, Table(1), {-1, 3}));
    file.WriteInt("My Game(3)", "NextIndex", kLastTableIndex - 1, files.main.path);
    EXPECT_EQ(AppendTable(files, kMine, Table(1)), kLastTableIndex);
    EXPECT_EQ(AppendTable(files, kMine, Table(1)), std::nullopt);
}

TEST_F(PayTableStoreTest, EveryTableOfAChainButTheFirstCanBeTakenOut) {
    WriteChain(4);
    const std::pair<int, const char*> left[] = {{2, "0>1>3"}, {3, "0>1"}, {1, "0"}};
    for (const auto& [gone, chain] : left) {
        ASSERT_TRUE(UnlinkTable(files, "My Game", gone));
        EXPECT_EQ(Chain(), chain);
        EXPECT_FALSE(TableExists(files.main, "My Game", gone));
        EXPECT_FALSE(HasAnalysis("My Game", gone));
    }
    EXPECT_TRUE(HasAnalysis("My Game", 0));
}

TEST_F(PayTableStoreTest, RenamingAndDeletingAGameReachItsTablesBehindAGapAndNoOthers) {
    WriteChain(4);
    ASSERT_TRUE(AppendTable(files, {9004, "My Game 2"}, Table(1)));
    file.WriteInt("My Game(0)", "NextIndex", 2, files.main.path);
    file.WriteInt("My Game(2)", "PrevIndex", 0, files.main.path);
    file.WriteString("Other(3)", "PayLines", "7", files.main.path);  // left over
    ASSERT_TRUE(RenameGameTables(files, kMine, "Other"));
    EXPECT_EQ(Chain("Other"), "0>2>3");
    EXPECT_EQ(ReadPayTableTexts(files.main, "Other", 1), Table(2));
    EXPECT_EQ(ReadPayTableTexts(files.main, "Other", 3), Table(4));
    EXPECT_TRUE(HasAnalysis("Other", 1));
    EXPECT_EQ(Main().find("My Game("), std::string::npos);
    EXPECT_EQ(GameIdFromName(files.main, "other"), 9003);
    ASSERT_TRUE(DeleteGameTables(files, {9003, "Other"}));
    EXPECT_EQ(Main().find("[Other("), std::string::npos);
    EXPECT_NE(Main().find("[My Game 2(0)]"), std::string::npos);
    EXPECT_NE(Main().find("\n3=9003,User Game 3\n"), std::string::npos);
    EXPECT_FALSE(HasAnalysis("Other", 1));
}

TEST_F(PayTableStoreTest, NamesThatTheFilesWouldLoseAreTold) {
    for (const char* name : {"", "a]b", "a=b", "[a", " a", "a ", "a\nb", "a\rb", "error dates A"}) {
        EXPECT_NE(GameNameProblem(name), "") << name;
    }
    EXPECT_NE(GameNameProblem(std::string(81, 'x')), "");
    for (const char* name : {"a[b", "Deuces (my own), 9/5; x", "Kübler"}) {
        EXPECT_EQ(GameNameProblem(name), "") << name;
    }
    EXPECT_FALSE(RenameGameTables(files, kMine, "a]b"));
}

}  // namespace
