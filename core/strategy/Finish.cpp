#include "core/strategy/Finish.h"

#include <algorithm>
#include <map>
#include <set>

#include "core/strategy/Grade.h"
#include "core/strategy/LookIndex.h"

namespace {

constexpr std::int64_t kHandsBetweenQuestions = 4096;

// A row that decides hands wrongly, and the one further down that would decide them better.
struct Conflict {
    std::size_t row = 0;
    std::size_t heir = 0;
    auto operator<=>(const Conflict&) const = default;
};

using Change = std::function<void(Row&)>;

template <typename Value>
void AddChange(std::vector<Change>& changes, Value Row::*member, Value value) {
    changes.push_back([member, value](Row& row) { row.*member = value; });
}

// The words about discards, one at a time.
std::vector<Change> Changes() {
    std::vector<Change> changes;
    for (int rank = kAceRank; rank >= 0; --rank) {
        const auto bit = static_cast<RankSet>(1 << rank);
        changes.emplace_back([bit](Row& row) { row.discarding |= bit; });
        changes.emplace_back([bit](Row& row) { row.notDiscarding |= bit; });
    }
    for (const Condition condition : {Condition::kAbsent, Condition::kPresent}) {
        AddChange(changes, &Row::straightPenalty, condition);
        AddChange(changes, &Row::flushPenalty, condition);
    }
    for (std::int8_t n = 0; n <= 4; ++n) {
        for (Amount Row::*amount : {&Row::openStraights, &Row::flushPenalties, &Row::suitsDiscarded,
                                    &Row::highDiscards}) {
            AddChange(changes, amount, Amount{n, n});
            if (n > 0) AddChange(changes, amount, Amount{n, Amount::kNoEnd});
        }
    }
    return changes;
}

// The row with one of the words, then with two.
std::vector<Row> Variants(const Row& row) {
    static const std::vector<Change> changes = Changes();
    std::vector<Row> variants;
    for (const Change& change : changes) change(variants.emplace_back(row));
    for (std::size_t a = 0; a < changes.size(); ++a) {
        for (std::size_t b = a + 1; b < changes.size(); ++b) {
            changes[a](variants.emplace_back(row));
            changes[b](variants.back());
        }
    }
    return variants;
}

class Finisher {
  public:
    Finisher(const StartingHands& hands, const Terms& terms, const std::function<bool()>& goOn,
             Chart& chart)
        : hands(hands), terms(terms), goOn(goOn), chart(chart) {}

    double Run(const FinishWish& wish) {
        if (!Visit([this](const StartingHand& hand) { Sum(hand); })) return loss;
        while (loss > wish.mostLoss && chart.size() < wish.mostRows) {
            const auto next = std::ranges::max_element(conflicts, {}, [this](const auto& entry) {
                return failed.contains(entry.first) ? Worth{0} : entry.second;
            });
            if (next == conflicts.end() || failed.contains(next->first)) break;
            const Conflict conflict = next->first;
            if (!Resolve(conflict)) {
                failed.insert(conflict);
                if (stopped) break;
                continue;
            }
            failed.clear();
            if (!Visit([this](const StartingHand& hand) { Sum(hand); })) break;
        }
        return loss;
    }

  private:
    struct Option {
        std::uint32_t look = 0;
        Worth gain = 0;
    };

    // Decides every hand anew and calls the visitor for it. False when that was stopped.
    bool Visit(const std::function<void(const StartingHand&)>& visit) {
        conflicts.clear();
        firstRows.assign(index.Count(), kUnknown);
        Worth all = 0;
        std::int64_t visited = 0;
        stopped = !hands.ForEach([&](const StartingHand& hand) {
            LookAtHand(terms, hand, LookAt::kDiscardsToo, looks);
            row = chart.size();
            for (std::size_t held = 0; held < kSubsets; ++held) {
                numbers[held] = index.NumberOf(looks[held]);
                row = std::min(row, FirstRow(numbers[held]));
            }
            worst = hand.values[0];
            bool first = row < chart.size();
            for (std::size_t held = 0; held < kSubsets && row < chart.size(); ++held) {
                if (FirstRow(numbers[held]) != row) continue;
                worst = first ? hand.values[held] : std::min(worst, hand.values[held]);
                first = false;
            }
            all += static_cast<Worth>(hand.best - worst) * hand.weight;
            visit(hand);
            return ++visited % kHandsBetweenQuestions != 0 || goOn();
        });
        if (!stopped) {
            loss = Percent(all, static_cast<Worth>(hands.Count()) * hands.PartsOfCoin() * kFullBet);
        }
        return !stopped;
    }

