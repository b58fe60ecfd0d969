#include "app/IdleWork.h"

#include <QEvent>

#include "app/CMorvikDoc.h"
#include "core/profile/ProfileFile.h"
#include "game/SaveGame.h"

namespace {

bool IsActivity(QEvent::Type type) {
    switch (type) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::Paint:
            return true;
        default:
            return false;
    }
}

}  // namespace

IdleWork::IdleWork(CMorvikDoc& shown) : document(shown) {
    timer.setInterval(0);
    connect(&timer, &QTimer::timeout, this, &IdleWork::Call);
    connect(&document, &CMorvikDoc::Settled, this, &IdleWork::Begin);
}

bool IdleWork::eventFilter(QObject* object, QEvent* event) {
    if (IsActivity(event->type())) Begin();
    return QObject::eventFilter(object, event);
}

void IdleWork::Begin() {
    if (timer.isActive()) return;
    calls = 0;
    timer.start();
}

void IdleWork::Call() {
    if (document.actions.Busy()) return timer.stop();  // the end of it begins anew
    if (!OnIdle(calls++)) timer.stop();
}

bool IdleWork::OnIdle(int count) {
    GameTable& table = document.table;
    if (table.files.file.IsDirty() && !table.saveFailedTold) {
        const bool saved = table.files.file.Flush();
        document.actions.Run([&table, saved] { ReportSave(table, saved); });
    }
    if (!table.engine.handInProgress && !table.engine.fixedHand) table.engine.deck.Shuffle(1);
    return count < kMaxCalls - 1;
}
