#include "ui/dialogs/DialogParts.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

int WidthOf(const QWidget& widget, int characters) {
    return widget.fontMetrics().averageCharWidth() * characters;
}

QDialogButtonBox* OkAndCancel(QDialog& dialog) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("ok");
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("cancel");
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return buttons;
}

QLineEdit* TypingBox(QDialog& dialog, const char* name, int shown, int longest) {
    auto* box = new QLineEdit(&dialog);
    box->setObjectName(name);
    box->setMaxLength(longest);
    box->setMinimumWidth(WidthOf(dialog, shown));
    return box;
}

void RefuseInput(QLineEdit& box, const QString& caption, const QString& problem) {
    QMessageBox message(QMessageBox::Warning, caption, problem, QMessageBox::Ok, box.window());
    message.setObjectName("refusal");
    message.exec();
    box.setFocus();
    box.selectAll();
}
