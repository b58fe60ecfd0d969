#include "core/strategy/Board.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>

#include "core/analysis/WideVectors.h"

namespace {

constexpr float kFree = -1;
constexpr double kBitsOfSums = 60;
constexpr std::uint32_t kHandsBetweenQuestions = 4096;

}  // namespace

Board::Board(const StartingHands& hands, const Terms& terms, LookAt at, const Progress& goOn) {
    if (!ReadHands(hands, terms, at, goOn)) return;
    decisions.resize(shares.size());
    scratch.assign(shares.size(), kFree);
}

bool Board::ReadHands(const StartingHands& hands, const Terms& terms, LookAt at,
                      const Progress& goOn) {
    const double percent = 100 / (static_cast<double>(hands.Count()) *
                                  static_cast<double>(hands.PartsOfCoin()) * kFullBet);
    HandLooks looks;
    std::int64_t read = 0;
    double most = 1;  // percent that any sum may come to
    handStarts.push_back(0);
    const bool all = hands.ForEach([&](const StartingHand& hand) {
        LookAtHand(terms, hand, at, looks);
        most += static_cast<double>(hand.best) * static_cast<double>(hand.weight) * percent;
        for (std::size_t held = 0; held < kSubsets; ++held) {
            const std::uint32_t look = index.NumberOf(looks[held]);
            if (look == everBest.size()) everBest.push_back(false);
            if (hand.values[held] == hand.best) everBest[look] = true;
            const auto cost =
                static_cast<float>(static_cast<double>(hand.best - hand.values[held]) *
                                   static_cast<double>(hand.weight) * percent);
            // Holds of a hand that look alike count as one, the worst of them.
            const auto first = byHand.begin() + static_cast<std::ptrdiff_t>(handStarts.back());
            const auto same = std::ranges::find(first, byHand.end(), look, &Entry::at);
            if (same == byHand.end()) {
                byHand.push_back({look, cost});
            } else {
                same->cost = std::max(same->cost, cost);
            }
        }
        handStarts.push_back(static_cast<std::uint32_t>(byHand.size()));
        shares.push_back(static_cast<float>(static_cast<double>(hand.weight) /
                                            static_cast<double>(hands.Count())));
        read += hand.weight;
        return shares.size() % kHandsBetweenQuestions != 0 ||
               goOn(static_cast<double>(read) / static_cast<double>(hands.Count()));
    });
    units = std::exp2(kBitsOfSums - std::ceil(std::log2(most)));
    return all;
}

void Board::Prepare(std::span<const Candidate> candidates) {
    std::vector<bool> wanted(index.Count());
    for (const Candidate& candidate : candidates) {
        for (const std::uint32_t look : candidate.looks) wanted[look] = true;
    }
    lookStarts.assign(index.Count() + 1, 0);
    std::uint32_t kept = 0;
    std::uint32_t first = 0;
    for (std::size_t hand = 0; hand < shares.size(); ++hand) {
        const std::uint32_t start = kept;
        for (; first < handStarts[hand + 1]; ++first) {
            if (!wanted[byHand[first].at]) continue;
            ++lookStarts[byHand[first].at + 1];
            byHand[kept++] = byHand[first];
        }
        handStarts[hand] = start;
    }
    handStarts.back() = kept;
    byHand.resize(kept);
    byHand.shrink_to_fit();
    std::partial_sum(lookStarts.begin(), lookStarts.end(), lookStarts.begin());
    byLook.resize(kept);
    std::vector<std::uint32_t> next(lookStarts.begin(), lookStarts.end() - 1);
    for (std::uint32_t hand = 0; hand < shares.size(); ++hand) {
        for (const Entry& entry : LooksOf(hand)) byLook[next[entry.at]++] = {hand, entry.cost};
    }
    sums.assign(index.Count() * kMostRows, 0);
}

std::span<const Board::Entry> Board::LooksOf(std::uint32_t hand) const {
    return std::span(byHand).subspan(handStarts[hand], handStarts[hand + 1] - handStarts[hand]);
}

std::vector<std::uint32_t> Board::FirstList(std::span<const Candidate> candidates,
                                            double tolerance) const {
    struct Sum {
        double loss = 0;
        double share = 0;
    };
    std::vector<Sum> left(index.Count());  // of the hands that are not decided, by look
    for (std::uint32_t hand = 0; hand < shares.size(); ++hand) {
        for (const Entry& entry : LooksOf(hand)) {
            left[entry.at].loss += static_cast<double>(entry.cost);
            left[entry.at].share += static_cast<double>(shares[hand]);
        }
    }
    std::vector<bool> decided(shares.size());
    std::vector<std::uint32_t> list;
    while (list.size() + 1 < kMostRows) {
        constexpr double nothing = 1e-12;  // what rounding may leave
        std::uint32_t widest = 0;
        double widestShare = 0;
        std::uint32_t mildest = 0;
        double mildestRate = 1e9;
        for (std::uint32_t i = 0; i < candidates.size(); ++i) {
            Sum sum;
            for (const std::uint32_t look : candidates[i].looks) {
                sum.loss += left[look].loss;
                sum.share += left[look].share;
            }
            if (sum.share <= nothing) continue;
            if (sum.loss <= tolerance * sum.share + nothing &&
                sum.share > widestShare * (1 + 1e-9)) {
                widest = i;
                widestShare = sum.share;
            }
            if (sum.loss < mildestRate * sum.share * (1 - 1e-9)) {
                mildestRate = sum.loss / sum.share;
                mildest = i;
            }
        }
        if (widestShare == 0 && mildestRate == 1e9) break;
        list.push_back(widestShare > 0 ? widest : mildest);
        for (const std::uint32_t look : candidates[list.back()].looks) {
            for (std::uint32_t i = lookStarts[look]; i < lookStarts[look + 1]; ++i) {
                const std::uint32_t hand = byLook[i].at;
                if (decided[hand]) continue;
                decided[hand] = true;
                for (const Entry& entry : LooksOf(hand)) {
                    left[entry.at].loss -= static_cast<double>(entry.cost);
                    left[entry.at].share -= static_cast<double>(shares[hand]);
                }
            }
        }
    }
    return list;
}

