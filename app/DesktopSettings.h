// What belongs to the player's desktop and not to a game: kept in the program's own settings, which
// no game file and no other computer sees.
#pragma once
#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>

// Where the window stood when it was closed.
struct WindowPlace {
    QByteArray geometry;  // of saveGeometry, which knows the place of a full screen's window too
    bool maximized = true;
    bool fullScreen = false;
};

// Read anew at every question: another copy of the program, on other data, may have changed them.
// What is missing or makes no sense counts as at the first start.
class DesktopSettings : public QObject {
    Q_OBJECT

  public:
    static constexpr int kCardBacks = 3;
    static constexpr int kHintedHands = 3;  // a newcomer is told the keys until these are played
    static constexpr int kGameFiles = 5;

    bool Animation() const;  // on at first
    void SetAnimation(bool on);

    bool FourColourDeck() const;  // off at first
    void SetFourColourDeck(bool on);

    int CardBack() const;  // 0..kCardBacks-1
    void SetCardBack(int back);

    int HandsPlayed() const;  // 0..kHintedHands, where it stays
    void CountHand();

    // The last ones, in full, the newest first: at most kGameFiles.
    QStringList GameFiles() const;
    void NoteGameFile(const QString& path);
    void ForgetGameFile(const QString& path);

    WindowPlace Window() const;
    void SetWindow(const WindowPlace& place);

  signals:
    void Changed();  // one of the first three, here
};
