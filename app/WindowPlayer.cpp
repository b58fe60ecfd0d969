#include "app/WindowPlayer.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QShowEvent>
#include <QUrl>
#include <algorithm>

#include "game/seat/Clock.h"
#include "ui/parts/DialogParts.h"
#include "ui/parts/FileQuestions.h"
#include "ui/paytables/PayTableManagerDialog.h"
#include "ui/paytables/SelectGameDialog.h"
#include "ui/questions/AssignFixedHandDialog.h"
#include "ui/questions/AutoplayHandsDialog.h"
#include "ui/questions/BestPlayErrorDialog.h"
#include "ui/questions/CreateAnalysisFilesDialog.h"
#include "ui/questions/EnterDollarsDialog.h"
#include "ui/questions/ProgressDialog.h"
#include "ui/reports/GameAnalysisDialog.h"
#include "ui/reports/StatisticsDialog.h"

namespace {

// The progress of work that has been cancelled before it began.
class NoProgress : public Progress {
  public:
    bool Show(const std::string& /*text*/, int /*percent*/) override { return false; }
};

FileKind GameFileKind() { return {QObject::tr("Morvik Games (*.qdx)"), "qdx"}; }

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::kExclamation:
            return QMessageBox::Warning;
        case MessageIcon::kError:
            return QMessageBox::Critical;
        case MessageIcon::kNone:
            break;
    }
    return QMessageBox::NoIcon;
}

// Stands near the top of the window, so that the cards asked about stay in sight.
class FlowBox : public QMessageBox {
  public:
    FlowBox(Icon icon, const std::string& caption, const std::string& text, StandardButtons buttons,
            QWidget& window)
        : QMessageBox(icon, QString::fromStdString(caption), QString::fromStdString(text), buttons,
                      &window) {
        setTextFormat(Qt::PlainText);
        MakeRoomForCaption(*this);
    }

  protected:
    void showEvent(QShowEvent* event) override {
        QMessageBox::showEvent(event);
        if (!event->spontaneous()) PlaceNearTop(*this);
    }
};

// What was written and what was not, each with its folder told once.
QString TextOf(const std::vector<WrittenFile>& files) {
    QString written;
    QString failed;
    for (const auto& [path, problem] : files) {
        const QFileInfo file(QString::fromStdString(path));
        if (problem.empty()) {
            written += "\n" + file.fileName();
        } else {
            failed += QString("\n%1: %2.").arg(file.fileName(), QString::fromStdString(problem));
        }
    }
    const QString folder =
        QFileInfo(QString::fromStdString(files.front().path)).absolutePath() + "/";
    QStringList parts;
    if (!written.isEmpty()) parts += QObject::tr("Written in %1:").arg(folder) + written;
    if (!failed.isEmpty()) parts += QObject::tr("Not written in %1:").arg(folder) + failed;
    return parts.join("\n\n");
}

bool IsAccepted(QDialog& dialog) { return dialog.exec() == QDialog::Accepted; }

}  // namespace

WindowPlayer::WindowPlayer(QWidget& window, PictureStore& store, Clock& clock)
    : window(window), store(store), clock(clock) {}

void WindowPlayer::RefuseAll() {
    refusing = true;
    const auto dialogs = window.findChildren<QDialog*>();
    // Those that stand over others last in the list, first to go.
    std::for_each(dialogs.rbegin(), dialogs.rend(), [](QDialog* dialog) {
        if (!dialog->isVisible()) return;
        // It would ask what to do with changes.
        const bool asks = qobject_cast<PayTableManagerDialog*>(dialog) != nullptr;
        asks ? dialog->done(QDialog::Rejected) : dialog->reject();
    });
}

bool WindowPlayer::GoesOnAfterError(const std::string& message) {
    if (refusing) return false;
    BestPlayErrorDialog dialog(message, showAnalysis, beep, &window);
    return IsAccepted(dialog);
}

