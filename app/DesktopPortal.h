// What the desktop says of its user's wishes, by its settings portal.
#pragma once
#include <QString>
#include <QVariant>
#include <functional>

class QObject;

// Asks once the events run, so that no start waits, and answers as long as the context lives;
// never where there is no session bus, no portal or no such wish.
void AskDesktop(QObject* context, const QString& group, const QString& key,
                const std::function<void(const QVariant&)>& answered);
