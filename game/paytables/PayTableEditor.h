// The pay table manager without its window: one table of one game is shown and edited, and saved,
// deleted or made active with what depends on it. The texts change as the player types; nothing is
// stored before he says so, and a refusal or a failure leaves everything as it was.
#pragma once
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "core/store/DataFiles.h"
#include "game/paytables/FormHistory.h"
#include "game/paytables/PayTableForm.h"
#include "game/paytables/TableImport.h"
#include "game/seat/Seat.h"

enum class OverwriteChoice { kOverwrite, kAppend, kCancel };
enum class LeaveChoice { kSave, kDiscard, kCancel };

// What the manager tells and asks; messages have an error icon.
class PayTableQuestions {
  public:
    virtual ~PayTableQuestions() = default;

    // The field is where the player goes on.
    virtual void Refuse(const std::string& caption, const std::string& text, FieldPlace where) = 0;
    virtual void Tell(const std::string& caption, const std::string& text) = 0;
    virtual OverwriteChoice Overwrites(const std::string& caption, const std::string& question) = 0;
    virtual LeaveChoice Leaves(const std::string& caption, const std::string& question) = 0;

    // OK or Cancel, and Yes or No.
    virtual bool Confirms(const std::string& caption, const std::string& question) = 0;
    virtual bool Agrees(const std::string& caption, const std::string& question) = 0;

    // Nothing when cancelled. The new name is proposed as it was typed last.
    virtual std::optional<std::string> SelectsGame(const std::vector<std::string>& games,
                                                   const std::string& current) = 0;
    virtual std::optional<std::string> RenamesGame(const std::string& current,
                                                   const std::string& typed) = 0;
};

enum class TableFormat { kText, kCsv };

class PayTableEditor {
  public:
    // The objects referred to outlive the editor. newGame: the first table of a user game is made.
    // The player may type the name of the game until it has a second table or another game is
    // shown; what is saved under a new name renames it.
    PayTableEditor(Seat& seat, const DataFilePaths& paths, TableOfGame shown, bool newGame = false);

    std::string gameName;  // at most 80 bytes; empty after a deletion
    PayTableTexts texts;

    int GameId() const { return gameId; }
    int TableIndex() const { return tableIndex; }  // -1 where there is none
    bool IsUserGame() const { return ::IsUserGame(gameId); }

    // Whether there is a table to be edited and saved. A deletion leaves none until a game is
    // chosen; a game that was being made can be begun again.
    bool HasTable() const { return tableIndex >= 0; }

    // Whether the table is of a user game: it may be made from a template and deleted, and its game
    // renamed.
    bool HasOwnTable() const { return HasTable() && IsUserGame(); }

    // Whether the table may be deleted: any of a user game, and those that were added to a built-in
    // one.
    bool HasDeletableTable() const { return HasOwnTable() || tableIndex > 0; }

    // Whether the program came with the table.
    bool HasShippedTable() const;

    // Whether the player may use a field. The types without a box cannot be changed.
    bool IsEnabled(FieldPlace place) const;

    // Whether a cell of a spreadsheet may go there, with others of its line.
    bool TakesCell(FieldPlace place) const;
    bool HasNextTable() const;
    bool HasPreviousTable() const;

    // Of the table, and of the name where that may be typed. What keeps it from being saved, or
    // what to do where there is none.
    std::optional<FormProblem> Problem() const;

    // Of the table alone, whatever its name.
    std::optional<FormProblem> TableProblem() const;

    // Whether saving would change what is stored. What stands below the end of the table counts.
    bool IsChanged() const;

    // What is stored where the shown table is; nothing where it has never been saved.
    std::optional<PayTable> StoredFigures() const;

    // The window says what the player has done to the fields; what is typed into one of them
    // without anything else in between is one step.
    void NoteTyped(FieldPlace place);
    void NoteChange();
    bool CanUndo() const { return history.CanUndo(); }
    bool CanRedo() const { return history.CanRedo(); }
    void Undo();
    void Redo();

    // Whether another table or game, or none, may be shown now: asks what to do with changes. False
    // when they stay: on Cancel, and when they cannot be saved.
    bool MayLeave(PayTableQuestions& questions);

