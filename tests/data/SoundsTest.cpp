// The wave files as the build has made them, beside the program.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

struct Sound {
    const char* name;
    double shortest;  // seconds
    double longest;
};

void PrintTo(const Sound& sound, std::ostream* out) { *out << sound.name; }

std::string ReadSound(const std::string& name) {
    std::ifstream file(TOLVANE_PROGRAM_FOLDER "/" + name + ".wav", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::uint32_t Number(const std::string& bytes, std::size_t at, std::size_t size) {
    std::uint32_t number = 0;
    for (std::size_t i = size; i > 0; --i) {
        number = number << 8 | static_cast<std::uint8_t>(bytes.at(at + i - 1));
    }
    return number;
}

std::vector<int> SamplesOf(const std::string& wave) {
    std::vector<int> samples;
    for (std::size_t at = 44; at + 2 <= wave.size(); at += 2) {
        samples.push_back(static_cast<std::int16_t>(Number(wave, at, 2)));
    }
    return samples;
}

class SoundsTest : public testing::TestWithParam<Sound> {};

TEST_P(SoundsTest, IsAPlainWaveFileThatEveryPlayerKnows) {
    const std::string wave = ReadSound(GetParam().name);
    ASSERT_GT(wave.size(), 44U);
    // 16 bytes of format: PCM, 1 channel, 44100 samples and 88200 bytes a second, 2 bytes, 16 bits.
    const std::vector<std::uint32_t> format{16, 1 | 1 << 16, 44100, 88200, 2 | 16 << 16};
    for (std::size_t i = 0; i < format.size(); ++i)
        EXPECT_EQ(Number(wave, 16 + 4 * i, 4), format[i]);
    EXPECT_EQ(wave.substr(0, 4) + wave.substr(8, 8) + wave.substr(36, 4), "RIFFWAVEfmt data");
    EXPECT_EQ(Number(wave, 4, 4), wave.size() - 8);
    EXPECT_EQ(Number(wave, 40, 4), wave.size() - 44);
}

TEST_P(SoundsTest, IsHeardButNeverHurtsAndDoesNotCrackle) {
    const Sound& sound = GetParam();
    const std::vector<int> samples = SamplesOf(ReadSound(sound.name));
    const double seconds = static_cast<double>(samples.size()) / 44100;
    EXPECT_GE(seconds, sound.shortest);
    EXPECT_LE(seconds, sound.longest);
    ASSERT_FALSE(samples.empty());
    int peak = 0;
    for (const int sample : samples) peak = std::max(peak, std::abs(sample));
    EXPECT_GT(peak, 32768 * 15 / 100);
    EXPECT_LT(peak, 32768 * 75 / 100) << "the mixer would change what is louder";
    EXPECT_LT(std::abs(samples.front()), 100);
    EXPECT_LT(std::abs(samples.back()), 100);
}

constexpr Sound kSounds[] = {
    {"cash", 0.7, 1.2},         {"click", 0.03, 0.06},  {"arrow", 0.4, 0.7},
    {"applause", 2, 3},         {"drumroll", 1.5, 2.5}, {"beep", 0.07, 0.12},
    {"exclamation", 0.2, 0.35}, {"card", 0.03, 0.06},   {"hold", 0.03, 0.06},
    {"button", 0.03, 0.08},
};
INSTANTIATE_TEST_SUITE_P(Shipped, SoundsTest, testing::ValuesIn(kSounds),
                         [](const auto& sound) { return sound.param.name; });

}  // namespace
