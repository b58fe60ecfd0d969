#include "game/paytables/PayTableForm.h"

#include <algorithm>
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

std::string JokersProblem(const std::string& typed) {
    const int jokers = NumberOf(typed);
    const bool numeric = typed.empty() || PlainWholeNumber(typed) == "0" || jokers > 0;
    if (numeric && jokers <= kMaxJokers) return "";
    return "Number of jokers must be numberic and not greater than 5";
}

std::string WildRanksProblem(const std::string& typed) {
    const auto ranks = ReadRanks(typed);
    if (ranks && ranks->size() <= kMaxWildRanks) return "";
    return "You can not specify more than 5 wild cards and they must be 2-9,T,J,Q,K, or A and "
           "seperated by a comma";
}

// A stored 15, which lets only aces pay, has no letter and may be left as it is.
std::string MinPairProblem(const std::string& typed) {
    const auto ranks = ReadRanks(typed, kOnlyAcesPay);
    if (ranks && ranks->size() == (typed.empty() ? 0U : 1U)) return "";
    return "Min pair can be only one character and must 2-9,T,J,Q,K, or A";
}

std::string MaxBetProblem(const std::string& typed) {
    const int bet = NumberOf(typed);
    if (bet >= 1 && bet <= kHighestMaxBet) return "";
    return "Max Bet must be numeric, not less than 1 and not greater than 1000";
}

std::optional<FormProblem> SettingsProblem(const PayTableTexts& table) {
    using enum FormField;
    if (auto text = JokersProblem(table.jokers); !text.empty()) return {{text, {kJokers}}};
    if (auto text = WildRanksProblem(table.wildRanks); !text.empty()) return {{text, {kWildRanks}}};
    const bool noWilds = table.jokers.empty() && ParseRankList(table.wildRanks) == "";
    if (table.usesWilds && noWilds && table.type != GameType::kOneEyedJacks) {
        return {
            {"You must specify either the number of jokers or a wild card if the Uses Wilds "
             "box is checked",
             {kWildRanks}}};
    }
    if (auto text = MinPairProblem(table.minPair); !text.empty()) return {{text, {kMinPair}}};
    if (auto text = MaxBetProblem(table.maxBet); !text.empty()) return {{text, {kMaxBet}}};
    return std::nullopt;
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

// What a line does not take must be readable too: it is stored with the line.
std::optional<FormProblem> ListProblem(const PayLineTexts& line, int index) {
    const auto quads = ReadRanks(line.bonusQuads);
    const FieldPlace place{FormField::kBonusQuads, index};
    if (quads && quads->empty() && NeedsQuads(line.rank)) {
        return {
            {"Bonus quad can not be blank if Bonus 4/5 of a Kind or 5K w/1 Wild rank is selected",
             place}};
    }
    if (!quads) {
        return {
            {"You can not specify more than 13 Bonus quads and they must be 2-9,T,J,Q,K, or A "
             "and seperated by a comma",
             place}};
    }
    if (!ReadRanks(line.kickers)) {
        return {
            {"You can not specify more than 13 Trailers and they must be 2-9,T,J,Q,K, or A "
             "and seperated by a comma",
             {FormField::kKickers, index}}};
    }
    return std::nullopt;
}

std::optional<FormProblem> LineProblem(const PayTableTexts& table, int index) {
    using enum FormField;
    const PayLineTexts& line = table.lines[static_cast<std::size_t>(index)];
    const bool wilds = table.usesWilds || table.type == GameType::kOneEyedJacks;
    if (RequiresWilds(line.rank) && !wilds) {
        return {{"A hand rank that requires wild cards can not be used if there are no wild cards",
                 {kRank, index}}};
    }
    if (line.description.empty()) return {{"Description can not be blank", {kDescription, index}}};
    if (NumberOf(line.payout) <= 0) {
        return {{"Payout can not be blank and must be numeric", {kPayout, index}}};
    }
    if (NumberOf(line.maxPayout) <= 0) {
        return {{"Max Payout can not be blank and must be numeric", {kMaxPayout, index}}};
    }
    if (auto problem = ListProblem(line, index)) return problem;
    if (line.rank == HandRank::kOnePair && table.minPair.empty()) {
        return {{"Minimum pair can not be blank if 1 Pair rank is selected", {kMinPair}}};
    }
    return std::nullopt;
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
