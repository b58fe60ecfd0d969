// The rows of the reports, without a window: the figures of the cache and of the error log.
#include <cstdlib>
#include <map>

#include "core/store/AnalysisCache.h"
#include "game/reports/AllGamesRows.h"
#include "game/reports/ErrorLogRows.h"
#include "game/reports/GameRows.h"
#include "game/reports/HoldKind.h"
#include "game/session/AllGames.h"
#include "tests/game/FakePorts.h"

namespace {

std::string RowText(const ReportRow& row) {
    std::string text;
    for (const ReportCell& cell : row.cells) text += (text.empty() ? "" : "|") + cell.text;
    return text;
}

// The rows by their first cells.
std::map<std::string, std::string> RowsOf(const ReportTable& table) {
    std::map<std::string, std::string> rows;
    for (const ReportRow& row : table.rows) {
        EXPECT_EQ(row.cells.size(), table.columns.size()) << RowText(row);
        rows.emplace(row.cells[0].text, RowText(row));
    }
    return rows;
}

struct ReportRowsTest : testing::Test, TestSeat {
    ReportRowsTest() {
        setenv("TZ", "UTC", 1);
        machine.files.mainPath = machine.folder.Path("Tolvane.ini");
        std::filesystem::copy_file(TOLVANE_DATA_FOLDER "/Tolvane.ini", machine.files.mainPath);
        machine.file.WriteString("User Games", "2", "9002,Mine", machine.files.mainPath);
        machine.file.SetSectionText("Mine(0)", "NextIndex=3\nPayLines=1\nRank0=11\nMaxPayout0=5\n",
                                    machine.files.mainPath);
        machine.file.SetSectionText("Mine(3)", "PrevIndex=0\nPayLines=1\nRank0=11\nMaxPayout0=6\n",
                                    machine.files.mainPath);
    }
    void Wait(AllGames& games) {
        while (games.IsRunning()) {
            games.Collect();
            std::this_thread::yield();
        }
    }
    void Log(std::string_view cards, HoldMask best, double cost, std::int64_t date) {
        ErrorLogEntry entry{.best = best, .bestReturn = cost + 1, .playerReturn = 1, .date = date};
        std::ranges::copy(Cards(engine.payTable, cards, kHandSize), entry.hand.begin());
        AppendError(machine.files.Game(), StatsSection(engine), entry, engine.statistics.nextError);
    }

    const DataFilePaths& paths = machine.paths;
    ProfileOnDisk cache{machine.file, machine.paths.analysisCache};
};

}  // namespace

