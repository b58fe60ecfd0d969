#include "core/strategy/Words.h"

#include <algorithm>

namespace {

void AddSuiting(Row& row, const Word& word) { row.suiting = static_cast<Suiting>(word.first); }
template <Amount Row::*Member>
void AddAmount(Row& row, const Word& word) {
    row.*Member = {word.first, word.last};
}
template <RankSpan Row::*Member>
void AddSpan(Row& row, const Word& word) {
    row.*Member = {word.first, word.last};
}
template <RankSet Row::*Member>
void AddRank(Row& row, const Word& word) {
    row.*Member |= static_cast<RankSet>(1 << word.first);
}
template <Condition Row::*Member>
void AddCondition(Row& row, const Word& word) {
    row.*Member = word.first != 0 ? Condition::kPresent : Condition::kAbsent;
}

bool IsGroup(const Row& row) {
    return row.base == Base::kOfAKind || row.base == Base::kOfAKindAndOne ||
           row.base == Base::kTwoPair ||
           (row.base == Base::kPat && !row.orBetter &&
            (row.pat == PatHand::kFourOfAKind || row.pat == PatHand::kFiveOfAKind ||
             row.pat == PatHand::kFullHouse || row.pat == PatHand::kFourWilds ||
             row.pat == PatHand::kThreeOfAKind || row.pat == PatHand::kPair));
}

bool HasKicker(const Row& row) {
    return row.base == Base::kOfAKindAndOne || row.base == Base::kTwoPair ||
           (row.base == Base::kPat && IsGroup(row));
}

bool IsDraw(const Row& row) {
    return row.base == Base::kToRoyalFlush || row.base == Base::kToStraightFlush ||
           row.base == Base::kToFlush || row.base == Base::kToStraight ||
           row.base == Base::kHighCards;
}

// Whether the pay table treats groups or kickers of neighbouring ranks differently.
bool TellsApart(const Terms& terms, const PayTable& table, int a, int b) {
    const auto has = [](const std::vector<int>& printed, int rank) {
        return std::ranges::find(printed, rank == kAceRank ? 1 : rank + 2) != printed.end();
    };
    return terms.IsHigh(a) != terms.IsHigh(b) ||
           std::ranges::any_of(table.lines, [&](const PayLine& line) {
               return has(line.bonusQuads, a) != has(line.bonusQuads, b) ||
                      has(line.trailers, a) != has(line.trailers, b);
           });
}

// The holds, plainest first.
class HoldingsList {
  public:
    explicit HoldingsList(const Terms& terms) {
        AddNamed(terms);
        AddCounted();
        AddRanks();
    }
    std::vector<Row> rows;

  private:
    Row& Add(Base base, int count) {
        Row row;
        row.base = base;
        row.count = static_cast<std::int8_t>(count);
        rows.push_back(row);
        return rows.back();
    }

    void AddNamed(const Terms& terms) {
        Add(Base::kNothing, 0);
        for (std::size_t hand = 0; hand < kPatHands; ++hand) {
            const auto pat = static_cast<PatHand>(hand);
            if (terms.LastLineOf(pat) < 0) continue;
            Add(Base::kPat, 0).pat = pat;
            Row& better = Add(Base::kPat, 0);
            better.pat = pat;
            better.orBetter = true;
        }
        for (int count = 2; count <= 4; ++count) Add(Base::kOfAKind, count);
        Add(Base::kOfAKind, 2).height = Height::kHigh;
        Add(Base::kOfAKind, 2).height = Height::kLow;
        Add(Base::kTwoPair, 4);
    }

    void AddCounted() {
        for (int count = 1; count <= 4; ++count) Add(Base::kWildCards, count);
        for (int count = 2; count <= 4; ++count) Add(Base::kToRoyalFlush, count);
        for (int count = 2; count <= 4; ++count) Add(Base::kToStraightFlush, count);
        for (int count = 2; count <= 4; ++count) Add(Base::kToFlush, count);
        for (int count = 2; count <= 4; ++count) Add(Base::kToStraight, count);
        for (int count = 1; count <= 4; ++count) Add(Base::kHighCards, count);
        for (int count = 2; count <= 3; ++count) Add(Base::kOfAKindAndOne, count);
    }

    void AddRankRow(std::initializer_list<int> ranks) {
        Row& row = Add(Base::kRanks, static_cast<int>(ranks.size()));
        std::size_t at = 0;
        for (const int rank : ranks) row.ranks[at++] = static_cast<std::int8_t>(rank);
    }

    void AddRanks() {
        for (int a = kAceRank; a >= 0; --a) {
            AddRankRow({a});
            AddRankRow({a, kWildRank});
            for (int b = a - 1; b >= 0; --b) {
                AddRankRow({a, b});
                if (b >= kTenRank - 1) AddRankRow({a, b, kWildRank});
                for (int c = b - 1; c >= kTenRank - 1; --c) {
                    AddRankRow({a, b, c});
                    for (int d = c - 1; d >= kTenRank; --d) AddRankRow({a, b, c, d});
                }
            }
        }
    }
};

}  // namespace

bool GoTogether(const Word& a, const Word& b) {
    return a.ask != b.ask || a.ask == Ask::kWith || a.ask == Ask::kWithout;
}

