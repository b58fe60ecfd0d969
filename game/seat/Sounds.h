// What is heard. A machine without a sound device is silent and never waits.
#pragma once

enum class Wave { kCash, kClick, kArrow, kApplause, kDrumroll, kCard, kHold, kButton };
enum class Beep { kDefault, kExclamation };

class Sounds {
  public:
    virtual ~Sounds() = default;

    virtual void Play(Wave wave) = 0;
    virtual void PlayToEnd(Wave wave) = 0;
    virtual void Sound(Beep beep) = 0;
};
