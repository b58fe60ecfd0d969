// The analysis of whole games at the table: the report on one, and the runs that it asks for. All
// of it works on the spare engine; the player's machine is left alone.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "core/store/DataFiles.h"
#include "game/GameTable.h"
#include "game/reports/GameReport.h"

struct PayTableFiles;

// The report on one table after another. The one shown is the game and the active table of the
// spare engine; nothing is stored of it. The objects referred to outlive the pages.
class GameReportPages {
  public:
    GameReportPages(GameTable& table, GameEngine& spare, const DataFilePaths& paths);

    // The current game at its active table.
    void ShowCurrent();
    void Show(const std::string& gameName, int tableIndex);

    // A game at the table it was last played on. False for one that cannot be analysed: the player
    // is told, and the page stays.
    bool Choose(const std::string& gameName);

    // Another table of the same game; nothing when there is none.
    void ShowNext();
    void ShowPrevious();
    bool HasNext() const { return NextIndex() != kNoTable; }
    bool HasPrevious() const { return PreviousIndex() != kNoTable; }

    std::vector<std::string> Games() const;
    const std::string& GameName() const { return spare.settings.gameName; }
    int TableIndex() const { return spare.settings.activeTable; }
    std::string Report() const { return GameReport(spare, cache); }
    std::vector<LineShare> Shares() const { return LineShares(spare, cache); }

  private:
    static constexpr int kNoTable = -1;

    int NextIndex() const;
    int PreviousIndex() const;
    PayTableFiles Files() const;

    GameTable& table;
    GameEngine& spare;
    AnalysisCache cache;
};

// How a report is left: 100..199 asks for a run on the table of that index past 100, 300 and more
// for one that the player is asked about first, 200 for the report on the current game. Any other
// code ends the command.
inline constexpr int kRunTable = 100;
inline constexpr int kReportCurrent = 200;
inline constexpr int kOfferRun = 300;

// The code for a run on a table; past index 99 the player is asked first. 0, which asks for
// nothing, when no table can have that index.
int RunCode(int tableIndex);

// What a run may leave beside the cache.
struct AnalysisFilesChoice {
    bool summary = false;
    bool detail = false;
};

struct AnalysisFilePaths {
    std::string summary;
    std::string detail;
};

// In the data folder; a '/' in the name of the game is a '_' here.
AnalysisFilePaths AnalysisFilesOf(const std::string& gameName, int tableIndex,
                                  const DataFilePaths& paths);

// The dialogs of the command. The window shows them, a test answers from a list.
class GameReports {
  public:
    virtual ~GameReports() = default;

    // Lets the player read the report; returns the code by which he left it.
    virtual int ReadsGameReport(GameReportPages& pages) = 0;

    // Nothing when cancelled, which ends the command.
    virtual std::optional<AnalysisFilesChoice> ChoosesFiles(const AnalysisFilePaths& files) = 0;
};

// Shows the report on the current game and runs what it asks for, until it is left for good. A run
// that the player cancels leaves all entries and files, with the figures of the hands played until
// then.
void AnalyzeGameCommand(GameTable& table, GameEngine& spare, GameReports& reports,
                        const DataFilePaths& paths);
