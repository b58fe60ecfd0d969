#include "core/store/AnalysisCache.h"

#include <gtest/gtest.h>

#include <set>

#include "core/profile/ProfileFile.h"
#include "core/text/IsoTime.h"
#include "tests/core/TestGames.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace {

constexpr std::int64_t kNow = 1'795'464'909;  // by date(1)
constexpr const char* kSection = "Jacks or Better(0)";

// A table that uses every field which decides the figures.
PayTable Rich() {
    PayTable table = DeucesWild();
    table.lines[0].bonusQuads = {1, 13};
    table.lines[0].trailers = {2, 3};
    return table;
}

PayTable Changed(const std::function<void(PayTable&)>& change) {
    PayTable table = Rich();
    change(table);
    return table;
}

struct AnalysisCacheTest : testing::Test {
    // Analyses, of each game the share that is told.
    void Keep(const PayTable& table, double share) {
        GameAnalysisWatcher watcher;
        watcher.progress = [share](double done, double all) { return done < share * all; };
        const GameTotals totals = AnalyzeGame(LineTables(table), table, 0.25, watcher);
        WriteToCache(AnalysisEntries(totals, table, 0.25), StampOf(totals, table, 0.25, kNow),
                     kSection, cache);
    }
    std::string KeysBehindTheFigures() {
        const std::string text = file.GetSectionText(kSection, cache.path).value_or("");
        return text.substr(text.find('\n', text.find("\nNothing=") + 1) + 1);
    }

    TemporaryFolder folder;
    ProfileFile file;
    ProfileOnDisk cache{file, folder.Path("cache.ini")};
};

}  // namespace

TEST(PaysHashTest, WhatDecidesTheFiguresChangesItAndNothingElseDoes) {
    // The hash of a text by a script that knows no line of this program.
    EXPECT_EQ(PaysHash(JacksOrBetter()), "2f464067f07468d2");
    std::set<std::string> hashes = {PaysHash(Rich())};
    const std::function<void(PayTable&)> decisive[] = {
        [](PayTable& table) { table.type = GameType::kDoubleDraw; },
        [](PayTable& table) { table.deckSize = 53; },
        [](PayTable& table) { table.jokers = 1; },
        [](PayTable& table) { table.wildRanks[0] = 3; },
        [](PayTable& table) { table.minPair = 11; },
        [](PayTable& table) { table.usesWilds = false; },
        [](PayTable& table) { table.lines[1].rank = kFlush; },
        [](PayTable& table) { ++table.lines[1].payout; },
        [](PayTable& table) { ++table.lines[1].maxPayout; },
        [](PayTable& table) { table.lines[0].bonusQuads = {1}; },
        [](PayTable& table) { table.lines[0].trailers = {2}; },
        [](PayTable& table) { table.lines[0].bonusQuads.swap(table.lines[0].trailers); },
        [](PayTable& table) { table.lines[0].wildsOK = !table.lines[0].wildsOK; },
        [](PayTable& table) { table.lines.pop_back(); },
        [](PayTable& table) { std::swap(table.lines[2], table.lines[3]); },
    };
    for (const auto& change : decisive) {
        EXPECT_TRUE(hashes.insert(PaysHash(Changed(change))).second) << hashes.size();
    }
    EXPECT_EQ(PaysHash(Changed([](PayTable& table) {
                  table.gameId = 9001;
                  table.maxBet = 3;
                  table.charlieBonus = table.redBlackBonus = true;
                  table.spinBonus = table.targetBonus = true;
                  table.lines[0].description = table.lines[0].shortDescription = "X";
                  table.lines[0].totalWins = table.lines[0].sessionWins = 7;
                  table.lines[0].bonusQuads = {13, 1};
              })),
              PaysHash(Rich()));
}

