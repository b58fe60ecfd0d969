#include "ui/machine/SceneSounds.h"

#include "game/seat/Scene.h"

namespace {

bool ComesUp(const PlaceLook& before, const PlaceLook& now) {
    return now.card != before.card && now.card >= 0 && now.card < kCardBack;
}

bool GoesDown(ButtonLook before, ButtonLook now) {
    return now == ButtonLook::kPressed && before != now;
}

}  // namespace

// A HOLD button that goes down is heard as the hold.
std::optional<Wave> SoundOfChange(const Scene& before, const Scene& now) {
    bool cardChanges = false;
    bool holdChanges = false;
    for (std::size_t i = 0; i < now.places.size(); ++i) {
        if (ComesUp(before.places[i], now.places[i])) return Wave::kCard;
        cardChanges = cardChanges || before.places[i].card != now.places[i].card;
        holdChanges = holdChanges || before.places[i].held != now.places[i].held;
    }
    if (holdChanges && !cardChanges && !now.doubleUp.shown) return Wave::kHold;
    const MachineButtons& old = before.buttons;
    const MachineButtons& buttons = now.buttons;
    const bool pressed = GoesDown(old.deal, buttons.deal) || GoesDown(old.betOne, buttons.betOne) ||
                         GoesDown(old.maxBet, buttons.maxBet) ||
                         GoesDown(old.doubleUp, buttons.doubleUp);
    return pressed ? std::optional(Wave::kButton) : std::nullopt;
}
