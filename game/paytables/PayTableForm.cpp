#include "game/paytables/PayTableForm.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

#include "core/text/Numbers.h"
#include "core/text/Ranks.h"
#include "core/text/WholeNumber.h"

namespace {

constexpr int kHighAce = 14;
constexpr int kOnlyAcesPay = 15;
constexpr std::size_t kMaxListRanks = 13;
constexpr int kHighestMaxBet = 1000;

// Nothing when the list cannot be read, or holds what is no rank.
std::optional<std::vector<int>> ReadRanks(const std::string& typed, int highest = kHighAce) {
    const auto stored = ParseRankList(typed);
    if (!stored) return std::nullopt;
    auto ranks = ReadRankNumbers(*stored, kMaxListRanks);
    const bool allRanks =
        std::ranges::all_of(ranks, [highest](int r) { return r >= 1 && r <= highest; });
    if (!allRanks) return std::nullopt;
    return ranks;
}

// 0 for what is no whole number.
int NumberOf(const std::string& typed) { return ParseInt(PlainWholeNumber(typed).value_or("0")); }

// What a table keeps to, or what is told and where the player goes on.
struct Rule {
    bool kept = false;
    const char* otherwise = "";
    FieldPlace where;
};

std::optional<FormProblem> FirstBroken(std::initializer_list<Rule> rules) {
    const auto* broken = std::ranges::find(rules, false, &Rule::kept);
    if (broken == rules.end()) return std::nullopt;
    return {{broken->otherwise, broken->where}};
}

std::optional<FormProblem> SettingsProblem(const PayTableTexts& table) {
    using enum FormField;
    const int jokers = NumberOf(table.jokers);
    const bool counted =
        table.jokers.empty() || PlainWholeNumber(table.jokers) == "0" || jokers > 0;
    const auto wildRanks = ReadRanks(table.wildRanks);
    const bool someWilds = !table.jokers.empty() || ParseRankList(table.wildRanks) != "";
    // A stored 15, which lets only aces pay, has no letter and may be left as it is.
    const auto minPair = ReadRanks(table.minPair, kOnlyAcesPay);
    const int maxBet = NumberOf(table.maxBet);
    return FirstBroken({
        {counted && jokers <= kMaxJokers,
         "Number of jokers must be numberic and not greater than 5",
         {kJokers}},
        {wildRanks && wildRanks->size() <= kMaxWildRanks,
         "You can not specify more than 5 wild cards and they must be 2-9,T,J,Q,K, or A and "
         "seperated by a comma",
         {kWildRanks}},
        {!table.usesWilds || someWilds || table.type == GameType::kOneEyedJacks,
         "You must specify either the number of jokers or a wild card if the Uses Wilds "
         "box is checked",
         {kWildRanks}},
        {minPair && minPair->size() == (table.minPair.empty() ? 0U : 1U),
         "Min pair can be only one character and must 2-9,T,J,Q,K, or A",
         {kMinPair}},
        {maxBet >= 1 && maxBet <= kHighestMaxBet,
         "Max Bet must be numeric, not less than 1 and not greater than 1000",
         {kMaxBet}},
    });
}

bool RequiresWilds(HandRank rank) {
    using enum HandRank;
    return rank == kFiveOfAKind || rank == kWildRoyalFlush || rank == kFiveWilds ||
           rank == kFourWilds || rank == kFiveOfAKindWithOneWild;
}

bool NeedsQuads(HandRank rank) {
    using enum HandRank;
    return rank == kBonusFourOfAKind || rank == kBonusFiveOfAKind ||
           rank == kFiveOfAKindWithOneWild;
}

std::optional<FormProblem> LineProblem(const PayTableTexts& table, int index) {
    using enum FormField;
    const PayLineTexts& line = table.lines[static_cast<std::size_t>(index)];
    const bool wilds = table.usesWilds || table.type == GameType::kOneEyedJacks;
    const auto quads = ReadRanks(line.bonusQuads);
    // A list that a line does not take must be readable too: it is stored with the line.
    return FirstBroken({
        {wilds || !RequiresWilds(line.rank),
         "A hand rank that requires wild cards can not be used if there are no wild cards",
         {kRank, index}},
        {!line.description.empty(), "Description can not be blank", {kDescription, index}},
        {NumberOf(line.payout) > 0,
         "Payout can not be blank and must be numeric",
         {kPayout, index}},
        {NumberOf(line.maxPayout) > 0,
         "Max Payout can not be blank and must be numeric",
         {kMaxPayout, index}},
        {!quads || !quads->empty() || !NeedsQuads(line.rank),
         "Bonus quad can not be blank if Bonus 4/5 of a Kind or 5K w/1 Wild rank is selected",
         {kBonusQuads, index}},
        {quads.has_value(),
         "You can not specify more than 13 Bonus quads and they must be 2-9,T,J,Q,K, or A "
         "and seperated by a comma",
         {kBonusQuads, index}},
        {IsRankList(line.kickers),
         "You can not specify more than 13 Trailers and they must be 2-9,T,J,Q,K, or A "
         "and seperated by a comma",
         {kKickers, index}},
        {line.rank != HandRank::kOnePair || !table.minPair.empty(),
         "Minimum pair can not be blank if 1 Pair rank is selected",
         {kMinPair}},
    });
}

std::vector<int> RanksOf(const std::string& typed) {
    std::vector<int> ranks = ReadRanks(typed).value_or(std::vector<int>());
    std::ranges::replace(ranks, kHighAce, 1);
    return ranks;
}

PayLine LineOf(const PayLineTexts& texts) {
    PayLine line;
    line.rank = texts.rank;
    line.payout = NumberOf(texts.payout);
    line.maxPayout = NumberOf(texts.maxPayout);
    line.bonusQuads = RanksOf(texts.bonusQuads);
    line.trailers = RanksOf(texts.kickers);
    line.wildsOK = texts.wildsOK;
    return line;
}

int MinPairOf(const std::string& typed) {
    const auto ranks = ReadRanks(typed, kOnlyAcesPay);
    if (!ranks || ranks->empty()) return 0;
    return ranks->front() == 1 ? kHighAce : ranks->front();
}

void MakePlain(std::string& number) { number = PlainWholeNumber(number).value_or(number); }

}  // namespace

