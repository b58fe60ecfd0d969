#include "app/PaletteKeeper.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QEvent>
#include <QFile>
#include <QPalette>
#include <QScopedValueRollback>

#include "ui/art/Contrast.h"

namespace {

// Without one, asking for the session's bus may start one, which takes its time.
bool HasBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
}

}  // namespace

PaletteKeeper::PaletteKeeper() {
    qApp->installEventFilter(this);
    Keep();
    if (HasBus()) QMetaObject::invokeMethod(this, "AskDesktop", Qt::QueuedConnection);
}

void PaletteKeeper::UseHighContrast() {
    highContrast = true;
    Keep();
}

bool PaletteKeeper::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qApp) Keep();
    return false;
}

// Only what has to be is set, so that all else goes on following the theme.
void PaletteKeeper::Keep() {
    if (keeping) return;
    const QScopedValueRollback guard(keeping, true);
    const QPalette before = QApplication::palette();
    QPalette palette = before;
    if (highContrast && !IsHighContrast(palette)) palette = InHighContrast(palette);
    palette = Readable(palette);
    if (palette != before) QApplication::setPalette(palette);
}

void PaletteKeeper::AskDesktop() {
    QDBusMessage call = QDBusMessage::createMethodCall("org.freedesktop.portal.Desktop",
                                                       "/org/freedesktop/portal/desktop",
                                                       "org.freedesktop.portal.Settings", "Read");
    call << "org.freedesktop.appearance"
         << "contrast";
    auto* watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        watcher->deleteLater();
        if (reply.isError()) return;
        QVariant value = reply.value().variant();  // older portals wrap it once more
        if (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
        if (value.toUInt() == 1) UseHighContrast();
    });
}
