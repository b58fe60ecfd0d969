// MakeSounds FOLDER: synthesises the program's sounds as wave files in that folder, the same ones
// at every run: what is random comes from a generator of its own with a fixed seed.
//
// A sound is built of layers. Each layer is a tone or noise, shaped by an envelope so that it
// begins and ends in silence, and mixed into the whole; at the end the whole is brought to its
// loudness.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using Samples = std::vector<double>;

constexpr int kRate = 44100;  // samples a second
constexpr double kFullScale = 32767.0;
constexpr double kEdge = 0.001;  // seconds in which every sound comes from silence and goes to it

std::size_t SamplesIn(double seconds) {
    return static_cast<std::size_t>(std::lround(seconds * kRate));
}

double SecondsAt(std::size_t sample) { return static_cast<double>(sample) / kRate; }

// Numbers in -1..1, good enough for the ear: Marsaglia's xorshift, J. Stat. Software 8(14), 2003.
class Random {
  public:
    explicit Random(std::uint32_t seed) : state(seed) {}

    double Next() {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        return state / 2147483648.0 - 1.0;
    }
    double Between(double low, double high) { return low + (high - low) * (Next() + 1.0) / 2.0; }

  private:
    std::uint32_t state;  // never 0
};

// A sine of this many hertz, which glides to lastFrequency when one is given.
Samples Tone(double frequency, double seconds, double lastFrequency = 0) {
    Samples samples(SamplesIn(seconds));
    const double glide = lastFrequency > 0 ? lastFrequency - frequency : 0;
    double phase = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i] = std::sin(phase);
        const double now = frequency + glide * SecondsAt(i) / seconds;
        phase += 2 * std::numbers::pi * now / kRate;
    }
    return samples;
}

Samples Noise(double seconds, Random& random) {
    Samples samples(SamplesIn(seconds));
    for (double& sample : samples) sample = random.Next();
    return samples;
}

// Takes 6 dB an octave away above the frequency, which glides to the last one when one is given.
Samples OnePole(Samples samples, double frequency, double lastFrequency) {
    const double glide = lastFrequency > 0 ? lastFrequency - frequency : 0;
    const auto size = static_cast<double>(samples.size());
    double level = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double now = frequency + glide * static_cast<double>(i) / size;
        level += (samples[i] - level) * (1 - std::exp(-2 * std::numbers::pi * now / kRate));
        samples[i] = level;
    }
    return samples;
}

Samples LowPass(Samples samples, double frequency, double lastFrequency = 0) {
    return OnePole(OnePole(std::move(samples), frequency, lastFrequency), frequency, lastFrequency);
}

Samples HighPass(Samples samples, double frequency) {
    const Samples low = OnePole(samples, frequency, 0);
    for (std::size_t i = 0; i < samples.size(); ++i) samples[i] -= low[i];
    return samples;
}

// Rises evenly in attack seconds, then falls to a third in each decay seconds; no decay, no fall.
Samples Envelope(Samples samples, double attack, double decay) {
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double time = SecondsAt(i);
        const double toEnd = SecondsAt(samples.size() - 1 - i);
        double level = std::min(1.0, time / std::max(attack, kEdge));
        if (decay > 0) level *= std::pow(3.0, -time / decay);
        samples[i] *= level * std::min(1.0, toEnd / kEdge);
    }
    return samples;
}

// Rises from silence to its peak and falls again, both as a sine does.
Samples Swell(Samples samples, double peakAt) {
    const double end = SecondsAt(samples.size() - 1);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double time = SecondsAt(i);
        const double part = time < peakAt ? time / peakAt : (end - time) / (end - peakAt);
        const double level = std::sin(part * std::numbers::pi / 2);
        samples[i] *= level * level;
    }
    return samples;
}

// Adds the layer at that time; the whole grows as needed.
void Mix(Samples& whole, const Samples& layer, double volume, double atSeconds = 0) {
    const std::size_t start = SamplesIn(atSeconds);
    whole.resize(std::max(whole.size(), start + layer.size()), 0.0);
    for (std::size_t i = 0; i < layer.size(); ++i) whole[start + i] += volume * layer[i];
}