    // Along the chain as it was before the question: changes that are saved as a new table do not
    // lead to its neighbours.
    void GoToNextTable(PayTableQuestions& questions);
    void GoToPreviousTable(PayTableQuestions& questions);

    void Clear();
    void LoadTemplate(PayTableQuestions& questions);
    void ChangeGame(PayTableQuestions& questions);

    // In place or as a new table of the game, as the player answers; the first table of a built-in
    // game is refused. False when it is not saved, as of the next two.
    bool Save(PayTableQuestions& questions);

    // Saves the table as a new one of the game, whichever it is. A game without tables is saved.
    bool Add(PayTableQuestions& questions);

    // Saves the table in place; asks first where that would change the first one of a built-in
    // game.
    bool MakeActive(PayTableQuestions& questions);

    // Writes the shipped table over the stored one and shows it. It is no step to be undone.
    bool Restore(PayTableQuestions& questions);

    // The shown table, or all tables of the game with this one as it is shown. Nothing when it is
    // refused.
    std::optional<std::string> ExportTable(PayTableQuestions& questions, TableFormat format) const;
    std::optional<std::string> ExportGame(PayTableQuestions& questions, TableFormat format) const;

    // Takes the tables of a text. A single one is shown as a change of the table that is shown;
    // several are added to the game, all or none, and the first one is shown. A text that begins
    // with a section is no CSV. What was done, for the player; nothing when it is refused or
    // cancelled.
    std::optional<std::string> Import(PayTableQuestions& questions, const std::string& text);

    void Delete(PayTableQuestions& questions);
    void Rename(PayTableQuestions& questions);

    // What was made active, as it is now called; nothing when nothing was, or it is gone.
    const std::optional<TableOfGame>& MadeActive() const { return madeActive; }

  private:
    // How far a game that is made here has come. Until kMade it has the table 0 at most, which is
    // the one that is shown.
    enum class Making { kNothingStored, kFirstTableStored, kMade };

    PayTableFiles Files() const;
    TableOfGame Shown() const { return {gameId, gameName, tableIndex}; }
    bool MayName() const { return making != Making::kMade; }
    bool IsStored() const { return making != Making::kNothingStored; }
    std::string StoredName() const { return IsStored() ? keptName : ""; }
    FormState State() const;
    void Show(const FormState& state);
    void KeepStored();
    void BeginTable();
    void DropTypedName();
    bool TakeTypedName(PayTableQuestions& questions);
    void Load(const std::string& fromGame, int fromIndex);
    void GoTo(PayTableQuestions& questions, int index);
    std::string NameProblem(const std::string& name) const;
    std::string NewNameProblem(const std::string& name) const;
    bool IsOtherUserGame(const std::string& name) const;
    bool Refuses(PayTableQuestions& questions) const;
    bool WriteInPlace(PayTableQuestions& questions);
    PayTable StoredTable() const;
    bool Append(PayTableQuestions& questions);
    void ForgetAnalysis();
    NamedTable NamedShown() const { return {gameName, tableIndex, texts}; }
    std::string MisfitOf(const PayTableTexts& table) const;
    void ImportOne(const NamedTable& table);
    void TakeImportedName(const std::string& name);
    std::optional<std::string> ImportAll(PayTableQuestions& questions,
                                         const std::vector<NamedTable>& tables);
    void LeaveDeletedTable();
    bool RenameTo(PayTableQuestions& questions, const std::string& newName);
    std::vector<std::string> FinishInGameFiles(TableEdit edit);
    void TellOfGameFiles(PayTableQuestions& questions, const std::vector<std::string>& unsaved);
    void Empty();

    Seat& seat;
    const DataFilePaths& paths;
    int gameId;
    int tableIndex;
    Making making;
    std::array<bool, kMaxPayLines> payoutLoaded{};  // lines that had a value when it was loaded
    std::array<bool, kMaxPayLines> maxPayoutLoaded{};
    PayTableTexts kept;    // what is stored, as AsKept has it
    std::string keptName;  // under which the game is stored, or what it is called until it is
    FormHistory history;
    std::optional<TableOfGame> madeActive;
};
