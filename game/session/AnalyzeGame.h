// The analysis of whole games at the table: the report on one, and the runs that it asks for. All
// of it works on the spare engine; the player's machine is left alone.
#pragma once
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/store/DataFiles.h"
#include "game/reports/GameReport.h"
#include "game/reports/GameRows.h"
#include "game/seat/Seat.h"

// All that is shown of one table, as it was at a moment.
struct GameReportView {
    TableOfGame place;
    std::string report;
    std::string warning;  // why the figures must not be trusted; empty = they may be
    std::vector<LineShare> shares;
    ReportTable table;
    PayTable payTable;  // empty for one that is not there, or cannot be analysed
};

// Reads the files alone: the spare engine may be at work meanwhile.
GameReportView ReadGameReport(const Seat& seat, const DataFilePaths& paths,
                              const TableOfGame& table);

// The report on one table after another. The one shown is the game and the active table of the
// spare engine; nothing is stored of it. The objects referred to outlive the pages.
class GameReportPages {
  public:
    GameReportPages(Seat& seat, GameEngine& spare, const DataFilePaths& paths);

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
    GameReportView View() const;

    // ReadGameReport, for a view that outlives the pages.
    std::function<GameReportView(const TableOfGame&)> Reader() const;

  private:
    static constexpr int kNoTable = -1;

    int NextIndex() const;
    int PreviousIndex() const;

    Seat& seat;
    GameEngine& spare;
    const DataFilePaths& paths;
};

// In the data folder; a '/' in the name of the game is a '_' here.
AnalysisFilePaths AnalysisFilesOf(const std::string& gameName, int tableIndex,
                                  const DataFilePaths& paths);

// Shows the report on the current game and runs what it asks for, until it is left for good. A run
// that the player cancels leaves all entries and files, with the figures of the hands played until
// then: the entries are marked, the files have names of their own. The entries of a whole analysis
// are only replaced by these when he says so.
void AnalyzeGameCommand(Seat& seat, GameEngine& spare, const DataFilePaths& paths);

// The same for any table.
void AnalyzeTableCommand(Seat& seat, GameEngine& spare, const DataFilePaths& paths,
                         const TableOfGame& table);
