#include "ui/parts/FindingList.h"

#include <QAbstractItemView>
#include <QKeyEvent>

namespace {

constexpr qint64 kNewWordMs = 1500;  // after that another word begins

}  // namespace

FindingList::FindingList(QWidget* parent) : QComboBox(parent) { view()->installEventFilter(this); }

// A blank that begins no word has the style's own meaning: it opens the list, or chooses from it.
bool FindingList::TakesKey(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    if (!sinceKey.isValid() || sinceKey.elapsed() > kNewWordMs) typed.clear();
    const QString text = event.text();
    const bool isBack = event.key() == Qt::Key_Backspace;
    if (isBack ? typed.isEmpty() : text.isEmpty() || !text.front().isPrint()) return false;
    if (text == " " && typed.isEmpty()) return false;
    sinceKey.start();
    if (isBack) {
        typed.chop(1);
    } else {
        typed += text;
    }
    return true;
}

// As the style's own search, a letter alone goes on from one entry to the next.
int FindingList::Found(int from) const {
    const bool again = typed.size() == 1;
    for (const bool anywhere : {false, true}) {
        for (int i = 0; i < count(); ++i) {
            const int at = again ? (from + 1 + i) % count() : i;
            const QString entry = itemText(at);
            if (anywhere ? entry.contains(typed, Qt::CaseInsensitive)
                         : entry.startsWith(typed, Qt::CaseInsensitive)) {
                return at;
            }
        }
    }
    return -1;
}

void FindingList::keyPressEvent(QKeyEvent* event) {
    if (!TakesKey(*event)) return QComboBox::keyPressEvent(event);
    const int at = typed.isEmpty() ? -1 : Found(currentIndex());
    if (at < 0 || at == currentIndex()) return;
    setCurrentIndex(at);
    emit activated(at);
}

// In the open list the entry is shown and not yet chosen.
bool FindingList::eventFilter(QObject* watched, QEvent* event) {
    if (watched != view() || event->type() != QEvent::KeyPress) {
        return QComboBox::eventFilter(watched, event);
    }
    if (!TakesKey(static_cast<QKeyEvent&>(*event))) return false;
    const int at = typed.isEmpty() ? -1 : Found(view()->currentIndex().row());
    if (at >= 0) view()->setCurrentIndex(model()->index(at, modelColumn(), rootModelIndex()));
    return true;
}
