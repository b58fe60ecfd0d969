#include "ui/dialogs/LiveReturn.h"

#include "core/analysis/GameAnalysis.h"
#include "game/PayTableEditor.h"

namespace {

constexpr int kPauseMs = 200;

}  // namespace

LiveReturn::LiveReturn(const PayTableEditor& editor, QWidget* parent)
    : QLabel(parent), editor(editor), analysis([this](const LiveResult& result) {
          emit Reckoned(result.run, result.returnPercent, result.variance);
      }) {
    connect(
        this, &LiveReturn::Reckoned, this,
        [this](quint64 run, double returnPercent, double variance) {
            const LiveResult result{run, returnPercent, variance};
            if (analysis.IsLatest(result)) Tell(QString::fromStdString(LiveText(result)));
        },
        Qt::QueuedConnection);
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
    if (!text().isEmpty() && !pause.isActive() && editor.texts == reckoned) return;
    Wait();
    Begin();
}

// The last line stays to be read, but it does not hold any more.
void LiveReturn::Wait() {
    analysis.Cancel();
    pause.stop();
    setText(told.isEmpty() ? tr("…") : tr("%1 …").arg(told));
    setEnabled(false);
}

void LiveReturn::Begin() {
    reckoned = editor.texts;
    if (const auto problem = FindProblem(editor.texts)) {
        return Tell(QString::fromStdString(LiveText(*problem)));
    }
    PayTable table = TableOf(editor.texts, editor.GameId());
    if (!CanAnalyzeGame(table)) {
        return Tell(
            tr("Game analysis not available for %1.").arg(QString::fromStdString(editor.gameName)));
    }
    analysis.Start(std::move(table));
}

void LiveReturn::Tell(const QString& text) {
    told = text;
    setText(text);
    setEnabled(true);
}
