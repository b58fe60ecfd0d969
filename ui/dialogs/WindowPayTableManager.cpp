#include "ui/dialogs/WindowPayTableManager.h"

#include "ui/dialogs/PayTableManagerDialog.h"
#include "ui/dialogs/SelectGameDialog.h"

std::optional<std::string> WindowPayTableManager::SelectsGame(const std::vector<std::string>& games,
                                                              const std::string& current) {
    SelectGameDialog dialog(games, current, &window);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.Selected();
}

bool WindowPayTableManager::Edits(PayTableEditor& editor) {
    PayTableManagerDialog dialog(editor, &window);
    return dialog.exec() == QDialog::Accepted;
}
