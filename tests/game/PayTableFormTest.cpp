#include "game/paytables/PayTableForm.h"

#include <gtest/gtest.h>

#include "game/paytables/PayTableLines.h"

#include <map>
#include <ranges>

#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"
#include "tests/game/TestMachine.h"

namespace {

PayLineTexts Line(HandRank rank) {
    PayLineTexts line;
    ChooseRank(line, rank);
    line.payout = "9";
    line.maxPayout = "45";
    return line;
}

// A table that may be saved: two natural lines.
PayTableTexts Valid() {
    PayTableTexts table;
    table.lines[0] = Line(kFullHouse);
    table.lines[1] = Line(kFlush);
    return table;
}

PayTableTexts ValidWild() {
    PayTableTexts table = Valid();
    table.jokers = "1";
    CheckWilds(table, true);
    return table;
}

using enum FormField;

// The line of the stored texts that begins so; empty for an empty beginning.
std::string TextThatBegins(const std::string& begin) {
    const std::string texts = "\n" + TestData("../game/golden/form-problems.txt");
    const auto at = texts.find("\n" + begin) + 1;
    return begin.empty() ? "" : texts.substr(at, texts.find('\n', at) - at);
}

void ExpectProblem(const PayTableTexts& table, const char* begin, FieldPlace where) {
    const auto problem = FindProblem(table);
    EXPECT_EQ(problem ? problem->text : "", TextThatBegins(begin));
    EXPECT_EQ(problem ? problem->where : FieldPlace(), where);
}

std::string& TextIn(PayTableTexts& table, FieldPlace place) {
    PayLineTexts& line = table.lines[static_cast<std::size_t>(place.line)];
    const std::map<FormField, std::string*> boxes = {
        {kJokers, &table.jokers},          {kWildRanks, &table.wildRanks},
        {kMinPair, &table.minPair},        {kMaxBet, &table.maxBet},
        {kDescription, &line.description}, {kPayout, &line.payout},
        {kMaxPayout, &line.maxPayout},     {kBonusQuads, &line.bonusQuads},
        {kKickers, &line.kickers}};
    return *boxes.at(place.field);
}

std::vector<std::string> Parted(std::string_view texts) {
    std::vector<std::string> parts;
    for (const auto part : std::views::split(texts, '|'))
        parts.emplace_back(part.begin(), part.end());
    return parts;
}

// A box of a table that may be saved otherwise, what may not be typed there and what may.
const struct {
    FieldPlace where;
    const char* begin;
    const char* refused;
    const char* accepted;
} kBoxes[] = {
    {{kJokers}, "Number of jokers", "6|two|2 jokers|00|-1| ", "0|+5 "},
    {{kWildRanks}, "You can not specify more than 5 wild", "2,3,4,5,6,7|2,x|15", "2,3,t,k, a | "},
    {{kMinPair}, "Min pair", "x|J,Q| ", " j |15"},
    {{kMaxBet}, "Max Bet", "0|5 coins| |1001|99999999999999999999", "1,000"},
    {{kDescription, 1}, "Description", "|", "x"},
    {{kPayout, 0}, "Payout", "|0|-4|4000 coins|4000 20000|4,00|4.5", " 4,000|1"},
    {{kMaxPayout, 1}, "Max Payout", "|0|x|4000 coins|4.5", "4,000"},
    // The next two are of a flush, which takes none.
    {{kBonusQuads, 1},
     "You can not specify more than 13 Bonus",
     "2;z|five|2,2,2,2,2,2,2,2,2,2,2,2,2,2",
     " |a |2 , 3"},
    {{kKickers, 1},
     "You can not specify more than 13 Trailers",
     "x|2,2,2,2,2,2,2,2,2,2,2,2,2,2",
     "a |2 , 3"}};

TEST(PayTableFormTest, WhatABoxCannotHoldIsToldThere) {
    for (const auto& [where, begin, refused, accepted] : kBoxes) {
        PayTableTexts table = Valid();
        for (const std::string& typed : Parted(refused)) {
            SCOPED_TRACE(typed);
            TextIn(table, where) = typed;
            ExpectProblem(table, begin, where);
        }
        for (const std::string& typed : Parted(accepted)) {
            SCOPED_TRACE(typed);
            TextIn(table, where) = typed;
            ExpectProblem(table, "", {});
        }
    }
}

TEST(PayTableFormTest, LinesAskForWhatTheirRankNeeds) {
    PayTableTexts table = ValidWild();
    for (const HandRank rank : {kBonusFourOfAKind, kBonusFiveOfAKind, kFiveOfAKindWithOneWild}) {
        table.lines[1] = Line(rank);
        table.lines[1].bonusQuads = " ";
        ExpectProblem(table, "Bonus quad", {kBonusQuads, 1});
    }
    table.lines[1] = Line(kOnePair);
    ExpectProblem(table, "Minimum pair", {kMinPair});
}

TEST(PayTableFormTest, ATableNeedsLinesAndWildCardsWhereItUsesThem) {
    PayTableTexts table = Valid();
    table.lines[3] = Line(kFiveWilds);
    ExpectProblem(table, "", {});  // behind the end
    table.usesWilds = true;
    table.wildRanks = " ";
    ExpectProblem(table, "You must specify either", {kWildRanks});
    CheckType(table, GameType::kOneEyedJacks, true);
    ExpectProblem(table, "", {});  // two jacks are wild
    table.lines[0].rank = kUnknown;
    ExpectProblem(table, "The pay table is blank", {kRank, 0});
}

TEST(PayTableFormTest, WildLinesAskForWildCards) {
    for (const HandRank rank : {kFiveOfAKind, kWildRoyalFlush, kFiveWilds, kFourWilds}) {
        PayTableTexts table = ValidWild();
        table.lines[1] = Line(rank);
        CheckWilds(table, false);
        ExpectProblem(table, "A hand rank", {kRank, 1});
        table.type = GameType::kOneEyedJacks;
        EXPECT_FALSE(FindProblem(table)) << "two jacks are wild";
    }
}

// Where a hand is paid differently for what a box holds, the player must get at the box.
TEST(PayTableFormTest, ARankTakesTheListsThatItsHandsAreTestedFor) {
    const auto paid = [](HandRank rank, const LineTraits& traits) {
        PayTable table;
        table.usesWilds = true;
        table.wildRanks[0] = 2;
        table.lines = {Wild(rank, 1, traits)};
        std::string hands;
        for (int code = 0; code < 4 * 4 * 4 * 4 * 4; ++code) {
            Hand hand;  // of aces to fours
            for (int i = 0; i < kHandSize; ++i) {
                hand.at(static_cast<std::size_t>(i)) = {1 + ((code >> (2 * i)) & 3), 1 + i % 4};
            }
            hands += EvaluateHand(hand, table, 1).line == 0 ? '1' : '0';
        }
        return hands;
    };
    for (int number = 0; number < kRankCount; ++number) {
        const HandRank rank = HandRankFromNumber(number);
        const bool tested = paid(rank, {{3}, {}}) != paid(rank, {});
        EXPECT_EQ(TakesRanks(rank, kBonusQuads), tested || rank == kFiveOfAKindWithOneWild)
            << number;
        EXPECT_EQ(TakesRanks(rank, kKickers), paid(rank, {{2, 3}, {4}}) != paid(rank, {{2, 3}, {}}))
            << number;
    }
}

TEST(PayTableFormTest, TypesDecideAboutWildCards) {
    for (const GameType type : {GameType::kFiveAces, GameType::kPickEm, GameType::kAcesBonus}) {
        PayTableTexts table = ValidWild();
        table.wildRanks = "2";
        CheckType(table, type, true);
        EXPECT_EQ(table.type, type);
        EXPECT_EQ(table.wildRanks + table.jokers, "") << "no joker is dealt that nobody sees";
        EXPECT_FALSE(table.usesWilds || table.lines[14].wildsOK);
    }
    PayTableTexts table = Valid();
    CheckType(table, GameType::kOneEyedJacks, true);
    EXPECT_TRUE(table.usesWilds && table.lines[0].wildsOK);
    CheckType(table, GameType::kOneEyedJacks, false);
    EXPECT_FALSE(table.usesWilds || table.lines[0].wildsOK);
}

PayTable WithoutDescriptions(PayTable table) {
    for (PayLine& line : table.lines) line.description = line.shortDescription = "";
    return table;
}

// What is analysed while it is typed is what will be played.
TEST(PayTableFormTest, ShippedTextsBecomeTheTableThatIsLoaded) {
    ProfileFile file;
    const std::string path = TOLVANE_DATA_FOLDER "/Tolvane.ini";
    for (const BuiltInGame& game : BuiltInGames()) {
        const std::string name(game.name);
        const auto texts = ReadPayTableTexts({file, path}, name, 0);
        EXPECT_EQ(TableOf(texts, game.id),
                  WithoutDescriptions(LoadPayTable({file, path}, {game.id, name}, "")))
            << name;
        EXPECT_FALSE(FindProblem(texts)) << name << ": shipped tables may be saved";
    }
}

TEST(PayTableFormTest, TypedTextsBecomeTheTableThatIsLoaded) {
    const TemporaryFolder folder;
    ProfileFile file;
    const PayTableFiles files{file, folder.Write("a.ini", "[main]\n"), ""};
    PayTableTexts texts = ValidWild();
    texts.type = GameType::kFiveAces;
    texts.jokers = " 5 ";
    texts.wildRanks = "a, 2, 14, k";
    texts.lines[1].maxPayout = "+20,000";
    texts.lines[1].bonusQuads = "A;k 9";
    texts.lines[1].kickers = "2,x";
    for (const char* maxBet : {"1,000", "none"}) {
        for (const char* minPair : {"", "a", "1", "t", "9", "15"}) {
            texts.maxBet = maxBet;
            texts.minPair = minPair;
            const auto plain = WithPlainNumbers(texts);
            ASSERT_TRUE(WritePayTable(files, {9001, "Typed"}, plain, kNoNeighbours));
            EXPECT_EQ(TableOf(texts, 9001), WithoutDescriptions(LoadPayTable(
                                                {file, files.main.path}, {9001, "Typed"}, "")));
        }
    }
}

TEST(PayTableLinesTest, LinesMoveAndNoneFallsOffTheEnd) {
    PayTableTexts table;
    for (int i = 0; i < kMaxPayLines; ++i) {
        ChooseRank(table.lines[static_cast<std::size_t>(i)], HandRankFromNumber(i));
    }
    const auto order = [&table] {
        std::string letters;
        for (const PayLineTexts& line : table.lines) {
            letters +=
                line.rank == kUnknown ? '-' : static_cast<char>('a' + static_cast<int>(line.rank));
        }
        return letters;
    };
    EXPECT_FALSE(InsertLine(table, 3) || DuplicateLine(table, 3));
    MoveLine(table, 1, 4);
    EXPECT_EQ(order(), "acdebfghijklmno");
    MoveLine(table, 14, 0);
    EXPECT_EQ(order(), "oacdebfghijklmn");
    DeleteLine(table, 14);
    DeleteLine(table, 0);
    EXPECT_EQ(order(), "acdebfghijklm--");
    EXPECT_TRUE(DuplicateLine(table, 0) && InsertLine(table, 1));
    EXPECT_EQ(order(), "a-acdebfghijklm");
    EXPECT_FALSE(DuplicateLine(table, 14));
}

TEST(PayTableLinesTest, CellsOfASpreadsheetArePastedAllOrNone) {
    PayTableTexts table;
    const auto any = [](FieldPlace) { return true; };
    EXPECT_EQ(PasteCells(table, {kRank, 2},
                         "royal flush\t\"Big \"\"one\"\";RF\"\t1,000\t 4000\t\t\tyes\r\n5K\n", any),
              std::nullopt);
    EXPECT_EQ(table.lines[2],
              (PayLineTexts{kRoyalFlush, "Big \"one\";RF", "1,000", " 4000", "", "", true}));
    EXPECT_EQ(table.lines[3].description, "5 OF A KIND;5K");
    EXPECT_EQ(PasteCells(table, {kPayout, 13}, "1\t5\n2\t10", any), std::nullopt);
    EXPECT_EQ(table.lines[14].maxPayout, "10");
    table.lines[3].description = "Mine";
    EXPECT_EQ(PasteCells(table, {kRank, 2}, "ROYAL FLUSH\n5K\n", any), std::nullopt);
    EXPECT_EQ(table.lines[3].description, "Mine") << "of the rank that it has";
    const auto before = table;
    const std::tuple<FieldPlace, const char*, const char*> faults[] = {
        {{kPayout, 0}, "1\nten", "Row 2: \"ten\" is no whole number."},
        {{kRank, 0}, "FLUSCH", "Row 1: \"FLUSCH\" is no hand rank."},
        {{kBonusQuads, 0}, "1,X", "Row 1: \"1,X\" is no list of ranks."},
        {{kWildsOK, 0}, "perhaps", "Row 1: \"perhaps\" is neither yes nor no."},
        {{kKickers, 0}, "2\t1\t1", "Row 1: there are more cells than columns."},
        {{kDescription, 0},
         "\"two\nlines\"\t1",
         "Row 1: \"two\nlines\" has a character that no text can keep."},
        {{kDescription, 0}, "a\n\"b\t1", "Row 2: \"b\t1\" begins with a quote that is not closed."},
        {{kPayout, 14}, "1\n2", "There are 2 rows and only 1 lines from here on."},
    };
    for (const auto& [at, cells, problem] : faults) {
        EXPECT_EQ(PasteCells(table, at, cells, any), problem);
    }
    EXPECT_EQ(PasteCells(table, {kPayout, 0}, "8", [](FieldPlace) { return false; }),
              "Row 1: \"8\" is for a field that can not be changed.");
    EXPECT_EQ(table, before);
}

}  // namespace
