#include "app/CommandMenu.h"

#include <QAction>
#include <QActionGroup>
#include <QKeyEvent>
#include <QKeySequence>
#include <QStyle>
#include <algorithm>

namespace {

// As it is read, without the mark before its letter and without the key behind it.
QString Plain(const QAction& action) {
    QString text = action.text().section(u'\t', 0, 0);
    for (qsizetype at = text.indexOf(u'&'); at >= 0; at = text.indexOf(u'&', at + 1)) {
        text.remove(at, 1);  // of two, the second is read
    }
    return text;
}

bool IsMnemonic(const QAction& action, const QString& typed) {
    const QKeySequence mnemonic = QKeySequence::mnemonic(action.text());
    return !mnemonic.isEmpty() && mnemonic == QKeySequence("Alt+" + typed);
}

}  // namespace

CommandMenu::CommandMenu(const QString& caption, QWidget* parent) : QMenu(caption, parent) {}

QString CommandMenu::WithKey(const QString& caption, int key) {
    return key == 0 ? caption
                    : caption + '\t' + QKeySequence(key).toString(QKeySequence::NativeText);
}

void CommandMenu::AddChoice(QAction& action) {
    if (!choices) choices = new QActionGroup(this);
    choices->addAction(&action);
}

// As with the arrow keys: some styles go to what is greyed, most do not.
bool CommandMenu::IsReached(const QAction& action) const {
    if (!action.isVisible() || action.isSeparator()) return false;
    return action.isEnabled() ||
           style()->styleHint(QStyle::SH_Menu_AllowActiveAndDisabled, nullptr, this) != 0;
}

// To the first of them that can be reached; false when none can.
bool CommandMenu::GoTo(const QList<QAction*>& entries) {
    const auto found =
        std::ranges::find_if(entries, [this](const QAction* action) { return IsReached(*action); });
    if (found == entries.end()) return false;
    setActiveAction(*found);
    return true;
}

bool CommandMenu::GoToLetter(const QString& typed) {
    QList<QAction*> entries = actions();
    const auto isChosen = [&](const QAction* action) {
        return IsReached(*action) && IsMnemonic(*action, typed);
    };
    if (std::ranges::any_of(entries, isChosen)) return false;  // Qt knows what to do
    const auto next = entries.begin() + entries.indexOf(activeAction()) + 1;
    std::rotate(entries.begin(), next, entries.end());
    entries.removeIf([&](const QAction* action) {
        return !Plain(*action).startsWith(typed, Qt::CaseInsensitive);
    });
    return GoTo(entries);
}

void CommandMenu::keyPressEvent(QKeyEvent* event) {
    QList<QAction*> entries = actions();
    const bool isPlain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    if (event->key() == Qt::Key_Home) {
        GoTo(entries);
    } else if (event->key() == Qt::Key_End) {
        std::ranges::reverse(entries);
        GoTo(entries);
    } else if (!isPlain || event->text().isEmpty() || !event->text().at(0).isLetterOrNumber() ||
               !GoToLetter(event->text())) {
        QMenu::keyPressEvent(event);
    }
}