double Board::LossWithout(std::size_t row) {
    const std::size_t slot = order[row];
    Whole without = loss;
    std::size_t waiting = 0;
    for (const Entry& entry : rows[slot].cover) {
        if (decisions[entry.at].slot != slot) continue;
        scratch[entry.at] = decisions[entry.at].cost;
        ++waiting;
    }
    for (std::size_t next = row + 1; next < order.size() && waiting > 0; ++next) {
        for (const Entry& entry : rows[order[next]].cover) {
            float& now = scratch[entry.at];
            if (now == kFree) continue;
            without += InUnits(entry.cost) - InUnits(now);
            now = kFree;
            --waiting;
        }
    }
    return InPercent(without);
}

std::vector<std::size_t> Board::HeirsOf(std::size_t row, std::size_t most) {
    const std::size_t slot = order[row];
    std::size_t waiting = 0;
    for (const Entry& entry : rows[slot].cover) {
        if (decisions[entry.at].slot != slot) continue;
        scratch[entry.at] = 0;
        ++waiting;
    }
    std::vector<std::pair<float, std::size_t>> heirs;
    for (std::size_t next = row + 1; next < order.size() && waiting > 0; ++next) {
        float share = 0;
        for (const Entry& entry : rows[order[next]].cover) {
            if (scratch[entry.at] == kFree) continue;
            share += shares[entry.at];
            scratch[entry.at] = kFree;
            --waiting;
        }
        if (share > 0 && next + 1 < order.size()) heirs.emplace_back(-share, next);
    }
    std::ranges::sort(heirs);
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < std::min(most, heirs.size()); ++i) {
        places.push_back(heirs[i].second);
    }
    return places;
}

std::vector<Board::Entry> Board::Cover(const Looks& looks) {
    std::vector<Entry> cover;
    std::size_t size = 0;
    for (const std::uint32_t look : looks) size += lookStarts[look + 1] - lookStarts[look];
    cover.reserve(size);
    for (const std::uint32_t look : looks) {
        for (std::uint32_t i = lookStarts[look]; i < lookStarts[look + 1]; ++i) {
            const Entry& entry = byLook[i];
            float& worst = scratch[entry.at];
            if (worst == kFree) cover.push_back(entry);
            worst = std::max(worst, entry.cost);
        }
    }
    for (Entry& entry : cover) {
        entry.cost = scratch[entry.at];
        scratch[entry.at] = kFree;
    }
    return cover;
}

Board::Change Board::BestPlace(const std::array<Whole, kMostRows>& bySlot) const {
    Whole least = std::numeric_limits<Whole>::max();
    std::size_t bestPlace = 0;
    Whole sum = 0;
    for (std::size_t place = Rows(); place-- > 0;) {
        sum += bySlot[order[place]];
        if (sum >= least) continue;
        least = sum;
        bestPlace = place;
    }
    return {InPercent(least), bestPlace};
}

Board::Change Board::BestInsertion(const Looks& looks) {
    std::array<Whole, kMostRows> bySlot{};
    for (const Entry& entry : Cover(looks)) {
        const Decision& decision = decisions[entry.at];
        bySlot[decision.slot] += InUnits(entry.cost) - InUnits(decision.cost);
    }
    return BestPlace(bySlot);
}

// What the looks add up to, by slot: for so many slots at a time as a cache line holds.
TOLVANE_WIDE_VECTORS
static void AddUp(const Board::Looks& looks, const std::int64_t* sums, std::size_t slots,
                  std::array<std::int64_t, Board::kMostRows>& total) {
    using Eight = std::int64_t __attribute__((vector_size(64)));
    for (std::size_t slot = 0; slot < slots; slot += sizeof(Eight) / sizeof(std::int64_t)) {
        Eight all{};
        for (const std::uint32_t look : looks) {
            Eight some;
            std::memcpy(&some, sums + look * Board::kMostRows + slot, sizeof some);
            all += some;
        }
        std::memcpy(&total[slot], &all, sizeof all);
    }
}

