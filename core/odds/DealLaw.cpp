#include "core/odds/DealLaw.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <numeric>
#include <string>
#include <unordered_map>
#include <utility>

#include "core/analysis/LineTableCache.h"
#include "core/odds/Spectrum.h"
#include "core/odds/SumLaw.h"

namespace {

// Smaller chances are roundings of the transforms.
constexpr double kNoise = 1e-19;

// Where a best hold ends, and how many of all starting hands have one that ends so.
struct HoldClass {
    std::array<double, kMaxPayLines> lines{};
    double hands = 0;
};

class HoldClasses {
  public:
    HoldClasses(const LineTables& tables, const PayTable& table)
        : ends(tables, table), drawsTwice(table.type == GameType::kDoubleDraw) {}

    void Add(const PlayedHand& hand) {
        all += hand.weight;
        std::array<double, kMaxPayLines> lines{};
        std::string key;
        if (drawsTwice) {
            lines = ends.Of(hand);
            key = BytesOf(lines);
        } else {
            key = BytesOf(hand.best.counts) + BytesOf(hand.best.totalHands);
        }
        const auto [found, isNew] = numbers.try_emplace(std::move(key), classes.size());
        if (isNew) classes.push_back({drawsTwice ? lines : ends.Of(hand), 0});
        classes[found->second].hands += hand.weight;
    }

    std::vector<HoldClass> classes;
    double all = 0;

  private:
    template <typename Value>
    static std::string BytesOf(const Value& value) {
        return {reinterpret_cast<const char*>(&value), sizeof value};
    }

    BestEnd ends;
    bool drawsTwice;
    std::unordered_map<std::string, std::size_t> numbers;
};

// Adds up the laws of all holds. A law that is narrow is made on a small ring: rings of a size lie
// at every half of it, so that each law has one around it.
class Mixture {
  public:
    Mixture(int lines, std::int64_t mostPay)
        : lines(lines), law(static_cast<std::size_t>(mostPay * lines) + 1) {}

    // The pays of one line of a hold.
    void Add(const GainLaw& hold, double share) {
        if (hold.outcomes.size() == 1) {
            law[static_cast<std::size_t>(hold.outcomes.front().gain * lines)] += share;
            return;
        }
        const GainWindow window = WindowOf(hold, lines);
        std::size_t places = 64;
        while (static_cast<double>(places) < 2 * (window.highest - window.lowest + 1)) places *= 2;
        const auto half = static_cast<std::int64_t>(places / 2);
        const std::int64_t block = static_cast<std::int64_t>(window.lowest) / half;
        Spectrum& sum = rings[{places, block}];
        sum.resize(places / 2 + 1);
        AddPower(hold, share, places, block % 2 != 0, sum);
    }

    const std::vector<double>& Law() {
        for (const auto& [ring, spectrum] : rings) {
            const auto& [places, block] = ring;
            const std::vector<double> part = LawOnRing(spectrum, places);
            const std::size_t first = places / 2 * static_cast<std::size_t>(block);
            for (std::size_t i = 0; i < part.size() && first + i < law.size(); ++i) {
                if (part[i] > kNoise) law[first + i] += part[i];
            }
        }
        rings.clear();
        return law;
    }

  private:
    using Turns = std::vector<Coefficient>;

    // exp(i angle pay) at every frequency of a ring.
    const Turns& TurnsOf(std::size_t places, std::int64_t pay) {
        Turns& of = turns[{places, pay}];
        if (!of.empty()) return of;
        of.resize(places / 2 + 1);
        for (std::size_t j = 0; j < of.size(); ++j) {
            const auto turn = static_cast<std::size_t>(pay) * j % places;
            of[j] = std::polar(1.0, 2 * std::numbers::pi * static_cast<double>(turn) /
                                        static_cast<double>(places));
        }
        return of;
    }

    void AddPower(const GainLaw& hold, double share, std::size_t places, bool odd, Spectrum& sum) {
        base.assign(places / 2 + 1, 0);
        for (const auto& [pay, probability] : hold.outcomes) {
            const Turns& of = TurnsOf(places, pay);
            for (std::size_t j = 0; j < base.size(); ++j) {
                base[j] = {base[j].real() + probability * of[j].real(),
                           base[j].imag() + probability * of[j].imag()};
            }
        }
        // The power by squaring, for all frequencies at once.
        power.assign(base.size(), share);
        for (int left = lines; left > 0; left /= 2) {
            if (left % 2 == 1) Multiply(power, base);
            if (left > 1) Multiply(base, base);
        }
        // A ring begins at a multiple of its half. Where that is odd, every other frequency is
        // turned by half a round.
        for (std::size_t j = 0; j < sum.size(); ++j) {
            sum[j] += odd && j % 2 == 1 ? -power[j] : power[j];
        }
    }

