#include "core/store/AnalysisFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "core/profile/AtomicFile.h"
#include "core/profile/ProfileFile.h"
#include "core/store/AnalysisCache.h"
#include "tests/core/TestGames.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace {

constexpr const char* kSection = "Jacks or Better(0)";

std::vector<AnalysisEntry> EntriesOf(const PayTable& table, double coin) {
    return AnalysisEntries(AnalyzeGame(LineTables(table), table, coin, {}), table, coin);
}

std::string ValueOf(const std::vector<AnalysisEntry>& entries, std::string_view key) {
    for (const AnalysisEntry& entry : entries) {
        if (entry.key == key) return entry.value;
    }
    return "(missing)";
}

std::string Golden(const std::string& name) {
    return ReadWholeFile(std::string(TOLVANE_TEST_DATA) + "/" + name).value_or("(missing)");
}

std::vector<std::string> Split(const std::string& text, char end) {
    std::istringstream stream(text);
    std::vector<std::string> parts;
    for (std::string part; std::getline(stream, part, end);) parts.push_back(part);
    return parts;
}

// The Detail lines of hands, headings left out.
std::vector<std::string> Detailed(const PayTable& table, const std::vector<PlayedHand>& hands) {
    const TemporaryFolder folder;
    DetailFile detail(folder.Path("detail.txt"), table);
    for (const PlayedHand& hand : hands) detail.Write(hand);
    EXPECT_TRUE(detail.Close());
    auto lines = Split(folder.Read("detail.txt"), '\n');
    lines.erase(lines.begin());
    return lines;
}

// A hand that holds the first and fourth card.
PlayedHand HandOf(const PayTable& table, std::string_view cards) {
    PlayedHand hand;
    hand.cards = Known(table, cards).hand;
    hand.weight = 12;
    hand.best.mask = 0b10010;
    hand.best.cardsDrawn = 3;
    hand.best.expectedReturn = 1.25;
    hand.best.totalHands = 17296;
    hand.best.counts[kNothingLane] = 9000;
    for (std::uint32_t line = 0; line < kMaxPayLines; ++line) hand.best.counts[line] = line;
    return hand;
}

// The return and the weight that are written for a hand with these.
std::pair<std::string, std::string> ReturnAndWeight(double expectedReturn, double weight) {
    PlayedHand hand = HandOf(JacksOrBetter(), "AS KD TC 9H 2S");
    hand.best.expectedReturn = expectedReturn;
    hand.weight = weight;
    const auto fields = Split(Detailed(JacksOrBetter(), {hand}).at(0), ';');
    return {fields.at(3), fields.at(4)};
}

}  // namespace

// The golden files were recomputed row by row from the counts of final hands, with fractions.

TEST(AnalysisFilesTest, SummaryAndCacheSectionAreTheGoldenOnes) {
    const TemporaryFolder folder;
    const std::string others = "[Deuces Wild(0)]\nER=1.0000\n\n";
    const std::string path = folder.Write("cache.ini", others);
    ProfileFile file;
    const auto quarter = EntriesOf(JacksOrBetter(), 0.25);
    EXPECT_EQ(ValueOf(quarter, "Coin"), "0.25");
    EXPECT_EQ(ValueOf(quarter, "Cost"), "3,248,700.0000");  // a quarter of 12,994,800
    EXPECT_EQ(ValueOf(quarter, "Payout%"), "99.5439");
    WriteToCache(quarter, {}, kSection, {file, path});
    const auto entries = EntriesOf(JacksOrBetter(), 1);
    EXPECT_EQ(SummaryText(entries), Golden("jacks-or-better-summary.txt"));
    WriteToCache(entries, {{}, "0123"}, kSection, {file, path});
    ASSERT_TRUE(file.Flush());
    std::string golden = Golden("jacks-or-better-cache.ini");
    golden.insert(golden.size() - 1, "Pays=0123\n");
    EXPECT_EQ(folder.Read("cache.ini"), others + golden)
        << "another run replaces every key of its section";
}

TEST(AnalysisFilesTest, ARunWithoutAnyHandHasAllEntriesAndNoOdds) {
    const auto entries = AnalysisEntries({}, JacksOrBetter(), 0.05);
    EXPECT_EQ(ValueOf(entries, "Final"), "0;0;0;0;0;0;0;0");
    EXPECT_EQ(ValueOf(entries, "Payline8"), "1;0;0;0;0;0;0;0;0;1:0.00;0.00;0.0000");
}

