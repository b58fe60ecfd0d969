#include "core/whatif/TwoTables.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "core/analysis/AceOrder.h"

namespace {

constexpr std::size_t kHandsAtOnce = 1024;
constexpr std::size_t kMostWaiting = 4;  // batches

// A line of one colour has the analysis tell the red suits from the black ones. Where one table has
// such a line, the other gets one that pays nothing, so that both have the same classes of hands.
PayTable WithSuitsOf(PayTable table, const PayTable& other) {
    if (HasLine(other, HandRank::kAllRedOrBlack) && !HasLine(table, HandRank::kAllRedOrBlack)) {
        table.lines.emplace_back().rank = HandRank::kAllRedOrBlack;
    }
    return table;
}

// Hands on their way from the thread that reads them.
class HandQueue {
  public:
    using Batch = std::vector<StartingHand>;

    // False when nobody takes them any more.
    bool Put(Batch batch) {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return closed || waiting.size() < kMostWaiting; });
        if (closed) return false;
        waiting.push_back(std::move(batch));
        changed.notify_all();
        return true;
    }

    // Waits for the next one: there always is one when this is called.
    Batch Take() {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return !waiting.empty(); });
        Batch batch = std::move(waiting.front());
        waiting.pop_front();
        changed.notify_all();
        return batch;
    }

    void Close() {
        const std::lock_guard lock(mutex);
        closed = true;
        changed.notify_all();
    }

  private:
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Batch> waiting;
    bool closed = false;
};

void ReadAhead(const StartingHands& hands, HandQueue& queue) {
    HandQueue::Batch batch;
    const bool all = hands.ForEach([&](const StartingHand& hand) {
        batch.push_back(hand);
        return batch.size() < kHandsAtOnce || queue.Put(std::exchange(batch, {}));
    });
    if (all && !batch.empty()) queue.Put(std::move(batch));
}

}  // namespace

std::string TwoTables::WhyNoPlainPlay(const PayTable& table) {
    if (const std::string whyNot = StartingHands::WhyNot(table); !whyNot.empty()) return whyNot;
    if (table.type == GameType::kDoubleDraw) return "has a second draw, which is played too";
    if (AceLine(table) >= 0) return "pays for an order of the cards, which its holds depend on";
    return "";
}

std::string TwoTables::WhyNot(const PayTable& a, const PayTable& b) {
    if (DeckOf(a) != DeckOf(b)) {
        return "The two are dealt from different decks, or have other wild cards: no hand of the "
               "one is a hand of the other.";
    }
    for (const PayTable* table : {&a, &b}) {
        const std::string whyNot = WhyNoPlainPlay(*table);
        if (!whyNot.empty()) return "One of the two " + whyNot + ".";
    }
    for (const auto& [table, other] : {std::pair(&a, &b), {&b, &a}}) {
        if (WithSuitsOf(*table, *other).lines.size() > kMaxPayLines) {
            return "One of the two pays for one colour, and the other has no line left for it.";
        }
    }
    return "";
}

TwoTables::TwoTables(const PayTable& a, const PayTable& b)
    : tableA(WithSuitsOf(a, b)),
      tableB(WithSuitsOf(b, a)),
      linesA(tableA),
      linesB(tableB),
      handsA(linesA, tableA),
      handsB(linesB, tableB) {}

bool TwoTables::ForEach(const Visitor& visit) const {
    HandQueue queue;
    std::thread reader;
    try {
        reader = std::thread([this, &queue] { ReadAhead(handsA, queue); });
    } catch (const std::system_error&) {
        return false;  // the machine has no thread left to give
    }
    HandQueue::Batch batch;
    std::size_t next = 0;
    const bool all = handsB.ForEach([&](const StartingHand& hand) {
        if (next == batch.size()) {
            batch = queue.Take();
            next = 0;
        }
        return visit(batch[next++], hand);
    });
    queue.Close();
    reader.join();
    return all;
}
