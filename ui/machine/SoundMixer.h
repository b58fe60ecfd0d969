// Mixes the sounds that play at the same time into one row of samples. Knows no device, no time and
// no thread.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "ui/machine/WaveFile.h"

class SoundMixer {
  public:
    using Voice = std::uint64_t;  // one sound that plays; 0 is none

    // A sound counts as playing for this many samples after its last one was mixed, the way that
    // samples have from here to the ear.
    explicit SoundMixer(std::size_t samplesToEar) : way(samplesToEar) {}

    // Begins with the next sample to be mixed. The samples stay the caller's and must outlive the
    // mixer. 0, and nothing plays, for no samples or while kMostVoices play.
    Voice Start(const Samples& samples);

    bool IsPlaying(Voice voice) const;
    bool IsSilent() const { return playing.empty(); }
    void StopAll() { playing.clear(); }

    // Fills all of it with what comes next: silence where nothing plays.
    void Mix(std::span<std::int16_t> mixed);

    static constexpr std::size_t kMostVoices = 32;

  private:
    struct Playing {
        Voice voice;
        const Samples* samples;
        std::size_t next = 0;  // counts on after the last sample
    };

    std::size_t way;
    Voice last = 0;
    std::vector<Playing> playing;
    std::vector<int> sums;
};
