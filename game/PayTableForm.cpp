#include "game/PayTableForm.h"

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

std::string JokersProblem(const std::string& typed) {
    const int jokers = ParseInt(typed);
    const bool numeric = typed.empty() || typed == "0" || jokers > 0;
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
    const bool whole = std::ranges::all_of(typed, [](char c) { return c >= '0' && c <= '9'; });
    const std::int64_t bet = ReadWholeNumber(typed).Nearest();
    if (whole && bet >= 1 && bet <= kHighestMaxBet) return "";
    return "Max Bet must be numeric, not less than 1 and not greater than 1000";
}

std::optional<FormProblem> SettingsProblem(const PayTableTexts& table) {
    using enum FormField;
    if (auto text = JokersProblem(table.jokers); !text.empty()) return {{text, {kJokers}}};
    if (auto text = WildRanksProblem(table.wildRanks); !text.empty()) return {{text, {kWildRanks}}};
    const bool noWilds = table.jokers.empty() && table.wildRanks.empty();
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

bool TakesQuads(HandRank rank) {
    using enum HandRank;
    return rank == kBonusFourOfAKind || rank == kFourWilds || rank == kBonusFiveOfAKind ||
           rank == kFiveOfAKindWithOneWild;
}

bool TakesKickers(HandRank rank) {
    return rank == HandRank::kBonusFourOfAKind || rank == HandRank::kFourWilds;
}

std::optional<FormProblem> QuadsProblem(const PayLineTexts& line, int index) {
    const FieldPlace quads{FormField::kBonusQuads, index};
    if (TakesQuads(line.rank)) {
        if (line.bonusQuads.empty() && line.rank != HandRank::kFourWilds) {
            return {
                {"Bonus quad can not be blank if Bonus 4/5 of a Kind or 5K w/1 Wild rank is "
                 "selected",
                 quads}};
        }
        if (!ReadRanks(line.bonusQuads)) {
            return {
                {"You can not specify more than 13 Bonus quads and they must be 2-9,T,J,Q,K, "
                 "or A and seperated by a comma",
                 quads}};
        }
    }
    if (TakesKickers(line.rank) && !ReadRanks(line.kickers)) {
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
    if (ParseInt(line.payout) <= 0) {
        return {{"Payout can not be blank and must be numeric", {kPayout, index}}};
    }
    if (ParseInt(line.maxPayout) <= 0) {
        return {{"Max Payout can not be blank and must be numeric", {kMaxPayout, index}}};
    }
    if (auto problem = QuadsProblem(line, index)) return problem;
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
    line.payout = ParseInt(texts.payout);
    line.maxPayout = ParseInt(texts.maxPayout);
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

}  // namespace

void CheckWilds(PayTableTexts& table, bool checked) {
    table.usesWilds = checked;
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
    SetWildCards(table, ParseInt(texts.jokers), RanksOf(texts.wildRanks));
    table.minPair = MinPairOf(texts.minPair);
    table.maxBet = std::max(1, ParseInt(texts.maxBet));
    table.charlieBonus = texts.charlieBonus;
    table.redBlackBonus = texts.redBlackBonus;
    table.spinBonus = texts.spinBonus;
    table.targetBonus = texts.targetBonus;
    for (int i = 0; i < LineCount(texts); ++i) {
        table.lines.push_back(LineOf(texts.lines[static_cast<std::size_t>(i)]));
    }
    return table;
}
