#include "ui/table/QtSounds.h"

#include <QAudioDevice>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QTimer>
#include <QUrl>
#include <QtEndian>
#include <algorithm>
#include <utility>

namespace {

constexpr std::array<const char*, 7> kFileNames = {
    "cash.wav",     "click.wav", "arrow.wav",       "applause.wav",
    "drumroll.wav", "beep.wav",  "exclamation.wav",
};
constexpr std::size_t kFirstBeep = 5;
constexpr int kLongestSound = 60'000;  // milliseconds
constexpr int kLoadingTime = 1000;
constexpr int kLookInterval = 20;

// The audio system complains on standard error where there is none, which is nothing to complain
// of.
class QuietMessages {
  public:
    QuietMessages() = default;
    ~QuietMessages() { qInstallMessageHandler(before); }
    QuietMessages(const QuietMessages&) = delete;
    QuietMessages& operator=(const QuietMessages&) = delete;

  private:
    QtMessageHandler before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
};

std::size_t FileOf(Wave wave) { return static_cast<std::size_t>(wave); }
std::size_t FileOf(Beep beep) { return kFirstBeep + static_cast<std::size_t>(beep); }

}  // namespace

int WaveMilliseconds(const QString& path) {
    constexpr qint64 kFileHeader = 12;
    constexpr qint64 kChunkHeader = 8;
    constexpr qint64 kByteRateAt = 8;  // in the "fmt " chunk
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return 0;
    const QByteArray riff = file.read(kFileHeader);
    if (riff.size() < kFileHeader || !riff.startsWith("RIFF") || !riff.endsWith("WAVE")) return 0;
    quint32 bytesPerSecond = 0;
    for (;;) {
        const QByteArray header = file.read(kChunkHeader);
        if (header.size() < kChunkHeader) return 0;
        const auto size = qFromLittleEndian<quint32>(header.constData() + 4);
        const qint64 start = file.pos();
        if (header.startsWith("fmt ")) {
            const QByteArray format = file.read(16);
            if (format.size() < 16) return 0;
            bytesPerSecond = qFromLittleEndian<quint32>(format.constData() + kByteRateAt);
        } else if (header.startsWith("data") && bytesPerSecond > 0) {
            const qint64 bytes = std::min<qint64>(size, file.size() - start);
            const qint64 length = (bytes * 1000 + bytesPerSecond - 1) / bytesPerSecond;
            return static_cast<int>(std::min<qint64>(length, kLongestSound));
        }
        if (!file.seek(start + size + size % 2)) return 0;
    }
}

QtSounds::QtSounds(QString soundFolder, std::function<bool()> programCloses)
    : folder(std::move(soundFolder)), closing(std::move(programCloses)) {}

QtSounds::~QtSounds() = default;

bool QtSounds::HasDevice() {
    if (hasDevice) return *hasDevice;
    const QuietMessages quiet;
    hasDevice = !QMediaDevices::defaultAudioOutput().isNull();
    return *hasDevice;
}

QtSounds::Player QtSounds::Load(std::size_t file) {
    Player player;
    const QString path = folder + QLatin1Char('/') + QLatin1String(kFileNames[file]);
    player.milliseconds = WaveMilliseconds(path);
    // The device is asked for last: asking takes longest.
    if (player.milliseconds == 0 || !HasDevice()) return {};
    player.effect = std::make_unique<QSoundEffect>();
    player.effect->setSource(QUrl::fromLocalFile(path));
    return player;
}

const QtSounds::Player& QtSounds::PlayerOf(std::size_t file) {
    if (!players[file]) players[file] = Load(file);
    return *players[file];
}

bool QtSounds::Start(std::size_t file) {
    const Player& player = PlayerOf(file);
    if (!player.effect) return false;
    player.effect->play();
    return true;
}

void QtSounds::Play(Wave wave) { Start(FileOf(wave)); }

void QtSounds::Sound(Beep beep) { Start(FileOf(beep)); }

void QtSounds::PlayToEnd(Wave wave) {
    if (!Start(FileOf(wave))) return;
    const Player& player = PlayerOf(FileOf(wave));
    QElapsedTimer elapsed;
    elapsed.start();
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        const bool over = elapsed.elapsed() > player.milliseconds + kLoadingTime;
        if (over || !player.effect->isPlaying() || (closing && closing())) loop.quit();
    });
    look.start(kLookInterval);
    loop.exec();
}
