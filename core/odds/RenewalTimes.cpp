#include <algorithm>
#include <cmath>
#include <map>

#include "core/odds/Frequencies.h"
#include "core/odds/Walk.h"

namespace {

constexpr std::size_t kAsked = 16;  // frequencies, until it is asked again whether to go on
constexpr std::size_t kSmall = 64;  // hands that are followed one by one
constexpr double kMostCells = 1e7;  // of hands and units left

using Columns = std::vector<std::vector<double>>;  // by units, then by hands

// A level of units below the stake that is reached for the first time is reached by all walks, less
// those that had been at such a level before and have come to it from there.
class Renewal {
  public:
    Renewal(std::int64_t stake, std::int64_t hands, const GoesOn& goesOn)
        : stake(static_cast<std::size_t>(stake)),
          hands(static_cast<std::size_t>(hands)),
          goesOn(goesOn) {}

    // The chances to have moved by -(stake - 1) ... stake - 1 units after so many hands, and those
    // to be at 0 ... stake - 1 units, which become those to be there for the first time. False when
    // it is stopped.
    bool Solve(Columns chancesToMove, Columns& at) {
        moves = std::move(chancesToMove);
        std::size_t all = kSmall;
        while (all <= hands) all *= 2;
        return Solve(at, 0, all);
    }

  private:
    bool Solve(Columns& at, std::size_t from, std::size_t count) {
        if (from > hands) return true;
        if (count == kSmall) {
            FollowHands(at, from);
            return true;
        }
        if (!goesOn() || !Solve(at, from, count / 2)) return false;
        if (from + count / 2 <= hands) TakeFromLater(at, from, count);
        return Solve(at, from + count / 2, count / 2);
    }

    const std::vector<double>& Move(std::size_t left, std::size_t to) const {
        return moves[to + stake - 1 - left];
    }

    void FollowHands(Columns& at, std::size_t from) {
        const std::size_t end = std::min(from + kSmall, hands + 1);
        for (std::size_t n = from; n < end; ++n) {
            for (std::size_t left = 0; left < stake; ++left) {
                at[left][n] = std::max(0.0, at[left][n]);
            }
            for (std::size_t left = 0; left < stake; ++left) {
                const double broke = at[left][n];
                for (std::size_t to = 0; to < stake; ++to) {
                    const std::vector<double>& move = Move(left, to);
                    for (std::size_t later = n + 1; later < end; ++later) {
                        at[to][later] -= broke * move[later - n];
                    }
                }
            }
        }
    }

    // Those who were first there in the first half of so many hands, from the second half, by
    // transforms of so many places: what turns round them comes to the first half.
    void TakeFromLater(Columns& at, std::size_t from, std::size_t count) {
        const std::vector<Spectrum>& movesOf = SpectraOfMoves(count);
        std::vector<Spectrum> first;
        for (const auto& column : at) {
            first.push_back(SpectrumOf(Part(column, from, count / 2, count)));
        }
        for (std::size_t to = 0; to < stake; ++to) {
            Spectrum sum(count / 2 + 1);
            for (std::size_t left = 0; left < stake; ++left) {
                const Spectrum& move = movesOf[to + stake - 1 - left];
                for (std::size_t j = 0; j < sum.size(); ++j) sum[j] += first[left][j] * move[j];
            }
            const std::vector<double> later = LawOnRing(sum, count);
            const std::size_t end = std::min(from + count, hands + 1);
            for (std::size_t n = from + count / 2; n < end; ++n) at[to][n] -= later[n - from];
        }
    }

    const std::vector<Spectrum>& SpectraOfMoves(std::size_t count) {
        std::vector<Spectrum>& spectra = spectraOfMoves[count];
        if (spectra.empty()) {
            for (const auto& move : moves) {
                spectra.push_back(SpectrumOf(Part(move, 0, count, count)));
            }
        }
        return spectra;
    }

    static std::vector<double> Part(const std::vector<double>& column, std::size_t from,
                                    std::size_t count, std::size_t places) {
        std::vector<double> part(places);
        const std::size_t end = std::min(from + count, column.size());
        std::copy(column.begin() + static_cast<std::ptrdiff_t>(from),
                  column.begin() + static_cast<std::ptrdiff_t>(end), part.begin());
        return part;
    }

