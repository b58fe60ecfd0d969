#include "game/paytables/FormHistory.h"

#include <algorithm>

namespace {

constexpr std::size_t kMostStates = 1001;

}  // namespace

void FormHistory::Begin(const FormState& state) {
    states.assign(1, state);
    at = 0;
    typing.reset();
}

void FormHistory::Note(const FormState& state, std::optional<FieldPlace> typedIn) {
    if (state == states[at]) {
        if (!typedIn) typing.reset();
        return;
    }
    states.resize(at + 1);
    if (typedIn && typedIn == typing && at > 0) {
        states[at] = state;
        if (state == states[at - 1]) {  // all of it is deleted again
            states.pop_back();
            --at;
            typedIn.reset();
        }
    } else {
        states.push_back(state);
        if (states.size() > kMostStates) states.erase(states.begin());
        at = states.size() - 1;
    }
    typing = typedIn;
}

void FormHistory::Amend(const FormState& state) {
    states[at] = state;
    typing.reset();
}

const FormState& FormHistory::Undo() {
    typing.reset();
    if (CanUndo()) --at;
    return states[at];
}

const FormState& FormHistory::Redo() {
    typing.reset();
    if (CanRedo()) ++at;
    return states[at];
}

void FormHistory::ChangeAll(const std::function<void(FormState&)>& change) {
    std::ranges::for_each(states, change);
    for (std::size_t i = states.size() - 1; i > 0; --i) {
        if (states[i] != states[i - 1]) continue;
        states.erase(states.begin() + static_cast<std::ptrdiff_t>(i));
        if (at >= i) --at;
    }
    typing.reset();
}
