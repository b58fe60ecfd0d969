#include "ui/machine/WaveFile.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <optional>
#include <string_view>

namespace {

constexpr std::size_t kLongest = 60;  // seconds
constexpr std::uint32_t kHighestRate = 400'000;
constexpr std::uint32_t kPcm = 1;
constexpr std::uint32_t kExtensible = 0xfffe;  // says what it is in its longer format

struct WaveFormat {
    std::size_t channels = 1;
    std::size_t sampleBytes = 2;
    std::uint32_t rate = kSampleRate;

    std::size_t FrameBytes() const { return channels * sampleBytes; }
};

// Little endian, of at most four bytes; at + size must lie within the bytes.
std::uint32_t Number(std::string_view bytes, std::size_t at, std::size_t size) {
    std::uint32_t number = 0;
    for (std::size_t i = size; i > 0; --i) {
        number = number << 8 | static_cast<std::uint8_t>(bytes[at + i - 1]);
    }
    return number;
}

std::optional<WaveFormat> FormatIn(std::string_view chunk) {
    if (chunk.size() < 16) return std::nullopt;
    std::uint32_t kind = Number(chunk, 0, 2);
    if (kind == kExtensible && chunk.size() >= 26) kind = Number(chunk, 24, 2);
    const std::uint32_t bits = Number(chunk, 14, 2);
    const WaveFormat format{Number(chunk, 2, 2), bits / 8, Number(chunk, 4, 4)};
    const bool bitsFit = bits == 8 || bits == 16 || bits == 24 || bits == 32;
    const bool rateFits = format.rate > 0 && format.rate <= kHighestRate;
    if (kind != kPcm || format.channels == 0 || !bitsFit || !rateFits) return std::nullopt;
    return format;
}

int SampleAt(std::string_view data, std::size_t at, std::size_t size) {
    if (size == 1) return (static_cast<int>(Number(data, at, 1)) - 128) * 256;
    return static_cast<std::int16_t>(Number(data, at + size - 2, 2));
}

Samples Mono(std::string_view data, const WaveFormat& format) {
    Samples mono(std::min(data.size() / format.FrameBytes(), kLongest * format.rate));
    for (std::size_t frame = 0; frame < mono.size(); ++frame) {
        int sum = 0;
        for (std::size_t channel = 0; channel < format.channels; ++channel) {
            const std::size_t at = frame * format.FrameBytes() + channel * format.sampleBytes;
            sum += SampleAt(data, at, format.sampleBytes);
        }
        mono[frame] = static_cast<std::int16_t>(sum / static_cast<int>(format.channels));
    }
    return mono;
}

// What lies between two samples is taken from the straight line between them.
Samples AtSampleRate(Samples samples, std::uint32_t rate) {
    if (rate == kSampleRate || samples.empty()) return samples;
    Samples result(std::max<std::size_t>(1, samples.size() * kSampleRate / rate));
    for (std::size_t i = 0; i < result.size(); ++i) {
        const double place = static_cast<double>(i) * rate / kSampleRate;
        const auto before = std::min(static_cast<std::size_t>(place), samples.size() - 1);
        const auto after = std::min(before + 1, samples.size() - 1);
        result[i] = static_cast<std::int16_t>(std::lround(
            std::lerp(samples[before], samples[after], place - static_cast<double>(before))));
    }
    return result;
}

}  // namespace

Samples ReadWave(const std::string& path) {
    constexpr std::size_t kFileHeader = 12;
    constexpr std::size_t kChunkHeader = 8;
    std::ifstream file(path, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    const std::string_view riff = content;
    if (!riff.starts_with("RIFF") || !riff.substr(0, kFileHeader).ends_with("WAVE")) return {};
    std::optional<WaveFormat> format;
    for (std::size_t at = kFileHeader; at + kChunkHeader <= riff.size();) {
        const std::size_t size = Number(riff, at + 4, 4);
        const std::string_view chunk = riff.substr(at + kChunkHeader, size);
        if (riff.substr(at).starts_with("fmt ")) format = FormatIn(chunk);
        if (riff.substr(at).starts_with("data") && format) {
            return AtSampleRate(Mono(chunk, *format), format->rate);
        }
        at += kChunkHeader + size + size % 2;
    }
    return {};
}
