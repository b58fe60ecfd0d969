// The words that charts of a table are searched with: the holds, and what may stand behind each.
#pragma once
#include <cstdint>
#include <vector>

#include "core/strategy/Holds.h"

// What a further word asks about; two of one kind do not go together, but for single ranks.
enum class Ask : std::uint8_t {
    kSuiting,
    kStraights,
    kGaps,
    kHighCards,
    kBoth,
    kWilds,
    kJokers,
    kSuitedWild,
    kOf,
    kKicker,
    kAll,
    kWith,
    kWithout,
    kFlushPenalty,
    kStraightPenalty,
    kOpenStraights,
};

struct Word {
    Ask ask = Ask::kSuiting;
    void (*add)(Row& row, const Word& word) = nullptr;  // puts the word behind a hold
    std::int8_t first = 0;
    std::int8_t last = 0;
};

bool GoTogether(const Word& a, const Word& b);

struct Wording {
    bool penalties = false;  // conditions on the discards are allowed
};

class Words {
  public:
    Words(const Terms& terms, const PayTable& table, const Wording& wording);
    // Those that may stand behind the row, each alone.
    std::vector<Word> For(const Row& row);

  private:
    void Add(const Word& word) { words.push_back(word); }
    void AddSuit(Suiting suiting);
    void AddSuitings();
    template <Amount Row::*Member>
    void AddAmounts(Ask ask, std::int8_t least, std::int8_t most);
    template <RankSpan Row::*Member>
    void AddSpans(Ask ask, const std::vector<std::int8_t>& starts);
    bool IsOneLowCard(const Row& row) const;
    void AddOpenStraights();
    void AddDrawWords(const Row& row);

    bool wilds = false;
    bool jokers = false;
    RankSet highRanks = 0;
    bool high = false;
    bool oneEyed = false;
    bool suitedWilds = false;
    bool penalties = false;
    std::vector<std::int8_t> allStarts;
    std::vector<std::int8_t>
        starts;  // the ranks from which on groups and kickers are treated alike
    std::vector<Word> words;
};

// The holds, plainest first.
std::vector<Row> Holdings(const Terms& terms);
