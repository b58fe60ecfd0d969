#include "ui/table/QtSounds.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>

#include "tests/core/profile/TemporaryFolder.h"

std::string LittleEndian(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> 8 * i & 0xff);
    return text;
}

// 8-bit mono at 8000 samples a second.
std::string WaveOf(std::uint32_t samples, std::uint32_t claimed) {
    return "RIFF" + LittleEndian(samples + 36, 4) + "WAVEfmt " + LittleEndian(16, 4) +
           LittleEndian(1, 2) + LittleEndian(1, 2) + LittleEndian(8000, 4) + LittleEndian(8000, 4) +
           LittleEndian(1, 2) + LittleEndian(8, 2) + "data" + LittleEndian(claimed, 4) +
           std::string(samples, '\x80');
}

int LengthOf(const TemporaryFolder& folder, const std::string& content) {
    return WaveMilliseconds(QString::fromStdString(folder.Write("sound.wav", content)));
}

TEST(QtSoundsTest, AWavesLengthIsWhatItHolds) {
    const TemporaryFolder folder;
    EXPECT_EQ(LengthOf(folder, WaveOf(4000, 4000)), 500);
    EXPECT_EQ(LengthOf(folder, WaveOf(4001, 4001)), 501) << "rounded up";
    EXPECT_EQ(LengthOf(folder, WaveOf(4000, 0xffffffff)), 500) << "no more than the file has";
}

TEST(QtSoundsTest, WhatIsNoWaveHasNoLength) {
    const TemporaryFolder folder;
    EXPECT_EQ(WaveMilliseconds("/nowhere/cash.wav"), 0);
    EXPECT_EQ(LengthOf(folder, ""), 0);
    EXPECT_EQ(LengthOf(folder, "RIFF\1\2\3\4WAVE"), 0);
    EXPECT_EQ(LengthOf(folder, "not a sound at all, but long enough to be one: 0123456789"), 0);
    const std::string whole = WaveOf(100, 100);
    for (std::size_t size = 0; size < 44; ++size) {
        EXPECT_EQ(LengthOf(folder, whole.substr(0, size)), 0) << size;
    }
}

TEST(QtSoundsTest, MissingFilesAreSilentAndTakeNoTime) {
    const TemporaryFolder folder;
    QElapsedTimer elapsed;
    elapsed.start();
    QtSounds sounds(QString::fromStdString(folder.Path("nothing")), [] { return false; });
    for (int i = 0; i < 100; ++i) {
        sounds.Play(Wave::kCash);
        sounds.PlayToEnd(Wave::kDrumroll);
        sounds.Sound(Beep::kExclamation);
    }
    EXPECT_LT(elapsed.elapsed(), 500);
}

TEST(QtSoundsTest, AClosingProgramDoesNotWaitForTheEnd) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("drumroll.wav", WaveOf(400'000, 400'000));  // 50 seconds
    const QString place = QString::fromStdString(path.substr(0, path.rfind('/')));
    QtSounds sounds(place, [] { return true; });
    QElapsedTimer elapsed;
    elapsed.start();
    sounds.PlayToEnd(Wave::kDrumroll);
    EXPECT_LT(elapsed.elapsed(), 20'000);
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
