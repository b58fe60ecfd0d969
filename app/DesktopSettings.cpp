#include "app/DesktopSettings.h"

#include <QDir>
#include <QSettings>
#include <algorithm>

namespace {

constexpr const char* kAnimationKey = "table/animation";
constexpr const char* kFourColoursKey = "table/fourColourDeck";
constexpr const char* kCardBackKey = "table/cardBack";
constexpr const char* kHandsPlayedKey = "hints/handsPlayed";
constexpr const char* kGameFilesKey = "files/lastGames";
constexpr const char* kGeometryKey = "window/geometry";
constexpr const char* kMaximizedKey = "window/maximized";
constexpr const char* kFullScreenKey = "window/fullScreen";

QVariant Read(const char* key, const QVariant& otherwise = {}) {
    return QSettings().value(key, otherwise);
}

void Write(const char* key, const QVariant& value) { QSettings().setValue(key, value); }

}  // namespace

bool DesktopSettings::Animation() const { return Read(kAnimationKey, true).toBool(); }

void DesktopSettings::SetAnimation(bool on) {
    Write(kAnimationKey, on);
    emit Changed();
}

bool DesktopSettings::FourColourDeck() const { return Read(kFourColoursKey, false).toBool(); }

void DesktopSettings::SetFourColourDeck(bool on) {
    Write(kFourColoursKey, on);
    emit Changed();
}

int DesktopSettings::CardBack() const {
    const int back = Read(kCardBackKey, 0).toInt();
    return back >= 0 && back < kCardBacks ? back : 0;
}

void DesktopSettings::SetCardBack(int back) {
    Write(kCardBackKey, back);
    emit Changed();
}

int DesktopSettings::HandsPlayed() const {
    return std::clamp(Read(kHandsPlayedKey, 0).toInt(), 0, kHintedHands);
}

void DesktopSettings::CountHand() {
    const int played = HandsPlayed();
    if (played < kHintedHands) Write(kHandsPlayedKey, played + 1);
}

QStringList DesktopSettings::GameFiles() const {
    QStringList files = Read(kGameFilesKey).toStringList();
    files.removeIf([](const QString& path) { return !QDir::isAbsolutePath(path); });
    files.removeDuplicates();
    return files.mid(0, kGameFiles);
}

void DesktopSettings::NoteGameFile(const QString& path) {
    const QStringList before = GameFiles();
    if (!QDir::isAbsolutePath(path) || before.value(0) == path) return;
    QStringList files = before;
    files.removeAll(path);
    files.prepend(path);
    Write(kGameFilesKey, files.mid(0, kGameFiles));
}

void DesktopSettings::ForgetGameFile(const QString& path) {
    QStringList files = GameFiles();
    if (files.removeAll(path) > 0) Write(kGameFilesKey, files);
}

WindowPlace DesktopSettings::Window() const {
    return {Read(kGeometryKey).toByteArray(), Read(kMaximizedKey, true).toBool(),
            Read(kFullScreenKey, false).toBool()};
}

void DesktopSettings::SetWindow(const WindowPlace& place) {
    Write(kGeometryKey, place.geometry);
    Write(kMaximizedKey, place.maximized);
    Write(kFullScreenKey, place.fullScreen);
}
