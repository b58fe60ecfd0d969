#include "app/DesktopPortal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>
#include <QTimer>

namespace {

constexpr int kAnswerTime = 5000;  // milliseconds

// Without one, asking for the session's bus may start one, which takes its time.
bool HasBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
}

// The portal wraps a value in a variant, and older portals in one more.
QVariant Unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    return value;
}

void Ask(QObject* context, const QString& group, const QString& key,
         const std::function<void(const QVariant&)>& answered) {
    QDBusMessage call = QDBusMessage::createMethodCall("org.freedesktop.portal.Desktop",
                                                       "/org/freedesktop/portal/desktop",
                                                       "org.freedesktop.portal.Settings", "Read");
    call << group << key;
    auto* watcher = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(call, kAnswerTime), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [=] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (!reply.isError()) answered(Unwrapped(reply.value().variant()));
        watcher->deleteLater();
    });
}

}  // namespace

void AskDesktop(QObject* context, const QString& group, const QString& key,
                const std::function<void(const QVariant&)>& answered) {
    if (!HasBus()) return;
    QTimer::singleShot(0, context, [=] { Ask(context, group, key, answered); });
}
