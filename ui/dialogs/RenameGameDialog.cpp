#include "ui/dialogs/RenameGameDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QValidator>
#include <algorithm>

#include "ui/dialogs/DialogParts.h"

namespace {

// Keeps out what would make the name too long, and line breaks that are pasted.
class NameLength : public QValidator {
  public:
    using QValidator::QValidator;

    State validate(QString& name, int& /*cursor*/) const override {
        std::ranges::replace_if(
            name, [](QChar c) { return c < u' '; }, QChar(u' '));
        return name.toUtf8().size() <= kLongestGameName ? Acceptable : Invalid;
    }
};

QString Problem(const QString& name) {
    if (name.isEmpty()) return RenameGameDialog::tr("Enter a name for the game.");
    if (name.toUtf8().size() > kLongestGameName) {
        return RenameGameDialog::tr("The name of a game has room for %1 characters at most.")
            .arg(kLongestGameName);
    }
    if (name.contains(u']') || name.contains(u'=') || name.startsWith(u'[')) {
        return RenameGameDialog::tr(
            "The name of a game cannot hold ] or = and cannot begin with [.");
    }
    return {};
}

}  // namespace

RenameGameDialog::RenameGameDialog(const std::string& name, QWidget* parent) : QDialog(parent) {
    setObjectName("renameGame");
    setWindowTitle(tr("Rename Game"));
    const QString current = QString::fromStdString(name);
    auto* oldName = TypingBox(*this, "oldName", 44, kLongestGameName);
    oldName->setText(current);
    oldName->setReadOnly(true);
    newName = TypingBox(*this, "newName", 44, kLongestGameName);
    newName->setValidator(new NameLength(newName));
    newName->setText(current);
    newName->selectAll();

    auto* layout = new QFormLayout(this);
    layout->addRow(tr("&Old Name"), oldName);
    layout->addRow(tr("&New Name"), newName);
    layout->addRow(OkAndCancel(*this));
    newName->setFocus();
}

std::string RenameGameDialog::NewName() const { return newName->text().trimmed().toStdString(); }

void RenameGameDialog::accept() {
    const QString problem = Problem(newName->text().trimmed());
    if (problem.isEmpty()) {
        QDialog::accept();
    } else {
        RefuseInput(*newName, tr("Input Error"), problem);
    }
}
