#include "app/IdleWork.h"

#include <QEvent>

#include "app/CMorvikDoc.h"
#include "core/profile/ProfileFile.h"
#include "game/saving/SaveGame.h"

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
    connect(&document, &CMorvikDoc::Settled, this, &IdleWork::Settle);
    rest.setSingleShot(true);
    connect(&rest, &QTimer::timeout, this, [this] { Keep(true); });
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
    if (document.Actions().Busy()) return timer.stop();  // the end of it begins anew
    if (!OnIdle(calls++)) timer.stop();
}

// Telling of a failure is an action like those of the player. While one runs, its end comes here
// again.
void IdleWork::Keep(bool rested) {
    if (document.Actions().Busy()) return;
    const Seat& seat = document.PlayersSeat();
    if (!SaveIsDue(seat, rested) && !seat.files.file.IsDirty()) return;
    document.Actions().Run([this, rested] { KeepPlay(document.PlayersSeat(), rested); });
}

void IdleWork::Settle() {
    const Seat& seat = document.PlayersSeat();
    const bool waits = seat.files.file.IsDirty() || SaveIsDue(seat, true);
    rest.stop();
    if (waits) rest.start(seat.saveTold.empty() ? kRest : kRetry);
    if (waits && SaveIsDue(seat, false)) Keep(false);
    Begin();
}

bool IdleWork::OnIdle(int count) {
    const Seat& seat = document.PlayersSeat();
    // Once in a row of calls: a disk that is full need not be asked a hundred times.
    if (count == 0 && seat.files.file.IsDirty()) Keep(false);
    GameEngine& engine = document.PlayersSeat().engine;
    if (!engine.handInProgress && !engine.fixedHand) engine.deck.Shuffle(1);
    return count < kMaxCalls - 1;
}