Words::Words(const Terms& terms, const PayTable& table, const Wording& wording)
    : highRanks(terms.HighRanks()),
      high(terms.HighRanks() != 0),
      oneEyed(terms.OneEyedSuits() != 0),
      suitedWilds(terms.WildsKeepSuits()),
      penalties(wording.penalties) {
    const DeckDescription deck = DeckOf(table);
    const bool otherWilds = deck.wildRanks[0] > 0 || deck.oneEyedJacksWild;
    wilds = deck.usesWilds && (otherWilds || deck.jokers > 0);
    jokers = wilds && otherWilds && deck.jokers > 0;
    for (int rank = 0; rank < kRanks; ++rank) {
        allStarts.push_back(static_cast<std::int8_t>(rank));
        if (rank == 0 || TellsApart(terms, table, rank - 1, rank)) {
            starts.push_back(static_cast<std::int8_t>(rank));
        }
    }
}

std::vector<Word> Words::For(const Row& row) {
    words.clear();
    if (wilds && row.base != Base::kRanks && row.base != Base::kWildCards) {
        AddAmounts<&Row::wildCards>(Ask::kWilds, 0, 3);
    }
    if (jokers) AddAmounts<&Row::jokers>(Ask::kJokers, 0, 2);
    // A pair stands against single cards, whose straights its rank may be in the way of.
    const bool isPair = row.base == Base::kOfAKind && row.count == 2;
    if (IsGroup(row)) AddSpans<&Row::of>(Ask::kOf, isPair ? allStarts : starts);
    if (HasKicker(row)) AddSpans<&Row::kicker>(Ask::kKicker, starts);
    if (IsDraw(row)) AddDrawWords(row);
    if (row.base == Base::kRanks) AddSuitings();
    if (wilds && suitedWilds && (IsDraw(row) || row.base == Base::kRanks)) {
        for (const std::int8_t present : {std::int8_t{1}, std::int8_t{0}}) {
            Add({Ask::kSuitedWild, AddCondition<&Row::suitedWild>, present});
        }
    }
    if (oneEyed && row.base != Base::kPat && row.base != Base::kNothing) {
        for (const Suiting suiting : {Suiting::kOneEyed, Suiting::kTwoEyed}) AddSuit(suiting);
    }
    const bool discards = row.base != Base::kPat && row.base != Base::kNothing;
    if (penalties && discards) {
        for (const std::int8_t present : {std::int8_t{0}, std::int8_t{1}}) {
            Add({Ask::kFlushPenalty, AddCondition<&Row::flushPenalty>, present});
            Add({Ask::kStraightPenalty, AddCondition<&Row::straightPenalty>, present});
        }
        if (IsOneLowCard(row)) AddOpenStraights();
    }
    return words;
}

void Words::AddSuit(Suiting suiting) {
    Add({Ask::kSuiting, AddSuiting, static_cast<std::int8_t>(suiting)});
}

void Words::AddSuitings() {
    for (const Suiting suiting : {Suiting::kSuited, Suiting::kUnsuited}) AddSuit(suiting);
}

// Every number from least on, alone and with more; and from none to it.
template <Amount Row::*Member>
void Words::AddAmounts(Ask ask, std::int8_t least, std::int8_t most) {
    for (std::int8_t n = least; n <= most; ++n) {
        Add({ask, AddAmount<Member>, n, n});
        if (n > least) Add({ask, AddAmount<Member>, n, Amount::kNoEnd});
        if (n > 0 && n < most && least == 0) Add({ask, AddAmount<Member>, 0, n});
    }
}

// A single natural card, with a wild one or without, that is held for its straights alone.
bool Words::IsOneLowCard(const Row& row) const {
    return row.base == Base::kRanks && !((highRanks >> row.ranks[0]) & 1) &&
           (row.count == 1 || (row.count == 2 && row.ranks[1] == kWildRank));
}

void Words::AddOpenStraights() {
    for (std::int8_t n = 1; n <= 4; ++n) {
        Add({Ask::kOpenStraights, AddAmount<&Row::openStraights>, n, Amount::kNoEnd});
    }
}

template <RankSpan Row::*Member>
void Words::AddSpans(Ask ask, const std::vector<std::int8_t>& starts) {
    for (std::size_t first = 0; first < starts.size(); ++first) {
        for (std::size_t behind = first + 1; behind <= starts.size(); ++behind) {
            const int last = behind < starts.size() ? starts[behind] - 1 : kAceRank;
            Add({ask, AddSpan<Member>, starts[first], static_cast<std::int8_t>(last)});
        }
    }
}

void Words::AddDrawWords(const Row& row) {
    if (row.base == Base::kHighCards || row.base == Base::kToStraight) AddSuitings();
    if (row.base != Base::kToRoyalFlush && row.base != Base::kHighCards) {
        AddAmounts<&Row::straights>(Ask::kStraights, 1, 4);
        AddAmounts<&Row::gaps>(Ask::kGaps, 0, 3);
    }
    if (high && row.base != Base::kHighCards) {
        AddAmounts<&Row::highCards>(Ask::kHighCards, 0, 4);
        for (std::int8_t n = 2; n <= 8; ++n) {
            Add({Ask::kBoth, AddAmount<&Row::straightsAndHighCards>, n, Amount::kNoEnd});
        }
    }
    // Single ranks matter little to a flush, and there are many sets of them.
    const std::int8_t ranks = row.base == Base::kToFlush ? 0 : kRanks;
    for (std::int8_t rank = 0; rank < ranks; ++rank) {
        Add({Ask::kWith, AddRank<&Row::with>, rank});
        Add({Ask::kWithout, AddRank<&Row::without>, rank});
        if (rank > 0 && rank < kAceRank) {
            Add({Ask::kAll, AddSpan<&Row::all>, rank, kAceRank});
            Add({Ask::kAll, AddSpan<&Row::all>, rank, kAceRank - 1});
            Add({Ask::kAll, AddSpan<&Row::all>, 0, rank});
        }
    }
}

std::vector<Row> Holdings(const Terms& terms) { return HoldingsList(terms).rows; }