TEST(AnalysisFilesTest, DetailHeadingsNameTheLinesFromTheLastOn) {
    const TemporaryFolder folder;
    PayTable table = JacksOrBetter();
    table.lines.resize(3);
    table.lines[1].description = "\x01\xFF\"4 ACE$\"";
    EXPECT_TRUE(DetailFile(folder.Path("detail.txt"), table).Close());
    EXPECT_EQ(folder.Read("detail.txt"),
              "Hand;BestPlay;CardsDrawn;ER;SuitCombos;TotHands;Nothing;"
              "4 OF A KIND;\x01\xFF\"4 ACE$\";ROYAL FLUSH\n");
}

TEST(AnalysisFilesTest, DetailLinesShowCardsHoldAndCounts) {
    PayTable joker = JacksOrBetter();
    joker.jokers = 5;
    joker.deckSize = 57;
    EXPECT_EQ(
        Detailed(joker, {HandOf(joker, "W AS TH JS 9D"), HandOf(joker, "QC 2D JS KH W")}),
        (std::vector<std::string>{"W AS TH JS 9D;W__J_;3;1.25;12;17296;9000;8;7;6;5;4;3;2;1;0",
                                  "QC 2D JS KH W;Q__K_;3;1.25;12;17296;9000;8;7;6;5;4;3;2;1;0"}));
    EXPECT_EQ(Detailed(FiveAces(), {HandOf(FiveAces(), "A$ AS AH AC 5D")}).at(0),
              "A$ AS AH AC 5D;A__A_;3;1.25;12;17296;9000;9;8;7;6;5;4;3;2;1;0");

    PlayedHand pickEm = HandOf(JacksOrBetter(), "AS 9H 2S TC KD");
    pickEm.cards[2] = {};
    pickEm.best.mask = 0b11111;
    EXPECT_EQ(Detailed(PickEm(), {pickEm}).at(0),
              "AS 9H __ TC KD;A9_TK;3;1.25;12;17296;9000;8;7;6;5;4;3;2;1;0");
}

TEST(AnalysisFilesTest, ReturnsAreWrittenAsAStreamWritesThemAndWeightsWithoutTrailingZeros) {
    const std::pair<double, const char*> returns[] = {
        {2.0 / 3, "0.666667"}, {999999.5, "1e+06"}, {0.00001234567, "1.23457e-05"}, {92.5, "92.5"}};
    for (const auto& [value, text] : returns) EXPECT_EQ(ReturnAndWeight(value, 1).first, text);
    const std::pair<double, const char*> weights[] = {
        {2598960, "2598960"}, {1.0 / 12, "0.083333"}, {4.5, "4.5"}, {120.0000001, "120"}};
    for (const auto& [weight, text] : weights) EXPECT_EQ(ReturnAndWeight(1, weight).second, text);
    EXPECT_EQ(ReturnAndWeight(1, 1e300).second.size(), 301U);
}

TEST(AnalysisFilesTest, ADetailFileIsCreatedAnewCompleteWithoutCloseAndALostOneIsTold) {
    const TemporaryFolder folder;
    const PayTable table = JacksOrBetter();
    const PlayedHand hand = HandOf(table, "AS KD TC 9H 2S");
    { DetailFile(folder.Write("detail.txt", std::string(100'000, 'x')), table).Write(hand); }
    EXPECT_EQ(Split(folder.Read("detail.txt"), '\n').size(), 2U);
    DetailFile part(folder.Path("detail.txt"), table);
    EXPECT_TRUE(part.CloseAs(PartialFileName(folder.Path("detail.txt"))));
    EXPECT_EQ(Split(folder.Read("detail partial.txt"), '\n').size(), 1U);
    EXPECT_EQ(Split(folder.Read("detail.txt"), '\n').size(), 2U) << "the whole one stays";
    DetailFile nowhere(folder.Path("missing/detail.txt"), table);
    nowhere.Write(hand);
    EXPECT_FALSE(nowhere.Close());
    EXPECT_EQ(nowhere.Problem(), "No such file or directory");
    EXPECT_FALSE(DetailFile(folder.Path(), table).Close()) << "a folder is no file";
    if (std::filesystem::exists("/dev/full")) {
        EXPECT_FALSE(DetailFile("/dev/full", table).Close());
    }
}