// To a peak of this share of the full scale.
Samples ToPeak(Samples samples, double peak) {
    double highest = 0;
    for (const double sample : samples) highest = std::max(highest, std::abs(sample));
    for (double& sample : samples) sample *= peak / highest;
    return samples;
}

struct Partial {
    double ratio;  // to the frequency of the whole
    double volume;
};

// Higher partials die away sooner, as those of struck metal and wood do.
Samples Struck(double frequency, const std::vector<Partial>& partials, double seconds,
               double decay) {
    Samples whole;
    for (const auto& [ratio, volume] : partials) {
        Mix(whole, Envelope(Tone(frequency * ratio, seconds), kEdge, decay / std::sqrt(ratio)),
            volume);
    }
    return whole;
}

// The drawer of a till ("ka"), then its two bells ("ching").
Samples Cash() {
    const std::vector<Partial> bell = {
        {1, 1}, {2.004, 0.5}, {2.76, 0.35}, {4.07, 0.2}, {5.4, 0.15}};
    Random random(11);
    Samples whole;
    Mix(whole, Envelope(LowPass(Noise(0.05, random), 2500), 0.002, 0.012), 1.2);
    Mix(whole, Struck(210, {{1, 1}, {1.6, 0.5}}, 0.08, 0.02), 0.5);
    Mix(whole, Envelope(HighPass(Noise(0.03, random), 4000), kEdge, 0.008), 0.3, 0.11);
    Mix(whole, Struck(2093, bell, 0.78, 0.22), 0.5, 0.115);
    Mix(whole, Struck(2637, bell, 0.74, 0.2), 0.4, 0.16);
    return ToPeak(whole, 0.7);
}

// Two hard woods.
Samples Click() {
    Random random(12);
    Samples whole = Struck(1150, {{1, 1}, {2.4, 0.4}}, 0.04, 0.006);
    Mix(whole, Envelope(LowPass(Noise(0.01, random), 3000), kEdge, 0.002), 0.4);
    return ToPeak(whole, 0.45);
}

// Through the air, then into the target, whose wood quivers.
Samples Arrow() {
    Random random(13);
    Samples whole;
    Mix(whole, Swell(HighPass(LowPass(Noise(0.27, random), 700, 3600), 400), 0.2), 1.6);
    Mix(whole, Envelope(Tone(140, 0.26, 70), 0.002, 0.06), 1.0, 0.25);
    Mix(whole, Envelope(LowPass(Noise(0.06, random), 1500), kEdge, 0.012), 1.6, 0.25);
    Mix(whole, Struck(330, {{1, 1}, {1.51, 0.4}}, 0.15, 0.03), 0.25, 0.252);
    return ToPeak(whole, 0.7);
}

Samples Clap(Random& random) {
    const double pitch = random.Between(900, 1900);
    const double decay = random.Between(0.006, 0.014);
    return Envelope(HighPass(LowPass(Noise(0.07, random), 1.5 * pitch), pitch / 2), kEdge, decay);
}

// Many hands, more of them at first; the clapping thins out and fades.
Samples Applause() {
    constexpr int kClaps = 700;
    constexpr double kSeconds = 2.4;
    Random random(14);
    Samples whole;
    for (int i = 0; i < kClaps; ++i) {
        const double latest = random.Between(0.3, 1) * kSeconds;
        const double when = random.Between(0, latest);
        const double volume = random.Between(0.2, 1) * (1 - when / kSeconds);
        const Samples clap = Clap(random);
        Mix(whole, clap, volume * std::min(1.0, when / 0.15), when);
    }
    whole.resize(SamplesIn(2.5));
    return ToPeak(whole, 0.7);
}

// The drum's skin and the snares below it.
Samples SnareStroke(Random& random) {
    Samples whole = Struck(random.Between(178, 186), {{1, 1}, {1.59, 0.6}}, 0.12, 0.03);
    Mix(whole, Envelope(HighPass(LowPass(Noise(0.12, random), 7000), 900), kEdge, 0.025), 0.9);
    return whole;
}

