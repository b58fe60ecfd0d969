#include "game/PayTableForm.h"

#include <gtest/gtest.h>

#include <functional>

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

struct ProblemCase {
    const char* name;
    std::function<void(PayTableTexts&)> change;  // of a table that may be saved
    FieldPlace where;
    const char* text;  // how it begins; empty: no problem
};

void PrintTo(const ProblemCase& problem, std::ostream* out) { *out << problem.name; }

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

// The second line is of this rank.
std::function<void(Texts&)> Second(HandRank rank, const char* quads = "",
                                   const char* kickers = "") {
    return [=](Texts& table) {
        table.lines[1] = Line(rank);
        table.lines[1].bonusQuads = quads;
        table.lines[1].kickers = kickers;
    };
}

// The same in a game with a joker.
std::function<void(Texts&)> WildSecond(HandRank rank, const char* quads = "",
                                       const char* kickers = "") {
    return [=](Texts& table) {
        table = ValidWild();
        Second(rank, quads, kickers)(table);
    };
}

std::function<void(Texts&)> FirstPays(const char* payout) {
    return [=](Texts& table) { table.lines[0].payout = payout; };
}

const ProblemCase kCases[] = {
    {"valid", [](Texts&) {}, {}, ""},
    {"six jokers", [](Texts& t) { t.jokers = "6"; }, {kJokers}, kJokersText},
    {"jokers in words", [](Texts& t) { t.jokers = "two"; }, {kJokers}, kJokersText},
    {"jokers and more", [](Texts& t) { t.jokers = "2 jokers"; }, {kJokers}, kJokersText},
    {"two noughts", [](Texts& t) { t.jokers = "00"; }, {kJokers}, kJokersText},
    {"fewer than no jokers", [](Texts& t) { t.jokers = "-1"; }, {kJokers}, kJokersText},
    {"no jokers", [](Texts& t) { t.jokers = "0"; }, {}, ""},
    {"six wild ranks", [](Texts& t) { t.wildRanks = "2,3,4,5,6,7"; }, {kWildRanks}, kWildsText},
    {"no rank", [](Texts& t) { t.wildRanks = "2,x"; }, {kWildRanks}, kWildsText},
    {"a rank past the ace", [](Texts& t) { t.wildRanks = "15"; }, {kWildRanks}, kWildsText},
    {"five wild ranks", [](Texts& t) { t.wildRanks = "2,3,t,k, a "; }, {}, ""},
    {"neither wild", [](Texts& t) { t.usesWilds = true; }, {kWildRanks}, kNeither},
    {"blanks wild",
     [](Texts& t) { t.wildRanks = " ", t.usesWilds = true; },
     {kWildRanks},
     kNeither},
    {"wild jacks", [](Texts& t) { CheckType(t, GameType::kOneEyedJacks, true); }, {}, ""},
    {"pair of letters", [](Texts& t) { t.minPair = "x"; }, {kMinPair}, kMinPairText},
    {"two lowest pairs", [](Texts& t) { t.minPair = "J,Q"; }, {kMinPair}, kMinPairText},
    {"blanks around the pair", [](Texts& t) { t.minPair = " j "; }, {}, ""},
    {"bet of 0", [](Texts& t) { t.maxBet = "0"; }, {kMaxBet}, kMaxBetText},
    {"bet in words", [](Texts& t) { t.maxBet = "5 coins"; }, {kMaxBet}, kMaxBetText},
    {"no bet", [](Texts& t) { t.maxBet = ""; }, {kMaxBet}, kMaxBetText},
    {"endless bet", [](Texts& t) { t.maxBet = "99999999999999999999"; }, {kMaxBet}, kMaxBetText},
    {"high bet", [](Texts& t) { t.maxBet = "1,000"; }, {}, ""},
    {"wild line", Second(kFiveWilds), {kRank, 1}, kNeedsWilds},
    {"nameless", [](Texts& t) { t.lines[1].description = ""; }, {kDescription, 1}, kNoDescription},
    {"no payout", FirstPays(""), {kPayout, 0}, kPayoutText},
    {"payout of 0", FirstPays("0"), {kPayout, 0}, kPayoutText},
    {"payout with its unit", FirstPays("4000 coins"), {kPayout, 0}, kPayoutText},
    {"two cells pasted", FirstPays("4000 20000"), {kPayout, 0}, kPayoutText},
    {"comma at the wrong place", FirstPays("4,00"), {kPayout, 0}, kPayoutText},
    {"grouped payout", FirstPays(" 4,000"), {}, ""},
    {"word", [](Texts& t) { t.lines[1].maxPayout = "x"; }, {kMaxPayout, 1}, kMaxPayoutText},
    {"half", [](Texts& t) { t.lines[1].maxPayout = "4.5"; }, {kMaxPayout, 1}, kMaxPayoutText},
    {"bonus without quads", Second(kBonusFourOfAKind, " "), {kBonusQuads, 1}, kNoQuads},
    {"one wild without", WildSecond(kFiveOfAKindWithOneWild), {kBonusQuads, 1}, kNoQuads},
    {"quads of no rank", Second(kBonusFiveOfAKind, "2;z"), {kBonusQuads, 1}, kQuads},
    {"wild quads of no rank", WildSecond(kFourWilds, "x"), {kBonusQuads, 1}, kQuads},
    {"quads where none belong", Second(kFlush, "five"), {kBonusQuads, 1}, kQuads},
    {"kickers of no rank", WildSecond(kFourWilds, "", "x"), {kKickers, 1}, kTrailers},
    {"kickers where none belong", Second(kFlush, "", "x"), {kKickers, 1}, kTrailers},
    {"fourteen kickers",
     Second(kBonusFourOfAKind, "a", "2,2,2,2,2,2,2,2,2,2,2,2,2,2"),
     {kKickers, 1},
     kTrailers},
    {"ranks where none belong", Second(kFlush, "a ", "2 , 3"), {}, ""},
    {"plain quads", Second(kFourOfAKind), {}, ""},
    {"pair without a lowest", Second(kOnePair), {kMinPair}, kNoMinPair},
    {"behind the end", [](Texts& t) { t.lines[3] = Line(kFiveWilds); }, {}, ""},
    {"no lines", [](Texts& t) { t.lines[0].rank = kUnknown; }, {kRank, 0}, kBlank},
};

