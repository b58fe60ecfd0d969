// The questions that a game must have answered before it goes on. The window asks them in dialogs,
// a test from a list.
#pragma once
#include <string>

class Player {
  public:
    virtual ~Player() = default;

    // Shown when a hold is not the best one; true to go on all the same.
    virtual bool GoesOnAfterError(const std::string& message) = 0;
};