    std::size_t stake;
    std::size_t hands;
    const GoesOn& goesOn;
    Columns moves;
    std::map<std::size_t, std::vector<Spectrum>> spectraOfMoves;  // by places
};

// The chances, after 0, 1, ... hands, to have moved by first, first + 1, ... units.
std::optional<Columns> ChancesToMove(const std::vector<Frequency>& frequencies, std::size_t places,
                                     std::int64_t hands, std::int64_t first, std::size_t units,
                                     const GoesOn& goesOn) {
    Columns chances(units, std::vector<double>(static_cast<std::size_t>(hands) + 1));
    PowerSeries powers;
    for (std::size_t j = 0; j < frequencies.size(); ++j) {
        if (j % kAsked == 0 && !goesOn()) return std::nullopt;
        powers.Fill(frequencies[j], static_cast<std::size_t>(hands));
        for (std::size_t i = 0; i < units; ++i) {
            const double moved = static_cast<double>(first) + static_cast<double>(i);
            powers.AddTo(std::polar(frequencies[j].weight, -frequencies[j].angle * moved),
                         chances[i]);
        }
    }
    for (auto& column : chances) {
        for (double& chance : column) chance = std::max(0.0, chance / static_cast<double>(places));
    }
    return chances;
}

// Additions and multiplications.
double WorkOf(double stake, double hands, std::size_t places) {
    constexpr double kHandsOfFrequency = 100;  // that it has a say in, and what a power takes
    const double rounds = std::log2(std::max(hands / kSmall, 1.0)) + 1;
    return 3 * stake * static_cast<double>(places) * kHandsOfFrequency +
           hands * stake * stake * (kSmall + 8 * rounds) + 100 * rounds * rounds * stake * hands;
}

std::optional<WholeLaw> Alive(const std::vector<Frequency>& frequencies, std::size_t places,
                              const Course& course, Columns brokeAt, const GoesOn& goesOn) {
    for (auto& column : brokeAt) std::ranges::reverse(column);  // by the hands still to be played
    Spectrum spectrum(frequencies.size());
    PowerSeries powers;
    for (std::size_t j = 0; j < spectrum.size(); ++j) {
        if (j % kAsked == 0 && !goesOn()) return std::nullopt;
        spectrum[j] = PowerFrom(frequencies[j], course.level, course.hands);
        powers.Fill(frequencies[j], static_cast<std::size_t>(course.hands));
        for (std::size_t left = 0; left < brokeAt.size(); ++left) {
            spectrum[j] -= powers.SumWith(brokeAt[left]) *
                           std::polar(1.0, frequencies[j].angle * static_cast<double>(left));
        }
    }
    WholeLaw alive{0, LawOnRing(spectrum, places)};
    std::fill_n(alive.probabilities.begin(), brokeAt.size(), 0.0);
    return alive;
}

}  // namespace

WalkAnswer RenewalTimes(const GainLaw& law, const Course& course, const GoesOn& goesOn) {
    const GainWindow window = WindowOf(law, static_cast<double>(course.hands));
    const auto height = static_cast<double>(course.level);
    const auto stakes = static_cast<double>(law.stake);
    const auto places =
        PlacesFor(std::max(window.highestEver + height, -window.lowest) + 2 * stakes + 2);
    if (!places) return {std::nullopt, NoEnd::kTooWide};
    const auto hands = static_cast<double>(course.hands);
    if (stakes * hands > kMostCells || WorkOf(stakes, hands, *places) > kMostWork) {
        return {std::nullopt, NoEnd::kTooMuch};
    }
    const std::vector<Frequency> frequencies = FrequenciesOf(law, *places, goesOn);
    const auto stake = static_cast<std::size_t>(law.stake);
    const auto chances = [&](std::int64_t first, std::size_t units) {
        return ChancesToMove(frequencies, *places, course.hands, first, units, goesOn);
    };
    auto brokeAt = chances(-course.level, stake);
    auto moves = chances(1 - law.stake, 2 * stake - 1);
    if (frequencies.empty() || !brokeAt || !moves) return {std::nullopt, NoEnd::kStopped};
    Renewal renewal(law.stake, course.hands, goesOn);
    if (!renewal.Solve(std::move(*moves), *brokeAt)) return {std::nullopt, NoEnd::kStopped};
    auto alive = Alive(frequencies, *places, course, *brokeAt, goesOn);
    if (!alive) return {std::nullopt, NoEnd::kStopped};
    WalkEnd end{std::move(*alive), {}, {}};
    for (std::size_t n = 0; n < brokeAt->front().size(); ++n) {
        for (const auto& column : *brokeAt) end.brokeAt.push_back(column[n]);
    }
    return {std::move(end), {}};
}
