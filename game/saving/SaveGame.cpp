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

Standing StandingOf(const Seat& seat) { return seat.files.file.StandingOf(seat.files.gamePath); }

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

StoredState StateOf(GameEngine& engine) {
    return {engine.settings, engine.statistics, engine.payTable};
}

enum class Session { kGoesOn, kBegins };

// In memory alone when the file is not the machine's: there it waits for another file.
bool Write(Seat& seat, Session session, bool toDisk) {
    const GameFiles& files = seat.files;
    WriteSession(files.Game(), StateOf(seat.engine), session == Session::kBegins, seat.clock.Now());
    if (!toDisk) return false;
    const bool saved = files.file.Save(files.gamePath);
    if (saved) NoteKept(seat);
    return ReportSave(seat, saved);
}

bool SaveWithBetBack(Seat& seat, Session session) {
    const bool owned = OwnsGameFile(seat);  // which may load another game
    const GivenBack bet(seat.engine);
    return Write(seat, session, owned);
}

std::string InUse(const std::string& path, const std::string& what) {
    return "The game file " + path + " " + what;
}

// Whether the player has not been told this yet; now it counts as told.
bool IsNews(Seat& seat, const std::string& text) {
    return std::exchange(seat.saveTold, text) != text;
}

void Tell(Seat& seat, const std::string& text) {
    if (IsNews(seat, text)) seat.player.Tell("Save Error", text, MessageIcon::kError);
}

// Whether the player has to choose between the machine and what is in its file now.
bool NeedsDecision(Seat& seat) { return StandingOf(seat) != Standing::kOurs && !WhyNotSaved(seat); }

// The player decides between the game at the machine and that of the file.
bool Decides(Seat& seat, const std::string& happened) {
    const std::string text = InUse(seat.files.gamePath, happened);
    if (IsAsKept(seat)) {
        ReloadGameFile(seat);
        seat.player.Tell(kGameFile, text + " The game goes on as it is there.", MessageIcon::kNone);
        return true;
    }
    if (!IsNews(seat, text)) return false;
    const bool loads = seat.player.SaysYes(
        kGameFile, text +
                       "\n\nLoad it, and lose what was played here since then? No keeps the game "
                       "at the table: you choose another file to save it in.");
    if (loads) {
        ReloadGameFile(seat);
        return true;
    }
    SaveGameFileAs(seat);
    return StandingOf(seat) == Standing::kOurs;
}

bool WriteCopy(Seat& seat, const std::string& path) {
    const GameFiles& files = seat.files;
    files.file.Flush();
    const std::string text = files.file.WholeText(files.gamePath).value_or("");
    return files.file.Make(path, text, [&] {
        WriteSession({files.file, path}, StateOf(seat.engine), false, seat.clock.Now());
    });
}

// What the old file could not take is in the new one, and need not be brought there any more.
void MoveTo(Seat& seat, const std::string& path, LockFile lock) {
    const std::string old = seat.files.gamePath;
    GoOnIn(seat, path, std::move(lock));
    if (!SameFile(old, path)) seat.files.file.Forget(old);
    NoteKept(seat);
}

}  // namespace

bool SaveGame(Seat& seat) { return SaveWithBetBack(seat, Session::kGoesOn); }

bool SaveNewSession(Seat& seat) { return SaveWithBetBack(seat, Session::kBegins); }

bool SaveGameToStop(Seat& seat) {
    AskAgain(seat);
    return Write(seat, Session::kGoesOn, OwnsGameFile(seat));
}

void SaveGameQuietly(Seat& seat) {
    if (StandingOf(seat) != Standing::kOurs) return;
    const GivenBack bet(seat.engine);
    SaveSettings(seat.files.Game(), StateOf(seat.engine), false, seat.clock.Now());
}

bool OwnsGameFile(Seat& seat) {
    if (StandingOf(seat) == Standing::kOurs) return true;
    if (WhyNotSaved(seat)) {
        TellWhyNotSaved(seat);
        return false;
    }
    return Decides(seat, StandingOf(seat) == Standing::kChanged
                             ? "was changed by another program since it was read or saved here."
                             : "can be read now, which it could not be before.");
}

bool IsBetweenHands(const GameEngine& engine) {
    return (engine.handOver || engine.fixedHand) && !FeaturePending(engine);
}

bool SaveIsDue(const Seat& seat, bool rested) {
    if (!IsBetweenHands(seat.engine)) return false;
    if (!seat.saveDue && IsAsKept(seat)) return false;
    if (rested) return true;
    // A save that failed is tried again when the machine rests, not after every press.
    if (!seat.saveTold.empty()) return false;
    return seat.saveDue || seat.clock.Now() - seat.keptAt >= kSteadyPlay;
}

void KeepPlay(Seat& seat, bool rested) {
    if (SaveIsDue(seat, rested)) {
        SaveGame(seat);
    } else if (seat.files.file.IsDirty()) {
        // Of what else waits to be written, those tell who show it.
        const GameFiles& files = seat.files;
        if (StandingOf(seat) == Standing::kOurs) {
            ReportSave(seat, files.file.Save(files.gamePath));
        } else {
            files.file.Flush();
        }
    }
}

std::optional<std::string> WhyNotSaved(Seat& seat) {
    const std::string& path = seat.files.gamePath;
    if (StandingOf(seat) == Standing::kOurs) return std::nullopt;
    if (auto problem = GameFileProblem(path)) return problem;
    return seat.gameLock ? std::nullopt : LockProblem(path);
}

void TellWhyNotSaved(Seat& seat) {
    const auto problem = WhyNotSaved(seat);
    if (!problem) return;
    Tell(seat, InUse(seat.files.gamePath, *problem) +
                   ", so that nothing you play is saved.\n\nFile Open chooses another game file, "
                   "File New makes a new one, and File Save As makes one of the game as it is "
                   "now.");
}

void AskAgain(Seat& seat) {
    if (NeedsDecision(seat)) seat.saveTold.clear();
}

bool ReportSave(Seat& seat, bool saved) {
    if (saved) {
        seat.saveTold.clear();
    } else if (WhyNotSaved(seat)) {
        TellWhyNotSaved(seat);
    } else {
        Tell(seat, "The game could not be saved in " + seat.files.gamePath +
                       ".\n\nMake room on its disk, and see to it that you may write the file "
                       "and its folder. The file is as it was after the last save, and the "
                       "program will try again.");
    }
    return saved;
}

void SaveGameFile(Seat& seat) {
    seat.saveTold.clear();
    SaveGame(seat);
}

void SaveGameFileAs(Seat& seat) {
    const auto path = seat.player.AskFileToSave(ProposedPath(seat));
    if (!path || !MayBeGameFile(seat, *path)) return;
    if (IsInUse(seat, *path) && StandingOf(seat) == Standing::kOurs) {
        return SaveGameFile(seat);
    }
    auto lock = TakeLock(seat, *path);
    if (!lock) return;
    if (WriteCopy(seat, *path)) {
        MoveTo(seat, *path, std::move(*lock));
    } else {
        StayIn(seat, *path, std::move(lock));
    }
}
