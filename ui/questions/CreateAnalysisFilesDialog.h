// Asks, before a whole game is analysed, which files are to be made of it beside the report.
#pragma once
#include <QDialog>

#include "game/session/AnalyzeGame.h"

class QCheckBox;

class CreateAnalysisFilesDialog : public QDialog {
    Q_OBJECT

  public:
    CreateAnalysisFilesDialog(const AnalysisFilePaths& files, QWidget* parent);

    AnalysisFilesChoice Choice() const;

  private:
    QCheckBox* summary;
    QCheckBox* detail;
};