// Strokes that follow each other faster and faster, and louder; the last one rings out.
Samples DrumRoll() {
    constexpr double kLastStroke = 1.88;
    Random random(15);
    Samples whole;
    for (double when = 0; when < kLastStroke;) {
        const double part = when / kLastStroke;
        const double volume = (0.15 + 0.85 * part * part) * random.Between(0.85, 1);
        Mix(whole, SnareStroke(random), volume, when);
        when += (0.085 - 0.05 * part) * random.Between(0.96, 1.04);
    }
    return ToPeak(whole, 0.75);
}

// Stiff paper that snaps over, quietly: it is heard ten times a hand.
Samples Card() {
    Random random(16);
    Samples whole = Envelope(HighPass(LowPass(Noise(0.045, random), 5200, 2400), 700), 0.004, 0.01);
    Mix(whole, Envelope(LowPass(Noise(0.02, random), 1400), kEdge, 0.005), 0.9, 0.018);
    return ToPeak(whole, 0.18);
}

// A small wooden key that goes in.
Samples Hold() { return ToPeak(Struck(620, {{1, 1}, {2.6, 0.25}}, 0.05, 0.009), 0.2); }

// A larger one, on felt.
Samples Button() {
    Random random(17);
    Samples whole = Struck(240, {{1, 1}, {2.2, 0.3}}, 0.06, 0.012);
    Mix(whole, Envelope(LowPass(Noise(0.02, random), 1800), kEdge, 0.004), 0.5);
    return ToPeak(whole, 0.22);
}

Samples Beep() { return ToPeak(Struck(880, {{1, 1}, {2, 0.3}}, 0.09, 0.03), 0.4); }

Samples Exclamation() {
    Samples whole = Struck(988, {{1, 1}, {2, 0.25}, {3, 0.1}}, 0.13, 0.06);
    Mix(whole, Struck(1319, {{1, 1}, {2, 0.25}, {3, 0.1}}, 0.16, 0.06), 1, 0.09);
    return ToPeak(whole, 0.5);
}

// Little-endian, whatever the machine is.
void Append(std::string& bytes, std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
}

// 16-bit mono PCM.
bool WriteWave(const std::string& path, const Samples& samples) {
    constexpr std::uint32_t kBytes = 2;  // a sample
    const auto size = static_cast<std::uint32_t>(samples.size()) * kBytes;
    std::string wave = "RIFF";
    Append(wave, 36 + size, 4);
    wave += "WAVEfmt ";
    Append(wave, 16, 4);  // bytes of the format
    Append(wave, 1, 2);   // PCM
    Append(wave, 1, 2);   // channels
    Append(wave, kRate, 4);
    Append(wave, kRate * kBytes, 4);  // bytes a second
    Append(wave, kBytes, 2);
    Append(wave, 8 * kBytes, 2);
    wave += "data";
    Append(wave, size, 4);
    for (const double sample : samples) {
        const auto value = static_cast<std::int32_t>(std::lround(sample * kFullScale));
        Append(wave, static_cast<std::uint32_t>(value), kBytes);
    }
    std::ofstream file(path, std::ios::binary);
    file << wave;
    file.close();
    return file.good();
}

struct Sound {
    std::string_view name;
    Samples (*make)();
};

constexpr Sound kSounds[] = {{"cash", Cash},         {"click", Click},
                             {"arrow", Arrow},       {"applause", Applause},
                             {"drumroll", DrumRoll}, {"card", Card},
                             {"hold", Hold},         {"button", Button},
                             {"beep", Beep},         {"exclamation", Exclamation}};

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: MakeSounds FOLDER\n");
        return 2;
    }
    for (const auto& [name, make] : kSounds) {
        const std::string path = std::string(arguments[1]) + "/" + std::string(name) + ".wav";
        if (WriteWave(path, make())) continue;
        std::fprintf(stderr, "MakeSounds: cannot write %s\n", path.c_str());
        return 1;
    }
    return 0;
}
