#include "ui/dialogs/RenameGameDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

#include "core/paytable/PayTableStore.h"
#include "ui/dialogs/DialogParts.h"

namespace {

constexpr int kLongestName = static_cast<int>(kLongestGameName);

QString Problem(const QString& name) {
    if (name.isEmpty()) return RenameGameDialog::tr("Enter a name for the game.");
    if (name.toUtf8().size() > kLongestName) {
        return RenameGameDialog::tr("The name of a game has room for %1 characters at most.")
            .arg(kLongestName);
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
    auto* oldName = TypingBox(*this, "oldName", 44, kLongestName);
    oldName->setText(current);
    oldName->setReadOnly(true);
    newName = TypingBox(*this, "newName", 44, kLongestName);
    LimitToBytes(*newName, kLongestName);
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
