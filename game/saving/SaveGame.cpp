#include "game/saving/SaveGame.h"

#include <algorithm>
#include <utility>

#include "core/profile/AtomicFile.h"
#include "core/profile/ProfileFile.h"
#include "core/store/Session.h"
#include "game/saving/GameFile.h"

namespace {

using Standing = ProfileFile::Standing;

constexpr auto kGameFile = "Game File";
constexpr std::int64_t kSteadyPlay = 10;  // seconds that may be lost with the program

Standing StandingOf(const GameTable& table) {
    return table.files.file.StandingOf(table.files.gamePath);
}

// While it lives, the bet of an open hand has not been made.
class GivenBack {
  public:
    explicit GivenBack(GameEngine& played)
        : engine(played),
          credits(played.settings.credits),
          creditsPlayed(played.statistics.creditsPlayed.total) {
        if (engine.handOver || engine.fixedHand) return;
        const int bet = engine.settings.bet;
        engine.settings.credits = AddCapped(credits, bet);
        engine.statistics.creditsPlayed.total = std::max(0, AddCapped(creditsPlayed, -bet));
    }
    ~GivenBack() {
        engine.settings.credits = credits;
        engine.statistics.creditsPlayed.total = creditsPlayed;
    }
    GivenBack(const GivenBack&) = delete;
    GivenBack& operator=(const GivenBack&) = delete;

  private:
    GameEngine& engine;
    const std::int32_t credits;
    const std::int32_t creditsPlayed;
};

enum class Session { kGoesOn, kBegins };

// In memory alone when the file is not the table's: there it waits for another file.
bool Write(GameTable& table, Session session, bool toDisk) {
    GameEngine& engine = table.engine;
    const GameFiles& files = table.files;
    const StoredState state{engine.settings, engine.statistics, engine.payTable};
    WriteSession(files.file, files.gamePath, state, session == Session::kBegins, table.clock.Now());
    if (!toDisk) return false;
    const bool saved = files.file.Save(files.gamePath);
    if (saved) NoteKept(table);
    return ReportSave(table, saved);
}

bool SaveWithBetBack(GameTable& table, Session session) {
    const bool owned = OwnsGameFile(table);  // which may load another game
    const GivenBack bet(table.engine);
    return Write(table, session, owned);
}

std::string InUse(const std::string& path, const std::string& what) {
    return "The game file " + path + " " + what;
}

// Whether the player has not been told this yet; now it counts as told.
bool IsNews(GameTable& table, const std::string& text) {
    return std::exchange(table.saveTold, text) != text;
}

void Tell(GameTable& table, const std::string& text) {
    if (IsNews(table, text)) table.player.Tell("Save Error", text, MessageIcon::kError);
}

// Whether the player has to choose between the table and what is in its file now.
bool NeedsDecision(GameTable& table) {
    return StandingOf(table) != Standing::kOurs && !WhyNotSaved(table);
}

// The player decides between the game at the table and that of the file.
bool Decides(GameTable& table, const std::string& happened) {
    const std::string text = InUse(table.files.gamePath, happened);
    if (IsAsKept(table)) {
        ReloadGameFile(table);
        table.player.Tell(kGameFile, text + " The game goes on as it is there.",
                          MessageIcon::kNone);
        return true;
    }
    if (!IsNews(table, text)) return false;
    const bool loads = table.player.SaysYes(
        kGameFile, text +
                       "\n\nLoad it, and lose what was played here since then? No keeps the game "
                       "at the table: you choose another file to save it in.");
    if (loads) {
        ReloadGameFile(table);
        return true;
    }
    SaveGameFileAs(table);
    return StandingOf(table) == Standing::kOurs;
}

bool WriteCopy(GameTable& table, const std::string& path) {
    const GameFiles& files = table.files;
    files.file.Flush();
    const std::string text = files.file.WholeText(files.gamePath).value_or("");
    GameEngine& engine = table.engine;
    return files.file.Make(path, text, [&] {
        const StoredState state{engine.settings, engine.statistics, engine.payTable};
        WriteSession(files.file, path, state, false, table.clock.Now());
    });
}

// What the old file could not take is in the new one, and need not be brought there any more.
void MoveTo(GameTable& table, const std::string& path, LockFile lock) {
    const std::string old = table.files.gamePath;
    GoOnIn(table, path, std::move(lock));
    if (!SameFile(old, path)) table.files.file.Forget(old);
    NoteKept(table);
}

}  // namespace

