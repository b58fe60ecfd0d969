// The questions that a flow must have answered before it goes on, and what the player is told. The
// window asks in dialogs, a test from a list.
#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class GameReportPages;
class PayTableEditor;
struct GameEngine;

enum class MessageIcon { kNone, kExclamation, kError };

// How a report on a game is left: for good, or for a run of the analysis on the table that it
// shows.
enum class ReportAnswer { kDone, kRunAnalysis };

// What a run may leave beside the analysis cache.
struct AnalysisFilesChoice {
    bool summary = false;
    bool detail = false;
};

struct AnalysisFilePaths {
    std::string summary;
    std::string detail;
};

// A file that work was to leave behind.
struct WrittenFile {
    std::string path;
    std::string problem;  // why it could not be written, as a sentence goes on; empty = it was
};

// Shown while long work goes on, which the player can cancel; gone with the object. Nothing else
// can be done at the machine meanwhile, but what is put aside and All Games stay in use.
class Progress {
  public:
    virtual ~Progress() = default;

    // False when the player has cancelled the work.
    virtual bool Show(const std::string& text, int percent) = 0;
};

class Player {
  public:
    virtual ~Player() = default;

    // Shown when a hold is not the best one; true to go on all the same.
    virtual bool GoesOnAfterError(const std::string& message) = 0;

    // Yes or No, which is what closing the question means.
    virtual bool SaysYes(const std::string& caption, const std::string& question) = 0;
    virtual void Tell(const std::string& caption, const std::string& text, MessageIcon icon) = 0;

    // Nothing when cancelled; otherwise 1..kMostDollars, beginning with the one proposed.
    virtual std::optional<int> AskDollars(int proposed) = 0;
    virtual std::optional<std::int64_t> AskHandCount() = 0;

    // Lets the player choose the fixed hand of an engine; false when cancelled, and nothing
    // changed.
    virtual bool AskFixedHand(GameEngine& engine) = 0;

    // Full paths; nothing when cancelled. A file to be saved, or to begin a new game in, may exist:
    // its loss is agreed to.
    virtual std::optional<std::string> AskFileToOpen(const std::string& folder) = 0;
    virtual std::optional<std::string> AskFileToSave(const std::string& proposed) = 0;
    virtual std::optional<std::string> AskNewGameFile(const std::string& proposed) = 0;

    // A game of the list; nothing when cancelled. The list begins at the current one.
    virtual std::optional<std::string> AskGame(const std::vector<std::string>& games,
                                               const std::string& current) = 0;

    // Lets the player work at the pay table manager until he is done: true. False when he cancels,
    // which takes nothing back that he has saved.
    virtual bool ShowPayTableManager(PayTableEditor& editor) = 0;

    // Lets the player read the report and browse its pages.
    virtual ReportAnswer ShowGameReport(GameReportPages& pages) = 0;

    // Nothing when cancelled.
    virtual std::optional<AnalysisFilesChoice> AskAnalysisFiles(const AnalysisFilePaths& files) = 0;

    // At least one file. The player may have their folder opened.
    virtual void TellOfFiles(const std::string& caption, const std::vector<WrittenFile>& files) = 0;

    virtual std::unique_ptr<Progress> ShowProgress(const std::string& text) = 0;
    virtual void ShowStatistics(const GameEngine& engine) = 0;
};
