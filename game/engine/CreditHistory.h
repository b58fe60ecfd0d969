// The course of a session's net gain, hand by hand, in bounded memory: a long session is kept in
// stretches of several hands, of which the lowest and the highest gain are still known. Gains are
// kept in dollars, so that the coin may change.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

class CreditHistory {
  public:
    static constexpr std::size_t kMostStretches = 4096;

    // Dollars won since the beginning, less those lost, after the hands of a stretch.
    struct Stretch {
        double lowest = 0;
        double highest = 0;
        double last = 0;

        bool operator==(const Stretch&) const = default;
    };

    // What was bet on all hands from the first one on, in dollars, and the sum of the squares. A
    // bet of kFullBet coins is paid by another schedule than any other bet, so they are kept apart.
    struct Wagers {
        double fullBets = 0;
        double fullSquares = 0;
        double otherBets = 0;
        double otherSquares = 0;
    };

    // A new course, from a gain of 0 and before the first hand; what was kept is forgotten.
    void Begin();

    // The credits won so far, less those lost, after so many hands of the session, at a coin in
    // dollars; the last hand was played for a bet in coins. The number of the last hand recorded,
    // or a lower one, means that what that hand brought has changed: a second draw, a double up, a
    // bonus. Any higher number is one hand more.
    void Record(std::int64_t hand, std::int64_t credits, double coin, int bet);

    // The coin that has been used is about to be changed, with so many credits won so far.
    void LeaveCoin(std::int64_t credits, double coin);

    std::int64_t Hands() const { return hands; }  // of this course

    // A power of two; the last stretch may have fewer.
    std::int64_t HandsPerStretch() const { return handsPerStretch; }

    // At most kMostStretches, in the order played; none before the first hand.
    std::span<const Stretch> Stretches() const { return stretches; }

    // As they stand at the end of each stretch.
    std::span<const Wagers> WagersUntil() const { return wagers; }

  private:
    double Dollars(std::int64_t credits, double coin) const;
    void AddWager(double dollars, bool isFull);
    void HalveResolution();

    std::vector<Stretch> stretches;
    std::vector<Wagers> wagers;  // of each stretch
    std::int64_t handsPerStretch = 1;
    std::int64_t hands = 0;
    std::int64_t creditsBefore = 0;  // won with other coins, and their worth
    double dollarsBefore = 0;
};
