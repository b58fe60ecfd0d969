// Finds a row of more words than the candidates have, for a chart that no candidate helps any more.
//
// At a given place of the list, every look gains or loses so much by itself. What the gaining looks
// of a hold gain together is the most that any words behind it can do there, and each word leaves
// less of it: so the most promising are taken apart first, until nothing promises more than was
// found.
#pragma once
#include <array>
#include <optional>
#include <span>
#include <vector>

#include "core/strategy/Board.h"
#include "core/strategy/Candidates.h"

class RowFinder {
  public:
    explicit RowFinder(std::span<const WordedHold> holds) : holds(holds) {}

    struct Found {
        Candidate candidate;
        Board::Change change;
    };

    // The best row that gains more than so much, in percent of the bet, and has at most four words
    // behind its hold; nothing when none was found within a fixed number of steps.
    std::optional<Found> Find(Board& board, double gain);

  private:
    static constexpr std::size_t kMostWords = 4;

    struct Problem {
        double hope = 0;
        std::size_t hold = 0;
        std::size_t place = 0;
    };
    struct Node {
        double hope = 0;
        std::array<std::uint16_t, kMostWords> words{};  // rising
        std::size_t count = 0;
        WordedHold::Bits bits;
    };

    std::vector<Problem> Problems(const Board& board, double gain) const;
    void Solve(Board& board, const Problem& problem);
    void Try(Board& board, const WordedHold& hold, const Node& node);
    void Expand(const WordedHold& hold, const Node& node, std::vector<Node>& nodes) const;

    std::span<const WordedHold> holds;
    std::vector<double> gains;  // of the looks of a hold at a place
    double most = 0;            // that was gained
    std::optional<Found> found;
};
