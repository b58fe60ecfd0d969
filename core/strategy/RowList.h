// A list of rows in the making: the steps that a search is made of. Rows are numbers of candidates,
// the first of which discards everything.
#pragma once
#include <optional>
#include <vector>

#include "core/strategy/Board.h"
#include "core/strategy/Candidates.h"

class RowList {
  public:
    using Rows = std::vector<std::uint32_t>;
    static constexpr std::uint32_t kNone = Candidate::kNone;
    static constexpr double kNoGain = 1e-8;  // percent: smaller changes are rounding

    struct Pick {
        Board::Change change;
        std::uint32_t candidate = kNone;
    };

    RowList(Board& board, std::vector<Candidate>& candidates)
        : board(board), candidates(candidates) {}

    const Rows& Get() const { return rows; }
    std::size_t Size() const { return rows.size(); }

    // What was added up so far: a measure of the work that is the same everywhere.
    std::size_t Sums() const { return sums; }

    void Insert(std::uint32_t candidate, std::size_t place);
    void Remove(std::size_t row);

    // Puts the rows of a list on the board, those that stand there in their places being left.
    void Restore(const Rows& list);
    // The same from the beginning.
    void Lay(const Rows& list);

    // Drops the rows that are missed least, without a look at what could take their place.
    void Trim(std::size_t size);

    // Drops the rows that nothing is lost without. False when there are none.
    bool Tidy();

    // The row that gains most, if any gains more than so much; of those that gain the same, the
    // plainest.
    Pick BestRow(double gain);

    // The best place for a candidate.
    Board::Change BestPlace(std::uint32_t candidate);

    // Takes a row out, and moves those that inherit its hands to their best places.
    void DropAndMove(std::size_t row);

  private:
    struct Hope {
        double gain = 0;
        std::uint32_t candidate = 0;
    };
    static bool IsMore(const Hope& a, const Hope& b) {
        return a.gain != b.gain ? a.gain > b.gain : a.candidate < b.candidate;
    }
    void FindHopes(double gain);
    void FindGuesses(double gain);

    Board& board;
    std::vector<Candidate>& candidates;
    Rows rows;  // as they stand on the board
    std::size_t sums = 0;
    std::vector<bool> promising;  // by candidate
    std::vector<Hope> hopes;
    std::vector<Hope> guesses;
    // What is known of candidates that were tried: few of them are tried again and again.
    std::vector<std::optional<Board::Overlaps>> overlaps;
    std::vector<bool> looked;  // for overlaps
    std::size_t overlapsKept = 0;
};
