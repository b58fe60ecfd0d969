// Plays starting hands one by one: those whose best hold asks for more than their sets are worth, a
// second draw or an order of the cards, and the hands of decks without suit patterns.
#pragma once
#include <optional>
#include <vector>

#include "core/analysis/BestHold.h"
#include "core/analysis/GameTally.h"
#include "core/analysis/HoldAnalysis.h"

class HandByHand {
  public:
    // All must outlive this. The coin is in dollars.
    HandByHand(const LineTables& tables, const PayTable& table, double coin, GameTally& tally);

    // Plays a hand that stands for so many, and its orders where they matter.
    void Play(const Hand& cards, double weight);

    // Ends a row of patterns. Its variants are one representative as long as they are played alike.
    void EndRow();

  private:
    void PlayAlone(const Hand& cards, double weight);
    void PlayUnordered(const Hand& cards, double weight);
    void PlayAceOrders(const Hand& cards, double weight);
    void PlayAcePlacement(const Hand& cards, unsigned aces, const Placement& placement,
                          double weight);
    bool IsPlayedAsOne() const;
    void PlayOrders(const Hand& cards, const std::vector<Placement>& orders, double weight);
    void FindBest(const Placement& order, PlayedHand& hand);
    void FindBestPile(const Hand& cards, BestHold& best);
    void Look(const Hand& cards);

    const LineTables& tables;
    const PayTable& table;
    double coin;
    GameTally& tally;
    std::optional<BestHoldFinder> finder;
    HoldAnalysis analysis;
    std::vector<PlayedHand> played;   // of the row at work
    std::vector<Placement> orders;    // of PlayAcePlacement
    std::vector<HoldMask> heldCards;  // in the hands of PlayOrders: the cards, the first as bit 1
};
