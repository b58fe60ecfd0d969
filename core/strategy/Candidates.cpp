#include "core/strategy/Candidates.h"

#include <algorithm>
#include <unordered_set>

namespace {

// What a further word asks about; two of one kind do not go together, but for single ranks.
enum class Ask : std::uint8_t {
    kSuiting,
    kStraights,
    kGaps,
    kHighCards,
    kBoth,
    kWilds,
    kJokers,
    kOf,
    kKicker,
    kAll,
    kWith,
    kWithout,
    kFlushPenalty,
    kStraightPenalty,
};

struct Word {
    Ask ask = Ask::kSuiting;
    void (*add)(Row& row, const Word& word) = nullptr;
    std::int8_t first = 0;
    std::int8_t last = 0;
};

void AddSuiting(Row& row, const Word& word) {
    row.suiting = word.first != 0 ? Suiting::kSuited : Suiting::kUnsuited;
}
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

// The words that may stand behind a hold.
class Words {
  public:
    Words(const Terms& terms, const PayTable& table, const Wording& wording)
        : high(terms.HighRanks() != 0), penalties(wording.penalties) {
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

    std::vector<Word> For(const Row& row) {
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
        const bool discards = row.base != Base::kPat && row.base != Base::kNothing;
        if (penalties && discards) {
            for (const std::int8_t present : {std::int8_t{0}, std::int8_t{1}}) {
                Add({Ask::kFlushPenalty, AddCondition<&Row::flushPenalty>, present});
                Add({Ask::kStraightPenalty, AddCondition<&Row::straightPenalty>, present});
            }
        }
        return words;
    }

  private:
    void Add(const Word& word) { words.push_back(word); }

    void AddSuitings() {
        Add({Ask::kSuiting, AddSuiting, 1});
        Add({Ask::kSuiting, AddSuiting, 0});
    }

    // Every number from least on, alone and with more; and from none to it.
    template <Amount Row::*Member>
    void AddAmounts(Ask ask, std::int8_t least, std::int8_t most) {
        for (std::int8_t n = least; n <= most; ++n) {
            Add({ask, AddAmount<Member>, n, n});
            if (n > least) Add({ask, AddAmount<Member>, n, Amount::kNoEnd});
            if (n > 0 && n < most && least == 0) Add({ask, AddAmount<Member>, 0, n});
        }
    }

    // Whether the pay table treats groups or kickers of neighbouring ranks differently.
    static bool TellsApart(const Terms& terms, const PayTable& table, int a, int b) {
        const auto has = [](const std::vector<int>& printed, int rank) {
            return std::ranges::find(printed, rank == kAceRank ? 1 : rank + 2) != printed.end();
        };
        return terms.IsHigh(a) != terms.IsHigh(b) ||
               std::ranges::any_of(table.lines, [&](const PayLine& line) {
                   return has(line.bonusQuads, a) != has(line.bonusQuads, b) ||
                          has(line.trailers, a) != has(line.trailers, b);
               });
    }

    template <RankSpan Row::*Member>
    void AddSpans(Ask ask, const std::vector<std::int8_t>& starts) {
        for (std::size_t first = 0; first < starts.size(); ++first) {
            for (std::size_t behind = first + 1; behind <= starts.size(); ++behind) {
                const int last = behind < starts.size() ? starts[behind] - 1 : kAceRank;
                Add({ask, AddSpan<Member>, starts[first], static_cast<std::int8_t>(last)});
            }
        }
    }

    void AddDrawWords(const Row& row) {
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

    bool wilds = false;
    bool jokers = false;
    bool high = false;
    bool penalties = false;
    std::vector<std::int8_t> allStarts;
    std::vector<std::int8_t>
        starts;  // the ranks from which on groups and kickers are treated alike
    std::vector<Word> words;
};

// The holds, plainest first.
class Holdings {
  public:
    explicit Holdings(const Terms& terms) {
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

// Looks as bits, by their place among those of a hold.
using Bits = std::vector<std::uint64_t>;

std::uint64_t KeyOf(std::uint32_t look) {
    std::uint64_t key = (look + 1) * 0x9E3779B97F4A7C15U;  // splitmix64
    key = (key ^ (key >> 30)) * 0xBF58476D1CE4E5B9U;
    key = (key ^ (key >> 27)) * 0x94D049BB133111EBU;
    return key ^ (key >> 31);
}

// Gathers candidates, leaving out those whose looks others have.
class Gatherer {
  public:
    Gatherer(const Terms& terms, const LookIndex& index) : terms(terms) {
        for (std::size_t i = 0; i < index.Count(); ++i) {
            traits.push_back(TraitsOf(terms, index.At(i)));
        }
    }

    void Add(const Row& row, std::vector<std::uint32_t> looks) {
        if (looks.empty()) return;
        std::uint64_t key = looks.size();
        for (const std::uint32_t look : looks) key += KeyOf(look);
        if (seen.insert(key).second) candidates.push_back({row, std::move(looks)});
    }

    // Those of the looks that the row fits; all looks there are without a second argument.
    std::vector<std::uint32_t> LooksOf(const Row& row) const {
        std::vector<std::uint32_t> looks;
        for (std::uint32_t i = 0; i < traits.size(); ++i) {
            if (Fits(row, traits[i], terms)) looks.push_back(i);
        }
        return looks;
    }

    Bits BitsOf(const Row& row, const std::vector<std::uint32_t>& among) const {
        Bits bits((among.size() + 63) / 64);
        for (std::size_t i = 0; i < among.size(); ++i) {
            if (Fits(row, traits[among[i]], terms)) bits[i / 64] |= std::uint64_t{1} << (i % 64);
        }
        return bits;
    }

    static std::vector<std::uint32_t> Chosen(const Bits& bits,
                                             const std::vector<std::uint32_t>& among) {
        std::vector<std::uint32_t> looks;
        for (std::size_t i = 0; i < bits.size(); ++i) {
            for (std::uint64_t word = bits[i]; word != 0; word &= word - 1) {
                looks.push_back(among[i * 64 + static_cast<std::size_t>(std::countr_zero(word))]);
            }
        }
        return looks;
    }

    std::vector<Candidate> candidates;

  private:
    const Terms& terms;
    std::vector<HoldTraits> traits;
    std::unordered_set<std::uint64_t> seen;
};

// A hold with each of its words, and what these leave of its looks.
struct Worded {
    Row row;
    std::vector<std::uint32_t> looks;
    std::vector<Word> words;  // those that leave some looks and not all
    std::vector<Bits> bits;   // by word
};

Worded WithWords(Gatherer& gatherer, Words& words, const Row& row,
                 std::vector<std::uint32_t> looks) {
    Worded worded{row, std::move(looks), {}, {}};
    for (const Word& word : words.For(row)) {
        Row further = row;
        word.add(further, word);
        Bits bits = gatherer.BitsOf(further, worded.looks);
        std::size_t left = 0;
        for (const std::uint64_t part : bits) left += static_cast<std::size_t>(std::popcount(part));
        if (left == 0 || left == worded.looks.size()) continue;
        // Of words that leave the same, the first is enough.
        if (std::ranges::find(worded.bits, bits) != worded.bits.end()) continue;
        worded.words.push_back(word);
        worded.bits.push_back(std::move(bits));
    }
    return worded;
}

bool GoTogether(const Word& a, const Word& b) {
    return a.ask != b.ask || a.ask == Ask::kWith || a.ask == Ask::kWithout;
}

void AddWithTwoWords(Gatherer& gatherer, const Worded& worded) {
    for (std::size_t a = 0; a < worded.words.size(); ++a) {
        for (std::size_t b = a + 1; b < worded.words.size(); ++b) {
            if (!GoTogether(worded.words[a], worded.words[b])) continue;
            Bits both = worded.bits[a];
            for (std::size_t i = 0; i < both.size(); ++i) both[i] &= worded.bits[b][i];
            if (both == worded.bits[a] || both == worded.bits[b]) continue;
            Row row = worded.row;
            worded.words[a].add(row, worded.words[a]);
            worded.words[b].add(row, worded.words[b]);
            gatherer.Add(row, Gatherer::Chosen(both, worded.looks));
        }
    }
}

}  // namespace

std::vector<Candidate> MakeCandidates(const Terms& terms, const PayTable& table,
                                      const LookIndex& index, const Wording& wording) {
    Gatherer gatherer(terms, index);
    Words words(terms, table, wording);
    std::vector<Worded> holds;
    for (const Row& row : Holdings(terms).rows) {
        auto looks = gatherer.LooksOf(row);
        if (looks.empty()) continue;
        gatherer.Add(row, looks);
        holds.push_back(WithWords(gatherer, words, row, std::move(looks)));
    }
    for (const Worded& hold : holds) {
        for (std::size_t i = 0; i < hold.words.size(); ++i) {
            Row row = hold.row;
            hold.words[i].add(row, hold.words[i]);
            gatherer.Add(row, Gatherer::Chosen(hold.bits[i], hold.looks));
        }
    }
    for (const Worded& hold : holds) AddWithTwoWords(gatherer, hold);
    return std::move(gatherer.candidates);
}

std::vector<Candidate> Refined(const Terms& terms, const PayTable& table, const LookIndex& index,
                               const Wording& wording, const Candidate& candidate) {
    Gatherer gatherer(terms, index);
    Words words(terms, table, wording);
    const Worded worded = WithWords(gatherer, words, candidate.row, candidate.looks);
    for (std::size_t i = 0; i < worded.words.size(); ++i) {
        Row row = worded.row;
        worded.words[i].add(row, worded.words[i]);
        gatherer.Add(row, Gatherer::Chosen(worded.bits[i], worded.looks));
    }
    return std::move(gatherer.candidates);
}
