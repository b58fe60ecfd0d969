#include "app/SecondStart.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>
#include <QStringDecoder>
#include <QTimer>
#include <optional>

namespace {

// The running program speaks first: one that hangs is known before anything is sent to it. A path
// ends with a byte that none can hold.
constexpr char kGreeting = 'T';
constexpr char kTaken = 'Y';
constexpr char kEnd = '\0';
constexpr int kPatience = 3000;  // milliseconds for a start to say what it wants
constexpr int kMostAtOnce = 8;

bool IsOwnFolder(const QString& path) {
    struct stat found {};
    if (lstat(QFile::encodeName(path).constData(), &found) != 0) return false;
    const bool othersWrite = (found.st_mode & (S_IWGRP | S_IWOTH)) != 0;
    return S_ISDIR(found.st_mode) && found.st_uid == getuid() && !othersWrite;
}

// That of the login, or one of our own where there is none.
QString FolderForSockets() {
    QString login = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (QDir::isAbsolutePath(login) && IsOwnFolder(login)) return login;
    const QString own = QDir::tempPath() + "/tolvane-" + QString::number(getuid());
    mkdir(QFile::encodeName(own).constData(), S_IRWXU);
    return IsOwnFolder(own) ? own : QString();
}

// Whoever may reach the socket, only this user is listened to.
bool IsThisUser(const QLocalSocket& socket) {
    ucred other{};
    socklen_t size = sizeof other;
    return getsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_PEERCRED, &other,
                      &size) == 0 &&
           other.uid == getuid();
}

// Of a message without its end; nothing when it is no path in full.
std::optional<QString> PathIn(const QByteArray& message) {
    if (message.size() > SecondStarts::kLongestPath || message.contains(kEnd)) return std::nullopt;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString path = decoder(message);
    if (decoder.hasError() || !(path.isEmpty() || QDir::isAbsolutePath(path))) return std::nullopt;
    return path;
}

bool Hears(QLocalSocket& socket, char expected, QDeadlineTimer deadline) {
    char said = 0;
    return socket.waitForReadyRead(static_cast<int>(deadline.remainingTime())) &&
           socket.getChar(&said) && said == expected;
}

}  // namespace

QString SecondStartSocket(const QString& dataFolder) {
    const QString folder = FolderForSockets();
    const QString data = QFileInfo(dataFolder).canonicalFilePath();
    if (folder.isEmpty() || data.isEmpty()) return {};
    const QByteArray hash = QCryptographicHash::hash(data.toUtf8(), QCryptographicHash::Sha256);
    return folder + "/tolvane-" + QString::number(getuid()) + "-" +
           QString::fromLatin1(hash.first(8).toHex());
}

bool HandToRunningProgram(const QString& socket, const QString& gameFile, QDeadlineTimer deadline) {
    const QByteArray path = gameFile.toUtf8();
    if (socket.isEmpty() || !PathIn(path)) return false;
    QLocalSocket running;
    running.connectToServer(socket);
    if (!running.waitForConnected(static_cast<int>(deadline.remainingTime()))) return false;
    if (!IsThisUser(running) || !Hears(running, kGreeting, deadline)) return false;
    running.write(path + kEnd);
    return running.waitForBytesWritten(static_cast<int>(deadline.remainingTime())) &&
           Hears(running, kTaken, deadline);
}

bool SecondStarts::Listen(const QString& socket) {
    if (socket.isEmpty()) return false;
    QLocalServer::removeServer(socket);
    server.setSocketOptions(QLocalServer::UserAccessOption);
    server.setMaxPendingConnections(kMostAtOnce);
    connect(&server, &QLocalServer::newConnection, this, &SecondStarts::Greet);
    return server.listen(socket);
}

void SecondStarts::Greet() {
    while (QLocalSocket* start = server.nextPendingConnection()) {
        connect(start, &QLocalSocket::disconnected, start, &QObject::deleteLater);
        if (!IsThisUser(*start) || server.findChildren<QLocalSocket*>().size() > kMostAtOnce) {
            start->abort();
            start->deleteLater();
            continue;
        }
        start->setReadBufferSize(kLongestPath + 2);
        auto* patience = new QTimer(start);
        connect(patience, &QTimer::timeout, start, &QLocalSocket::abort);
        patience->start(kPatience);
        connect(start, &QLocalSocket::readyRead, this, [this, start] { Listen(*start); });
        start->putChar(kGreeting);
        start->flush();
    }
}

// What a start has said so far; it goes when that is no path.
void SecondStarts::Listen(QLocalSocket& start) {
    const QByteArray said = start.peek(kLongestPath + 2);
    const auto end = said.indexOf(kEnd);
    if (end < 0 && said.size() <= kLongestPath) return;  // there is more to come
    start.disconnect();
    const auto path = end == said.size() - 1 ? PathIn(said.left(end)) : std::nullopt;
    if (path) start.putChar(kTaken);
    start.flush();
    start.abort();
    start.deleteLater();
    if (path) emit Arrived(*path);
}
