#include "ui/paytables/RenameGameDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

#include "core/paytable/PayTableStore.h"
#include "ui/parts/DialogParts.h"

namespace {

constexpr int kLongestName = static_cast<int>(kLongestGameName);

}  // namespace

RenameGameDialog::RenameGameDialog(const std::string& name, const std::string& typed,
                                   QWidget* parent)
    : QDialog(parent) {
    setObjectName("renameGame");
    setWindowTitle(tr("Rename Game"));
    auto* oldName = TypingBox(*this, "oldName", 44, kLongestName);
    oldName->setText(QString::fromStdString(name));
    oldName->setReadOnly(true);
    newName = TypingBox(*this, "newName", 44, kLongestName);
    LimitToBytes(*newName, kLongestName);
    newName->setText(QString::fromStdString(typed));
    newName->selectAll();

    auto* layout = new QFormLayout(this);
    layout->addRow(tr("O&ld Name"), oldName);
    layout->addRow(tr("&New Name"), newName);
    layout->addRow(OkAndCancel(*this));
    MakeRoomForCaption(*this);
    newName->setFocus();
}

std::string RenameGameDialog::NewName() const { return newName->text().trimmed().toStdString(); }

void RenameGameDialog::accept() {
    const std::string problem = GameNameProblem(NewName());
    if (problem.empty()) {
        QDialog::accept();
    } else {
        RefuseInput(*newName, QMessageBox::Critical, tr("Input Error"),
                    QString::fromStdString(problem));
    }
}
