#include "core/strategy/Search.h"

#include <algorithm>
#include <optional>

#include "core/strategy/Board.h"
#include "core/strategy/Candidates.h"
#include "core/strategy/Finish.h"
#include "core/strategy/RowFinder.h"
#include "core/strategy/RowList.h"

namespace {

constexpr double kNoGain = RowList::kNoGain;
constexpr double kCoarse = 0.005;  // percent: a chart that loses less has to be fine
constexpr double kHopeless = 5;    // percent: of a first list that was cut off
constexpr std::size_t kMostSweeps = 6;
constexpr std::size_t kDropsTried = 12;    // rows that are missed least
constexpr std::size_t kDropsPolished = 4;  // of the lists that are left without one of them
constexpr std::size_t kTrimmedParts = 2;   // of a first list that is too long, for better rows
constexpr std::size_t kAllParts = 3;
constexpr std::size_t kExchanges = 4;       // tried, of rows that are missed least
constexpr std::size_t kDeepRowsAtOnce = 4;  // before the list is polished
constexpr std::uint32_t kNone = RowList::kNone;

// All guesses together may add up so many list.Sums(). That ends a search after some seconds, and
// after the same steps wherever it runs.
constexpr std::size_t kMostSums = 300'000'000;
constexpr std::size_t kMostSumsWithPenalties = 700'000'000;

// The parts of the work by which its progress is told.
constexpr double kReadingPart = 0.15;
constexpr double kMostTold = 0.99;  // of a part that is not over
constexpr double kStepTowardsLimit = 0.005;

class Searcher {
  public:
    Searcher(const StartingHands& hands, const Terms& terms, const PayTable& table,
             const SearchWish& wish, const Progress& progress, const ListFound& told)
        : hands(hands),
          terms(terms),
          wish(wish),
          progress(progress),
          told(told),
          board(hands, terms, wish.penalties ? LookAt::kPenaltiesToo : LookAt::kHeldCards,
                [this](double share) { return Tell(kReadingPart * share); }) {
        result.chart = {Row()};
        if (stopped) return;
        holds = MakeWordedHolds(terms, table, board.Index(), {wish.penalties});
        candidates =
            MakeCandidates(holds, [this](std::uint32_t look) { return board.IsEverBest(look); });
        if (!TellProgress()) return;
        board.Prepare(candidates);
        finder.emplace(holds);
    }

    SearchResult Run() {
        const std::vector<double> tolerances = Tolerances();
        for (std::size_t i = 0; i < tolerances.size() && !stopped; ++i) {
            const double each = (1 - kReadingPart) / static_cast<double>(tolerances.size());
            begin = kReadingPart + each * static_cast<double>(i);
            limit = begin + each;
            const std::size_t all = wish.penalties ? kMostSumsWithPenalties : kMostSums;
            firstSums = list.Sums();
            mostSums = list.Sums() + (all - std::min(list.Sums(), all)) / (tolerances.size() - i);
            if (!Start(tolerances[i])) continue;
            Lengthen();
            Deepen();
            Exchange();
            Shrink();
            if (!polished) Polish();
        }
        if (!stopped && best && wish.penalties && wish.mostLoss >= 0) Touch();
        if (best) result.chart = best->rows;
        result.cancelled = stopped;
        return std::move(result);
    }

  private:
    using Rows = RowList::Rows;

    // False when it shall go no further. What was told is never taken back.
    bool Tell(double share) {
        done = std::max(done, share);
        if (!stopped && progress && !progress(done)) stopped = true;
        return !stopped;
    }

    // A part ends when its sums are used up, or earlier: how much so is not known, so that each
    // step comes nearer to the end as well.
    bool TellProgress() {
        const double sums = static_cast<double>(list.Sums() - firstSums) /
                            static_cast<double>(std::max(mostSums - firstSums, std::size_t{1}));
        const double from = std::max(done, begin);
        return Tell(std::max(from + (limit - from) * kStepTowardsLimit,
                             begin + (limit - begin) * std::min(sums, kMostTold)));
    }

    bool GoOn() { return TellProgress() && list.Sums() < mostSums; }

    // Adds rows with finer conditions, where those of the search are not enough.
    void Touch() {
        if (best->loss <= wish.mostLoss) return;
        SearchResult::Found found = *best;
        found.loss = Finish(
            hands, terms, {wish.mostRows, wish.mostLoss}, [this] { return TellProgress(); },
            found.rows);
        if (found.rows.size() <= best->rows.size() || !IsBetter(found, *best)) return;
        result.bySize.resize(std::max(result.bySize.size(), found.rows.size() + 1));
        result.bySize[found.rows.size()] = found;
        best = std::move(found);
        if (told) told(*best);
    }

