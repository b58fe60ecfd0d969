#include "ui/machine/SoundMixer.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kFullScale = 32767;
constexpr double kKnee = 24576;  // no shipped sound alone comes up to it

// Loud sums come ever nearer to the full scale instead of being cut off there, which would crackle.
std::int16_t Saturated(int sum) {
    const double loud = std::abs(sum);
    if (loud <= kKnee) return static_cast<std::int16_t>(sum);
    constexpr double kRoom = kFullScale - kKnee;
    const double level = kFullScale - kRoom * std::exp((kKnee - loud) / kRoom);
    return static_cast<std::int16_t>(std::lround(std::copysign(level, sum)));
}

}  // namespace

SoundMixer::Voice SoundMixer::Start(const Samples& samples) {
    if (samples.empty() || playing.size() >= kMostVoices) return 0;
    playing.push_back({++last, &samples});
    return last;
}

bool SoundMixer::IsPlaying(Voice voice) const {
    return std::ranges::find(playing, voice, &Playing::voice) != playing.end();
}

void SoundMixer::Mix(std::span<std::int16_t> mixed) {
    sums.assign(mixed.size(), 0);
    for (auto& [voice, samples, next] : playing) {
        const std::size_t left = samples->size() - std::min(next, samples->size());
        for (std::size_t i = 0; i < std::min(left, sums.size()); ++i) {
            sums[i] += (*samples)[next + i];
        }
        next += mixed.size();
    }
    std::erase_if(playing,
                  [this](const Playing& one) { return one.next >= one.samples->size() + way; });
    std::ranges::transform(sums, mixed.begin(), Saturated);
}
