#include "core/strategy/Search.h"

#include <algorithm>
#include <future>
#include <optional>
#include <thread>

#include "core/strategy/Board.h"
#include "core/strategy/Candidates.h"

namespace {

constexpr double kNoGain = 1e-8;         // percent: smaller changes are rounding
constexpr double kCoarse = 0.005;        // percent: a chart that loses less has to be fine
constexpr std::size_t kMostPasses = 60;  // over the hands of rows that a guess speaks for
constexpr std::size_t kMostSweeps = 6;
constexpr std::size_t kDropsTried = 12;    // rows that are missed least
constexpr std::size_t kDropsPolished = 4;  // of the lists that are left without one of them
constexpr std::size_t kHeirsMoved = 3;
constexpr std::uint32_t kNone = UINT32_MAX;

// All guesses together may add up so many sums. That ends a search after some seconds, and after
// the same steps wherever it runs.
constexpr std::size_t kMostSums = 700'000'000;
constexpr std::size_t kSumsAtOnce = 16;

// The parts of the work by which its progress is told.
constexpr double kReadingPart = 0.1;
constexpr double kStepTowardsLimit = 0.005;

class Searcher {
  public:
    Searcher(const StartingHands& hands, const Terms& terms, const PayTable& table,
             const SearchWish& wish, const Progress& progress, const ListFound& told)
        : terms(terms),
          table(table),
          wish(wish),
          progress(progress),
          told(told),
          board(hands, terms, wish.penalties ? LookAt::kPenaltiesToo : LookAt::kHeldCards,
                [this] { return GoOn(); }) {
        result.chart = {Row()};
        if (stopped) return;
        candidates = MakeCandidates(terms, table, board.Index(), {wish.penalties});
        std::erase_if(candidates, [this](const Candidate& candidate) {
            return candidate.row.base != Base::kNothing &&
                   std::ranges::none_of(candidate.looks, [this](std::uint32_t look) {
                       return board.IsEverBest(look);
                   });
        });
        if (!GoOn()) return;
        board.Prepare(candidates);
    }

    SearchResult Run() {
        const std::vector<double> tolerances = Tolerances();
        for (std::size_t i = 0; i < tolerances.size() && !stopped; ++i) {
            const double each = (1 - kReadingPart) / static_cast<double>(tolerances.size());
            done = kReadingPart + each * static_cast<double>(i);
            limit = done + each;
            mostSums = sums + (kMostSums - std::min(sums, kMostSums)) / (tolerances.size() - i);
            Start(tolerances[i]);
            Lengthen();
            if (LossMatters() && rows.size() < wish.mostRows) {
                Refine();
                Lengthen();
            }
            Shrink();
            if (!polished) Polish();
        }
        if (best) result.chart = best->rows;
        result.cancelled = stopped;
        return std::move(result);
    }

  private:
    using Rows = std::vector<std::uint32_t>;  // numbers of candidates
    struct Pick {
        Board::Change change;
        std::uint32_t candidate = kNone;
    };

    bool GoOn() {
        // How long the search goes on is not known: each step comes nearer to the end of its part.
        done += (limit - done) * kStepTowardsLimit;
        if (!stopped && progress && !progress(done)) stopped = true;
        return !stopped && sums < mostSums;
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
        for (const std::uint32_t row : rows) found.rows.push_back(candidates[row].row);
        if (result.bySize.size() <= rows.size()) result.bySize.resize(rows.size() + 1);
        SearchResult::Found& known = result.bySize[rows.size()];
        if (known.rows.empty() || found.loss < known.loss - kNoGain) {
            known = found;
            if (told) told(known);
        }
        if (!best || IsBetter(found, *best)) best = std::move(found);
    }

    void InsertRow(std::uint32_t candidate, std::size_t place) {
        board.Insert(candidates[candidate].looks, place);
        rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(place), candidate);
    }