    // What rows of the first list may lose; several, since a coarser beginning is not always the
    // worse one.
    std::vector<double> Tolerances() const {
        if (wish.mostLoss >= kCoarse) return {3 * wish.mostLoss, 0.3 * wish.mostLoss};
        if (wish.mostLoss > 0) return {3 * wish.mostLoss, 0.3 * wish.mostLoss, 0};
        if (wish.mostLoss == 0) return {0};
        return {0.03, 0.003, 0};
    }

    bool FitsWish(std::size_t size, double loss) const {
        return size <= wish.mostRows && (wish.mostLoss < 0 || loss <= wish.mostLoss + kNoGain);
    }

    // What is wished for comes first, then what is short enough, then what loses less.
    bool IsBetter(const SearchResult::Found& a, const SearchResult::Found& b) const {
        const bool aFits = FitsWish(a.rows.size(), a.loss);
        const bool bFits = FitsWish(b.rows.size(), b.loss);
        if (aFits != bFits) return aFits;
        if (aFits && wish.mostLoss >= 0 && a.rows.size() != b.rows.size()) {
            return a.rows.size() < b.rows.size();
        }
        const bool aShort = a.rows.size() <= wish.mostRows;
        const bool bShort = b.rows.size() <= wish.mostRows;
        if (aShort != bShort) return aShort;
        return a.loss < b.loss - kNoGain;
    }

    // Takes the list down when it is better than what was found before.
    void Note() {
        SearchResult::Found found{{}, board.Loss()};
        for (const std::uint32_t row : list.Get()) found.rows.push_back(candidates[row].row);
        if (result.bySize.size() <= list.Size()) result.bySize.resize(list.Size() + 1);
        SearchResult::Found& known = result.bySize[list.Size()];
        if (known.rows.empty() || found.loss < known.loss - kNoGain) {
            known = found;
            if (told) told(known);
        }
        if (!best || IsBetter(found, *best)) best = std::move(found);
    }

    // The first candidate is to discard everything: the last row of every list. Where a list from
    // the top says too little in as many rows as the board has, one that grows from nothing is the
    // better beginning, with all the work to itself; false when that was done.
    bool Start(double tolerance) {
        Rows first = board.FirstList(candidates, tolerance);
        std::erase(first, 0U);
        first.push_back(0);
        const bool cutOff = first.size() >= Board::kMostRows;
        list.Lay(first);
        list.Tidy();
        if (cutOff && !wish.penalties && board.Loss() > kHopeless && (!best || fromNothing)) {
            if (fromNothing) return false;
            fromNothing = true;
            mostSums = list.Sums() + kMostSums;
            limit = 1;
            list.Lay({0U});
        }
        if (IsTooLong()) list.Trim(wish.mostRows * kTrimmedParts / kAllParts);
        list.Lay(Rows(list.Get()));  // the board is the faster the fewer places were ever taken
        Note();
        polished = false;
        return true;
    }

    // Takes each row out and puts the best one in. False when nothing changed. A row that was tried
    // since the last change is left in peace.
    bool Sweep() {
        bool changed = false;
        for (std::size_t row = 0; row + 1 < list.Size() && GoOn(); ++row) {
            const std::uint32_t old = list.Get()[row];
            if (std::ranges::find(tried, old) != tried.end()) continue;
            list.Remove(row);
            const auto back = list.BestPlace(old);
            const RowList::Pick pick = list.BestRow(-back.loss);
            const double gain = back.loss - pick.change.loss;
            if (pick.candidate != kNone &&
                (gain > kNoGain || (gain > -kNoGain && pick.candidate < old))) {
                list.Insert(pick.candidate, pick.change.place);
                changed = true;
                tried = {pick.candidate};
            } else {
                list.Insert(old, back.place);
                if (back.place != row) {
                    changed = true;
                    tried.clear();
                }
                tried.push_back(old);
            }
        }
        return changed;
    }

    void Polish() {
        polished = true;
        tried.clear();
        double before = board.Loss();
        for (std::size_t i = 0; i < kMostSweeps && GoOn(); ++i) {
            const std::size_t size = list.Size();
            const bool changed = Sweep();
            if (list.Tidy()) tried.clear();
            Note();
            const bool gained = board.Loss() < before - kNoGain || list.Size() < size;
            if (!changed || (!gained && i > 0)) break;
            before = board.Loss();
        }
    }

    bool LossMatters() const { return wish.mostLoss < 0 || board.Loss() > wish.mostLoss + kNoGain; }

    // Adds rows as long as they help and there is room, when the loss is what matters.
    void Lengthen() {
        if (!LossMatters()) return;
        const std::size_t size = list.Size();
        while (list.Size() < wish.mostRows && GoOn()) {
            const RowList::Pick pick = list.BestRow(kNoGain);
            if (pick.candidate == kNone) break;
            list.Insert(pick.candidate, pick.change.place);
            Note();
        }
        if (list.Size() > size) Polish();
    }

