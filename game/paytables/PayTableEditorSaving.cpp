// What the manager does to the files, and what becomes of the game in play then.
#include <algorithm>

#include "core/paytable/GameCatalogue.h"
#include "core/paytable/ShippedPayTables.h"
#include "core/store/AnalysisCache.h"
#include "core/text/Numbers.h"
#include "game/commands/GameSelection.h"
#include "game/paytables/PayTableEditor.h"
#include "game/paytables/PayTableGameFiles.h"
#include "game/paytables/PayTableLines.h"
#include "game/saving/SaveGame.h"

namespace {

constexpr auto kInputError = "Input Error";
constexpr auto kError = "Error";

bool SaveFails(PayTableQuestions& questions) {
    questions.Tell(kError,
                   "The pay table could not be saved, and everything is as it was.\n\nMake room on "
                   "the disk, and see to it that you may write the program's data folder.");
    return false;
}

std::string AlreadyExists(const std::string& name) { return "\"" + name + "\" already exists"; }

bool IsBuiltIn(const std::string& name) {
    return std::ranges::any_of(BuiltInGames(),
                               [&](const BuiltInGame& game) { return SameText(game.name, name); });
}

}  // namespace

bool PayTableEditor::MayLeave(PayTableQuestions& questions) {
    if (!IsChanged()) return true;
    switch (questions.Leaves("Pay Table Manager", "Save the changes to this table?")) {
        case LeaveChoice::kSave:
            return Save(questions);
        case LeaveChoice::kDiscard:
            return true;
        case LeaveChoice::kCancel:
            break;
    }
    return false;
}

bool PayTableEditor::IsOtherUserGame(const std::string& name) const {
    const int ownSlot = gameId - kFirstUserGameId + 1;
    for (int slot = 1; slot <= kMaxUserGames; ++slot) {
        if (slot != ownSlot && SameText(UserGameName(seat.files.Main(), slot), name)) return true;
    }
    return false;
}

// Of the name of a new game.
std::string PayTableEditor::NameProblem(const std::string& name) const {
    if (auto problem = GameNameProblem(name); !problem.empty()) return problem;
    if (IsOtherUserGame(name)) return AlreadyExists(name);
    const int id = GameIdFromName(seat.files.Main(), name);
    const bool hasTable = TableExists(seat.files.Main(), name, 0);
    if (IsBuiltIn(name) || (hasTable && !::IsUserGame(id))) {
        return AlreadyExists(name) +
               ". A user-defined game can not have the same name as a pre-defined game.";
    }
    return "";
}

// Of the name that a game shall be renamed to.
std::string PayTableEditor::NewNameProblem(const std::string& name) const {
    if (auto problem = GameNameProblem(name); !problem.empty()) return problem;
    const bool exists =
        TableExists(seat.files.Main(), name, 0) || IsBuiltIn(name) || IsOtherUserGame(name);
    return exists ? AlreadyExists(name) : "";
}

bool PayTableEditor::Refuses(PayTableQuestions& questions) const {
    const auto problem = Problem();
    if (problem) questions.Refuse(kInputError, problem->text, problem->where);
    return problem.has_value();
}

bool PayTableEditor::Save(PayTableQuestions& questions) {
    if (Refuses(questions)) return false;
    if (MayName()) return WriteInPlace(questions);
    if (!IsUserGame() && tableIndex == 0) {
        questions.Tell(kError,
                       "You can not overwrite the default pay table for a pre-defined game");
        return false;
    }
    if (!TableExists(seat.files.Main(), gameName, 0)) return Append(questions);
    switch (questions.Overwrites("Overwrite?",
                                 "Do you wish to overwrite table " + std::to_string(tableIndex) +
                                     "? If NO, the current table will be added as a new index.")) {
        case OverwriteChoice::kOverwrite:
            return WriteInPlace(questions);
        case OverwriteChoice::kAppend:
            return Append(questions);
        case OverwriteChoice::kCancel:
            break;
    }
    return false;
}

