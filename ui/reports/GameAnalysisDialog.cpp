#include "ui/reports/GameAnalysisDialog.h"

#include <QComboBox>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "game/session/AnalyzeGame.h"
#include "ui/parts/DialogParts.h"
#include "ui/reports/AsideWindows.h"
#include "ui/reports/GamePage.h"
#include "ui/reports/ReportFrame.h"

namespace {

constexpr const char* kName = "game";
constexpr int kShownCharacters = 120;  // at least, for a table of few figures or many
constexpr int kShownLines = 34;

}  // namespace

GameAnalysisDialog::GameAnalysisDialog(GameReportPages& pages, AsideWindows* aside, QWidget* parent)
    : QDialog(parent), pages(pages) {
    setObjectName("gameAnalysis");
    setWindowTitle(tr("Game Analysis"));
    page = new GamePage(pages.View(), pages.Reader(), this);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(MakeTop());
    layout->addWidget(page, 1);
    layout->addLayout(MakeBottom(aside));
    ShowPage();
    const QSize size = sizeHint().expandedTo(
        {WidthOf(*this, kShownCharacters), fontMetrics().lineSpacing() * kShownLines});
    resize(size.boundedTo(screen()->availableSize() * 0.95));
    page->KeepIn(*new ReportFrame(*this, kName));
    games->setFocus();
}

// What is browsed: the game, and its tables.
QLayout* GameAnalysisDialog::MakeTop() {
    games = GameList(*this, pages.Games(), 36);
    SelectGame(*games, pages.GameName());
    connect(games, &QComboBox::activated, this, &GameAnalysisDialog::ChooseGame);
    index = new QLineEdit(this);
    index->setObjectName("index");
    index->setReadOnly(true);
    index->setFixedWidth(WidthOf(*this, 8));
    auto* layout = new QHBoxLayout;
    for (QWidget* widget : std::initializer_list<QWidget*>{Caption(tr("&Game"), games), games,
                                                           Caption(tr("Inde&x"), index), index}) {
        layout->addWidget(widget);
    }
    layout->addStretch();
    previous = ActionButton(*this, tr("&Prev Table"), "previousTable", [this] {
        pages.ShowPrevious();
        ShowPage();
    });
    next = ActionButton(*this, tr("&Next Table"), "nextTable", [this] {
        pages.ShowNext();
        ShowPage();
    });
    layout->addWidget(previous);
    layout->addWidget(next);
    return layout;
}

QLayout* GameAnalysisDialog::MakeBottom(AsideWindows* aside) {
    auto* layout = new QHBoxLayout;
    layout->addWidget(ActionButton(*this, tr("&Run Analysis"), "run", [this] {
        answer = ReportAnswer::kRunAnalysis;
        accept();
    }));
    if (aside) layout->addWidget(PutAsideButton(*this, *page, *aside, kName));
    layout->addWidget(OkAlone(*this));
    return layout;
}

void GameAnalysisDialog::ShowPage() {
    page->Show(pages.View());
    index->setText(QString::number(pages.TableIndex()));
    previous->setEnabled(pages.HasPrevious());
    next->setEnabled(pages.HasNext());
}

void GameAnalysisDialog::ChooseGame(int at) {
    if (pages.Choose(games->itemText(at).toStdString())) {
        ShowPage();
    } else {
        SelectGame(*games, pages.GameName());
    }
}
