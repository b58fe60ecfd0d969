#include "ui/dialogs/WindowPayTableManager.h"

#include "ui/dialogs/PayTableManagerDialog.h"
#include "ui/dialogs/SelectGameDialog.h"

std::optional<std::string> WindowPayTableManager::SelectsGame(const std::vector<std::string>& games,
                                                              const std::string& current) {
    return AskGame(games, current, &window);
}

bool WindowPayTableManager::Edits(PayTableEditor& editor) {
    PayTableManagerDialog dialog(editor, &window);
    return dialog.exec() == QDialog::Accepted;
}