TEST_F(ReportRowsTest, EveryTableIsListedAndTheMissingOnesAreAnalyzedInTheBackground) {
    AllGames games(seat, paths);
    EXPECT_EQ(games.Table().rows.size(), 44U) << "42 games, and two tables of the own one";
    EXPECT_EQ(games.CountMissing(), 43) << "all but Sneak Peak Poker";
    // All but two are there already, so that the test does not take long.
    for (const ReportRow& row : games.Table().rows) {
        const TableOfGame place = games.PlaceOf(row.id).value_or(TableOfGame{});
        if (place.gameId <= 302 || place.gameName == "Mine") continue;
        const PayTable table = LoadPayTable(machine.files.Main(), place, "");
        WriteToCache({{"ER", "", "1"}, {"Payout%", "", "50"}}, {0, PaysHash(table), {}},
                     TableSection(place.gameName, place.tableIndex), cache);
    }
    EXPECT_EQ(games.CountMissing(), 5);
    games.AnalyzeMissing();
    EXPECT_TRUE(games.IsRunning());
    machine.file.DeleteSection("Mine(3)", machine.files.mainPath);
    const TableOfGame changed = games.PlaceOf(302'000).value_or(TableOfGame{});
    machine.file.WriteString(TableSection(changed.gameName, 0), "MaxPayout0", "4005",
                             machine.files.mainPath);
    Wait(games);
    EXPECT_TRUE(games.IsKept());
    EXPECT_EQ(games.CountMissing(), 2) << "those that are gone or changed since are not stored";
    games.Refresh();
    EXPECT_EQ(games.CountMissing(), 1);
    const auto rows = RowsOf(games.Table());
    EXPECT_EQ(rows.at("Jacks or Better"),
              "Jacks or Better|0|99.5439|19.5147|4.4175|45.46|40,390.55|2026-09-21 14:13|in the "
              "menu");
    EXPECT_EQ(rows.at("Sneak Peak Poker"), "Sneak Peak Poker|0||||||not available|not in the menu");
    EXPECT_EQ(rows.at("Dbl Draw Bonus").substr(0, 28), "Dbl Draw Bonus|0|50.0000||||")
        << "the rest ends at the first draw";
    EXPECT_TRUE(rows.at("Mine").ends_with("|your own")) << rows.at("Mine");
    EXPECT_TRUE(rows.at("Spin Bonus Poker").ends_with("|not in the menu"));
    EXPECT_EQ(games.PlaceOf(9002'000).value_or(TableOfGame{}).gameName, "Mine");
    EXPECT_FALSE(games.PlaceOf(1).has_value() || games.CanAnalyze(351'000));
}

TEST_F(ReportRowsTest, FiguresThatAreNotOfTheTableAreLeftOut) {
    AllGames games(seat, paths);
    const std::string hash =
        PaysHash(LoadPayTable(machine.files.Main(), {300, "Jacks or Better"}, ""));
    const std::pair<AnalysisStamp, const char*> stamps[] = {{{0, hash, 24}, "stopped at 24 %"},
                                                            {{0, "0123", {}}, "of other pays"},
                                                            {{}, "perhaps of other pays"}};
    for (const auto& [stamp, reason] : stamps) {
        WriteToCache({{"ER", "", "1"}, {"Payout%", "", "50"}}, stamp, "Jacks or Better(0)", cache);
        EXPECT_EQ(RowsOf(games.Table()).at("Jacks or Better"),
                  std::string("Jacks or Better|0||||||") + reason + "|in the menu");
        EXPECT_EQ(games.CountMissing(), 43);
    }
}

TEST_F(ReportRowsTest, ARunThatIsCancelledKeepsWhatIsDoneAndStoresNoPart) {
    AllGames games(seat, paths);
    games.AnalyzeMissing();
    games.Cancel();
    Wait(games);
    for (const char* game : {"Jacks or Better(0)", "One-Eyed Jacks(0)"}) {
        EXPECT_EQ(ReadStamp(cache, game).stoppedAt, std::nullopt);
    }
    EXPECT_GT(games.CountMissing(), 30);
    machine.files.mainPath += ".missing";
    games.Refresh();
    games.AnalyzeMissing();
    EXPECT_TRUE(games.Table().rows.empty() && !games.IsRunning()) << "nothing is there to do";
}

TEST_F(ReportRowsTest, WhatIsNotKeptIsSaidUntilItIs) {
    std::filesystem::create_directory(paths.analysisCache);  // where the file is to be
    AllGames games(seat, paths);
    games.AnalyzeMissing();
    while (!games.Collect()) std::this_thread::yield();
    games.Cancel();
    Wait(games);
    EXPECT_FALSE(games.IsKept());
    games.Refresh();
    EXPECT_FALSE(games.IsKept());
    std::filesystem::remove(paths.analysisCache);
    games.Refresh();
    EXPECT_TRUE(games.IsKept());
}

TEST_F(ReportRowsTest, ALineHasItsChanceItsShareAndTheCardsThatAreDrawnForIt) {
    const auto before = GameTable(engine, cache);
    EXPECT_EQ(RowsOf(before).at("ROYAL FLUSH"), "ROYAL FLUSH|800|||||||||||");
    EXPECT_NE(before.warning, "");
    GameAnalysisWatcher none;
    const auto totals = AnalyzeGame(LineTables(engine.payTable), engine.payTable, 1, none);
    engine.settings.coin = 0.25;
    EXPECT_EQ(GameTable(engine, cache).head[3].value, "$0.25") << "of the machine";
    WriteToCache(AnalysisEntries(totals, engine.payTable, 1),
                 StampOf(totals, engine.payTable, 1, 0), "Jacks or Better(0)", cache);
    const auto table = GameTable(engine, cache);
    EXPECT_EQ(table.head[2].value + table.head[3].value, "5 coins$1.00");
    const auto rows = RowsOf(table);
    EXPECT_EQ(table.warning, "");
    EXPECT_EQ(table.rows.size(), 10U);
    EXPECT_TRUE(rows.at("ROYAL FLUSH")
                    .starts_with("ROYAL FLUSH|800|0.00248|40,390.55|1.9807|1.99|15.8059|0.00015|"))
        << rows.at("ROYAL FLUSH");  // 4 of 2,598,960 hands are dealt so
    EXPECT_TRUE(rows.at("NOTHING").starts_with("NOTHING|0|54.54347|1.83|0.0000|0.00|"))
        << rows.at("NOTHING");
    double percent = 0;
    for (const ReportRow& row : table.rows) percent += row.cells[4].value.value_or(0);
    EXPECT_NEAR(percent, 99.5439, 1e-4);
    // With other pays the returns are those that were found, to two decimals.
    engine.payTable.lines[0].maxPayout = 4005;
    const auto other = GameTable(engine, cache);
    EXPECT_TRUE(other.warning.starts_with("Figures of other pays"));
    EXPECT_NE(RowsOf(other).at("ROYAL FLUSH").find("|40,390.55|1.9800|"), std::string::npos);
}

TEST_F(ReportRowsTest, ErrorsAreListedWithTheirCostAndAddedUpByKind) {
    engine.settings.coin = 0.25;
    Log("AS KS QS JS 9S", 0b11110, 2, 0);
    Log("JS JD TC 9H 2S", 0b11000, 0.5, 1'795'464'909);
    Log("AS KS QS TS 9S", 0b11110, 1.5, 1'795'464'909);
    const auto errors = ReadErrors(engine, machine.files);
    const auto table = ErrorTable(engine, errors, 1'795'464'909);
    EXPECT_EQ(table.head[2].value + table.head[4].value, "5 coins2026-11-23 20:15");
    ASSERT_EQ(table.rows.size(), 3U);
    EXPECT_EQ(RowText(table.rows[0]),
              "1||AS KS QS JS 9S|AKQJ_|_____|2.0000|8.0000|4 to a royal flush");
    EXPECT_EQ(RowText(table.rows[1]),
              "2|2026-11-23 20:15|JS JD TC 9H 2S|JJ___|_____|0.5000|2.0000|Pair");
    EXPECT_EQ(table.rows[1].cells[2].cards.size(), 5U);
    const auto kinds = ErrorKindTable(engine, errors, 0);
    ASSERT_EQ(kinds.rows.size(), 2U);
    EXPECT_EQ(RowText(kinds.rows[0]), "4 to a royal flush|2|3.5000|14.0000|1.7500|87.50");
    EXPECT_TRUE(ErrorTable(engine, {}, 0).rows.empty() &&
                ErrorKindTable(engine, {}, 0).rows.empty());
}

TEST(HoldKindTest, AHoldIsNamedByWhatItIsDrawnTo) {
    const std::tuple<const char*, HoldMask, const char*> jacks[] = {
        {"AS KS QS JS 9S", 31, "Pat hand"},
        {"AS KS QS JS 9S", 0, "Nothing held"},
        {"AS KS QS JS 9S", 16, "One card"},
        {"AS KS QS JS 9S", 0b11110, "4 to a royal flush"},
        {"9S TS JS QS 2D", 0b11110, "4 to a straight flush"},
        {"AS 2S 5S 3D 3H", 0b11100, "3 to a straight flush"},
        {"AS KS 9S 2S 3D", 0b11110, "4 to a flush"},
        {"AS KD QH JC 2D", 0b11110, "4 to a straight"},
        {"AS KD QH JC 2D", 0b11000, "2 cards"},
        {"AS KD 9H 4C 2D", 0b11100, "3 cards"},
        {"AS AD 9H 9C 2D", 0b11110, "Two pairs"},
        {"AS AD 9H 4C 2D", 0b11000, "Pair"},
        {"AS AD 9H 4C 2D", 0b11100, "Pair with kicker"},
        {"9S 9D 9H 4C 2D", 0b11100, "Three of a kind"},
        {"9S 9D 9H 9C 2D", 0b11110, "Four of a kind"},
    };
    for (const auto& [cards, mask, kind] : jacks) {
        EXPECT_EQ(HoldKind(Known(JacksOrBetter(), cards).hand, mask, JacksOrBetter()), kind)
            << cards << " " << mask;
    }
    const std::tuple<const char*, HoldMask, const char*> deuces[] = {
        {"2S KS QS 9D 4H", 0b11100, "3 to a royal flush, 1 wild"},
        {"2S 2D QS 9D 4H", 0b11000, "2 wild cards"},
        {"2S QS QD 9D 4H", 0b11100, "Pair, 1 wild"},
        {"2S KS QS 9D 4H", 0b10000, "Wild card"},
    };
    for (const auto& [cards, mask, kind] : deuces) {
        EXPECT_EQ(HoldKind(Known(DeucesWild(), cards).hand, mask, DeucesWild()), kind)
            << cards << " " << mask;
    }
    EXPECT_EQ(HoldKind(Known(PickEm(), "AS KD 9H 4C").hand, kLeftPile, PickEm()), "Left pile");
}
