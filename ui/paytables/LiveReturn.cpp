#include "ui/paytables/LiveReturn.h"

#include <algorithm>
#include <tuple>

#include "core/analysis/GameAnalysis.h"

namespace {

constexpr int kPauseMs = 200;

}  // namespace

LiveReturn::LiveReturn(const PayTableEditor& editor, QWidget* parent)
    : QLabel(parent), editor(editor), analysis([this](const LiveResult& reported) {
          QMetaObject::invokeMethod(
              this, [this, reported] { Take(reported); }, Qt::QueuedConnection);
      }) {
    setObjectName("live");
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    QFont strong = font();
    strong.setBold(true);
    setFont(strong);
    pause.setSingleShot(true);
    pause.setInterval(kPauseMs);
    connect(&pause, &QTimer::timeout, this, &LiveReturn::Begin);
}

void LiveReturn::Typed() {
    Wait();
    pause.start();
}

void LiveReturn::Changed() {
    if (!pause.isActive() && reckoned == Shown()) return ShowLine();
    Wait();
    Begin();
}

void LiveReturn::Note(const QString& text) {
    note = text;
    noted = Shown();
}

LiveReturn::Subject LiveReturn::Shown() const {
    return {editor.gameName, editor.GameId(), editor.TableIndex(), editor.texts,
            editor.StoredFigures()};
}

bool LiveReturn::HaveSameLines(const Subject& a, const Subject& b) {
    const auto hand = [](const PayLineTexts& line) {
        return std::tie(line.rank, line.bonusQuads, line.kickers, line.wildsOK);
    };
    return a.gameId == b.gameId && a.tableIndex == b.tableIndex &&
           std::ranges::equal(a.texts.lines, b.texts.lines, {}, hand, hand);
}

// What was told last stays to be read, but it does not hold any more.
void LiveReturn::Wait() {
    analysis.Cancel();
    pause.stop();
    waiting = true;
    if (result && !HaveSameLines(*resultOf, Shown())) result.reset();
    ShowLine();
}

void LiveReturn::Begin() {
    reckoned = Shown();
    if (const auto problem = editor.TableProblem()) {
        result.reset();
        return Tell(QString::fromStdString(LiveText(*problem)));
    }
    PayTable table = TableOf(editor.texts, editor.GameId());
    if (!CanAnalyzeGame(table)) {
        result.reset();
        return Tell(
            tr("Game analysis not available for %1.").arg(QString::fromStdString(editor.gameName)));
    }
    analysis.Start(std::move(table), editor.StoredFigures());
}

void LiveReturn::Take(const LiveResult& reported) {
    if (!analysis.IsLatest(reported)) return;
    result = reported;
    resultOf = reckoned;
    Tell(QString::fromStdString(LiveText(reported)));
}

void LiveReturn::Tell(const QString& text) {
    told = text;
    waiting = false;
    ShowLine();
}

void LiveReturn::ShowLine() {
    if (noted && noted != Shown()) noted.reset();
    QString line = told;
    if (waiting) line = told.isEmpty() ? tr("…") : tr("%1 …").arg(told);
    setText(noted ? note + "  " + line : line);
    setEnabled(!waiting);
    emit Refreshed();
}
