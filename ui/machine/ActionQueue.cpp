#include "ui/machine/ActionQueue.h"

#include <algorithm>
#include <utility>

#include "game/seat/Seat.h"

namespace {

bool Waits(const PressInHand& press) { return press && press->state == Press::State::kWaits; }

}  // namespace

void ActionQueue::Run(std::function<void()> action) {
    waiting.push_back({nullptr, std::move(action)});
    if (busy) return;
    busy = true;
    while (!waiting.empty()) {
        const Item next = std::move(waiting.front());
        waiting.pop_front();
        refusing = false;
        if (next.press && next.press->state == Press::State::kRefused) continue;
        if (next.press) next.press->state = Press::State::kBegun;
        if (next.action) next.action();
    }
    busy = false;
    if (settled) settled();
}

void ActionQueue::Begin(PressInHand& press, PressKind kind, std::function<void()> action) {
    using enum Press::State;
    const bool stops = EndCountUp();
    press = std::make_shared<Press>(Press{stops ? kUsedUp : kBegun, kind});
    if (stops) return;
    if (!busy) {
        if (action) Run(std::move(action));
        return;
    }
    press->state = Admit(kind, nullptr) ? kWaits : kRefused;
    if (Waits(press)) waiting.push_back({press, std::move(action)});
}

bool ActionQueue::Finish(const PressInHand& press, PressKind kind, std::function<void()> action) {
    if (EndCountUp()) press->state = Press::State::kUsedUp;
    const bool waits = Waits(press);
    if (!waits && press->state != Press::State::kBegun) return false;
    if (!busy) {
        Run(std::move(action));
        return true;
    }
    // What was a place to hold a card may have become the draw: let go on the button for it.
    const bool sameAsBegun = waits && press->kind == kind;
    if (!sameAsBegun && !Admit(kind, press.get())) return false;
    *press = {Press::State::kWaits, kind};
    const auto kept = std::ranges::find_if(
        waiting, [&](const Item& item) { return item.press == press && !item.action; });
    if (kept == waiting.end()) {
        waiting.push_back({press, std::move(action)});
    } else {
        kept->action = std::move(action);
    }
    return true;
}

// Whether a press may wait for the flow that runs, beside those that do. After one that may not,
// none may: a draw must not be made without the holds pressed before it.
bool ActionQueue::Admit(PressKind kind, const Press* own) {
    const auto othersWait = [&](auto wanted) {
        return std::ranges::any_of(waiting, [&](const Item& item) {
            return Waits(item.press) && item.press.get() != own && wanted(item.press->kind);
        });
    };
    const bool full = seat.dealing ? othersWait([&](PressKind waits) {
        return waits == PressKind::kDraw || (waits == kind && kind == PressKind::kOther);
    })
                                   : othersWait([](PressKind) { return true; });
    refusing = refusing || full;
    return !refusing;
}

bool ActionQueue::EndCountUp() {
    seat.engine.stopCountUp = true;
    return seat.engine.countingUp;
}

int ActionQueue::WaitingPresses() const {
    return static_cast<int>(
        std::ranges::count_if(waiting, [](const Item& item) { return Waits(item.press); }));
}

bool ActionQueue::DropPresses(Press::State as) {
    const auto begun = std::stable_partition(waiting.begin(), waiting.end(),
                                             [](const Item& item) { return !item.press; });
    const bool dropped = begun != waiting.end();
    std::for_each(begun, waiting.end(), [as](const Item& item) { item.press->state = as; });
    waiting.erase(begun, waiting.end());
    return dropped;
}

void ActionQueue::DropWaiting() {
    DropPresses();
    waiting.clear();
}