bool PayTableEditor::Add(PayTableQuestions& questions) {
    if (Refuses(questions)) return false;
    return IsStored() ? Append(questions) : WriteInPlace(questions);
}

bool PayTableEditor::WriteInPlace(PayTableQuestions& questions) {
    if (!TakeTypedName(questions)) return false;
    const std::string before = PaysHash(StoredTable());
    texts = WithPlainNumbers(texts);
    if (!WritePayTable(Files(), Shown(), texts, IsStored() ? kStoredLinks : kNoNeighbours)) {
        return SaveFails(questions);
    }
    if (!IsStored()) making = Making::kFirstTableStored;
    if (PaysHash(StoredTable()) != before) ForgetAnalysis();
    FinishEdit(seat.files.Main());
    keptName = gameName;
    KeepStored();
    history.Amend(State());
    return true;
}

// A report must never show the return of the table as it was.
void PayTableEditor::ForgetAnalysis() {
    FollowInAnalyses(Files(), {TableEdit::Kind::kTableWritten, gameName, tableIndex});
}

PayTable PayTableEditor::StoredTable() const {
    return LoadPayTable(seat.files.Main(), Shown(), "");
}

// A name that was typed since a new game was saved.
void PayTableEditor::DropTypedName() {
    if (IsStored()) gameName = keptName;
}

// A new game that is saved under one name and then under another is still one game.
bool PayTableEditor::TakeTypedName(PayTableQuestions& questions) {
    const std::string typed = gameName;
    DropTypedName();
    if (typed == gameName || RenameTo(questions, typed)) return true;
    gameName = typed;
    return false;
}

bool PayTableEditor::Append(PayTableQuestions& questions) {
    if (!TakeTypedName(questions)) return false;
    const auto chain = TableChain(seat.files.Main(), gameName);
    if (!chain.empty() && chain.back() >= kLastTableIndex) {
        questions.Tell(kError, "There is no index left for another table of this game");
        return false;
    }
    texts = WithPlainNumbers(texts);
    const auto index = AppendTable(Files(), Shown(), texts);
    if (!index) return SaveFails(questions);
    tableIndex = *index;
    making = Making::kMade;
    // The steps were taken for the table that it has become, and none can name the game any more.
    history.ChangeAll([this](FormState& state) {
        state.tableIndex = tableIndex;
        state.gameName = gameName;
    });
    history.Amend(State());
    KeepStored();
    return true;
}

bool PayTableEditor::MakeActive(PayTableQuestions& questions) {
    if (Refuses(questions)) return false;
    const bool changesDefault = !IsUserGame() && tableIndex == 0 && IsChanged();
    if (changesDefault && !questions.Agrees("Make Active",
                                            "This overwrites the default pay table of a "
                                            "pre-defined game. Do you wish to continue?")) {
        return false;
    }
    if (!WriteInPlace(questions)) return false;
    madeActive = Shown();
    return true;
}

bool PayTableEditor::Restore(PayTableQuestions& questions) {
    const auto shipped = ShippedSection(TableSection(gameName, 0));
    if (!HasShippedTable() || !shipped) return false;
    const bool confirmed = questions.Confirms(
        "Restore", "Do you wish to restore the default pay table of " + gameName +
                       " as it came with the program? Your changes to it will be lost.");
    if (!confirmed) return false;
    const std::string before = PaysHash(StoredTable());
    if (!WriteTableSection(Files(), Shown(), *shipped)) return SaveFails(questions);
    if (PaysHash(StoredTable()) != before) ForgetAnalysis();
    FinishEdit(seat.files.Main());
    Load(gameName, 0);
    BeginTable();
    return true;
}

