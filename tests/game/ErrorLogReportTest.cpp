#include "game/reports/ErrorLogReport.h"

#include "tests/game/TestMachine.h"

namespace {

std::string Stored(const std::string& name) {
    return TestData("../game/golden/error-" + name + ".txt");
}

struct ErrorLogReportTest : testing::Test, TestMachine {
    ErrorLogEntry Entry(HoldMask best, HoldMask player) const {
        const auto codes = Cards(engine.payTable, "AS KD TC 9H 2S 3S 4S 5S 6S 7S", 10);
        ErrorLogEntry entry{
            .best = best, .player = player, .bestReturn = 1234.5678, .playerReturn = 34.5678};
        std::copy_n(codes.begin(), kHandSize, entry.hand.begin());
        std::copy_n(codes.begin() + kHandSize, kHandSize, entry.draws.begin());
        return entry;
    }
};

// The stored texts were worked out by hand: 1200 dollars are 4800 quarters, and so on.
TEST_F(ErrorLogReportTest, AnEntryTellsTheBestPlayThePlayMadeAndItsCost) {
    engine.settings.coin = 0.25;
    EXPECT_EQ(ErrorText(engine, Entry(0b11111, 0)), Stored("entry"));
    engine.settings.coin = 1;
    Play("Pick Em Poker", 350);
    EXPECT_EQ(ErrorText(engine, Entry(25, 28)), Stored("entry-pick-em"));
}

TEST_F(ErrorLogReportTest, TheSummaryTellsAllThatWasEverPlayedOnTheTable) {
    Statistics& statistics = engine.statistics;
    engine.settings.coin = 0.05;
    statistics.handsPlayed = {10, 16000};
    statistics.playErrors = {10, 200};
    statistics.bestReturns = {10, 40000};
    statistics.errorCosts = {10, 500};
    EXPECT_EQ(ErrorSummary(engine), Stored("summary"));
}

TEST_F(ErrorLogReportTest, NothingPlayedIsNothingDividedByNothing) {
    engine.settings.coin = 0;
    const std::string summary = ErrorSummary(engine);
    EXPECT_TRUE(
        summary.starts_with("Hands Played\t0\r\nErrors\t0\r\nPct Correct Plays\t0.0000\r\n"))
        << summary;
    EXPECT_EQ(summary.find("nan"), std::string::npos);
    EXPECT_TRUE(ErrorText(engine, {}).ends_with("Cost in Coin\t0.0000"));
}

TEST_F(ErrorLogReportTest, EntriesAreReadFromTheFileAsTheyStandThere) {
    const auto entry = Entry(16, 31);
    std::int32_t next = 0;
    const std::string section = StatsSection(engine);
    AppendError({file, files.gamePath}, section, entry, next);
    EXPECT_TRUE(HasLoggedError(engine, files, 0));
    EXPECT_EQ(LoggedError(engine, files, 0), entry);
    for (const int index : {-1, kErrorLogSize}) {
        const std::string key = "Error" + std::to_string(index);
        file.WriteString(section, key, FormatEntry(entry), files.gamePath);
        EXPECT_FALSE(HasLoggedError(engine, files, index));
    }
}

}  // namespace