bool TakesRanks(HandRank rank, FormField list) {
    using enum HandRank;
    switch (rank) {
        case kFiveOfAKindWithOneWild:
            return list == FormField::kBonusQuads;
        case kBonusFourOfAKind:
        case kBonusFiveOfAKind:
        case kFourOfAKind:
        case kFiveOfAKind:
        case kFourWilds:
        case kFiveWilds:
            return true;
        default:
            return false;
    }
}

bool IsRankList(const std::string& typed) { return ReadRanks(typed).has_value(); }

PayTableTexts WithPlainNumbers(PayTableTexts table) {
    MakePlain(table.jokers);
    MakePlain(table.maxBet);
    for (PayLineTexts& line : table.lines) {
        MakePlain(line.payout);
        MakePlain(line.maxPayout);
    }
    return table;
}

void CheckWilds(PayTableTexts& table, bool checked) {
    table.usesWilds = checked;
    if (!checked) table.jokers.clear();  // a joker that nobody sees would still be dealt
    for (PayLineTexts& line : table.lines) line.wildsOK = checked;
}

void CheckType(PayTableTexts& table, GameType type, bool checked) {
    table.type = checked ? type : GameType::kStandard;
    if (type == GameType::kOneEyedJacks) {
        CheckWilds(table, checked);
    } else {
        table.wildRanks.clear();
        CheckWilds(table, false);
    }
}

void ChooseRank(PayLineTexts& line, HandRank rank) {
    line.rank = rank;
    if (rank == HandRank::kUnknown) return;
    const HandRankInfo& info = RankInfo(rank);
    line.description = std::string(info.longName) + ";" + std::string(info.shortName);
}

std::optional<FormProblem> FindProblem(const PayTableTexts& table) {
    if (auto problem = SettingsProblem(table)) return problem;
    const int count = LineCount(table);
    for (int line = 0; line < count; ++line) {
        if (auto problem = LineProblem(table, line)) {
            problem->ofLine = problem->where.field >= FormField::kRank;
            return problem;
        }
    }
    if (count == 0) {
        return {{"The pay table is blank. You must enter at least one pay line.",
                 {FormField::kRank, 0}}};
    }
    return std::nullopt;
}

PayTable TableOf(const PayTableTexts& texts, int gameId) {
    PayTable table;
    table.gameId = gameId;
    table.type = texts.type;
    table.usesWilds = texts.usesWilds;
    SetWildCards(table, NumberOf(texts.jokers), RanksOf(texts.wildRanks));
    table.minPair = MinPairOf(texts.minPair);
    table.maxBet = std::max(1, NumberOf(texts.maxBet));
    table.charlieBonus = texts.charlieBonus;
    table.redBlackBonus = texts.redBlackBonus;
    table.spinBonus = texts.spinBonus;
    table.targetBonus = texts.targetBonus;
    for (int i = 0; i < LineCount(texts); ++i) {
        table.lines.push_back(LineOf(texts.lines[static_cast<std::size_t>(i)]));
    }
    return table;
}