    void RemoveRow(std::size_t row) {
        board.Remove(row);
        rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(row));
    }

    // Puts the rows of a list on the board, those that stand there in their places being left.
    void Restore(const Rows& list) {
        for (std::size_t row = rows.size(); row-- > 0;) {
            if (std::ranges::find(list, rows[row]) == list.end()) RemoveRow(row);
        }
        for (std::size_t row = 0; row < list.size(); ++row) {
            if (row < rows.size() && rows[row] == list[row]) continue;
            const auto elsewhere = std::ranges::find(rows, list[row]);
            if (elsewhere != rows.end()) {
                RemoveRow(static_cast<std::size_t>(elsewhere - rows.begin()));
            }
            InsertRow(list[row], row);
        }
    }

    void Lay(const Rows& list) {
        while (!rows.empty()) RemoveRow(0);
        for (std::size_t row = list.size(); row-- > 0;) InsertRow(list[row], 0);
    }

    // The first candidate is to discard everything: the last row of every list.
    void Start(double tolerance) {
        Rows list = board.FirstList(candidates, tolerance);
        std::erase(list, 0U);
        list.push_back(0);
        Lay(list);
        Tidy();
        Lay(Rows(rows));  // the board is the faster the fewer places were ever taken
        Note();
        polished = false;
    }

    // Drops the rows that nothing is lost without.
    void Tidy() {
        for (std::size_t row = 0; row + 1 < rows.size();) {
            if (board.LossWithout(row) <= board.Loss() + kNoGain) {
                RemoveRow(row);
            } else {
                ++row;
            }
        }
    }

    void GuessAll(std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i) {
            guesses[i] = board.GuessInsertion(candidates[i].looks).loss;
        }
    }

    // The row that gains most; of those that gain the same, the plainest.
    Pick BestRow() {
        guesses.resize(candidates.size());
        for (const Candidate& candidate : candidates) {
            sums += candidate.looks.size() * (rows.size() / kSumsAtOnce + 1);
        }
        const std::size_t half = twoThreads ? candidates.size() / 2 : candidates.size();
        if (twoThreads) {
            const auto other =
                std::async(std::launch::async, [&] { GuessAll(half, candidates.size()); });
            GuessAll(0, half);
        } else {
            GuessAll(0, half);
        }
        std::vector<std::uint32_t> hopes;
        for (std::uint32_t i = 0; i < guesses.size(); ++i) {
            if (guesses[i] < -kNoGain) hopes.push_back(i);
        }
        const std::size_t count = std::min(hopes.size(), kMostPasses);
        const auto end = hopes.begin() + static_cast<std::ptrdiff_t>(count);
        std::partial_sort(hopes.begin(), end, hopes.end(), [this](auto a, auto b) {
            return guesses[a] != guesses[b] ? guesses[a] < guesses[b] : a < b;
        });
        Pick pick;
        for (std::size_t i = 0; i < count; ++i) {
            if (guesses[hopes[i]] > pick.change.loss + kNoGain) break;
            const auto change = board.BestInsertion(candidates[hopes[i]].looks);
            const double gain = pick.change.loss - change.loss;
            if (gain > kNoGain || (gain > -kNoGain && hopes[i] < pick.candidate)) {
                pick = {change, hopes[i]};
            }
        }
        return pick;
    }

    // Takes each row out and puts the best one in. False when nothing changed.
    bool Sweep() {
        bool changed = false;
        for (std::size_t row = 0; row + 1 < rows.size() && GoOn(); ++row) {
            const std::uint32_t old = rows[row];
            RemoveRow(row);
            const Pick pick = BestRow();
            const auto back = board.BestInsertion(candidates[old].looks);
            const double gain = back.loss - pick.change.loss;
            if (gain > kNoGain || (gain > -kNoGain && pick.candidate < old)) {
                InsertRow(pick.candidate, pick.change.place);
                changed = true;
            } else {
                changed = changed || back.place != row;
                InsertRow(old, back.place);
            }
        }
        return changed;
    }

    void Polish() {
        polished = true;
        double before = board.Loss();
        for (std::size_t i = 0; i < kMostSweeps && GoOn(); ++i) {
            const std::size_t size = rows.size();
            const bool changed = Sweep();
            Tidy();
            Note();
            const bool gained = board.Loss() < before - kNoGain || rows.size() < size;
            if (!changed || (!gained && i > 0)) break;
            before = board.Loss();
        }
    }

    bool LossMatters() const { return wish.mostLoss < 0 || board.Loss() > wish.mostLoss + kNoGain; }

    // Adds rows as long as they help and there is room, when the loss is what matters.
    void Lengthen() {
        if (!LossMatters()) return;
        const std::size_t size = rows.size();
        while (rows.size() < wish.mostRows && GoOn()) {
            const Pick pick = BestRow();
            if (pick.change.loss > -kNoGain) break;
            InsertRow(pick.candidate, pick.change.place);
            Note();
        }
        if (rows.size() > size) Polish();
    }

    // Adds candidates with a third word to those there are: refinements of the rows of the list.
    void Refine() {
        const Rows list = rows;
        for (const std::uint32_t row : list) {
            for (Candidate& refined :
                 Refined(terms, table, board.Index(), {wish.penalties}, candidates[row])) {
                const bool known =
                    std::ranges::any_of(candidates, [&refined](const Candidate& candidate) {
                        return candidate.looks == refined.looks;
                    });
                if (!known) candidates.push_back(std::move(refined));
            }
        }
    }

    // Takes a row out, and moves those that inherit its hands to their best places.
    void DropAndMove(std::size_t row) {
        Rows heirs;
        for (const std::size_t place : board.HeirsOf(row, kHeirsMoved)) {
            heirs.push_back(rows[place]);
        }
        RemoveRow(row);
        for (const std::uint32_t heir : heirs) {
            const auto place =
                static_cast<std::size_t>(std::ranges::find(rows, heir) - rows.begin());
            RemoveRow(place);
            InsertRow(heir, board.BestInsertion(candidates[heir].looks).place);
        }
    }

    struct Drop {
        double loss = 0;
        Rows rows;  // what is left
    };

    // What is left without one row or another, the best list first. Rows whose hands would be lost
    // are not tried.
    std::vector<Drop> Drops() {
        std::vector<std::pair<double, std::size_t>> damages;
        for (std::size_t row = 0; row + 1 < rows.size(); ++row) {
            damages.emplace_back(board.LossWithout(row), row);
        }
        std::ranges::sort(damages);
        damages.resize(std::min(damages.size(), kDropsTried));
        const Rows before = rows;
        std::vector<Drop> drops;
        for (const auto& [damage, row] : damages) {
            if (stopped) break;
            DropAndMove(row);
            drops.push_back({board.Loss(), rows});
            Restore(before);
        }
        std::ranges::stable_sort(drops, {}, &Drop::loss);
        return drops;
    }

    bool IsTooLong() const { return rows.size() > wish.mostRows; }
    bool IsGood(double loss) const { return wish.mostLoss >= 0 && loss <= wish.mostLoss + kNoGain; }

    // Drops a row; false when the chart is as short as it can be. As long as the list is good
    // enough without more work, that is all. Then it is polished, and at last several lists are,
    // since what is missed much may be made up for.
    bool DropRow() {
        const std::vector<Drop> drops = Drops();
        if (drops.empty()) return false;
        const bool far = rows.size() > wish.mostRows + kDropsPolished;
        if (IsGood(drops.front().loss) || (IsTooLong() && far)) {
            Restore(drops.front().rows);
            Note();
            polished = false;
            return true;
        }
        if (!polished) {
            Polish();
            return true;
        }
        const Rows before = rows;
        Drop bestDrop{1e9, {}};
        for (std::size_t i = 0; i < std::min(drops.size(), kDropsPolished) && GoOn(); ++i) {
            Restore(drops[i].rows);
            Polish();
            if (board.Loss() < bestDrop.loss - kNoGain) bestDrop = {board.Loss(), rows};
            if (IsGood(board.Loss())) return true;
        }
        if (bestDrop.rows.empty() || !IsTooLong()) {
            Restore(before);
            return false;
        }
        Restore(bestDrop.rows);
        return true;
    }

    void Shrink() {
        while (rows.size() > 1 && !stopped && (IsTooLong() || IsGood(board.Loss()))) {
            if (!DropRow()) break;
        }
    }

    const Terms& terms;
    const PayTable& table;
    const SearchWish& wish;
    const Progress& progress;
    const ListFound& told;
    bool stopped = false;
    std::size_t sums = 0;  // added up so far
    std::size_t mostSums = kMostSums;
    bool polished = false;  // nothing was dropped since
    double done = 0;
    double limit = kReadingPart;  // of done, in the part at work
    Board board;
    std::vector<Candidate> candidates;
    Rows rows;  // as they stand on the board
    std::vector<double> guesses;
    bool twoThreads = std::thread::hardware_concurrency() > 1;
    SearchResult result;
    std::optional<SearchResult::Found> best;
};

}  // namespace

SearchResult FindChart(const StartingHands& hands, const Terms& terms, const PayTable& table,
                       const SearchWish& wish, const Progress& progress, const ListFound& told) {
    return Searcher(hands, terms, table, wish, progress, told).Run();
}
