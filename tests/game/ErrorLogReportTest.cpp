#include "game/reports/ErrorLogReport.h"

#include "tests/game/TestMachine.h"

namespace {

std::string Stored(const std::string& name) {
    const std::ifstream file(TOLVANE_TEST_DATA "/../game/golden/error-" + name + ".txt",
                             std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

ErrorLogEntry EntryOf(const TestMachine& machine, std::string_view tenCards, HoldMask best,
                      HoldMask player) {
    const auto codes = Cards(machine.engine.payTable, tenCards, 10);
    ErrorLogEntry entry;
    std::copy_n(codes.begin(), kHandSize, entry.hand.begin());
    std::copy_n(codes.begin() + kHandSize, kHandSize, entry.draws.begin());
    entry.best = best;
    entry.player = player;
    entry.bestReturn = 1234.5678;
    entry.playerReturn = 34.5678;
    return entry;
}

// The stored texts were worked out by hand: 1200 dollars are 4800 quarters, and so on.
TEST(ErrorLogReportTest, AnEntryTellsTheBestPlayThePlayMadeAndItsCost) {
    TestMachine machine;
    machine.engine.settings.coin = 0.25;
    const auto entry = EntryOf(machine, "AS KD TC 9H 2S 3S 4S 5S 6S 7S", 0b11111, 0);
    EXPECT_EQ(ErrorText(machine.engine, entry), Stored("entry"));
}

TEST(ErrorLogReportTest, PickEmTellsThePileBesideThePlayersTwoCards) {
    const TestMachine machine("Pick Em Poker", 350);
    const auto entry = EntryOf(machine, "AS KD TC 9H 2S 3S 4S 5S 6S 7S", 25, 28);
    EXPECT_EQ(ErrorText(machine.engine, entry), Stored("entry-pick-em"));
}

TEST(ErrorLogReportTest, TheSummaryTellsAllThatWasEverPlayedOnTheTable) {
    TestMachine machine;
    Statistics& statistics = machine.engine.statistics;
    machine.engine.settings.coin = 0.05;
    statistics.handsPlayed = {10, 16000};
    statistics.playErrors = {10, 200};
    statistics.bestReturns = {10, 40000};
    statistics.errorCosts = {10, 500};
    EXPECT_EQ(ErrorSummary(machine.engine), Stored("summary"));
}

TEST(ErrorLogReportTest, NothingPlayedIsNothingDividedByNothing) {
    TestMachine machine;
    machine.engine.settings.coin = 0;
    const std::string summary = ErrorSummary(machine.engine);
    EXPECT_TRUE(
        summary.starts_with("Hands Played\t0\r\nErrors\t0\r\nPct Correct Plays\t0.0000\r\n"))
        << summary;
    EXPECT_EQ(summary.find("nan"), std::string::npos);
    EXPECT_TRUE(ErrorText(machine.engine, {}).ends_with("Cost in Coin\t0.0000"));
}

TEST(ErrorLogReportTest, EntriesAreReadFromTheFileAsTheyStandThere) {
    TestMachine machine;
    const auto entry = EntryOf(machine, "AS KD TC 9H 2S 3S 4S 5S 6S 7S", 16, 31);
    std::int32_t next = 0;
    EXPECT_FALSE(HasLoggedError(machine.engine, machine.files, 0));
    const std::string section = StatsSection(machine.engine);
    AppendError(machine.file, machine.files.gamePath, section, entry, next);
    EXPECT_TRUE(HasLoggedError(machine.engine, machine.files, 0));
    EXPECT_EQ(LoggedError(machine.engine, machine.files, 0), entry);
    EXPECT_EQ(ErrorTitle(0), "Error 1");
    EXPECT_EQ(LoggedError(machine.engine, machine.files, 1), ErrorLogEntry());
    machine.file.WriteString(section, "Error100", FormatEntry(entry), machine.files.gamePath);
    machine.file.WriteString(section, "Error-1", FormatEntry(entry), machine.files.gamePath);
    EXPECT_FALSE(HasLoggedError(machine.engine, machine.files, kErrorLogSize));
    EXPECT_FALSE(HasLoggedError(machine.engine, machine.files, -1));
}

}  // namespace