    std::size_t FirstRow(std::uint32_t look) {
        if (look >= firstRows.size()) firstRows.resize(look + std::size_t{1}, kUnknown);
        if (look >= traits.size()) traits.push_back(TraitsOf(terms, index.At(look)));
        if (firstRows[look] == kUnknown) {
            const auto fits = [&](const Row& one) { return Fits(one, traits[look], terms); };
            firstRows[look] =
                static_cast<std::size_t>(std::ranges::find_if(chart, fits) - chart.begin());
        }
        return firstRows[look];
    }

    void Sum(const StartingHand& hand) {
        if (worst >= hand.best || row >= chart.size()) return;
        const auto best =
            static_cast<std::size_t>(std::ranges::max_element(hand.values) - hand.values.begin());
        const std::size_t heir = FirstRow(numbers[best]);
        if (heir == row || heir >= chart.size()) return;
        conflicts[{row, heir}] += static_cast<Worth>(hand.best - worst) * hand.weight;
    }

    // Puts the heir with further words above the row, where that gains something.
    bool Resolve(const Conflict& conflict) {
        std::vector<std::vector<Option>> options;  // by hand that the heir fits
        const Row heir = chart[conflict.heir];
        const bool all = Visit([&](const StartingHand& hand) {
            Sum(hand);
            if (row < conflict.row) return;
            std::vector<Option> ofHand;
            for (std::size_t held = 0; held < kSubsets; ++held) {
                if (!Fits(heir, traits[numbers[held]], terms)) continue;
                ofHand.push_back(
                    {numbers[held], static_cast<Worth>(hand.values[held] - worst) * hand.weight});
            }
            const bool matters =
                std::ranges::any_of(ofHand, [](const Option& option) { return option.gain != 0; });
            if (matters) options.push_back(std::move(ofHand));
        });
        if (!all) return false;
        Worth most = 0;
        Row best;
        for (const Row& variant : Variants(heir)) {
            Worth gain = 0;
            for (const auto& ofHand : options) gain += GainOf(variant, ofHand);
            if (gain <= most) continue;
            most = gain;
            best = variant;
        }
        if (most == 0) return false;
        chart.insert(chart.begin() + static_cast<std::ptrdiff_t>(conflict.row), best);
        return true;
    }

    Worth GainOf(const Row& variant, const std::vector<Option>& ofHand) const {
        Worth least = 0;
        bool first = true;
        for (const Option& option : ofHand) {
            if (!Fits(variant, traits[option.look], terms)) continue;
            least = first ? option.gain : std::min(least, option.gain);
            first = false;
        }
        return least;
    }

    static constexpr std::size_t kUnknown = SIZE_MAX;

    const StartingHands& hands;
    const Terms& terms;
    const std::function<bool()>& goOn;
    Chart& chart;
    LookIndex index;
    std::vector<HoldTraits> traits;      // by look
    std::vector<std::size_t> firstRows;  // by look, of the chart as it is
    std::map<Conflict, Worth> conflicts;
    std::set<Conflict> failed;  // that no words resolve
    double loss = 0;            // percent
    bool stopped = false;
    // Of the hand that is visited.
    HandLooks looks{};
    std::array<std::uint32_t, kSubsets> numbers{};
    std::size_t row = 0;
    std::int64_t worst = 0;
};

}  // namespace

double Finish(const StartingHands& hands, const Terms& terms, const FinishWish& wish,
              const std::function<bool()>& goOn, Chart& chart) {
    return Finisher(hands, terms, goOn, chart).Run(wish);
}
