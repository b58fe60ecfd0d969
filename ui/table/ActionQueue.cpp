#include "ui/table/ActionQueue.h"

#include <utility>

void ActionQueue::Run(std::function<void()> action) {
    waiting.push_back(std::move(action));
    if (busy) return;
    busy = true;
    while (!waiting.empty()) {
        const auto next = std::move(waiting.front());
        waiting.pop_front();
        next();
    }
    busy = false;
    if (settled) settled();
}