TEST(IsoTimeTest, TimesAreReadAsTheyAreWritten) {
    EXPECT_EQ(IsoTime(kNow), "2026-11-23T20:15:09Z");
    for (const std::int64_t time : {kNow, std::int64_t{0}, std::int64_t{-86'400}}) {
        EXPECT_EQ(ParseIsoTime(IsoTime(time)), time);
    }
    for (const char* wrong : {"", "2026-11-23", "2026-11-23T20:15:09", "2026-13-23T20:15:09Z",
                              "2026-11-23T20:15:09Z "}) {
        EXPECT_EQ(ParseIsoTime(wrong), std::nullopt) << wrong;
    }
    EXPECT_EQ(IsoTime(INT64_MAX), "");
}

TEST_F(AnalysisCacheTest, APartIsMarkedBehindTheFiguresAndAWholeRunTakesTheMarkAway) {
    const PayTable table = JacksOrBetter();
    const std::string stamp = "Date=2026-11-23T20:15:09Z\nPays=" + PaysHash(table) + "\n";
    EXPECT_EQ(StandingOf(cache, kSection, table), AnalysisStanding::kNone);
    Keep(table, 0.245);
    EXPECT_EQ(KeysBehindTheFigures(), stamp + "Stopped=24 %\n");
    EXPECT_EQ(StandingOf(cache, kSection, table), AnalysisStanding::kStopped);
    Keep(table, 2);
    EXPECT_EQ(KeysBehindTheFigures(), stamp);
    EXPECT_EQ(StandingOf(cache, kSection, table), AnalysisStanding::kWhole);
    // One line more has its row before these keys.
    Keep(WithLine(table, Natural(kRoyalFlush, 1)), 2);
    EXPECT_NE(KeysBehindTheFigures().find("Payline9="), std::string::npos);
    EXPECT_EQ(KeysBehindTheFigures().find("Payline9="), 0U);
    EXPECT_EQ(StandingOf(cache, kSection, table), AnalysisStanding::kOtherPays);
    file.WriteString(kSection, "Pays", std::nullopt, cache.path);
    EXPECT_EQ(StandingOf(cache, kSection, table), AnalysisStanding::kUnknownPays);
}

// The counts are those of every book: 2,598,960 hands, a royal flush in 40,390.55, 45.46 percent
// that pay.
TEST_F(AnalysisCacheTest, TheFiguresAreReadAsTheyWereFound) {
    EXPECT_EQ(ReadAnalysis(cache, kSection, 9), std::nullopt);
    Keep(JacksOrBetter(), 2);
    const auto analysis = ReadAnalysis(cache, kSection, 9).value_or(StoredAnalysis{});
    EXPECT_EQ(analysis.coin, 0.25);
    EXPECT_EQ(analysis.payoutPercent, 99.5439);
    EXPECT_EQ(analysis.initHandsTotal, 2'598'960);
    EXPECT_EQ(analysis.stamp.date, kNow);
    ASSERT_EQ(analysis.lines.size(), 9U);
    EXPECT_NEAR(1 / analysis.Probability(analysis.lines[0]), 40390.55, 0.005);
    EXPECT_NEAR(analysis.Probability(analysis.nothing), 0.545435, 1e-6);
    double all = 0;
    for (const StoredLine& line : analysis.lines) {
        double ofLine = 0;
        for (std::size_t drawn = 0; drawn < kDraws; ++drawn) {
            ofLine += analysis.Probability(line, drawn);
        }
        EXPECT_NEAR(ofLine, analysis.Probability(line), 1e-9);
        all += ofLine;
    }
    EXPECT_NEAR(all, 0.454565, 1e-6);
}

TEST_F(AnalysisCacheTest, WhatAPersonHasMadeOfTheFileHarmsNothing) {
    cache.path = folder.Write("edited.ini",
                              "[Jacks or Better(0)]\nER=\nPayline0=;;;;;;;;-5;x\nPayline1=1e999\n"
                              "Date=soon\nPays=x\nStopped=many\n");
    const auto analysis = ReadAnalysis(cache, kSection, 15).value_or(StoredAnalysis{});
    EXPECT_EQ(analysis.lines.size(), 15U);
    EXPECT_EQ(analysis.Probability(analysis.lines[0]), 0);
    EXPECT_EQ(analysis.Probability(analysis.lines[0], 5), 0);
    EXPECT_EQ(analysis.stamp.date, std::nullopt);
    EXPECT_EQ(analysis.stamp.stoppedAt, 0);
}
