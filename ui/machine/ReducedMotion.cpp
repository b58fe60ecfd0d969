#include "ui/machine/ReducedMotion.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>
#include <QTimer>
#include <utility>

namespace {

constexpr int kAnswerTime = 5000;  // milliseconds

// Without one, asking for the session's bus may start one, which takes its time.
bool HasBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

// The portal wraps a value in a variant, and older portals in one more.
QVariant Unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    return value;
}

void Ask(QObject* context, const QString& group, const QString& key,
         const std::function<void(const QVariant&)>& answered) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
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

void AskForReducedMotion(QObject* context, std::function<void()> wished) {
    if (!HasBus()) return;
    auto* afterStart = new QTimer(context);
    afterStart->setSingleShot(true);
    QObject::connect(afterStart, &QTimer::timeout, context, [context, wished = std::move(wished)] {
        Ask(context, QStringLiteral("org.freedesktop.appearance"), QStringLiteral("reduced-motion"),
            [wished](const QVariant& value) {
                if (value.toUInt() == 1) wished();
            });
        Ask(context, QStringLiteral("org.gnome.desktop.interface"),
            QStringLiteral("enable-animations"), [wished](const QVariant& value) {
                if (value.typeId() == QMetaType::Bool && !value.toBool()) wished();
            });
    });
    afterStart->start(0);
}
