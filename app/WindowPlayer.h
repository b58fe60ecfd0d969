// The player at the window: every question is a dialog over it, and the flow waits for the answer.
#pragma once
#include <functional>

#include "game/seat/Player.h"

class AsideWindows;
class StrategyDesk;
class Clock;
class PictureStore;
class QWidget;

class WindowPlayer : public Player {
  public:
    // All three outlive the player.
    WindowPlayer(QWidget& window, PictureStore& store, Clock& clock);

    // Where reports are put aside; without it none is.
    AsideWindows* aside = nullptr;

    // The charts by which a play error is told the reason of the best play; without it none is.
    StrategyDesk* charts = nullptr;

    // The engine of the machine: whose play is in error, and of which statistics that are put aside
    // take new ones.
    const GameEngine* machine = nullptr;

    // Shows the analysis of the hand over a dialog; without it a play error offers none.
    std::function<void(QWidget& over)> showAnalysis;

    // Sounds when a play error is told, if set.
    std::function<void()> beep;

    // For a window that closes: the answer to every question that is open, or comes later, is No or
    // cancelled, and nothing is shown any more. Long work whose progress is shown ends.
    void RefuseAll();

    // Questions are asked again: the window stays after all.
    void AnswerAgain() { refusing = false; }

    bool GoesOnAfterError(const std::string& message) override;
    bool SaysYes(const std::string& caption, const std::string& question) override;
    void Tell(const std::string& caption, const std::string& text, MessageIcon icon) override;
    std::optional<int> AskDollars(int proposed) override;
    std::optional<std::int64_t> AskHandCount() override;
    bool AskFixedHand(GameEngine& engine) override;
    std::optional<std::string> AskFileToOpen(const std::string& folder) override;
    std::optional<std::string> AskFileToSave(const std::string& proposed) override;
    std::optional<std::string> AskNewGameFile(const std::string& proposed) override;
    std::optional<std::string> AskGame(const std::vector<std::string>& games,
                                       const std::string& current) override;
    bool ShowPayTableManager(PayTableEditor& editor) override;
    ReportAnswer ShowGameReport(GameReportPages& pages) override;
    std::optional<AnalysisFilesChoice> AskAnalysisFiles(const AnalysisFilePaths& files) override;
    void TellOfFiles(const std::string& caption, const std::vector<WrittenFile>& files) override;
    std::unique_ptr<ProgressMeter> ShowProgress(const std::string& text) override;
    void ShowStatistics(const GameEngine& engine) override;

  private:
    QWidget& window;
    PictureStore& store;
    Clock& clock;
    bool refusing = false;
};
