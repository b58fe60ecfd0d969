#include "ui/reports/ReportFrame.h"

#include <QEvent>
#include <QRadioButton>
#include <QSettings>
#include <QTabWidget>

#include "ui/tables/ReportTableView.h"

ReportFrame::ReportFrame(QWidget& window, const QString& name, const QString& placeName)
    : QObject(&window), window(window), name(name) {
    window.installEventFilter(this);
    const QString key = KeyOf(placeName);
    window.restoreGeometry(QSettings().value(key).toByteArray());
    notes.emplace_back([this, key] { QSettings().setValue(key, this->window.saveGeometry()); });
}

// A tab that this report does not have now, or not yet, leaves the first one.
void ReportFrame::Keep(QTabWidget& tabs) {
    const QString key = KeyOf("tab");
    const QString wanted = QSettings().value(key).toString();
    for (int i = 0; i < tabs.count(); ++i) {
        if (!wanted.isEmpty() && tabs.widget(i)->objectName() == wanted) tabs.setCurrentIndex(i);
    }
    notes.emplace_back([key, &tabs] {
        if (tabs.currentWidget()) QSettings().setValue(key, tabs.currentWidget()->objectName());
    });
}

void ReportFrame::Keep(ReportTableView& table) {
    const QString key = KeyOf(table.objectName() + "/order");
    table.SortBy(QSettings().value(key).toString());
    notes.emplace_back([key, &table] { QSettings().setValue(key, table.SortedBy()); });
}

void ReportFrame::KeepDisplay(QWidget& choice) {
    const QString key = KeyOf(choice.objectName());
    const QString wanted = QSettings().value(key).toString();
    const auto options = choice.findChildren<QRadioButton*>();
    for (QRadioButton* option : options) {
        if (!wanted.isEmpty() && option->objectName() == wanted) option->setChecked(true);
    }
    notes.emplace_back([key, options] {
        for (const QRadioButton* option : options) {
            if (option->isChecked()) QSettings().setValue(key, option->objectName());
        }
    });
}

// What a desktop hides for a while is still as the player left it.
bool ReportFrame::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide && !event->spontaneous()) {
        for (const auto& note : notes) note();
    }
    return QObject::eventFilter(watched, event);
}
