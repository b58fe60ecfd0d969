#include "core/cards/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

// The standard library's twister with the parameters of ours; only the first words are made in a
// way of our own.
using Reference = std::mersenne_twister_engine<std::uint32_t, 32, 351, 175, 19, 0xE4BD75F5U, 11,
                                               0xFFFFFFFFU, 7, 0x655E5280U, 15, 0xFFD58000U, 17, 1>;

struct FirstWords {
    using result_type = std::uint32_t;
    std::uint32_t seed;

    void generate(std::uint32_t* begin, const std::uint32_t* end) {
        while (begin != end) *begin++ = seed = seed * 29943829 - 1;
    }
};

TEST(RandomTest, TheTwisterFollowsItsDefinition) {
    for (const std::uint32_t seed : {0U, 1U, 4711U, 0xFFFFFFFFU, 1790000000U}) {
        MersenneTwister twister;
        twister.Init(seed);
        FirstWords words{seed};
        Reference reference(words);
        for (int i = 0; i < 2000; ++i)
            ASSERT_EQ(twister.NextBits(), reference()) << seed << " " << i;
    }
}

// The generator by its definition, on a buffer that is shifted instead of turned.
TEST(RandomTest, TheOtherGeneratorFollowsItsDefinition) {
    for (const std::uint32_t seed : {0U, 1U, 99U, 1790000001U}) {
        std::vector<std::uint32_t> past;  // newest last
        std::uint32_t s = seed;
        std::array<std::uint32_t, 17> words{};
        for (std::uint32_t& word : words) word = s = s * 2891336453U + 1;
        // x[n] = rotl(x[n-17], 9) + rotl(x[n-10], 13); the buffer is read downwards from its start.
        past.push_back(words[0]);
        for (int i = 16; i > 0; --i) past.push_back(words.at(static_cast<std::size_t>(i)));
        RanrotB ranrot;
        ranrot.Init(seed);
        for (int i = 0; i < 500; ++i) {
            const std::size_t n = past.size();
            past.push_back(std::rotl(past[n - 17], 9) + std::rotl(past[n - 10], 13));
            if (i >= 9) {
                ASSERT_EQ(ranrot.Random(), past.back() / 4294967296.0) << seed << " " << i;
            }
        }
    }
}

std::string failure;
void Remember(const char* message) { failure = message; }

TEST(RandomTest, AGeneratorThatNeverWasSeededOrComesRoundSaysSo) {
    failure.clear();
    RanrotB ranrot;
    ranrot.fail = Remember;
    ranrot.Random();
    EXPECT_EQ(failure, "Random number generator not initialized");
    failure.clear();
    ranrot.Init(5);
    EXPECT_EQ(failure, "");
    // Words that bring the next step back to the seeded state. After nine steps the first pointer
    // stands at 8; the seeded state turned to 7 is one step away.
    std::uint32_t s = 5;
    for (std::size_t i = 0; i < 17; ++i) ranrot.words[(7 + i) % 17] = s = s * 2891336453U + 1;
    ranrot.words[8] = std::rotr(ranrot.words[8] - std::rotl(ranrot.words[1], 13), 9);
    ranrot.Random();
    EXPECT_EQ(failure, "Random number generator returned to initial state");
}

TEST(RandomTest, WholeNumbersStayBetweenTheirLimits) {
    CombinedRandom random;
    random.RandomInit(1);
    EXPECT_EQ(random.IRandom(5, 5), 5);
    EXPECT_EQ(random.IRandom(1, 0), -1);
    std::map<int, int> counts;
    for (int i = 0; i < 200'000; ++i) ++counts[random.IRandom(1, 200)];
    EXPECT_EQ(counts.size(), 200U);
    EXPECT_EQ(counts.begin()->first, 1);
    double chiSquare = 0;
    for (const auto& [number, count] : counts) chiSquare += std::pow(count - 1000.0, 2) / 1000;
    EXPECT_LT(chiSquare, 290) << "199 degrees of freedom, five standard deviations";
    random.IRandom(INT32_MIN, INT32_MAX);  // overflows nothing, as the sanitizer sees
}

}  // namespace
