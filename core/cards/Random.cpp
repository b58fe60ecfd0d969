#include "core/cards/Random.h"

#include <algorithm>
#include <bit>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr double kTwoTo32 = 4294967296.0;

constexpr std::size_t kMiddle = 175;
constexpr std::uint32_t kLowerMask = 0x0007FFFF;
constexpr std::uint32_t kUpperMask = 0xFFF80000;
constexpr std::uint32_t kMatrixA = 0xE4BD75F5;
constexpr std::uint32_t kTemperB = 0x655E5280;
constexpr std::uint32_t kTemperC = 0xFFD58000;

constexpr int kLag = 10;
constexpr int kWarmUp = 9;

}  // namespace

void MersenneTwister::Init(std::uint32_t seed) {
    for (auto& word : words) {
        seed = seed * 29943829 - 1;
        word = seed;
    }
    next = kWords;
}

void MersenneTwister::Regenerate() {
    for (std::size_t k = 0; k < kWords; ++k) {
        const std::uint32_t y = (words[k] & kUpperMask) | (words[(k + 1) % kWords] & kLowerMask);
        words[k] = words[(k + kMiddle) % kWords] ^ (y >> 1) ^ ((y & 1) != 0 ? kMatrixA : 0);
    }
    next = 0;
}

std::uint32_t MersenneTwister::NextBits() {
    if (next >= kWords) Regenerate();
    std::uint32_t y = words[next++];
    y ^= y >> 11;
    y ^= (y << 7) & kTemperB;
    y ^= (y << 15) & kTemperC;
    return y ^ (y >> 17);
}

double MersenneTwister::Random() { return NextBits() / kTwoTo32; }

void RanrotB::EndProgram(const char* message) {
    std::puts(message);
    std::exit(1);
}

void RanrotB::Init(std::uint32_t seed) {
    for (auto& word : words) {
        seed = seed * 2891336453U + 1;
        word = seed;
    }
    p1 = 0;
    p2 = kLag;
    std::ranges::copy(words, seeded.begin());
    std::ranges::copy(words, seeded.begin() + kWords);
    for (int i = 0; i < kWarmUp; ++i) Random();
}

double RanrotB::Random() {
    auto& word = words[static_cast<std::size_t>(p1)];
    word = std::rotl(words[static_cast<std::size_t>(p2)], 13) + std::rotl(word, 9);
    const std::uint32_t bits = word;
    p1 = p1 == 0 ? kWords - 1 : p1 - 1;
    p2 = p2 == 0 ? kWords - 1 : p2 - 1;
    CheckCycle();
    return bits / kTwoTo32;
}

// The state turns round in the buffer as the pointers do, so it is compared from where it would
// stand.
void RanrotB::CheckCycle() const {
    if (words[static_cast<std::size_t>(p1)] != seeded[0]) return;
    if (!std::equal(words.begin(), words.end(), seeded.begin() + (kWords - p1))) return;
    fail((p2 + kWords - p1) % kWords == kLag ? "Random number generator returned to initial state"
                                             : "Random number generator not initialized");
}

void CombinedRandom::RandomInit(std::uint32_t seed) {
    twister.Init(seed);
    ranrot.Init(seed + 1);
}

// Both are multiples of 2^-32, so the sum is exact.
double CombinedRandom::Random() {
    const double sum = twister.Random() + ranrot.Random();
    return sum >= 1 ? sum - 1 : sum;
}

std::int32_t CombinedRandom::IRandom(std::int32_t min, std::int32_t max) {
    const std::int64_t count = std::int64_t{max} - min + 1;
    if (count < 1) return -1;
    const auto index = static_cast<std::int64_t>(static_cast<double>(count) * Random());
    return static_cast<std::int32_t>(min + std::min(index, count - 1));
}
