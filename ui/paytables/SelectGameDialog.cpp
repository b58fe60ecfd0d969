#include "ui/paytables/SelectGameDialog.h"

#include <QComboBox>
#include <QDialog>
#include <QPushButton>

#include "ui/parts/DialogParts.h"

std::optional<std::string> AskGame(const std::vector<std::string>& games,
                                   const std::string& current, QWidget* parent) {
    QDialog dialog(parent);
    dialog.setObjectName("selectGame");
    dialog.setWindowTitle(QObject::tr("Select Game"));
    auto* list = GameList(dialog, games, 40);
    SelectGame(*list, current);
    auto* ok =
        LayOutQuestion(dialog, QObject::tr("&Game Name"), *list)->button(QDialogButtonBox::Ok);
    ok->setEnabled(list->currentIndex() >= 0);
    QObject::connect(list, &QComboBox::currentIndexChanged, ok,
                     [ok](int at) { ok->setEnabled(at >= 0); });
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return list->currentText().toStdString();
}
