#include "ui/paytables/PayTableQuestionBoxes.h"

#include <QDialog>
#include <utility>

#include "ui/parts/DialogParts.h"
#include "ui/paytables/RenameGameDialog.h"
#include "ui/paytables/SelectGameDialog.h"

namespace {

int Ask(const char* name, QMessageBox::Icon icon, const std::string& caption,
        const std::string& question, QWidget* parent, QMessageBox::StandardButtons buttons,
        QMessageBox::StandardButton enter) {
    return ShowMessage(name, icon, QString::fromStdString(caption),
                       QString::fromStdString(question), parent, buttons, enter);
}

}  // namespace

PayTableQuestionBoxes::PayTableQuestionBoxes(QDialog& dialog, std::function<void(FieldPlace)> goTo)
    : dialog(dialog), goTo(std::move(goTo)) {}

void PayTableQuestionBoxes::Refuse(const std::string& caption, const std::string& text,
                                   FieldPlace where) {
    Tell(caption, text);
    goTo(where);
}

void PayTableQuestionBoxes::Tell(const std::string& caption, const std::string& text) {
    if (!dialog.isVisible()) return;
    ShowMessage("message", QMessageBox::Critical, QString::fromStdString(caption),
                QString::fromStdString(text), &dialog);
}

OverwriteChoice PayTableQuestionBoxes::Overwrites(const std::string& caption,
                                                  const std::string& question) {
    if (!dialog.isVisible()) return OverwriteChoice::kCancel;
    switch (Ask("overwrite", QMessageBox::Question, caption, question, &dialog,
                QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel)) {
        case QMessageBox::Yes:
            return OverwriteChoice::kOverwrite;
        case QMessageBox::No:
            return OverwriteChoice::kAppend;
        default:
            return OverwriteChoice::kCancel;
    }
}

LeaveChoice PayTableQuestionBoxes::Leaves(const std::string& caption, const std::string& question) {
    if (!dialog.isVisible()) return LeaveChoice::kCancel;
    switch (Ask("saveChanges", QMessageBox::Question, caption, question, &dialog,
                QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel,
                QMessageBox::Cancel)) {
        case QMessageBox::Save:
            return LeaveChoice::kSave;
        case QMessageBox::Discard:
            return LeaveChoice::kDiscard;
        default:
            return LeaveChoice::kCancel;
    }
}

bool PayTableQuestionBoxes::Confirms(const std::string& caption, const std::string& question) {
    return dialog.isVisible() &&
           Ask("confirm", QMessageBox::Warning, caption, question, &dialog,
               QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel) == QMessageBox::Ok;
}

bool PayTableQuestionBoxes::Agrees(const std::string& caption, const std::string& question) {
    return dialog.isVisible() &&
           Ask("agree", QMessageBox::Warning, caption, question, &dialog,
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

std::optional<std::string> PayTableQuestionBoxes::SelectsGame(const std::vector<std::string>& games,
                                                              const std::string& current) {
    if (!dialog.isVisible()) return std::nullopt;
    return AskGame(games, current, &dialog);
}

std::optional<std::string> PayTableQuestionBoxes::RenamesGame(const std::string& current,
                                                              const std::string& typed) {
    if (!dialog.isVisible()) return std::nullopt;
    RenameGameDialog rename(current, typed, &dialog);
    if (rename.exec() != QDialog::Accepted) return std::nullopt;
    return rename.NewName();
}
