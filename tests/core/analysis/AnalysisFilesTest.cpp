#include "core/analysis/AnalysisFiles.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <limits>
#include <locale>
#include <sstream>

#include "core/profile/ProfileFile.h"
#include "tests/core/TestGames.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace {

constexpr const char* kSection = "Jacks or Better(0)";

PayTable DescribedJacksOrBetter() {
    constexpr std::array kDescriptions = {"ROYAL FLUSH", "STRAIGHT FLUSH", "4 OF A KIND",
                                          "FULL HOUSE",  "FLUSH",          "STRAIGHT",
                                          "3 OF A KIND", "TWO PAIR",       "JACKS OR BETTER"};
    PayTable table = JacksOrBetter();
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        table.lines[i].description = kDescriptions.at(i);
    }
    return table;
}

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
    const std::ifstream file(std::string(TOLVANE_TEST_DATA) + "/" + name, std::ios::binary);
    std::ostringstream contents;
    contents << file.rdbuf();
    return contents.str();
}

std::vector<std::string> Split(const std::string& text, char end) {
    std::istringstream stream(text);
    std::vector<std::string> parts;
    for (std::string part; std::getline(stream, part, end);) parts.push_back(part);
    return parts;
}

std::vector<std::string> LinesOf(const std::string& text) { return Split(text, '\n'); }
std::vector<std::string> Fields(const std::string& line) { return Split(line, ';'); }

// The Detail lines of hands, headings left out.
std::vector<std::string> Detailed(const PayTable& table, const std::vector<PlayedHand>& hands) {
    const TemporaryFolder folder;
    DetailFile detail(folder.Path("detail.txt"), table);
    for (const PlayedHand& hand : hands) detail.Write(hand);
    EXPECT_TRUE(detail.Close());
    auto lines = LinesOf(folder.Read("detail.txt"));
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

// A field of a hand with this return, or with this weight.
std::string ReturnText(double expectedReturn) {
    PlayedHand hand = HandOf(JacksOrBetter(), "AS KD TC 9H 2S");
    hand.best.expectedReturn = expectedReturn;
    return Fields(Detailed(JacksOrBetter(), {hand}).at(0)).at(3);
}

std::string WeightText(double weight) {
    PlayedHand hand = HandOf(JacksOrBetter(), "AS KD TC 9H 2S");
    hand.weight = weight;
    return Fields(Detailed(JacksOrBetter(), {hand}).at(0)).at(4);
}

std::string StreamText(double value) {
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream << value;
    return stream.str();
}

}  // namespace

// The golden files were recomputed row by row from the counts of final hands, with fractions.

TEST(AnalysisFilesTest, SummaryAndCacheSectionAreTheGoldenOnes) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("cache.ini", "");
    const auto entries = EntriesOf(DescribedJacksOrBetter(), 1);
    EXPECT_EQ(SummaryText(entries), Golden("jacks-or-better-summary.txt"));
    ProfileFile file;
    WriteToCache(entries, kSection, path, file);
    ASSERT_TRUE(file.Flush());
    EXPECT_EQ(folder.Read("cache.ini"), Golden("jacks-or-better-cache.ini"));
}

TEST(AnalysisFilesTest, AnotherRunReplacesEveryKeyOfItsSectionOnly) {
    const TemporaryFolder folder;
    const std::string others = "[Deuces Wild(0)]\nER=1.0000\n\n";
    const std::string path = folder.Write("cache.ini", others);
    const PayTable table = DescribedJacksOrBetter();
    ProfileFile file;
    WriteToCache(EntriesOf(table, 1), kSection, path, file);
    const auto quarter = EntriesOf(table, 0.25);
    WriteToCache(quarter, kSection, path, file);
    ASSERT_TRUE(file.Flush());

    std::string expected = others + "[" + kSection + "]\n";
    for (const AnalysisEntry& entry : quarter) {
        if (!entry.key.empty()) expected += entry.key + "=" + entry.value + "\n";
    }
    EXPECT_EQ(folder.Read("cache.ini"), expected + "\n");
    ProfileFile again;
    EXPECT_EQ(again.GetString(kSection, "Payline8", "", ProfileFile::kWholeValue, path),
              ValueOf(quarter, "Payline8"));
    EXPECT_EQ(ValueOf(quarter, "Coin"), "0.25");
    EXPECT_EQ(ValueOf(quarter, "Cost"), "3,248,700.0000");  // a quarter of 12,994,800
    EXPECT_EQ(ValueOf(quarter, "Payout%"), "99.5439");
}

TEST(AnalysisFilesTest, ThePayoutIsThatOfACoinAtTheFullBetWhereItIsMore) {
    PayTable table;
    table.lines.resize(4);
    constexpr std::array<std::array<int, 2>, 4> kPays = {
        {{250, 4000}, {7, 0}, {25, 25}, {1234567, 6000004}}};
    for (std::size_t i = 0; i < kPays.size(); ++i) {
        table.lines[i].payout = kPays.at(i)[0];
        table.lines[i].maxPayout = kPays.at(i)[1];
    }
    const auto entries = AnalysisEntries({}, table, 1);
    EXPECT_EQ(Fields(ValueOf(entries, "Payline0")).at(0), "800");
    EXPECT_EQ(Fields(ValueOf(entries, "Payline1")).at(0), "7");
    EXPECT_EQ(Fields(ValueOf(entries, "Payline2")).at(0), "25");
    EXPECT_EQ(Fields(ValueOf(entries, "Payline3")).at(0), "1,200,000");
}

