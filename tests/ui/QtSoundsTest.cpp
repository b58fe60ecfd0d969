// The reading and mixing of the sounds, and what happens where no server plays them.
// SoundServerTest listens to them.
#include "ui/machine/QtSounds.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <memory>

#include "tests/core/profile/TemporaryFolder.h"

std::string LittleEndian(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> 8 * i & 0xff);
    return text;
}

std::string WaveOf(const std::string& data, std::uint32_t channels, std::uint32_t rate,
                   std::uint32_t bits, std::uint32_t claimed = 0) {
    return "RIFF" + LittleEndian(36, 4) + "WAVElist" + LittleEndian(3, 4) + "odd " + "fmt " +
           LittleEndian(16, 4) + LittleEndian(1, 2) + LittleEndian(channels, 2) +
           LittleEndian(rate, 4) + LittleEndian(rate * channels * bits / 8, 4) +
           LittleEndian(channels * bits / 8, 2) + LittleEndian(bits, 2) + "data" +
           LittleEndian(claimed ? claimed : static_cast<std::uint32_t>(data.size()), 4) + data;
}

Samples Read(const std::string& content) {
    const TemporaryFolder folder;
    return ReadWave(folder.Write("sound.wav", content));
}

TEST(WaveFileTest, IsReadAsOneChannelAtTheMixersRate) {
    const std::string words = LittleEndian(1000, 2) + LittleEndian(65536 - 500, 2);
    EXPECT_EQ(Read(WaveOf(words, 1, 44100, 16)), (Samples{1000, -500}));
    EXPECT_EQ(Read(WaveOf(words, 2, 44100, 16)), Samples{250}) << "the middle of both channels";
    EXPECT_EQ(Read(WaveOf(words, 1, 22050, 16)), (Samples{1000, 250, -500, -500}));
    EXPECT_EQ(Read(WaveOf({'\0', '\x80', '\xff'}, 1, 44100, 8)), (Samples{-32768, 0, 32512}));
    EXPECT_EQ(Read(WaveOf("\x77\xe8\x03", 1, 44100, 24)), Samples{1000});
    EXPECT_EQ(Read(WaveOf(words, 1, 44100, 16, 0xffffffff)).size(), 2U) << "what the file has";
    EXPECT_EQ(Read(WaveOf(std::string(61'000, '\x80'), 1, 1000, 8)).size(), 60U * 44100);
}

TEST(WaveFileTest, WhatIsNoWaveHasNoSamples) {
    const std::string whole = WaveOf(std::string(2, '\x70'), 1, 44100, 16);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_TRUE(Read(whole.substr(0, size)).empty()) << size;
    }
    EXPECT_TRUE(ReadWave("/nowhere/cash.wav").empty());
    EXPECT_TRUE(Read(WaveOf("1234", 0, 44100, 16)).empty()) << "no channel";
    EXPECT_TRUE(Read(WaveOf("1234", 1, 0, 16)).empty()) << "no rate";
    EXPECT_TRUE(Read(WaveOf("1234", 1, 44100, 4)).empty()) << "half bytes";
}

Samples Mixed(SoundMixer& mixer, std::size_t count) {
    Samples mixed(count, -1);
    mixer.Mix(mixed);
    return mixed;
}

TEST(SoundMixerTest, SoundsAreAddedWhereTheyOverlapAndEachEndsWhole) {
    const Samples rising{1, 2, 3, 4, 5};
    const Samples tens{10, 20};
    SoundMixer mixer(3);
    EXPECT_EQ(mixer.Start({}), 0U);
    const auto first = mixer.Start(rising);
    EXPECT_EQ(Mixed(mixer, 2), (Samples{1, 2}));
    const auto second = mixer.Start(tens);
    EXPECT_EQ(Mixed(mixer, 1), (Samples{13}));
    mixer.Start(rising);
    EXPECT_EQ(Mixed(mixer, 4), (Samples{25, 7, 3, 4}));
    EXPECT_TRUE(mixer.IsPlaying(first) && !mixer.IsPlaying(second)) << "on the way to the ear";
    EXPECT_EQ(Mixed(mixer, 1), (Samples{5}));
    EXPECT_FALSE(mixer.IsPlaying(first) || mixer.IsSilent());
    EXPECT_EQ(Mixed(mixer, 3), (Samples{0, 0, 0}));
    EXPECT_TRUE(mixer.IsSilent());
}

TEST(SoundMixerTest, TheLoudestSumsAreHeldBackAndNeverTurnRound) {
    const Samples loud{24576, -24576};
    SoundMixer mixer(0);
    mixer.Start(loud);
    Samples before = Mixed(mixer, 2);
    EXPECT_EQ(before, loud) << "one is as it is";
    for (std::size_t voices = 2; voices <= SoundMixer::kMostVoices; ++voices) {
        for (std::size_t i = 0; i < voices; ++i) EXPECT_NE(mixer.Start(loud), 0U);
        const Samples sum = Mixed(mixer, 2);
        EXPECT_EQ(sum[1], -sum[0]);
        EXPECT_GE(sum[0], before[0] + (voices == 2 ? 1 : 0)) << "two are louder than one";
        before = sum;
    }
    for (std::size_t i = 0; i < SoundMixer::kMostVoices; ++i) mixer.Start(loud);
    EXPECT_EQ(mixer.Start(loud), 0U) << "enough";
}

// A socket that takes calls and never answers, as a server does that hangs.
class QtSoundsTest : public testing::Test {
  protected:
    void SetUp() override {
        sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
        const std::string path = folder.Path("socket");
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        ASSERT_EQ(bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        ASSERT_EQ(listen(listener, 1), 0);
        folder.Write("drumroll.wav", WaveOf(std::string(400, '\x80'), 1, 8000, 8));
        folder.Write("cash.wav", WaveOf(std::string(400'000, '\x80'), 1, 8000, 8));  // 50 seconds
        place = QString::fromStdString(path.substr(0, path.rfind('/')));
        elapsed.start();
    }
    void TearDown() override { close(listener); }

    const TemporaryFolder folder;
    int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    QString place;
    QElapsedTimer elapsed;
};

TEST_F(QtSoundsTest, NobodyWaitsWithoutAServerOrAFile) {
    qputenv("PULSE_SERVER", "unix:/nowhere");
    QtSounds sounds(place, [] { return false; });
    for (int i = 0; i < 100; ++i) {
        sounds.Play(Wave::kClick);
        sounds.PlayToEnd(Wave::kArrow);
        sounds.PlayToEnd(Wave::kCash);
        sounds.Sound(Beep::kExclamation);
    }
    EXPECT_LT(elapsed.elapsed(), 1000);
}

TEST_F(QtSoundsTest, AServerThatDoesNotAnswerHoldsUpLittle) {
    qputenv("PULSE_SERVER", "unix:" + place.toUtf8() + "/socket");
    bool closes = false;
    auto sounds = std::make_unique<QtSounds>(place, [&] { return closes; });
    for (int i = 0; i < 20; ++i) sounds->Play(Wave::kCash);
    EXPECT_LT(elapsed.restart(), 500) << "to play is not to wait";
    sounds->PlayToEnd(Wave::kDrumroll);
    EXPECT_GE(elapsed.elapsed(), 1000);
    EXPECT_LT(elapsed.restart(), 2500) << "its 50 ms and a second";
    closes = true;
    sounds->PlayToEnd(Wave::kCash);
    EXPECT_LT(elapsed.restart(), 500);
    sounds.reset();
    EXPECT_LT(elapsed.elapsed(), 500) << "nor is to close amid a sound";
}
