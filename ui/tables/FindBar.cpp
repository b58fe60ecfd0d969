#include "ui/tables/FindBar.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "ui/parts/DialogParts.h"

FindBar::FindBar(QAbstractItemView& table, QWidget* parent)
    : QWidget(parent), table(table), word(new QLineEdit(this)), outcome(new QLabel(this)) {
    setObjectName("findBar");
    word->setObjectName("findWord");
    word->setAccessibleName(tr("Find"));
    word->setClearButtonEnabled(true);
    word->setMinimumWidth(WidthOf(*this, 8));
    word->installEventFilter(this);
    outcome->setObjectName("findOutcome");
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(Caption(tr("Find"), word));
    layout->addWidget(word, 1);
    AddButton(tr("Previous"), "findPrevious", &FindBar::FindPrevious);
    AddButton(tr("Next"), "findNext", &FindBar::FindNext);
    layout->addWidget(outcome, 1);
    AddButton(tr("Close"), "closeFind", &FindBar::Close);
    connect(word, &QLineEdit::textEdited, this, &FindBar::Typed);
    hide();
}

void FindBar::AddButton(const QString& caption, const char* name, void (FindBar::*action)()) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, action);
    layout()->addWidget(button);
}

void FindBar::Open() {
    show();
    outcome->clear();
    word->setFocus(Qt::ShortcutFocusReason);
    word->selectAll();
}

void FindBar::Close() {
    table.setFocus();
    hide();
}

// In a dialog, Enter would press its default button and Esc close it.
bool FindBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const bool back = key.modifiers().testFlag(Qt::ShiftModifier);
        switch (key.key()) {
            case Qt::Key_Return:
            case Qt::Key_Enter:
            case Qt::Key_F3:
                back ? FindPrevious() : FindNext();
                return true;
            case Qt::Key_Escape:
                Close();
                return true;
            default:
                break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

// The cell that is found already stays while more letters of it are typed.
void FindBar::Typed() { Find(0, 1); }

void FindBar::FindNext() { isVisible() ? Find(1, 1) : Open(); }

void FindBar::FindPrevious() { isVisible() ? Find(1, -1) : Open(); }

// first: 0 begins with the current cell, 1 with the one beside it.
void FindBar::Find(int first, int step) {
    const QAbstractItemModel& model = *table.model();
    const int columns = model.columnCount();
    const int cells = model.rowCount() * columns;
    if (word->text().isEmpty()) return Say({});
    const QModelIndex current = table.currentIndex();
    const bool fromOutside = !current.isValid();
    const int start =
        fromOutside ? (step > 0 ? -first : 0) : current.row() * columns + current.column();
    for (int i = first; i < cells + first; ++i) {
        const int place = start + i * step;
        const int at = ((place % cells) + cells) % cells;
        const QModelIndex index = model.index(at / columns, at % columns);
        if (!index.data().toString().contains(word->text(), Qt::CaseInsensitive)) continue;
        table.setCurrentIndex(index);
        const bool around = !fromOutside && place != at;
        return Say(around ? (step > 0 ? tr("from the top again") : tr("from the end again"))
                          : QString());
    }
    Say(tr("not found"));
}

void FindBar::Say(const QString& said) {
    outcome->setText(said);
    outcome->setAccessibleName(said);
    if (said.isEmpty()) return;
    QAccessibleEvent event(outcome, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}
