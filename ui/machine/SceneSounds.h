// What is heard when the machine comes to show something else: a card that is turned, a hold, a
// button that goes down. The sounds of what is won and played for are the flows'.
#pragma once
#include <optional>

#include "game/seat/Sounds.h"

struct Scene;

// The one sound of a change; nothing when it makes none.
std::optional<Wave> SoundOfChange(const Scene& before, const Scene& now);
