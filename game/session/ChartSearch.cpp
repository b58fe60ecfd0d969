#include "game/session/ChartSearch.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "core/analysis/StartThread.h"
#include "core/strategy/Search.h"

namespace {

// Beside what the player does at the machine. On Linux a thread has a priority of its own, which
// the threads that it starts inherit.
void GiveWay() {
    constexpr int kNice = 10;
    (void)setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kNice);
}

// The standard chart comes first, then what is longer, then what is shorter: a search for one
// length finds good charts of the lengths that it comes by.
std::vector<SearchWish> WishesOf(const ChartWish& wish) {
    constexpr std::size_t kShortest = 10;
    std::vector<SearchWish> wishes = {kStandardChart};
    if (wish.whole) {
        wishes.push_back({SearchWish::kMostRows, -1});
        wishes.push_back({kShortest, -1});
    }
    for (SearchWish& each : wishes) each.penalties = wish.penalties;
    return wishes;
}

}  // namespace

ChartSearch::ChartSearch(ChartWish wanted)
    : wish(std::move(wanted)), thread(StartThread([this] {
          Work();
          over = true;
      })) {
    if (!thread.joinable()) over = true;
}

ChartSearch::~ChartSearch() { Cancel(); }

ChartSearch::Found ChartSearch::Take() {
    const std::lock_guard lock(mutex);
    Found taken = found;
    found.isNew = false;
    return taken;
}

void ChartSearch::Note(const SearchResult::Found& chart) {
    const double loss = std::max(chart.loss, 0.0);  // below it is rounding
    const std::lock_guard lock(mutex);
    if (AddChart(found.charts.lists, {chart.rows, loss})) found.isNew = true;
}

void ChartSearch::Work() {
    GiveWay();
    const LineTables tables(wish.table);
    const StartingHands hands(tables, wish.table);
    const Terms terms(tables, wish.table);
    const auto goesOn = [this](double) { return !cancelled; };
    // Any chart is graded against the best play.
    const ChartGrade grade = GradeChart(hands, terms, {Row()}, goesOn);
    if (grade.cancelled) return;
    {
        const std::lock_guard lock(mutex);
        found.best = Percent(grade.best, grade.Bet());
        found.charts.reach = SearchReach::kSome;
    }
    const auto wishes = WishesOf(wish);
    for (std::size_t i = 0; i < wishes.size() && !cancelled; ++i) {
        const auto progress = [&](double done) {
            share = (static_cast<double>(i) + done) / static_cast<double>(wishes.size());
            return !cancelled;
        };
        const SearchResult result = FindChart(hands, terms, wish.table, wishes[i], progress,
                                              [this](const auto& chart) { Note(chart); });
        if (result.cancelled) return;
        const bool last = wish.whole && i + 1 == wishes.size();
        const std::lock_guard lock(mutex);
        found.charts.reach = last ? SearchReach::kWhole : SearchReach::kStandard;
        found.isNew = true;
    }
}
