// What a second start hands to the program that runs, over a real socket.
#include "app/SecondStart.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>
#include <future>

namespace {

class SecondStartTest : public testing::Test {
  protected:
    SecondStartTest() { qputenv("XDG_RUNTIME_DIR", folder.path().toLocal8Bit()); }

    QString Socket() const { return SecondStartSocket(folder.path()); }

    void Run() {
        QObject::connect(&running, &SecondStarts::Arrived, &running,
                         [this](const QString& file) { arrived << file; });
        ASSERT_TRUE(running.Listen(Socket()));
    }

    // The running program goes on meanwhile.
    bool HandOver(const QString& file) const {
        auto handed = std::async(std::launch::async, [&] {
            return HandToRunningProgram(Socket(), file, QDeadlineTimer(5000));
        });
        const auto ended = [&] { return handed.wait_for(std::chrono::seconds(0)); };
        EXPECT_TRUE(QTest::qWaitFor([&] { return ended() == std::future_status::ready; }));
        QCoreApplication::processEvents();
        return handed.get();
    }

    // Says anything once it is greeted. Whether the program answered.
    bool Say(const QByteArray& words) const {
        QLocalSocket start;
        start.connectToServer(Socket());
        EXPECT_TRUE(QTest::qWaitFor([&] { return start.bytesAvailable() == 1; }));
        start.write(words);
        start.flush();
        EXPECT_TRUE(QTest::qWaitFor([&] { return start.state() != QLocalSocket::ConnectedState; }));
        return start.readAll().size() == 2;
    }

    QTemporaryDir folder;
    SecondStarts running;
    QStringList arrived;
};

TEST_F(SecondStartTest, AGameFileArrivesAndSoDoesTheWishForTheWindowAlone) {
    EXPECT_FALSE(HandOver("/home/ada/one.qdx")) << "nobody runs";
    Run();
    const QString longest = "/" + QString(SecondStarts::kLongestPath - 1, 'x');
    const QStringList files{"/home/ada/K\u00f6nig one.qdx", "", longest};
    for (const QString& file : files) EXPECT_TRUE(HandOver(file));
    EXPECT_EQ(arrived, files);
}

TEST_F(SecondStartTest, NothingButAPathIsTaken) {
    Run();
    const QByteArray tooLong("/" + QByteArray(SecondStarts::kLongestPath, 'x'));
    for (const QByteArray& words :
         {QByteArray("one.qdx\0", 8), QByteArray("/\xff\0", 3), QByteArray("/a\0/b\0", 6),
          QByteArray("/a\0/b", 5), tooLong + '\0', tooLong + tooLong}) {
        EXPECT_FALSE(Say(words)) << words.left(20).toStdString();
    }
    EXPECT_FALSE(HandOver("one.qdx")) << "is not even sent";
    EXPECT_TRUE(Say(QByteArray("/one.qdx\0", 9)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return arrived == QStringList("/one.qdx"); }));
}

TEST_F(SecondStartTest, AProgramThatHangsTakesNothingNotEvenLater) {
    Run();
    EXPECT_FALSE(HandToRunningProgram(Socket(), "/one.qdx", QDeadlineTimer(100)));
    QTest::qWait(50);
    EXPECT_EQ(arrived, QStringList());
    EXPECT_TRUE(HandOver("/two.qdx"));
}

TEST_F(SecondStartTest, EachDataFolderHasASocketThatOthersCannotReach) {
    const QDir data(folder.path());
    ASSERT_TRUE(data.mkdir("a") && data.mkdir("b"));
    ASSERT_TRUE(QFile::link(data.filePath("a"), data.filePath("link")));
    EXPECT_EQ(SecondStartSocket(data.filePath("a")), SecondStartSocket(data.filePath("link/")));
    EXPECT_NE(SecondStartSocket(data.filePath("a")), SecondStartSocket(data.filePath("b")));
    EXPECT_EQ(SecondStartSocket(data.filePath("none")), QString());
    Run();
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_EQ(QFileInfo(Socket()).permissions() & others, QFile::Permissions());
    QFile::setPermissions(folder.path(), QFile::permissions(folder.path()) | QFile::WriteOther);
    EXPECT_FALSE(Socket().startsWith(folder.path())) << "anybody might put a socket there";
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(SecondStartTest, WhatAKilledProgramLeftBehindIsNotInTheWay) {
    QFile left(Socket());
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    EXPECT_FALSE(HandOver("/one.qdx"));
    Run();
    EXPECT_TRUE(HandOver("/one.qdx"));
}

}  // namespace
