// The program's random numbers: the sum, modulo 1, of two published generators of different kinds.
#pragma once
#include <array>
#include <cstdint>

// MT11213A parameters; Matsumoto and Nishimura, "Mersenne Twister", ACM TOMACS 8(1), 1998. The
// seeding is this program's own, not the reference one.
class MersenneTwister {
  public:
    static constexpr std::size_t kWords = 351;

    void Init(std::uint32_t seed);
    std::uint32_t NextBits();
    double Random();  // [0, 1), a multiple of 2^-32

  private:
    void Regenerate();

    std::array<std::uint32_t, kWords> words{};
    std::size_t next = kWords;
};

// RANROT type B: Fog, "Chaotic Random Number Generators with Random Cycle Lengths", 2001. Its cycle
// length depends on the seed, so it watches for the state that it was seeded with.
class RanrotB {
  public:
    static constexpr int kWords = 17;

    void Init(std::uint32_t seed);
    double Random();  // [0, 1), a multiple of 2^-32

    // What happens when the generator has come round, or was never seeded: the message is printed
    // and the program ends with status 1. Tests put something else here.
    void (*fail)(const char* message) = EndProgram;
    static void EndProgram(const char* message);

    // Tests may set the state to any that the generator could have been seeded with.
    std::array<std::uint32_t, kWords> words{};

  private:
    void CheckCycle() const;

    int p1 = 0;
    int p2 = 0;
    std::array<std::uint32_t, 2 * static_cast<std::size_t>(kWords)>
        seeded{};  // the state, twice over
};

class CombinedRandom {
  public:
    // The twister gets the seed, the other generator the number after it.
    void RandomInit(std::uint32_t seed);
    double Random();  // [0, 1)

    // A whole number from min to max; -1 when there is none between them.
    std::int32_t IRandom(std::int32_t min, std::int32_t max);

  private:
    MersenneTwister twister;
    RanrotB ranrot;
};
