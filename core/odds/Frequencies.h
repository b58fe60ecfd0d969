// Many hands, frequency by frequency: the powers of the coefficients of one hand, for as many hands
// as they say something.
#pragma once
#include <vector>

#include "core/odds/Spectrum.h"

// One frequency: the logarithm of what one hand does to it, and its angle.
struct Frequency {
    Coefficient log;
    double angle = 0;
    double weight = 2;  // of its term in a sum over all frequencies; 1 where it is its own mirror
};

// None when goesOn says no.
std::vector<Frequency> FrequenciesOf(const GainLaw& law, std::size_t places, const GoesOn& goesOn);

// Adds the chance, times the places of the ring, that n hands move the money by so many units, as
// far as the frequency has a part in it, to sums[n], for n from "from" on.
void AddChances(const Frequency& frequency, std::int64_t moved, std::size_t from,
                std::vector<double>& sums);

// The sum of brokeAt[n] * z^(hands - n) for n from "from" to the last: what the broken would have
// done to the frequency until the last hand, had they gone on.
Coefficient GoneOn(const Frequency& frequency, std::size_t from,
                   const std::vector<double>& brokeAt);

// The powers z^0, z^1, ... of one frequency, for who asks for many sums of them.
class PowerSeries {
  public:
    // For at most so many hands, and as long as they say something.
    void Fill(const Frequency& frequency, std::size_t hands);

    // Adds the real part of each power times the turn to sums[n], from one hand on.
    void AddTo(Coefficient turn, std::vector<double>& sums) const;
    // The sum of each power times factors[n].
    Coefficient SumWith(const std::vector<double>& factors) const;

  private:
    std::vector<double> re;
    std::vector<double> im;
};

// z^hands, turned to where the money begins.
Coefficient PowerFrom(const Frequency& frequency, std::int64_t level, std::int64_t hands);