    // Adds rows of more words than the candidates have, which they then join.
    void Deepen() {
        std::size_t fresh = 0;
        while (LossMatters() && list.Size() < wish.mostRows && GoOn()) {
            auto found = finder->Find(board, kNoGain);
            if (!found) break;
            candidates.push_back(std::move(found->candidate));
            list.Insert(static_cast<std::uint32_t>(candidates.size() - 1), found->change.place);
            Note();
            if (++fresh % kDeepRowsAtOnce == 0) Polish();
        }
        if (fresh % kDeepRowsAtOnce != 0) Polish();
    }

    struct Drop {
        double loss = 0;
        Rows rows;  // what is left
    };

    // What is left without one row or another, the best list first. Rows whose hands would be lost
    // are not tried.
    std::vector<Drop> Drops() {
        std::vector<std::pair<double, std::size_t>> damages;
        for (std::size_t row = 0; row + 1 < list.Size(); ++row) {
            damages.emplace_back(board.LossWithout(row), row);
        }
        std::ranges::sort(damages);
        damages.resize(std::min(damages.size(), kDropsTried));
        const Rows before = list.Get();
        std::vector<Drop> drops;
        for (const auto& [damage, row] : damages) {
            if (stopped) break;
            list.DropAndMove(row);
            drops.push_back({board.Loss(), list.Get()});
            list.Restore(before);
        }
        std::ranges::stable_sort(drops, {}, &Drop::loss);
        return drops;
    }

    // Takes out a row that is missed little for one of more words, as long as that helps.
    void Exchange() {
        bool better = true;
        while (better && LossMatters() && list.Size() == wish.mostRows && GoOn()) {
            const Rows before = list.Get();
            const double lossBefore = board.Loss();
            const std::vector<Drop> drops = Drops();
            better = false;
            for (std::size_t i = 0; i < std::min(drops.size(), kExchanges) && GoOn(); ++i) {
                list.Restore(drops[i].rows);
                auto found = finder->Find(board, kNoGain);
                if (!found) continue;
                candidates.push_back(std::move(found->candidate));
                list.Insert(static_cast<std::uint32_t>(candidates.size() - 1), found->change.place);
                Polish();
                better = board.Loss() < lossBefore - kNoGain;
                if (better) break;
            }
            if (!better) list.Restore(before);
        }
    }

    bool IsTooLong() const { return list.Size() > wish.mostRows; }
    bool IsGood(double loss) const { return wish.mostLoss >= 0 && loss <= wish.mostLoss + kNoGain; }

    // Drops a row; false when the chart is as short as it can be. As long as the list is good
    // enough without more work, that is all. Then it is polished, and at last several lists are,
    // since what is missed much may be made up for.
    bool DropRow() {
        const std::vector<Drop> drops = Drops();
        if (drops.empty()) return false;
        const bool far = list.Size() > wish.mostRows + kDropsPolished;
        if (IsGood(drops.front().loss) || (IsTooLong() && far)) {
            list.Restore(drops.front().rows);
            Note();
            polished = false;
            return true;
        }
        if (!polished) {
            Polish();
            return true;
        }
        const Rows before = list.Get();
        Drop bestDrop{1e9, {}};
        for (std::size_t i = 0; i < std::min(drops.size(), kDropsPolished) && GoOn(); ++i) {
            list.Restore(drops[i].rows);
            Polish();
            if (board.Loss() < bestDrop.loss - kNoGain) bestDrop = {board.Loss(), list.Get()};
            if (IsGood(board.Loss())) return true;
        }
        if (bestDrop.rows.empty() || !IsTooLong()) {
            list.Restore(before);
            return false;
        }
        list.Restore(bestDrop.rows);
        return true;
    }

    void Shrink() {
        while (list.Size() > 1 && !stopped && (IsTooLong() || IsGood(board.Loss()))) {
            if (!DropRow()) break;
        }
    }

    const StartingHands& hands;
    const Terms& terms;
    const SearchWish& wish;
    const Progress& progress;
    const ListFound& told;
    bool stopped = false;
    std::size_t firstSums = 0;  // when the part began
    std::size_t mostSums = kMostSums;
    bool fromNothing = false;  // a list has grown
    bool polished = false;     // nothing was dropped since
    double done = 0;
    double begin = 0;             // of the part at work
    double limit = kReadingPart;  // likewise its end
    Board board;
    std::vector<WordedHold> holds;
    std::optional<RowFinder> finder;
    std::vector<Candidate> candidates;
    RowList list{board, candidates};
    Rows tried;
    SearchResult result;
    std::optional<SearchResult::Found> best;
};

}  // namespace

SearchResult FindChart(const StartingHands& hands, const Terms& terms, const PayTable& table,
                       const SearchWish& wish, const Progress& progress, const ListFound& told) {
    return Searcher(hands, terms, table, wish, progress, told).Run();
}
