// A second start of the program on the same data hands its game file to the one that runs, whose
// window then comes to the front. They speak over a socket that only this user can reach.
#pragma once
#include <QDeadlineTimer>
#include <QLocalServer>
#include <QObject>
#include <QString>

class QLocalSocket;

// The socket of a data folder, whatever path leads there: in full, the same at every start of this
// user on this machine. Empty when there is no place for it that is this user's alone.
QString SecondStartSocket(const QString& dataFolder);

// True when the running program has answered and taken the game file (in full; empty = none, only
// its window is wanted). A program that does not answer in time has not taken and will not take it.
bool HandToRunningProgram(const QString& socket, const QString& gameFile, QDeadlineTimer deadline);

// The running program's end.
class SecondStarts : public QObject {
    Q_OBJECT

  public:
    static constexpr int kLongestPath = 4096;  // bytes of UTF-8

    // Takes the place of a program that has left its socket behind: the caller knows that none
    // runs. False when nobody can be heard, which only costs the convenience.
    bool Listen(const QString& socket);

  signals:
    // A second start, with its game file as above.
    void Arrived(const QString& gameFile);

  private:
    void Greet();
    void Listen(QLocalSocket& start);

    QLocalServer server;
};
