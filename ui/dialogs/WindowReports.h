// The dialogs of the game analysis, over the window.
#pragma once
#include "game/AnalyzeGame.h"

class QWidget;

class WindowReports : public GameReports {
  public:
    // The window outlives the reports.
    explicit WindowReports(QWidget& window) : window(window) {}

    // For a window that closes: nothing is shown any more. What is open, the window's player
    // closes.
    void RefuseAll() { refusing = true; }

    // The window stays after all.
    void AnswerAgain() { refusing = false; }

    int ReadsGameReport(GameReportPages& pages) override;
    std::optional<AnalysisFilesChoice> ChoosesFiles(const AnalysisFilePaths& files) override;

  private:
    QWidget& window;
    bool refusing = false;
};
