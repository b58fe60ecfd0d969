// Where sessions end. Cash back is paid for the hands that were played, so who has won the same
// after more of them has more: the chances are kept by whole units and by the fraction of a unit
// that the cash back adds to them.
#pragma once
#include <cstdint>
#include <map>
#include <span>
#include <vector>

class EndMasses {
  public:
    struct End {
        double bets = 0;  // won, less those lost; cash back is in it
        double probability = 0;
    };

    // Of so many units of cash back for each hand, in sessions of at most so many hands that end
    // with about so many different amounts. The fractions are told apart exactly as long as there
    // are no more of them than there are places for: 8,192, fewer from 1,024 amounts on, and 64 at
    // least. Otherwise those that share a place have their mean, which keeps the mean of all and
    // moves an end by less than a place, but never from a loss to nothing or to a win.
    EndMasses(double cashBack, std::int64_t hands, double amounts);

    // Adds the share of each mass, of first, first + 1, ... units won, after so many hands.
    void Add(std::int64_t hands, std::int64_t first, std::span<const double> masses,
             double share = 1);

    bool HasCashBack() const { return cashBack > 0; }

    // All that have a chance to speak of, rising, at so many bets a unit.
    std::vector<End> Ends(double unit) const;

  private:
    static constexpr std::int64_t kBlock = 64;  // whole units side by side
    using Block = std::vector<double>;

    // The cash back of some hands that differ by whole units.
    struct Fraction {
        double least = 0;  // 0..1
        double mass = 0;
        double moment = 0;
        std::map<std::int64_t, Block> blocks;  // by their first unit over kBlock

        double Mean() const { return mass > 0 ? moment / mass : least; }
    };

    std::size_t PlaceOf(std::int64_t hands, double fraction) const;

    double cashBack;
    bool isExact = false;  // one fraction for each number of hands, again and again
    std::vector<Fraction> fractions;
};
