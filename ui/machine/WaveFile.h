// Wave files as samples to mix.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

constexpr int kSampleRate = 44100;  // samples a second

// One channel at kSampleRate.
using Samples = std::vector<std::int16_t>;

// The first minute of a PCM wave file of 8, 16, 24 or 32 bits, its channels mixed into one and
// brought to kSampleRate. Empty for a file that is missing or no such wave.
Samples ReadWave(const std::string& path);
