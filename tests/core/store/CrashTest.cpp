// The program killed before each single step by which it changes the disk, and in the middle of
// each write. A kill stands for every end that gives no warning but the power cut, which the tests
// cannot make. Then the program starts as it always does: of what was done, all or nothing is
// there.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <vector>

#include "core/store/ErrorLog.h"
#include "core/store/LockFile.h"
#include "core/store/Migration.h"
#include "game/commands/FileCommands.h"
#include "game/commands/GameSelection.h"
#include "game/commands/MachineCommands.h"
#include "game/paytables/PayTableEditor.h"
#include "game/saving/SaveGame.h"
#include "game/session/StartAndStop.h"
#include "tests/core/store/CrashFiles.h"
#include "tests/core/store/DiskSteps.h"
#include "tests/game/ManagerTable.h"

namespace fs = std::filesystem;

namespace {

using disk::Fate;
using namespace crash;

// Built once, before any child of this process is.
LineTableCache& Tables() {
    static LineTableCache cache;
    return cache;
}

// The program, started as it is started, with nobody at it. The clock, which is the deck's seed
// too, stands still, so that two runs write the same bytes.
struct Program {
    // installed: the shipped files lie in another folder.
    Program(const TemporaryFolder& folder, bool installed)
        : paths(*FindDataFiles({folder.Path(installed ? "lib/Tolvane" : "data/Tolvane"), !installed,
                                folder.Path("share"), ""})) {
        engine.deck.clock = [] { return std::int64_t{1'790'000'000}; };
        EXPECT_TRUE(CreateDataFolder(paths));
        lock = LockFile::OfDataFolder(paths.folder);
        problems = MigrateDataFiles(paths, file);
        if (!problems.empty()) return;
        StartGame(seat, paths);
        FinishStart(seat);
    }

    double Dollars() const { return engine.settings.coin * engine.settings.credits; }
    PayTableEditor Editor(int index) { return {seat, paths, {9001, "Mine", index}}; }

    ProfileFile file;
    DataFilePaths paths;
    std::optional<LockFile> lock;
    std::vector<std::string> problems;
    GameEngine engine;
    GameFiles files{file, "", ""};
    Recorder ports{engine};
    ManagerRecorder manager;
    Seat seat{.engine = engine,
              .files = files,
              .tables = Tables(),
              .display = ports,
              .player = ports,
              .sounds = ports,
              .clock = ports};
};

using Act = void (*)(Program&);

struct Scenario {
    const char* name;
    FileMap (*before)();  // the files that the program finds
    std::vector<Act>
        stages;  // of what is done, behind a start; each ends in files that may be found
    void (*holds)(const Program&) = nullptr;  // after every start
    bool installed = false;
};

void PrintTo(const Scenario& scenario, std::ostream* out) { *out << scenario.name; }

void Save(Program& program) { SaveGame(program.seat); }

// A command on the table, the player choosing another file or having won some money.
template <void (*command)(Seat&)>
void InOther(Program& program) {
    program.ports.answers = {program.paths.folder + "Other.qdx"};
    command(program.seat);
}

template <void (*command)(Seat&)>
void WithMoney(Program& program) {
    program.engine.settings.credits += 123;
    InOther<command>(program);
}

void PlayTenHands(Program& program) {
    for (int press = 0; press < 20; ++press) DealDraw(program.seat);
    SaveGameFile(program.seat);
}

void StorePath(Program& program) {
    StoreCurrentGamePath(program.files.gamePath, program.paths, program.file);
}

void HasAllOrNoneOfTheHands(const Program& program) {
    const Statistics& statistics = program.engine.statistics;
    const int hands = statistics.handsPlayed.total;
    EXPECT_TRUE(hands == 0 || hands == 10) << hands;
    EXPECT_EQ(program.engine.settings.credits, 400 - 5 * hands + statistics.creditsWon.total);
}

void HasItsMoney(const Program& program) { EXPECT_EQ(program.Dollars(), 100); }

void HasUpgraded(const Program& program) {
    EXPECT_EQ(program.engine.settings.gameName, "Mine");
    EXPECT_EQ(program.engine.settings.credits, 40);
    EXPECT_EQ(program.engine.statistics.creditsPlayed.total, 5);
}

void EditTable(Program& program) {
    auto editor = program.Editor(1);
    editor.texts.lines[4].payout = "5";
    program.manager.answers = {"yes"};
    editor.Save(program.manager);
}

template <int index>
void Delete(Program& program) {
    auto editor = program.Editor(index);
    program.manager.answers = {"ok"};
    editor.Delete(program.manager);
}

void RenameOwnGame(Program& program) {
    auto editor = program.Editor(0);
    program.manager.answers = {"Yours"};
    editor.Rename(program.manager);
}

// Errors are known by their returns, which are their dates too.
FileMap WithErrors() {
    FileMap files = Played();
    std::string log = "[Jacks or Better(0)]\nNextError=3\nPlayErrors=3\n";
    std::string dates = "[Error Dates Jacks or Better(0)]\n";
    for (const std::string number : {"0", "1", "2"}) {
        log += "Error" + number + "=0,1,2,3,4,5,6,7,8,9,31,0," + number + ",0\n";
        dates += "Error" + number + "=1970-01-01T00:00:0" + number + "Z\n";
    }
    files[kDefault] += log + "\n" + dates + "\n";
    return files;
}

void HasEveryErrorWithItsDate(const Program& program) {
    const int errors = program.engine.statistics.nextError;
    EXPECT_TRUE(errors == 2 || errors == 3) << errors;
    const ProfileOnDisk game = program.files.Game();
    const std::string section = "Jacks or Better(0)";
    for (int i = 0; i <= errors; ++i) {
        const auto number = ParseEntry(ReadErrorText(game, section, i)).bestReturn;
        EXPECT_EQ(ReadErrorDate(game, section, i), static_cast<std::int64_t>(number)) << i;
    }
    EXPECT_EQ(ReadErrorText(game, section, errors), "");
}

// Both tables of the game, as they come in a mail, into a free slot.
void ImportGame(Program& program) {
    const auto game = program.Editor(0).ExportGame(program.manager, TableFormat::kText).value();
    program.manager.answers = {"ok"};
    PayTableEditor(program.seat, program.paths, {9002, "Theirs", 0}, true)
        .Import(program.manager, game);
}

FileMap WithOtherPays() {
    FileMap files = Played();
    files[kMain].replace(files[kMain].find("=4000"), 5, "=5000");
    files[kCache] = "[Jacks or Better(0)]\nER=101.00\n\n";
    return files;
}

void RestoreTable(Program& program) {
    program.manager.answers = {"ok"};
    PayTableEditor(program.seat, program.paths, {300, "Jacks or Better"}).Restore(program.manager);
}

void HasItsStatistics(const Program& program) {
    const std::string& game = program.engine.settings.gameName;
    EXPECT_TRUE(game == "Mine" || game == "Yours") << game;
    EXPECT_EQ(program.engine.statistics.handsPlayed.total, 70);
}

std::vector<Scenario> Scenarios() {
    return {
        {"FirstStart", [] { return NewFiles("data/"); }, {}},
        {"FirstStartOfAnInstalledProgram", [] { return NewFiles("lib/"); }, {}, {}, true},
        {"Migration", [] { return WithOldFiles(NewFiles("data/"), "data/"); }, {}, HasUpgraded},
        {"MigrationOfAnInstalledProgram",
         [] { return WithOldFiles(NewFiles("lib/"), "share/Tolvane/"); },
         {},
         HasUpgraded,
         true},
        {"TenHands", Played, {PlayTenHands}, HasAllOrNoneOfTheHands},
        {"CoinChange",
         Played,
         {[](Program& program) { ChooseCoin(program.seat, 1.00); }},
         HasItsMoney},
        {"FileNew", Played, {Save, InOther<NewGameFile>}, HasItsMoney},
        {"FileOpenAndClose",
         Played,
         {Save, InOther<OpenGameFile>, StorePath,
          [](Program& program) { StopGame(program.seat, program.paths); }}},
        {"FileSave", Played, {WithMoney<SaveGameFile>}},
        {"FileSaveAs", Played, {WithMoney<SaveGameFileAs>}},
        {"GameSwitch",
         Played,
         {Save, [](Program& program) { ChooseGame(program.seat, 330); }},
         HasItsMoney},
        {"ForgetError",
         WithErrors,
         {[](Program& program) { ForgetError(program.seat, 0); }},
         HasEveryErrorWithItsDate},
        {"EditTable", WithOwnGame, {EditTable}},
        {"ImportGame", WithOwnGame, {ImportGame}},
        {"RestoreTable", WithOtherPays, {RestoreTable}},
        {"DeleteTable", WithOwnGame, {Delete<1>}},
        {"DeleteGame", WithOwnGame, {Delete<0>}},
        {"RenameGame", WithOwnGamePlayed, {Save, RenameOwnGame}, HasItsStatistics},
    };
}

class CrashTest : public testing::TestWithParam<Scenario> {
  protected:
    // In memory where the system has such a folder: thousands of files are written and synced.
    static fs::path Place() {
        return fs::is_directory("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
    }

    void Restore() const {
        for (const auto* name : {"data", "lib", "share/Tolvane"}) {
            fs::remove_all(folder.Path(name));
            fs::create_directories(folder.Path(name));
        }
        for (const auto& [name, text] : before) folder.Write(name, text);
    }

    // Without the lock files and what a killed program was writing.
    FileMap Files() const {
        FileMap files;
        for (const auto& entry : fs::recursive_directory_iterator(folder.Path())) {
            const std::string name = fs::relative(entry.path(), folder.Path()).string();
            const bool passedOver =
                name.ends_with(".lock") || name.find("/.tolvane-new-") != std::string::npos;
            if (entry.is_regular_file() && !passedOver) files[name] = folder.Read(name);
        }
        return files;
    }

    // What the player is told of the first stages, each followed by an idle moment.
    std::vector<std::string> Run(std::size_t stages) const {
        Program program(folder, scenario.installed);
        std::vector<std::string> told = program.problems;
        if (!told.empty()) return told;
        for (std::size_t i = 0; i < stages; ++i) {
            scenario.stages[i](program);
            program.file.Flush();
        }
        std::ranges::copy_if(program.ports.log, std::back_inserter(told),
                             [](const auto& line) { return line.starts_with("told "); });
        return told;
    }

    // The files that the stages may leave.
    std::vector<FileMap> Allowed() const {
        std::vector<FileMap> allowed;
        for (std::size_t stages = 0; stages <= scenario.stages.size(); ++stages) {
            Restore();
            EXPECT_TRUE(Run(stages).empty());
            allowed.push_back(Files());
            StartAgain();
            ExpectAllowed({allowed.back()});  // nothing was left for the next start to do
        }
        EXPECT_EQ(std::set(allowed.begin(), allowed.end()).size(), allowed.size());
        return allowed;
    }

    void StartAgain() const {
        const Program program(folder, scenario.installed);
        EXPECT_EQ(testing::PrintToString(program.problems), "{}");
        EXPECT_EQ(program.lock->GetState(), LockFile::State::kHeld) << "it ends with who held it";
        if (scenario.holds) scenario.holds(program);
    }

    // False when it has ended by itself: it has fewer steps.
    bool IsKilled(std::size_t stages, int step, Fate fate) const {
        const pid_t child = fork();
        if (child == 0) {
            disk::Begin(step, fate);
            _exit(Run(stages).empty() && !HasFailure() ? 0 : 1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        const bool killed = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
        EXPECT_TRUE(killed || (WIFEXITED(status) && WEXITSTATUS(status) == 0)) << status;
        return killed;
    }

    void ExpectAllowed(const std::vector<FileMap>& allowed) const {
        const FileMap files = Files();
        if (std::ranges::count(allowed, files) > 0) return;
        std::string names;  // of the files in which they differ
        for (const FileMap& other : allowed) {
            FileMap different;
            std::ranges::set_symmetric_difference(files, other,
                                                  std::inserter(different, different.end()));
            for (const auto& [name, text] : different) names += " " + name;
            names += "\n";
        }
        ADD_FAILURE() << "other than they may be:\n" << names;
    }

    const Scenario& scenario = GetParam();
    const TemporaryFolder folder{Place()};
    const FileMap before = ReadBefore();

  private:
    // Game files name others by their full path.
    FileMap ReadBefore() const {
        FileMap files = scenario.before();
        for (auto& [name, text] : files) {
            const auto at = text.find("CurrGame=");
            if (at != std::string::npos) text.insert(at + 9, folder.Path() + "/");
        }
        return files;
    }
};

TEST_P(CrashTest, AKillAtAnyStepLeavesAllOrNothing) {
    const auto allowed = Allowed();
    for (const Fate fate : {Fate::kKilled, Fate::kCutInHalf}) {
        int step = 1;
        for (; !HasFailure(); ++step) {
            SCOPED_TRACE("step " + std::to_string(step));
            Restore();
            if (!IsKilled(scenario.stages.size(), step, fate)) break;
            // A start that has something to do may be killed too.
            if (std::ranges::count(allowed, Files()) == 0) IsKilled(0, 1 + step % 13, fate);
            StartAgain();
            ExpectAllowed(allowed);
        }
        std::printf("%d %s\n", step - 1, fate == Fate::kKilled ? "steps" : "writes");
        EXPECT_GT(step, fate == Fate::kKilled ? 5 : 1);
    }
}

TEST_P(CrashTest, ADiskThatIsFullFromAnyStepOnLeavesAllOrNothing) {
    const auto allowed = Allowed();
    const bool isStart = scenario.stages.empty();
    bool met = true;
    for (int step = 1; met && !HasFailure(); ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        Restore();
        disk::Begin(step, Fate::kFull);
        const auto told = Run(scenario.stages.size());
        met = disk::Count() >= step;
        disk::Begin(0, Fate::kFull);
        if (isStart && told.empty()) ExpectAllowed(allowed);
        if (isStart && !told.empty()) {
            EXPECT_NE(told.front().find("Make room on its disk"), std::string::npos);
        }
        StartAgain();
        ExpectAllowed(allowed);
    }
}

INSTANTIATE_TEST_SUITE_P(Scenarios, CrashTest, testing::ValuesIn(Scenarios()),
                         [](const auto& scenario) { return scenario.param.name; });

}  // namespace