Board::Change Board::GuessInsertion(const Looks& looks) const {
    std::array<Whole, kMostRows> bySlot{};
    AddUp(looks, sums.data(), slots, bySlot);
    return BestPlace(bySlot);
}

std::optional<Board::Overlaps> Board::OverlapsOf(const Looks& looks, std::size_t most) {
    std::vector<Entry> again;
    for (const std::uint32_t look : looks) {
        for (std::uint32_t i = lookStarts[look]; i < lookStarts[look + 1]; ++i) {
            float& first = scratch[byLook[i].at];
            if (first != kFree) again.push_back(byLook[i]);
            if (first == kFree) first = byLook[i].cost;
        }
    }
    std::optional<Overlaps> overlaps;
    if (again.size() <= most) {
        overlaps.emplace();
        std::ranges::sort(again, {}, &Entry::at);
        for (std::size_t i = 0; i < again.size();) {
            const std::uint32_t hand = again[i].at;
            float worst = scratch[hand];
            Overlap overlap{hand, 0, -InUnits(worst)};
            for (; i < again.size() && again[i].at == hand; ++i, ++overlap.more) {
                worst = std::max(worst, again[i].cost);
                overlap.excess -= InUnits(again[i].cost);
            }
            overlap.excess += InUnits(worst);
            overlaps->push_back(overlap);
        }
    }
    for (const std::uint32_t look : looks) {
        for (std::uint32_t i = lookStarts[look]; i < lookStarts[look + 1]; ++i) {
            scratch[byLook[i].at] = kFree;
        }
    }
    return overlaps;
}

Board::Change Board::BestInsertion(const Looks& looks, const Overlaps& overlaps) const {
    std::array<Whole, kMostRows> bySlot{};
    AddUp(looks, sums.data(), slots, bySlot);
    for (const auto& [hand, more, excess] : overlaps) {
        const Decision& decision = decisions[hand];
        bySlot[decision.slot] += excess + static_cast<Whole>(more) * InUnits(decision.cost);
    }
    return BestPlace(bySlot);
}

void Board::WeighLooks() {
    hopes.assign(index.Count(), 0);
    for (std::size_t look = 0; look < hopes.size(); ++look) {
        const Whole* bySlot = &sums[look * kMostRows];
        Whole sum = 0;
        Whole least = 0;
        for (std::size_t place = Rows(); place-- > 0;) {
            sum += bySlot[order[place]];
            least = std::min(least, sum);
        }
        hopes[look] = static_cast<float>(-InPercent(least));
    }
}

void Board::Decide(std::uint32_t hand, Decision decision) {
    const Decision before = decisions[hand];
    decisions[hand] = decision;
    const Whole costBefore = InUnits(before.cost);
    const Whole costNow = InUnits(decision.cost);
    loss += costNow - costBefore;
    for (const Entry& entry : LooksOf(hand)) {
        const Whole cost = InUnits(entry.cost);
        Whole* const bySlot = &sums[entry.at * kMostRows];
        bySlot[before.slot] -= cost - costBefore;
        bySlot[decision.slot] += cost - costNow;
    }
}

std::size_t Board::FreeSlot() {
    std::size_t slot = 0;
    while (rows[slot].used) ++slot;
    slots = std::max(slots, slot + 1);
    return slot;
}

void Board::Insert(const Looks& looks, std::size_t place) {
    const bool first = order.empty();
    const std::size_t slot = FreeSlot();
    rows[slot] = {Cover(looks), true};
    order.insert(order.begin() + static_cast<std::ptrdiff_t>(place), slot);
    for (std::size_t i = place; i < order.size(); ++i) placeOf[order[i]] = i;
    if (first) {
        // The slots of hands that nothing decides are never looked at.
        std::ranges::fill(sums, 0);
        loss = 0;
        std::ranges::fill(decisions, Decision{0, static_cast<std::uint32_t>(slot)});
        for (std::uint32_t hand = 0; hand < shares.size(); ++hand) {
            for (const Entry& entry : LooksOf(hand)) {
                sums[entry.at * kMostRows + slot] += InUnits(entry.cost);
            }
        }
    }
    for (const Entry& entry : rows[slot].cover) {
        if (first || placeOf[decisions[entry.at].slot] > place) {
            Decide(entry.at, {entry.cost, static_cast<std::uint32_t>(slot)});
        }
    }
}

void Board::Remove(std::size_t row) {
    const std::size_t slot = order[row];
    std::size_t waiting = 0;
    for (const Entry& entry : rows[slot].cover) {
        if (decisions[entry.at].slot == slot) ++waiting;
    }
    for (std::size_t next = row + 1; next < order.size() && waiting > 0; ++next) {
        for (const Entry& entry : rows[order[next]].cover) {
            if (decisions[entry.at].slot != slot) continue;
            Decide(entry.at, {entry.cost, static_cast<std::uint32_t>(order[next])});
            --waiting;
        }
    }
    rows[slot] = {};
    while (slots > 0 && !rows[slots - 1].used) --slots;
    order.erase(order.begin() + static_cast<std::ptrdiff_t>(row));
    for (std::size_t i = row; i < order.size(); ++i) placeOf[order[i]] = i;
}