bool WindowPlayer::SaysYes(const std::string& caption, const std::string& question) {
    if (refusing) return false;
    FlowBox box(QMessageBox::Question, caption, question, QMessageBox::Yes | QMessageBox::No,
                window);
    box.setObjectName("question");
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

void WindowPlayer::Tell(const std::string& caption, const std::string& text, MessageIcon icon) {
    if (refusing) return;
    FlowBox box(IconOf(icon), caption, text, QMessageBox::Ok, window);
    box.setObjectName("message");
    box.exec();
}

std::optional<int> WindowPlayer::AskDollars(int proposed) {
    if (refusing) return std::nullopt;
    EnterDollarsDialog dialog(proposed, &window);
    if (!IsAccepted(dialog)) return std::nullopt;
    return dialog.Dollars();
}

std::optional<std::int64_t> WindowPlayer::AskHandCount() {
    if (refusing) return std::nullopt;
    AutoplayHandsDialog dialog(&window);
    if (!IsAccepted(dialog)) return std::nullopt;
    return dialog.Hands();
}

bool WindowPlayer::AskFixedHand(GameEngine& engine) {
    if (refusing) return false;
    AssignFixedHandDialog dialog(engine, store, &window);
    return IsAccepted(dialog);
}

std::optional<std::string> WindowPlayer::AskFileToOpen(const std::string& folder) {
    if (refusing) return std::nullopt;
    return ::AskFileToOpen(GameFileKind(), folder, &window);
}

std::optional<std::string> WindowPlayer::AskFileToSave(const std::string& proposed) {
    if (refusing) return std::nullopt;
    return ::AskFileToSave(QObject::tr("Save As"), GameFileKind(), proposed, &window);
}

std::optional<std::string> WindowPlayer::AskNewGameFile(const std::string& proposed) {
    if (refusing) return std::nullopt;
    return ::AskFileToSave(QObject::tr("New Game File"), GameFileKind(), proposed, &window);
}

std::optional<std::string> WindowPlayer::AskGame(const std::vector<std::string>& games,
                                                 const std::string& current) {
    if (refusing) return std::nullopt;
    return ::AskGame(games, current, &window);
}

bool WindowPlayer::ShowPayTableManager(PayTableEditor& editor) {
    if (refusing) return false;
    PayTableManagerDialog dialog(editor, &window);
    return IsAccepted(dialog);
}

ReportAnswer WindowPlayer::ShowGameReport(GameReportPages& pages) {
    if (refusing) return ReportAnswer::kDone;
    GameAnalysisDialog dialog(pages, aside, &window);
    dialog.exec();
    return dialog.Answer();
}

std::optional<AnalysisFilesChoice> WindowPlayer::AskAnalysisFiles(const AnalysisFilePaths& files) {
    if (refusing) return std::nullopt;
    CreateAnalysisFilesDialog dialog(files, &window);
    if (!IsAccepted(dialog)) return std::nullopt;
    return dialog.Choice();
}

void WindowPlayer::TellOfFiles(const std::string& caption, const std::vector<WrittenFile>& files) {
    if (refusing) return;
    const bool failed =
        std::ranges::any_of(files, [](const WrittenFile& file) { return !file.problem.empty(); });
    FlowBox box(failed ? QMessageBox::Warning : QMessageBox::NoIcon, caption,
                TextOf(files).toStdString(), QMessageBox::Ok, window);
    box.setObjectName("writtenFiles");
    auto* open = box.addButton(QObject::tr("Open &Folder"), QMessageBox::ActionRole);
    open->setObjectName("openFolder");
    box.setDefaultButton(QMessageBox::Ok);
    box.setEscapeButton(QMessageBox::Ok);
    box.exec();
    if (box.clickedButton() != open) return;
    const QFileInfo file(QString::fromStdString(files.front().path));
    QDesktopServices::openUrl(QUrl::fromLocalFile(file.absolutePath()));
}

std::unique_ptr<Progress> WindowPlayer::ShowProgress(const std::string& text) {
    if (refusing) return std::make_unique<NoProgress>();
    auto progress = std::make_unique<ProgressDialog>(text, &window);
    progress->show();
    QCoreApplication::processEvents();  // the work may take its time before it shows any progress
    return progress;
}

void WindowPlayer::ShowStatistics(const GameEngine& engine) {
    if (refusing) return;
    // Those of Autoplay are no machine's, and stay as they are.
    const GameEngine* own = &engine == machine ? machine : nullptr;
    StatisticsDialog(engine, clock.Now(), &window, own, aside).exec();
}