    static void Multiply(Spectrum& target, const Spectrum& by) {
        for (std::size_t j = 0; j < target.size(); ++j) {
            const double re = target[j].real() * by[j].real() - target[j].imag() * by[j].imag();
            const double im = target[j].real() * by[j].imag() + target[j].imag() * by[j].real();
            target[j] = {re, im};
        }
    }

    int lines;
    std::vector<double> law;  // by units paid
    std::map<std::pair<std::size_t, std::int64_t>, Spectrum> rings;
    std::map<std::pair<std::size_t, std::int64_t>, Turns> turns;
    Spectrum base;
    Spectrum power;
};

// Of one line, pays in units.
GainLaw PaysOf(const HoldClass& hold, const std::vector<std::int64_t>& pays) {
    std::map<std::int64_t, double> byPay;
    double paid = 0;
    for (std::size_t line = 0; line < pays.size(); ++line) {
        byPay[pays[line]] += hold.lines[line];
        paid += hold.lines[line];
    }
    byPay[0] += 1 - paid > 1e-12 ? 1 - paid : 0;
    GainLaw law;
    for (const auto& [pay, probability] : byPay) {
        if (probability > 0) law.outcomes.push_back({pay, probability});
    }
    return law;
}

std::vector<std::int64_t> PaysInUnits(const PayTable& table, int bet) {
    const std::int64_t unit = UnitOf(table, bet);
    std::vector<std::int64_t> pays;
    for (std::size_t line = 0; line < table.lines.size(); ++line) {
        pays.push_back(LineUnitPay(table, static_cast<int>(line), bet) / unit);
    }
    return pays;
}

// The chance of one or more in so many, each having it with the probability.
double OneOrMore(double probability, double hands) {
    if (probability >= 1) return hands > 0 ? 1 : 0;
    return -std::expm1(hands * std::log1p(-probability));
}

}  // namespace

double DealLaw::AtLeastOnce(std::size_t line, std::int64_t deals) const {
    return OneOrMore(seen[line], static_cast<double>(deals));
}

std::optional<DealLaw> FindDealLaw(const PayTable& table, int bet, int lines,
                                   LineTableCache& tables, const std::function<bool()>& goesOn) {
    if (lines == 1) {
        const auto hand = AnalyzeBet(table, bet, tables, goesOn);
        if (!hand) return std::nullopt;
        DealLaw law{GainLawOf(*hand, table, bet), hand->lines, {}, 1};
        const std::vector<std::int64_t> pays = PaysInUnits(table, bet);
        for (std::size_t line = 0; line < pays.size(); ++line) {
            law.gainOf[line] = pays[line] - law.gains.stake;
        }
        return law;
    }
    if (!CanAnalyzeGame(table) || table.lines.empty()) return std::nullopt;
    const std::vector<std::int64_t> pays = PaysInUnits(table, bet);
    const std::int64_t most = *std::ranges::max_element(pays);
    if (most * lines >= kMostPlaces) return std::nullopt;
    const PayTable schedule = ScheduleOf(table, bet);
    const auto lineTables = tables.For(table);
    HoldClasses holds(*lineTables, schedule);
    GameAnalysisWatcher watcher;
    watcher.progress = [&goesOn](double, double) { return goesOn(); };
    watcher.hand = [&holds](const PlayedHand& hand) { holds.Add(hand); };
    if (AnalyzeGame(*lineTables, schedule, 1, watcher).cancelled) return std::nullopt;

    DealLaw law;
    law.lines = lines;
    Mixture mixture(lines, most);
    for (const HoldClass& hold : holds.classes) {
        if (!goesOn()) return std::nullopt;
        const double share = hold.hands / holds.all;
        mixture.Add(PaysOf(hold, pays), share);
        for (std::size_t line = 0; line < pays.size(); ++line) {
            law.seen[line] += share * OneOrMore(hold.lines[line], lines);
        }
    }
    const std::int64_t unit = UnitOf(table, bet);
    law.gains.stake = bet / unit * lines;
    law.gains.unit = static_cast<double>(unit) / bet;
    for (std::size_t line = 0; line < pays.size(); ++line) {
        law.gainOf[line] = pays[line] - bet / unit;
    }
    const std::vector<double>& paid = mixture.Law();
    const double all = std::accumulate(paid.begin(), paid.end(), 0.0);
    for (std::size_t i = 0; i < paid.size(); ++i) {
        if (paid[i] <= 0) continue;
        law.gains.outcomes.push_back(
            {static_cast<std::int64_t>(i) - law.gains.stake, paid[i] / all});
    }
    return law;
}