bool SaveGame(GameTable& table) { return SaveWithBetBack(table, Session::kGoesOn); }

bool SaveNewSession(GameTable& table) { return SaveWithBetBack(table, Session::kBegins); }

bool SaveGameToStop(GameTable& table) {
    AskAgain(table);
    return Write(table, Session::kGoesOn, OwnsGameFile(table));
}

void SaveGameQuietly(GameTable& table) {
    if (StandingOf(table) != Standing::kOurs) return;
    const GivenBack bet(table.engine);
    const GameFiles& files = table.files;
    const StoredState state{table.engine.settings, table.engine.statistics, table.engine.payTable};
    SaveSettings(files.file, files.gamePath, state, false, table.clock.Now());
}

bool OwnsGameFile(GameTable& table) {
    if (StandingOf(table) == Standing::kOurs) return true;
    if (WhyNotSaved(table)) {
        TellWhyNotSaved(table);
        return false;
    }
    return Decides(table, StandingOf(table) == Standing::kChanged
                              ? "was changed by another program since it was read or saved here."
                              : "can be read now, which it could not be before.");
}

bool IsBetweenHands(const GameEngine& engine) {
    return (engine.handOver || engine.fixedHand) && !FeaturePending(engine);
}

bool SaveIsDue(const GameTable& table, bool rested) {
    if (!IsBetweenHands(table.engine)) return false;
    if (!table.saveDue && IsAsKept(table)) return false;
    if (rested) return true;
    // A save that failed is tried again when the machine rests, not after every press.
    if (!table.saveTold.empty()) return false;
    return table.saveDue || table.clock.Now() - table.keptAt >= kSteadyPlay;
}

void KeepPlay(GameTable& table, bool rested) {
    if (SaveIsDue(table, rested)) {
        SaveGame(table);
    } else if (table.files.file.IsDirty()) {
        const bool written = table.files.file.Flush();
        if (StandingOf(table) == Standing::kOurs) ReportSave(table, written);
    }
}

std::optional<std::string> WhyNotSaved(GameTable& table) {
    const std::string& path = table.files.gamePath;
    if (StandingOf(table) == Standing::kOurs) return std::nullopt;
    if (auto problem = GameFileProblem(path)) return problem;
    return table.gameLock ? std::nullopt : LockProblem(path);
}

void TellWhyNotSaved(GameTable& table) {
    const auto problem = WhyNotSaved(table);
    if (!problem) return;
    Tell(table, InUse(table.files.gamePath, *problem) +
                    ", so that nothing you play is saved.\n\nFile Open chooses another game file, "
                    "File New makes a new one, and File Save As makes one of the game as it is "
                    "now.");
}

void AskAgain(GameTable& table) {
    if (NeedsDecision(table)) table.saveTold.clear();
}

bool ReportSave(GameTable& table, bool saved) {
    if (saved) {
        table.saveTold.clear();
    } else if (WhyNotSaved(table)) {
        TellWhyNotSaved(table);
    } else {
        Tell(table, "The game could not be saved in " + table.files.gamePath +
                        ".\n\nMake room on its disk, and see to it that you may write the file "
                        "and its folder. The file is as it was after the last save, and the "
                        "program will try again.");
    }
    return saved;
}

void SaveGameFile(GameTable& table) {
    table.saveTold.clear();
    SaveGame(table);
}

void SaveGameFileAs(GameTable& table) {
    const auto path = table.player.AskFileToSave(ProposedPath(table));
    if (!path || !MayBeGameFile(table, *path)) return;
    if (IsInUse(table, *path) && StandingOf(table) == Standing::kOurs) {
        return SaveGameFile(table);
    }
    auto lock = TakeLock(table, *path);
    if (!lock) return;
    if (WriteCopy(table, *path)) {
        MoveTo(table, *path, std::move(*lock));
    } else {
        StayIn(table, *path, std::move(lock));
    }
}