TEST(AnalysisFilesTest, ARunWithoutAnyHandHasAllEntriesAndNoOdds) {
    const auto entries = AnalysisEntries({}, DescribedJacksOrBetter(), 0.05);
    ASSERT_EQ(entries.size(), 5 + 1 + 2 + 9 + 1U);
    EXPECT_EQ(ValueOf(entries, "Coin"), "0.05");
    EXPECT_EQ(ValueOf(entries, "InitHands"), "0;0;0;0;0;0;0");
    EXPECT_EQ(ValueOf(entries, "Final"), "0;0;0;0;0;0;0;0");
    EXPECT_EQ(ValueOf(entries, "Payline8"), "1;0;0;0;0;0;0;0;0;1:0.00;0.00;0.0000");
    EXPECT_EQ(ValueOf(entries, "Nothing"), "0;0;0;0;0;0;0;0;0;1:0.00;0.00;0.0000");
}

TEST(AnalysisFilesTest, FilesAreNamedAfterGameAndTable) {
    EXPECT_EQ(SummaryFileName("Joker Poker", 0), "Joker Poker(0) Summary.txt");
    EXPECT_EQ(DetailFileName("Deuces Wild", 12), "Deuces Wild(12) Detail.txt");
}

TEST(AnalysisFilesTest, DetailHeadingsNameTheLinesFromTheLastOn) {
    const TemporaryFolder folder;
    PayTable table = DescribedJacksOrBetter();
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
        Detailed(joker, {HandOf(joker, "W AS TH W 9D"), HandOf(joker, "QC 2D JS KH W")}),
        (std::vector<std::string>{"W AS TH W 9D;W__W_;3;1.25;12;17296;9000;8;7;6;5;4;3;2;1;0",
                                  "QC 2D JS KH W;Q__K_;3;1.25;12;17296;9000;8;7;6;5;4;3;2;1;0"}));
    EXPECT_EQ(Detailed(FiveAces(), {HandOf(FiveAces(), "A$ AS AH AC 5D")}).at(0),
              "A$ AS AH AC 5D;A__A_;3;1.25;12;17296;9000;9;8;7;6;5;4;3;2;1;0");
}

TEST(AnalysisFilesTest, PickEmHandsHaveAnEmptyPlace) {
    PayTable table = PickEm();
    table.lines.resize(1);
    PlayedHand hand;
    hand.cards = {{{1, kSpades}, {9, kHearts}, {}, {10, kClubs}, {13, kDiamonds}}};
    hand.weight = 24;
    hand.best.mask = 0b11001;
    hand.best.cardsDrawn = 2;
    hand.best.totalHands = 1128;
    hand.best.counts[0] = 3;
    hand.best.counts[kNothingLane] = 1125;
    EXPECT_EQ(Detailed(table, {hand}).at(0), "AS 9H __ TC KD;A9__K;2;0;24;1128;1125;3");
    hand.best.mask = 0b11111;
    EXPECT_EQ(Detailed(table, {hand}).at(0), "AS 9H __ TC KD;A9_TK;2;0;24;1128;1125;3");
}

TEST(AnalysisFilesTest, ReturnsAreWrittenAsAStreamWritesThem) {
    EXPECT_EQ(ReturnText(4000), "4000");
    EXPECT_EQ(ReturnText(2.0 / 3), "0.666667");
    for (const double value : {0.0, 18.361702, 0.25, 123456.5, 999999.5, 1000000.0, 1234567.0,
                               0.0001, 0.00001234567, 1e-300, 1.7e308, 92.5}) {
        EXPECT_EQ(ReturnText(value), StreamText(value));
        EXPECT_EQ(ReturnText(-value), StreamText(-value));
    }
}

TEST(AnalysisFilesTest, FractionsOfHandsAreWrittenWithoutTrailingZeros) {
    EXPECT_EQ(WeightText(1), "1");
    EXPECT_EQ(WeightText(60), "60");
    EXPECT_EQ(WeightText(2598960), "2598960");
    EXPECT_EQ(WeightText(1.0 / 12), "0.083333");
    EXPECT_EQ(WeightText(0.25), "0.25");
    EXPECT_EQ(WeightText(4.5), "4.5");
    EXPECT_EQ(WeightText(120.0000001), "120");
    EXPECT_EQ(WeightText(1e300).size(), 301U);
    EXPECT_EQ(WeightText(std::numeric_limits<double>::quiet_NaN()), "nan");
}

TEST(AnalysisFilesTest, ADetailFileIsCreatedAnewCompleteWithoutCloseAndALostOneIsTold) {
    const TemporaryFolder folder;
    const PayTable table = JacksOrBetter();
    const PlayedHand hand = HandOf(table, "AS KD TC 9H 2S");
    { DetailFile(folder.Write("detail.txt", std::string(100'000, 'x')), table).Write(hand); }
    EXPECT_EQ(LinesOf(folder.Read("detail.txt")).size(), 2U);
    DetailFile nowhere(folder.Path("missing/detail.txt"), table);
    nowhere.Write(hand);
    EXPECT_FALSE(nowhere.Close());
    EXPECT_FALSE(nowhere.Close());
    EXPECT_FALSE(DetailFile(folder.Path(), table).Close()) << "a folder is no file";
    if (std::filesystem::exists("/dev/full")) {
        EXPECT_FALSE(DetailFile("/dev/full", table).Close());
    }
}
