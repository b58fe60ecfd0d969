#include "ui/dialogs/WindowReports.h"

#include "ui/dialogs/CreateAnalysisFilesDialog.h"
#include "ui/dialogs/GameAnalysisDialog.h"

int WindowReports::ReadsGameReport(GameReportPages& pages) {
    if (refusing) return QDialog::Rejected;
    GameAnalysisDialog dialog(pages, &window);
    return dialog.exec();
}

std::optional<AnalysisFilesChoice> WindowReports::ChoosesFiles(const AnalysisFilePaths& files) {
    if (refusing) return std::nullopt;
    CreateAnalysisFilesDialog dialog(files, &window);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.Choice();
}
