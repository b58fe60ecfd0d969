#include "core/strategy/RowList.h"

#include <algorithm>

namespace {

constexpr double kRounding = 1e-6;       // percent: of guesses
constexpr std::size_t kMostPasses = 60;  // over the hands of rows that a guess calls alike
constexpr std::size_t kHeirsMoved = 3;
constexpr std::size_t kSumsAtOnce = 16;
constexpr std::size_t kMostOverlaps = 20'000;         // of a candidate
constexpr std::size_t kMostOverlapsKept = 2'000'000;  // of all together

}  // namespace

void RowList::Insert(std::uint32_t candidate, std::size_t place) {
    board.Insert(candidates[candidate].looks, place);
    rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(place), candidate);
}

void RowList::Remove(std::size_t row) {
    board.Remove(row);
    rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(row));
}

void RowList::Restore(const Rows& list) {
    for (std::size_t row = rows.size(); row-- > 0;) {
        if (std::ranges::find(list, rows[row]) == list.end()) Remove(row);
    }
    for (std::size_t row = 0; row < list.size(); ++row) {
        if (row < rows.size() && rows[row] == list[row]) continue;
        const auto elsewhere = std::ranges::find(rows, list[row]);
        if (elsewhere != rows.end()) {
            Remove(static_cast<std::size_t>(elsewhere - rows.begin()));
        }
        Insert(list[row], row);
    }
}

void RowList::Lay(const Rows& list) {
    while (!rows.empty()) Remove(0);
    for (std::size_t row = list.size(); row-- > 0;) Insert(list[row], 0);
}

void RowList::Trim(std::size_t size) {
    while (rows.size() > std::max(size, std::size_t{1})) {
        std::size_t least = 0;
        double leastLoss = board.LossWithout(0);
        for (std::size_t row = 1; row + 1 < rows.size(); ++row) {
            const double without = board.LossWithout(row);
            if (without >= leastLoss) continue;
            leastLoss = without;
            least = row;
        }
        Remove(least);
    }
}

bool RowList::Tidy() {
    const std::size_t size = rows.size();
    for (std::size_t row = 0; row + 1 < rows.size();) {
        if (board.LossWithout(row) <= board.Loss() + kNoGain) {
            Remove(row);
        } else {
            ++row;
        }
    }
    return rows.size() < size;
}

// What may be hoped from the candidates: no row promises more than one that fits all of its looks.
void RowList::FindHopes(double gain) {
    board.WeighLooks();
    hopes.clear();
    const double least = std::max(gain - kRounding, kNoGain);
    promising.assign(candidates.size(), false);
    for (std::uint32_t i = 0; i < candidates.size(); ++i) {
        const Candidate& candidate = candidates[i];
        if (std::ranges::any_of(candidate.wider, [this](std::uint32_t wider) {
                return wider != kNone && !promising[wider];
            })) {
            continue;
        }
        const double hope = board.HopeOf(candidate.looks);
        sums += candidate.looks.size();
        promising[i] = hope >= least;
        if (promising[i]) hopes.push_back({hope, i});
    }
    std::ranges::sort(hopes, IsMore);
}

void RowList::FindGuesses(double gain) {
    guesses.clear();
    double most = gain;
    for (const auto& [hope, candidate] : hopes) {
        if (hope < most - kRounding) break;
        const Board::Looks& looks = candidates[candidate].looks;
        sums += looks.size() * (rows.size() / kSumsAtOnce + 1);
        const double guess = -board.GuessInsertion(looks).loss;
        most = std::max(most, guess);
        if (guess >= gain - kRounding) guesses.push_back({guess, candidate});
    }
    std::ranges::sort(guesses, IsMore);
    guesses.resize(std::min(guesses.size(), kMostPasses));
}

Board::Change RowList::BestPlace(std::uint32_t candidate) {
    const Board::Looks& looks = candidates[candidate].looks;
    if (candidate >= overlaps.size()) {
        overlaps.resize(candidates.size());
        looked.resize(candidates.size());
    }
    if (!looked[candidate] && overlapsKept < kMostOverlapsKept) {
        looked[candidate] = true;
        overlaps[candidate] = board.OverlapsOf(looks, kMostOverlaps);
        if (overlaps[candidate]) overlapsKept += overlaps[candidate]->size();
    }
    return overlaps[candidate] ? board.BestInsertion(looks, *overlaps[candidate])
                               : board.BestInsertion(looks);
}

RowList::Pick RowList::BestRow(double gain) {
    FindHopes(gain);
    FindGuesses(gain);
    Pick pick{{-gain, 0}, kNone};
    for (const auto& [guess, candidate] : guesses) {
        if (guess < -pick.change.loss - kRounding) break;
        const auto change = BestPlace(candidate);
        const double more = pick.change.loss - change.loss;
        if (more > kNoGain || (more > -kNoGain && candidate < pick.candidate)) {
            pick = {change, candidate};
        }
    }
    return pick;
}

void RowList::DropAndMove(std::size_t row) {
    Rows heirs;
    for (const std::size_t place : board.HeirsOf(row, kHeirsMoved)) {
        heirs.push_back(rows[place]);
    }
    Remove(row);
    for (const std::uint32_t heir : heirs) {
        const auto place = static_cast<std::size_t>(std::ranges::find(rows, heir) - rows.begin());
        Remove(place);
        Insert(heir, BestPlace(heir).place);
    }
}
