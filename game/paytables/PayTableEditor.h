// The pay table manager without its window: one table of one game is shown and edited, and saved,
// deleted or made active with what depends on it. The texts change as the player types; nothing is
// stored before he says so, and a refusal or a failure leaves everything as it was.
#pragma once
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "core/store/DataFiles.h"
#include "game/paytables/PayTableForm.h"
#include "game/seat/Seat.h"

enum class OverwriteChoice { kOverwrite, kAppend, kCancel };

// What the manager tells and asks; messages have an error icon.
class PayTableQuestions {
  public:
    virtual ~PayTableQuestions() = default;

    // The field is where the player goes on.
    virtual void Refuse(const std::string& caption, const std::string& text, FieldPlace where) = 0;
    virtual void Tell(const std::string& caption, const std::string& text) = 0;
    virtual OverwriteChoice Overwrites(const std::string& caption, const std::string& question) = 0;
    virtual bool Confirms(const std::string& caption, const std::string& question) = 0;

    // Nothing when cancelled.
    virtual std::optional<std::string> SelectsGame(const std::vector<std::string>& games,
                                                   const std::string& current) = 0;
    virtual std::optional<std::string> RenamesGame(const std::string& current) = 0;
};

class PayTableEditor {
  public:
    // The objects referred to outlive the editor. newGame: the first table of a user game is made,
    // and the player may name the game.
    PayTableEditor(Seat& seat, const DataFilePaths& paths, TableOfGame shown, bool newGame = false);

    std::string gameName;  // at most 80 bytes; empty after a deletion
    PayTableTexts texts;

    int GameId() const { return gameId; }
    int TableIndex() const { return tableIndex; }  // -1 after a deletion
    bool IsUserGame() const { return ::IsUserGame(gameId); }

    // Whether there is a table to be edited and saved. A deletion leaves none until a game is
    // chosen; one that is being made can be begun again.
    bool HasTable() const { return newGame || tableIndex >= 0; }

    // Whether the table is of a user game: it may be made from a template and deleted, and its game
    // renamed.
    bool HasOwnTable() const { return HasTable() && IsUserGame(); }

    // Whether the player may use a field. The types without a box cannot be changed.
    bool IsEnabled(FieldPlace place) const;
    bool HasNextTable() const;
    bool HasPreviousTable() const;

    // Of the table, and of the name where that may be typed. What keeps it from being saved, or
    // what to do where there is none.
    std::optional<FormProblem> Problem() const;

    void GoToNextTable();
    void GoToPreviousTable();
    void Clear();
    void LoadTemplate(PayTableQuestions& questions);
    void ChangeGame(PayTableQuestions& questions);

    // In place or as a new table of the game, as the player answers; the first table of a built-in
    // game is refused. False when it is not saved, as of the next two.
    bool Save(PayTableQuestions& questions);

    // Saves the table as a new one of the game, whichever it is. A game without tables is saved.
    bool Add(PayTableQuestions& questions);

    // Saves the table in place without a question, the first one of a built-in game too.
    bool MakeActive(PayTableQuestions& questions);

    void Delete(PayTableQuestions& questions);
    void Rename(PayTableQuestions& questions);

    // What was made active, as it is now called; nothing when nothing was, or it is gone.
    const std::optional<TableOfGame>& MadeActive() const { return madeActive; }

  private:
    PayTableFiles Files() const;
    TableOfGame Shown() const { return {gameId, gameName, tableIndex}; }
    const std::string& StoredName() const;
    void UseSavedName();
    void Load(const std::string& fromGame, int fromIndex);
    void GoTo(int index);
    std::string NameProblem(const std::string& name) const;
    std::string NewNameProblem(const std::string& name) const;
    bool IsOtherUserGame(const std::string& name) const;
    bool Refuses(PayTableQuestions& questions) const;
    bool WriteInPlace(PayTableQuestions& questions);
    PayTable StoredTable() const;
    bool Append(PayTableQuestions& questions);
    void LeaveDeletedTable();
    bool RenameTo(PayTableQuestions& questions, const std::string& newName);
    std::vector<std::string> FinishInGameFiles(TableEdit edit);
    void TellOfGameFiles(PayTableQuestions& questions, const std::vector<std::string>& unsaved);
    void Empty();

    Seat& seat;
    const DataFilePaths& paths;
    int gameId;
    int tableIndex;
    bool newGame;
    std::string savedName;                          // of the new game, when it was last saved
    std::array<bool, kMaxPayLines> payoutLoaded{};  // lines that had a value when it was loaded
    std::array<bool, kMaxPayLines> maxPayoutLoaded{};
    std::optional<TableOfGame> madeActive;
};
