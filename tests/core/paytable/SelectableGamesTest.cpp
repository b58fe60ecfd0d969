#include <gtest/gtest.h>

#include <algorithm>

#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace {

TEST(SelectableGamesTest, OfferedGamesComeFirstThenThoseOfThePlayerThatHaveATable) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("main.ini",
                                          "[User Games]\n2=9002,Coconut\n3=9003,No Table\n"
                                          "7=9007,Almond\n[Coconut(0)]\nPayLines=9\n"
                                          "[No Table(0)]\nPayLines=0\n[Almond(0)]\nPayLines=1\n");
    ProfileFile file;
    const auto games = SelectableGames(file, path);
    ASSERT_EQ(games.size(), 33U);  // 31 of the built-in games are offered
    EXPECT_EQ(games.front(), "Jacks or Better");
    EXPECT_EQ(games[30], "Pick Em Poker");
    EXPECT_EQ(games[31], "Coconut");
    EXPECT_EQ(games[32], "Almond");
    EXPECT_EQ(std::ranges::count(games, "Sneak Peak Poker"), 0);
}

}  // namespace
