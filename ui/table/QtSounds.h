// The machine's sounds, played from wave files.
#pragma once
#include <QString>
#include <array>
#include <functional>
#include <memory>
#include <optional>

#include "game/Sounds.h"

class QSoundEffect;

// Needs the QCoreApplication. Without a sound device, and for a file that is missing or no wave, it
// is silent and waits for nothing. Devices are looked for at the first sound, not before.
class QtSounds : public Sounds {
  public:
    // The folder of cash.wav, click.wav, arrow.wav, applause.wav, drumroll.wav, beep.wav and
    // exclamation.wav. PlayToEnd stops waiting as soon as closing says that the program ends.
    QtSounds(QString folder, std::function<bool()> closing);
    ~QtSounds() override;

    void Play(Wave wave) override;

    // Waits for the end of the sound, for at most its length and a second. Events go on being
    // handled meanwhile; what the player does, the window keeps for later (ActionQueue.h).
    void PlayToEnd(Wave wave) override;
    void Sound(Beep beep) override;

  private:
    static constexpr std::size_t kFiles = 7;

    struct Player {
        std::unique_ptr<QSoundEffect> effect;  // null: silent
        int milliseconds = 0;
    };

    bool HasDevice();
    const Player& PlayerOf(std::size_t file);
    Player Load(std::size_t file);
    bool Start(std::size_t file);

    QString folder;
    std::function<bool()> closing;
    std::optional<bool> hasDevice;  // once it is known
    std::array<std::optional<Player>, kFiles> players;
};

// How long a wave file plays, in milliseconds, rounded up; 0 when it is none.
int WaveMilliseconds(const QString& path);
