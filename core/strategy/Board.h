// A chart in the making and what it loses on every hand. Losses are percent of the bet over all
// hands.
//
// Inserting a row at a place takes the hands that it fits from the rows at this place and behind
// it. So one pass over the hands of a row, summing by deciding row what each would gain, gives the
// change of the whole loss for every place at once. The same sums are kept by look for all looks,
// and brought up to date only for hands that change their row: those of a row are the sums of its
// looks together, but where several holds of a hand fit, of which the worst counts. Such a guess is
// cheap, and tells which rows are worth a pass.
#pragma once
#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "core/strategy/Candidates.h"
#include "core/strategy/LookIndex.h"
#include "core/strategy/StartingHands.h"

class Board {
  public:
    static constexpr std::size_t kMostRows = 80;
    using Looks = std::vector<std::uint32_t>;

    struct Change {
        double loss = 1e9;      // of the whole, with its sign
        std::size_t place = 0;  // the row comes to stand there
    };

    // Reads the hands, and tells what share of them it has; without all of them when the progress
    // says so, and then it is of no use.
    Board(const StartingHands& hands, const Terms& terms, LookAt at, const Progress& goOn);

    const LookIndex& Index() const { return index; }

    // Whether a hold of that look is the best one of some hand.
    bool IsEverBest(std::uint32_t look) const { return everBest[look]; }

    // Forgets the looks that none of the rows fits. To be called once, before all below.
    void Prepare(std::span<const Candidate> candidates);

    // A first list of candidates, from the top: each time the one that decides most of the hands
    // left, of those that lose on them at most the tolerance times their share of all hands; the
    // one that loses least when there is none such.
    std::vector<std::uint32_t> FirstList(std::span<const Candidate> candidates,
                                         double tolerance) const;

    std::size_t Rows() const { return order.size(); }
    double Loss() const { return InPercent(loss); }
    double LossWithout(std::size_t row);

    // The rows that would decide the row's hands without it, those of most hands first; at most so
    // many, without the last row.
    std::vector<std::size_t> HeirsOf(std::size_t row, std::size_t most);

    // The best place for a row. The last row has to stay the last, and to fit all hands.
    Change BestInsertion(const Looks& looks);
    Change GuessInsertion(const Looks& looks) const;

    // The hands that several of the looks fit, and what a guess is mistaken by there: they stay the
    // same whatever the list is. Nothing when there are more than so many.
    struct Overlap {
        std::uint32_t hand = 0;
        std::uint32_t more = 0;   // looks than one
        std::int64_t excess = 0;  // of the worst look's cost over the sum of all, in units
    };
    using Overlaps = std::vector<Overlap>;
    std::optional<Overlaps> OverlapsOf(const Looks& looks, std::size_t most);

    // The same as without overlaps, where these are known.
    Change BestInsertion(const Looks& looks, const Overlaps& overlaps) const;

    // What a look would gain by itself, by place.
    void GainsOf(std::uint32_t look, std::span<double> byPlace) const {
        Whole sum = 0;
        for (std::size_t place = Rows(); place-- > 0;) {
            sum += sums[look * kMostRows + order[place]];
            byPlace[place] = -InPercent(sum);
        }
    }

    // What the row could gain if each of its looks had the best place for itself: nearly never less
    // than it gains, and much cheaper than a guess. Looks are weighed first, after every change.
    void WeighLooks();
    double HopeOf(const Looks& looks) const {
        float sum = 0;
        for (const std::uint32_t look : looks) sum += hopes[look];
        return static_cast<double>(sum);
    }

    void Insert(const Looks& looks, std::size_t place);
    void Remove(std::size_t row);

  private:
    // Sums are taken in whole numbers, so that what was added and taken away leaves nothing.
    using Whole = std::int64_t;
    Whole InUnits(float cost) const {
        return static_cast<Whole>(static_cast<double>(cost) * units);
    }
    double InPercent(Whole sum) const { return static_cast<double>(sum) / units; }

    struct Entry {
        std::uint32_t at = 0;  // a hand, or a look
        float cost = 0;
    };
    struct Decision {
        float cost = 0;
        std::uint32_t slot = 0;
    };
    struct Row {
        std::vector<Entry> cover;  // the hands that it fits
        bool used = false;
    };

    bool ReadHands(const StartingHands& hands, const Terms& terms, LookAt at, const Progress& goOn);
    std::vector<Entry> Cover(const Looks& looks);
    Change BestPlace(const std::array<Whole, kMostRows>& bySlot) const;
    void Decide(std::uint32_t hand, Decision decision);
    std::span<const Entry> LooksOf(std::uint32_t hand) const;
    std::size_t FreeSlot();

    LookIndex index;
    std::vector<bool> everBest;                    // by look
    std::vector<float> shares;                     // of all hands, by hand
    std::vector<std::uint32_t> handStarts;         // of the entries, by hand
    std::vector<Entry> byHand;                     // looks with their costs
    std::vector<std::uint32_t> lookStarts;         // by look
    std::vector<Entry> byLook;                     // hands with their costs
    std::vector<Decision> decisions;               // by hand
    std::array<Row, kMostRows> rows;               // by slot
    std::vector<std::size_t> order;                // slots, by place
    std::array<std::size_t, kMostRows> placeOf{};  // by slot
    std::size_t slots = 0;                         // those in use have lower numbers
    double units = 1;                              // in a percent: a power of two
    Whole loss = 0;
    std::vector<Whole> sums;     // by look and slot: what taking the slot's hands would change
    std::vector<float> hopes;    // by look, percent
    std::vector<float> scratch;  // by hand; below 0 where it is free
};