class FormProblemTest : public testing::TestWithParam<ProblemCase> {};

TEST_P(FormProblemTest, IsToldAtItsField) {
    PayTableTexts table = Valid();
    GetParam().change(table);
    const auto problem = FindProblem(table);
    EXPECT_EQ(problem ? problem->text : "", GetParam().text);
    EXPECT_EQ(problem ? problem->where : FieldPlace(), GetParam().where);
}
INSTANTIATE_TEST_SUITE_P(Each, FormProblemTest, testing::ValuesIn(kCases));

TEST(PayTableFormTest, WildLinesAskForWildCards) {
    for (const HandRank rank : {kFiveOfAKind, kWildRoyalFlush, kFiveWilds, kFourWilds}) {
        PayTableTexts table = ValidWild();
        table.lines[1] = Line(rank);
        EXPECT_FALSE(FindProblem(table));
        CheckWilds(table, false);
        EXPECT_EQ(FindProblem(table)->text, kNeedsWilds);
        CheckType(table, GameType::kOneEyedJacks, true);
        EXPECT_FALSE(FindProblem(table)) << "two jacks are wild";
    }
}

// Where a hand is paid differently for what a box holds, the player must get at the box.
TEST(PayTableFormTest, ARankTakesTheListsThatItsHandsAreTestedFor) {
    const auto paid = [](HandRank rank, const LineTraits& traits) {
        PayTable table;
        table.usesWilds = true;
        table.lines = {Wild(rank, 1, traits)};
        std::string hands;
        for (int code = 0; code < 4 * 4 * 4 * 4 * 4; ++code) {
            Hand hand;
            for (std::size_t i = 0; i < kHandSize; ++i) {
                hand.ranks[i] = 1 + ((code >> (2 * i)) & 3);  // aces to fours, deuces wild
                hand.suits[i] = 1 + static_cast<int>(i % 4);
                hand.wild[i] = hand.ranks[i] == 2;
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

// What is analysed while it is typed is what will be played.
class FormOfGame : public testing::TestWithParam<BuiltInGame> {};

PayTable WithoutDescriptions(PayTable table) {
    for (PayLine& line : table.lines) line.description = line.shortDescription = "";
    return table;
}

TEST_P(FormOfGame, BecomesTheTableThatIsLoaded) {
    ProfileFile file;
    const std::string path = TOLVANE_DATA_FOLDER "/Tolvane.ini";
    const std::string name(GetParam().name);
    const auto texts = ReadPayTableTexts({file, path, ""}, name, 0);
    EXPECT_EQ(TableOf(texts, GetParam().id),
              WithoutDescriptions(LoadPayTable(file, GetParam().id, name, 0, path, "")));
    EXPECT_FALSE(FindProblem(texts)) << "shipped tables may be saved";
}
INSTANTIATE_TEST_SUITE_P(Each, FormOfGame, testing::ValuesIn(BuiltInGames()),
                         [](const auto& game) { return std::to_string(game.param.id); });

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
