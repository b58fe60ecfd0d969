#include "game/PayTableForm.h"

#include <gtest/gtest.h>

#include <map>
#include <ranges>

#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"
#include "tests/core/TestGames.h"
#include "tests/core/profile/TemporaryFolder.h"

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

const char* const kJokersText = "Number of jokers must be numberic and not greater than 5";
const char* const kWildsText =
    "You can not specify more than 5 wild cards and they must be 2-9,T,J,Q,K, or A and seperated "
    "by a comma";
const char* const kMinPairText = "Min pair can be only one character and must 2-9,T,J,Q,K, or A";
const char* const kMaxBetText =
    "Max Bet must be numeric, not less than 1 and not greater than 1000";
const char* const kNeither =
    "You must specify either the number of jokers or a wild card if the Uses Wilds box is checked";
const char* const kPayoutText = "Payout can not be blank and must be numeric";
const char* const kMaxPayoutText = "Max Payout can not be blank and must be numeric";
const char* const kNoDescription = "Description can not be blank";
const char* const kNoMinPair = "Minimum pair can not be blank if 1 Pair rank is selected";
const char* const kBlank = "The pay table is blank. You must enter at least one pay line.";
const char* const kNoQuads =
    "Bonus quad can not be blank if Bonus 4/5 of a Kind or 5K w/1 Wild rank is selected";
const char* const kQuads =
    "You can not specify more than 13 Bonus quads and they must be 2-9,T,J,Q,K, or A and seperated "
    "by a comma";
const char* const kTrailers =
    "You can not specify more than 13 Trailers and they must be 2-9,T,J,Q,K, or A and seperated by "
    "a comma";
const char* const kNeedsWilds =
    "A hand rank that requires wild cards can not be used if there are no wild cards";

using Texts = PayTableTexts;
using enum FormField;

void ExpectProblem(const Texts& table, const char* text, FieldPlace where) {
    const auto problem = FindProblem(table);
    EXPECT_EQ(problem ? problem->text : "", text);
    EXPECT_EQ(problem ? problem->where : FieldPlace(), where);
}

std::string& TextIn(Texts& table, FieldPlace place) {
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
    const char* text;
    const char* refused;
    const char* accepted;
} kBoxes[] = {{{kJokers}, kJokersText, "6|two|2 jokers|00|-1| ", "0|+5 "},
              {{kWildRanks}, kWildsText, "2,3,4,5,6,7|2,x|15", "2,3,t,k, a | "},
              {{kMinPair}, kMinPairText, "x|J,Q| ", " j |15"},
              {{kMaxBet}, kMaxBetText, "0|5 coins| |1001|99999999999999999999", "1,000"},
              {{kDescription, 1}, kNoDescription, "|", "x"},
              {{kPayout, 0}, kPayoutText, "|0|-4|4000 coins|4000 20000|4,00|4.5", " 4,000|1"},
              {{kMaxPayout, 1}, kMaxPayoutText, "|0|x|4000 coins|4.5", "4,000"},
              // The next two are of a flush, which takes none.
              {{kBonusQuads, 1}, kQuads, "2;z|five|2,2,2,2,2,2,2,2,2,2,2,2,2,2", " |a |2 , 3"},
              {{kKickers, 1}, kTrailers, "x|2,2,2,2,2,2,2,2,2,2,2,2,2,2", "a |2 , 3"}};

TEST(PayTableFormTest, WhatABoxCannotHoldIsToldThere) {
    for (const auto& [where, text, refused, accepted] : kBoxes) {
        PayTableTexts table = Valid();
        for (const std::string& typed : Parted(refused)) {
            SCOPED_TRACE(typed);
            TextIn(table, where) = typed;
            ExpectProblem(table, text, where);
        }
        for (const std::string& typed : Parted(accepted)) {
            SCOPED_TRACE(typed);
            TextIn(table, where) = typed;
            ExpectProblem(table, "", {});
        }
    }
}

TEST(PayTableFormTest, LinesAskForWhatTheirRankNeeds) {
    for (const HandRank rank : {kBonusFourOfAKind, kBonusFiveOfAKind, kFiveOfAKindWithOneWild,
                                kFourOfAKind, kFourWilds, kOnePair}) {
        PayTableTexts table = ValidWild();
        table.lines[1] = Line(rank);
        table.lines[1].bonusQuads = " ";
        if (rank == kOnePair) {
            ExpectProblem(table, kNoMinPair, {kMinPair});
        } else if (rank == kFourOfAKind || rank == kFourWilds) {
            ExpectProblem(table, "", {});
        } else {
            ExpectProblem(table, kNoQuads, {kBonusQuads, 1});
        }
    }
}

TEST(PayTableFormTest, ATableNeedsLinesAndWildCardsWhereItUsesThem) {
    PayTableTexts table = Valid();
    table.lines[3] = Line(kFiveWilds);
    ExpectProblem(table, "", {});  // behind the end
    table.usesWilds = true;
    table.wildRanks = " ";
    ExpectProblem(table, kNeither, {kWildRanks});
    CheckType(table, GameType::kOneEyedJacks, true);
    ExpectProblem(table, "", {});  // two jacks are wild
    table.lines[0].rank = kUnknown;
    ExpectProblem(table, kBlank, {kRank, 0});
}

TEST(PayTableFormTest, WildLinesAskForWildCards) {
    for (const HandRank rank : {kFiveOfAKind, kWildRoyalFlush, kFiveWilds, kFourWilds}) {
        PayTableTexts table = ValidWild();
        table.lines[1] = Line(rank);
        EXPECT_FALSE(FindProblem(table));
        CheckWilds(table, false);
        ExpectProblem(table, kNeedsWilds, {kRank, 1});
        CheckType(table, GameType::kOneEyedJacks, true);
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
        EXPECT_TRUE(table.lines[14].wildsOK);
        CheckType(table, type, true);
        EXPECT_EQ(table.type, type);
        EXPECT_EQ(table.wildRanks + table.jokers, "") << "no joker is dealt that nobody sees";
        EXPECT_FALSE(table.usesWilds || table.lines[14].wildsOK);
        CheckType(table, type, false);
        EXPECT_EQ(table.type, GameType::kStandard);
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
        const auto texts = ReadPayTableTexts({file, path, ""}, name, 0);
        EXPECT_EQ(TableOf(texts, game.id),
                  WithoutDescriptions(LoadPayTable(file, game.id, name, 0, path, "")))
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
    texts.lines[1].payout = "4,000";
    texts.lines[1].maxPayout = "+20,000";
    texts.lines[1].bonusQuads = "A;k 9";
    texts.lines[1].kickers = "2,x";
    for (const char* maxBet : {"1,000", "none"}) {
        for (const char* minPair : {"", "a", "1", "t", "9", "15"}) {
            texts.maxBet = maxBet;
            texts.minPair = minPair;
            const auto plain = WithPlainNumbers(texts);
            ASSERT_TRUE(WritePayTable(files, {9001, "Typed"}, 0, plain, kNoNeighbours));
            EXPECT_EQ(TableOf(texts, 9001), WithoutDescriptions(LoadPayTable(file, 9001, "Typed", 0,
                                                                             files.mainPath, "")));
        }
    }
    EXPECT_EQ(TableOf(texts, 9001).lines[1].payout, 4000);
}

}  // namespace
