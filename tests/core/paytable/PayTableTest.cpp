#include "core/paytable/PayTable.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace {

class PayTableTest : public testing::Test {
  protected:
    // Loads table 0 of game G from a main file of one section with these lines.
    PayTable Loaded(const std::string& lines) {
        folder.Write("main.ini", "[G(0)]\n" + lines);
        ProfileFile file;
        return LoadPayTable({file, folder.Path("main.ini")}, {300, "G"}, "");
    }

    TemporaryFolder folder;
};

TEST_F(PayTableTest, AMissingTableHasTheDefaultsAndNoLines) {
    const PayTable table = Loaded("");
    PayTable expected;
    expected.gameId = 300;
    EXPECT_EQ(table, expected);
}

TEST_F(PayTableTest, ALineIsReadWithItsRanksAndDescriptions) {
    const PayTable table = Loaded(
        "PayLines=2\nWildCard=2\nJokers=1\nUsesWilds=1\nMinPair=\n"
        "Rank0=2\nDescr0=4 ACES W/2-4;A W/2-4\nPayout0=400\nMaxPayout0=2000\nBonusQuads0=1\n"
        "Trailer0=2,3 4\nWildsOK0=1\nRank1=5\nDescr1=QUADS\n");
    ASSERT_EQ(table.lines.size(), 2U);
    EXPECT_EQ(table.lines[0], (PayLine{HandRank::kBonusFourOfAKind,
                                       "4 ACES W/2-4",
                                       "A W/2-4",
                                       400,
                                       2000,
                                       {1},
                                       {2, 3, 4},
                                       true}));
    EXPECT_EQ(table.lines[1].shortDescription, "4K") << "the rank's own when none is stored";
    EXPECT_EQ(table.wildRanks, (std::array<int, 5>{2, -1, -1, -1, -1}));
    EXPECT_EQ(table.deckSize, 53);
    EXPECT_EQ(table.minPair, 0) << "an empty value reads as 0: every pair pays";
}

TEST_F(PayTableTest, ValuesOutOfRangeAreTakenAsTheNearestSense) {
    const PayTable table = Loaded(
        "Type=0\nJokers=9\nWildCard=2,2,99,-1,14;3:4 5 6 7\nMaxBet=-3\nPayLines=1000\n"
        "Rank0=99\nPayout0=-5\nMaxPayout0=99999999999\n"
        "BonusQuads0=1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1\nTrailer0=0,-1,5,\n"
        "Descr1=X;123456789ß12345\nRank1=-4\n");
    EXPECT_EQ(table.type, GameType::kStandard);
    EXPECT_EQ(table.jokers, 5);
    EXPECT_EQ(table.wildRanks, (std::array<int, 5>{2, 1, 3, 4, 5}));
    EXPECT_EQ(table.maxBet, 1);
    ASSERT_EQ(table.lines.size(), 15U);
    EXPECT_EQ(table.lines[0].rank, HandRank::kUnknown);
    EXPECT_EQ(table.lines[0].payout, 0);
    EXPECT_EQ(table.lines[0].maxPayout, INT_MAX);
    EXPECT_EQ(table.lines[0].bonusQuads.size(), 13U);
    EXPECT_EQ(table.lines[0].trailers, std::vector<int>{5});
    EXPECT_EQ(table.lines[1].shortDescription, "123456789") << "no half character";
    EXPECT_EQ(table.lines[14].rank, HandRank::kRoyalFlush) << "the default of a missing key";
}

TEST_F(PayTableTest, FiveCoinsArePaidTheMaximumAndNoOtherBetIs) {
    const PayTable table =
        Loaded("PayLines=2\nMaxBet=10\nPayout0=250\nMaxPayout0=4000\nPayout1=25\nMaxPayout1=25\n");
    EXPECT_EQ(LineUnitPay(table, 0, 4), 1000);
    EXPECT_EQ(LineUnitPay(table, 0, 5), 4000);
    EXPECT_EQ(LineUnitPay(table, 0, 10), 2500);
    EXPECT_EQ(LineUnitPay(table, 0, INT_MAX), INT_MAX) << "a pay never wraps";
    EXPECT_EQ(LineUnitPay(table, 2, 5), 0);
    EXPECT_EQ(LineUnitPay(table, -1, 5), 0);
    const std::array<int, 3> coinPays[] = {{250, 4000, 800}, {7, 0, 7}, {25, 25, 25}};
    for (const auto& [payout, maxPayout, pay] : coinPays) {
        PayLine line;
        line.payout = payout;
        line.maxPayout = maxPayout;
        EXPECT_EQ(LineCoinPay(line), pay) << payout;
    }
}

TEST_F(PayTableTest, AChainThatRunsInACircleEnds) {
    folder.Write("main.ini",
                 "[G(0)]\nPayLines=1\nNextIndex=3\n[G(3)]\nPayLines=1\nNextIndex=1\n"
                 "[G(1)]\nPayLines=1\nNextIndex=0\n[H(0)]\nPayLines=1\nNextIndex=7\n");
    ProfileFile file;
    EXPECT_EQ(TableChain({file, folder.Path("main.ini")}, "G"), (std::vector<int>{0, 3, 1}));
    EXPECT_EQ(TableChain({file, folder.Path("main.ini")}, "H"), (std::vector<int>{0}));
    EXPECT_TRUE(TableChain({file, folder.Path("main.ini")}, "I").empty());
}

TEST(GameCatalogueTest, NamesAndIdsOfBuiltInAndUserGames) {
    TemporaryFolder folder;
    folder.Write(
        "main.ini",
        "[User Games]\n1=9001,User Game 1\n2=9002,Red and Black Poker\n3=9316,Spare\n4=316,Odd\n"
        "5=9005,\n");
    const std::string path = folder.Path("main.ini");
    ProfileFile file;
    EXPECT_EQ(GameIdFromName({file, path}, "deuces WILD"), 330);
    EXPECT_EQ(GameIdFromName({file, path}, "red and black poker"), 9002)
        << "menu only, so the user's";
    EXPECT_EQ(GameIdFromName({file, path}, "5 Card Charlie"), 0);
    EXPECT_EQ(GameIdFromName({file, path}, "Spare"), 9003) << "the slot decides, not the stored id";
    EXPECT_EQ(GameNameFromId({file, path}, 350), "Pick Em Poker");
    EXPECT_EQ(GameNameFromId({file, path}, 9002), "Red and Black Poker");
    EXPECT_EQ(GameNameFromId({file, path}, 351), "") << "hidden";
    EXPECT_EQ(GameNameFromId({file, path}, 9009), "");
}

TEST(GameCatalogueTest, OfferedGamesComeFirstThenThoseOfThePlayerThatHaveATable) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("main.ini",
                                          "[User Games]\n2=9002,Coconut\n3=9003,No Table\n"
                                          "7=9007,Almond\n[Coconut(0)]\nPayLines=9\n"
                                          "[No Table(0)]\nPayLines=0\n[Almond(0)]\nPayLines=1\n");
    ProfileFile file;
    const auto games = SelectableGames({file, path});
    ASSERT_EQ(games.size(), 33U);  // 31 of the built-in games are offered
    EXPECT_EQ(games.front(), "Jacks or Better");
    EXPECT_EQ(games[31], "Coconut");
    EXPECT_EQ(games[32], "Almond");
}

}  // namespace
