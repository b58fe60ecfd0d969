#include "ui/machine/QtSounds.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTimer>
#include <utility>

namespace {

constexpr std::array kFileNames = {
    "cash.wav", "click.wav", "arrow.wav",  "applause.wav", "drumroll.wav",
    "card.wav", "hold.wav",  "button.wav", "beep.wav",     "exclamation.wav",
};
constexpr std::size_t kFirstBeep = 8;
constexpr qint64 kOpeningTime = 1000;  // milliseconds
constexpr int kLookInterval = 10;

std::size_t FileOf(Wave wave) { return static_cast<std::size_t>(wave); }
std::size_t FileOf(Beep beep) { return kFirstBeep + static_cast<std::size_t>(beep); }

}  // namespace

QtSounds::QtSounds(QString soundFolder, std::function<bool()> programCloses)
    : folder(std::move(soundFolder)), closing(std::move(programCloses)) {}

const Samples& QtSounds::SamplesOf(std::size_t file) {
    if (!waves[file]) {
        const QString path = folder + QLatin1Char('/') + QLatin1String(kFileNames[file]);
        waves[file] = ReadWave(QFile::encodeName(path).toStdString());
    }
    return *waves[file];
}

void QtSounds::Play(Wave wave) { output.Play(SamplesOf(FileOf(wave))); }

void QtSounds::Sound(Beep beep) { output.Play(SamplesOf(FileOf(beep))); }

void QtSounds::PlayToEnd(Wave wave) {
    const Samples& samples = SamplesOf(FileOf(wave));
    const SoundMixer::Voice voice = output.Play(samples);
    if (voice == 0) return;
    const qint64 longest = static_cast<qint64>(samples.size()) * 1000 / kSampleRate + kOpeningTime;
    QElapsedTimer elapsed;
    elapsed.start();
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        const bool over = elapsed.elapsed() > longest;
        if (over || !output.IsPlaying(voice) || (closing && closing())) loop.quit();
    });
    look.start(kLookInterval);
    loop.exec();
}
