// The machine's sounds, played from wave files.
#pragma once
#include <QString>
#include <array>
#include <functional>
#include <optional>

#include "game/seat/Sounds.h"
#include "ui/machine/SoundOutput.h"

// Needs the QCoreApplication. Without a sound server, and for a file that is missing or no wave, it
// is silent and waits for nothing. Files are read and the server is looked for at the first sound,
// not before.
class QtSounds : public Sounds {
  public:
    // The folder of cash.wav and the others (QtSounds.cpp). PlayToEnd stops waiting as soon as
    // closing says that the program ends.
    QtSounds(QString folder, std::function<bool()> closing);

    void Play(Wave wave) override;

    // Waits for the end of the sound, for at most its length and a second. Events go on being
    // handled meanwhile; what the player does, the window keeps for later (ActionQueue.h).
    void PlayToEnd(Wave wave) override;
    void Sound(Beep beep) override;

  private:
    static constexpr std::size_t kFiles = 10;

    const Samples& SamplesOf(std::size_t file);

    QString folder;
    std::function<bool()> closing;
    std::array<std::optional<Samples>, kFiles> waves;  // those that have been read
    SoundOutput output;                                // refers to the waves
};