void PayTableEditor::Delete(PayTableQuestions& questions) {
    if (Refuses(questions)) return;
    const bool wholeGame = tableIndex == 0;
    const bool confirmed = questions.Confirms(
        "Confirm Delete",
        wholeGame ? "Deleting the default pay table will delete the entire game? Continue?"
                  : "Are you sure you want to delete this pay table?");
    if (!confirmed) return;
    DropTypedName();
    const bool deleted =
        wholeGame ? DeleteGameTables(Files(), Shown()) : UnlinkTable(Files(), gameName, tableIndex);
    if (!deleted) {
        SaveFails(questions);
        return;
    }
    LeaveDeletedTable();
    const auto kind = wholeGame ? TableEdit::Kind::kGameDeleted : TableEdit::Kind::kTableDeleted;
    const auto unsaved = FinishInGameFiles({kind, gameName, tableIndex});
    Empty();
    TellOfGameFiles(questions, unsaved);
}

// What cannot be saved is told, and not tried again.
std::vector<std::string> PayTableEditor::FinishInGameFiles(TableEdit edit) {
    edit.gamePath = seat.files.gamePath;
    auto unsaved = FollowInGameFiles(seat.files.file, edit, paths.folder);
    FinishEdit(seat.files.Main());
    return unsaved;
}

// Before its statistics go: what leaves a game saves them once more.
void PayTableEditor::LeaveDeletedTable() {
    const MachineSettings& settings = seat.engine.settings;
    const auto isDeleted = [this](const std::string& name, int index) {
        return SameText(name, gameName) && (tableIndex == 0 || index == tableIndex);
    };
    if (madeActive && isDeleted(madeActive->gameName, madeActive->tableIndex)) {
        if (tableIndex == 0) {
            madeActive.reset();
        } else {
            madeActive->tableIndex = 0;
        }
    }
    if (!isDeleted(settings.gameName, settings.activeTable)) return;
    if (tableIndex == 0) {
        ChooseGame(seat, MachineSettings().gameId);
    } else {
        ChooseGame(seat, settings.gameId, 0);
    }
}

void PayTableEditor::Rename(PayTableQuestions& questions) {
    if (Refuses(questions)) return;
    DropTypedName();
    std::string typed = gameName;
    for (;;) {
        const auto newName = questions.RenamesGame(gameName, typed);
        if (!newName) return;
        const std::string problem = NewNameProblem(*newName);
        if (problem.empty()) {
            RenameTo(questions, *newName);
            return;
        }
        questions.Tell(kInputError, problem);
        typed = *newName;
    }
}

// The game in play is saved before its statistics are renamed with those of the other files.
bool PayTableEditor::RenameTo(PayTableQuestions& questions, const std::string& newName) {
    GameEngine& engine = seat.engine;
    if (!RenameGameTables(Files(), Shown(), newName)) return SaveFails(questions);
    const bool inPlay = SameText(engine.settings.gameName, gameName);
    if (inPlay) SaveGame(seat);
    const auto unsaved = FinishInGameFiles({TableEdit::Kind::kGameRenamed, gameName, 0, newName});
    if (inPlay) {
        engine.settings.gameName = newName;
        ReloadPayTable(seat);
    }
    if (madeActive && SameText(madeActive->gameName, gameName)) madeActive->gameName = newName;
    history.ChangeAll([&](FormState& state) {
        if (state.gameName == gameName) state.gameName = newName;
    });
    gameName = keptName = newName;
    TellOfGameFiles(questions, unsaved);
    return true;
}

void PayTableEditor::TellOfGameFiles(PayTableQuestions& questions,
                                     const std::vector<std::string>& unsaved) {
    if (unsaved.empty()) return;
    std::string text = "These game files could not be saved, and still have the old name or table:";
    for (const std::string& path : unsaved) text += "\n" + path;
    questions.Tell(kError, text);
}

void PayTableEditor::Empty() {
    gameName.clear();
    if (MayName()) making = Making::kNothingStored;
    tableIndex = MayName() ? 0 : -1;
    texts = PayTableTexts();
    BeginTable();
}
