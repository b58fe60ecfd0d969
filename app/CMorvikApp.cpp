#include "app/CMorvikApp.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QCommandLineParser>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QMessageBox>
#include <QSessionManager>
#include <QSocketNotifier>
#include <QThread>
#include <array>
#include <csignal>

#include "app/PaletteKeeper.h"
#include "core/store/Migration.h"
#include "ui/parts/FocusStyle.h"

namespace {

// Milliseconds that a running program has to answer a second start.
constexpr int kAnswerTime = 2000;

// A signal handler may do little more than write a byte: it wakes the program, which then closes as
// if the window had been closed.
std::array<int, 2> signalSockets{-1, -1};

void WakeProgram(int) {
    const char byte = 0;
    [[maybe_unused]] const auto written = write(signalSockets[0], &byte, 1);
}

}  // namespace

CMorvikApp::CMorvikApp(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName("Tolvane");
    setOrganizationName("Tolvane");
    setApplicationVersion(TOLVANE_VERSION);
    setDesktopFileName("tolvane");
    setWindowIcon(ProgramIcon());
}

// The document goes before what it refers to; the frame's view refers to the document.
CMorvikApp::~CMorvikApp() {
    idle.reset();
    frame.reset();
    document.reset();
}

int CMorvikApp::Run() {
    ReadArguments();
    setStyle(new FocusStyle);  // which the application owns
    const PaletteKeeper palettes;
    connect(&secondStarts, &SecondStarts::Arrived, this, &CMorvikApp::ComeForward,
            Qt::QueuedConnection);
    if (!TakeDataFolder()) return handedOver ? 0 : 1;
    WarnOfMissingPayTables();
    sounds = std::make_unique<QtSounds>(applicationDirPath(), [this] { return clock.Hurrying(); });
    frame = std::make_unique<CMainFrame>();
    frame->hurryClock = [this](bool on) { clock.Hurry(on); };
    document = std::make_unique<CMorvikDoc>(
        ProgramParts{engine, spare, file, paths, pictures, clock, *sounds}, *frame);
    frame->Show(*document, pictures);
    idle = std::make_unique<IdleWork>(*document);
    installEventFilter(idle.get());
    connect(
        this, &QGuiApplication::commitDataRequest, this,
        [this](QSessionManager&) { document->SaveForNow(); }, Qt::DirectConnection);
    EndOnSignals();
    const auto begin = [this] {
        begun = true;
        document->OnNewDocument(gameFile.toStdString());
    };
    QMetaObject::invokeMethod(this, begin, Qt::QueuedConnection);
    return exec();
}

// Ends the program after --help, --version or what it does not know.
void CMorvikApp::ReadArguments() {
    QCommandLineParser parser;
    parser.setApplicationDescription(tr("Video poker machine and strategy trainer."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(tr("game"), tr("The game file (*.qdx) to go on in."),
                                 tr("[game]"));
    parser.process(*this);
    if (parser.positionalArguments().isEmpty()) return;
    gameFile = QFileInfo(parser.positionalArguments().constFirst()).absoluteFilePath();
}

bool CMorvikApp::TakeDataFolder() {
    const auto found = FindDataFiles(ReadDataEnvironment());
    if (!found || !CreateDataFolder(*found)) {
        Warn(tr("No Data Folder"),
             tr("There is no folder to keep your games in. Set HOME, or XDG_DATA_HOME, to a folder "
                "that you can write to, and start Tolvane again."));
        return false;
    }
    paths = *found;
    lock = LockFile::OfDataFolder(paths.folder);
    const QString socket = SecondStartSocket(QString::fromStdString(paths.folder));
    handedOver = lock->GetState() != LockFile::State::kHeld && IsHandedOver(socket);
    if (handedOver) return false;
    WarnOfLock();
    if (lock->GetState() == LockFile::State::kTaken) return false;
    secondStarts.Listen(socket);
    return BringDataUpToDate();
}

// The program that has the lock may be about to listen, or about to end.
bool CMorvikApp::IsHandedOver(const QString& socket) {
    const QDeadlineTimer deadline(kAnswerTime);
    while (!HandToRunningProgram(socket, gameFile, deadline)) {
        if (lock->GetState() != LockFile::State::kTaken || deadline.hasExpired()) return false;
        QThread::msleep(50);
        lock = LockFile::OfDataFolder(paths.folder);
        if (lock->GetState() == LockFile::State::kHeld) return false;
    }
    return true;
}

void CMorvikApp::WarnOfLock() {
    const QString folder = QString::fromStdString(paths.folder);
    switch (lock->GetState()) {
        case LockFile::State::kHeld:
            break;
        case LockFile::State::kTaken:
            Warn(
                tr("Tolvane Is Running"),
                tr("Tolvane is already running on the data folder %1 (%2), but does not answer. Go "
                   "on in its window, or close it first.")
                    .arg(folder, QString::fromStdString(lock->HeldBy().Text())));
            break;
        case LockFile::State::kRefused:
            Warn(tr("Data Folder"),
                 tr("The data folder %1 cannot be written to. You can play, but nothing will be "
                    "saved in it until it can.")
                     .arg(folder));
            break;
        case LockFile::State::kNotKnown:
            Warn(tr("Data Folder"),
                 tr("Nothing keeps a second copy of Tolvane out of the data folder %1: its disk "
                    "knows no locks, or something else is in the place of the file Tolvane.lock. "
                    "All you play is saved, but do not start a second copy on it.")
                     .arg(folder));
            break;
    }
}

// A second start wants this window, and maybe another game file in it.
void CMorvikApp::ComeForward(const QString& wantedFile) {
    if (!begun) {
        if (!wantedFile.isEmpty()) gameFile = wantedFile;
        return;
    }
    for (QWidget* window : {static_cast<QWidget*>(frame.get()), activeModalWidget()}) {
        if (!window) continue;
        window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
        window->raise();
        window->activateWindow();
    }
    alert(frame.get());  // where a desktop lets no window come to the front by itself
    if (!wantedFile.isEmpty()) document->OpenFile(wantedFile);
}

// On files of two releases the program would write over what has not been brought over yet.
bool CMorvikApp::BringDataUpToDate() {
    QStringList problems;
    for (const std::string& problem : MigrateDataFiles(paths, file)) {
        problems += QString::fromStdString(problem);
    }
    if (problems.isEmpty()) return true;
    Warn(tr("Data Files"),
         tr("Tolvane could not put all of its data files in place, and ends.\n\n%1\n\nNothing of "
            "yours is lost. Put this right and start Tolvane again: it goes on from there.")
             .arg(problems.join("\n\n")));
    return false;
}

void CMorvikApp::WarnOfMissingPayTables() {
    const QFileInfo profile(QString::fromStdString(paths.mainProfile));
    if (profile.isReadable()) return;
    Warn(tr("No Pay Tables"),
         tr("%1 cannot be read, so there are no pay tables to play with. Install Tolvane anew, or "
            "copy %2 back, and start it again.")
             .arg(profile.filePath(), profile.fileName()));
}

void CMorvikApp::Warn(const QString& caption, const QString& text) {
    QMessageBox::warning(nullptr, caption, text);
}

void CMorvikApp::EndOnSignals() {
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, signalSockets.data()) != 0) return;
    auto* notifier = new QSocketNotifier(signalSockets[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        [[maybe_unused]] const auto taken = read(signalSockets[1], &byte, 1);
        frame->close();
    });
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) std::signal(signal, WakeProgram);
}
