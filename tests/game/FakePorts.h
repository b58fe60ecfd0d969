// A table that nobody sits at: every call through a port becomes one line of a log, and the
// questions are answered from a list. Shared by all tests of the flows.
#pragma once
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/text/Numbers.h"
#include "game/flows/HandFlow.h"
#include "game/seat/Seat.h"
#include "game/seat/ShowScene.h"
#include "tests/game/SceneDifference.h"
#include "tests/game/TestMachine.h"

// One who is told and asked: the log has a line for each, and a question takes the next of the
// answers. One that no answer is left for fails the test, and is cancelled.
class Answering {
  public:
    std::vector<std::string> log;
    std::deque<std::string> answers;

  protected:
    std::string NextAnswer() {
        if (answers.empty()) {
            ADD_FAILURE() << "no answer for: " << log.back();
            return "cancel";
        }
        std::string answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::optional<std::string> NextUnlessCancelled() {
        std::string answer = NextAnswer();
        if (answer == "cancel") return std::nullopt;
        return answer;
    }
};

// All four ports. Answers are "yes" or "no", a number, a path, the five cards of a fixed hand,
// "ok", "cancel".
class Recorder : public Answering, public SeatDisplay, public Player, public Sounds, public Clock {
  public:
    explicit Recorder(const GameEngine& engine) : engine(engine) {}

    std::int64_t now = 1'790'000'000;
    int progressSteps = -1;  // that may be shown before the work is cancelled; -1 any
    // What the player does at the dialogs; without them he leaves at once.
    std::function<bool(PayTableEditor&)> atManager;
    std::function<ReportAnswer(GameReportPages&)> atReport;
    std::optional<AnalysisFilesChoice> analysisFiles = AnalysisFilesChoice{};
    std::vector<WrittenFile> lastFiles;  // that the player was told of
    std::function<void()> duringInput;   // what the player does while a win is counted up

    std::function<void(const Scene& before, const Scene& now)> looks;  // at each step
    std::function<void(int milliseconds)> passes;                      // in each pause

    // Display
    void Show(const Scene& scene) override {
        const Scene before = std::exchange(shown, scene);
        for (const auto& line : SceneDifference(before, scene, engine.deck.table).lines) Add(line);
        if (looks) looks(before, scene);
    }
    void Relayout() override { Add("relayout"); }

    // Player
    bool GoesOnAfterError(const std::string& message) override {
        Add("ask ", message.substr(0, message.find("\r\n")));
        return NextAnswer() == "yes";
    }
    bool SaysYes(const std::string& caption, const std::string& question) override {
        Add("ask ", caption, ": ", question);
        return NextAnswer() == "yes";
    }
    void Tell(const std::string& caption, const std::string& text, MessageIcon) override {
        Add("told ", caption, ": ", text);
    }
    std::optional<int> AskDollars(int proposed) override {
        Add("ask dollars ", proposed);
        return NextNumber();
    }
    std::optional<std::int64_t> AskHandCount() override {
        Add("ask hands");
        return NextNumber();
    }
    bool AskFixedHand(GameEngine& fixed) override {
        Add("ask fixed hand");
        const std::string answer = NextAnswer();
        if (answer == "cancel") return false;
        if (answer == "ok") return true;
        const auto cards = Cards(fixed.payTable, answer, kHandSize);
        std::ranges::copy(cards, fixed.statistics.setCards.begin());
        return true;
    }
    std::optional<std::string> AskFileToOpen(const std::string& folder) override {
        Add("ask file to open in ", folder);
        return NextUnlessCancelled();
    }
    std::optional<std::string> AskFileToSave(const std::string& proposed) override {
        Add("ask file to save ", proposed);
        return NextUnlessCancelled();
    }
    std::optional<std::string> AskNewGameFile(const std::string& proposed) override {
        Add("ask new game file ", proposed);
        return NextUnlessCancelled();
    }
    std::optional<std::string> AskGame(const std::vector<std::string>& games,
                                       const std::string& current) override {
        EXPECT_EQ(std::ranges::count(games, current), 1) << current;
        Add("ask game");
        return NextUnlessCancelled();
    }
    bool ShowPayTableManager(PayTableEditor& editor) override {
        return atManager && atManager(editor);
    }
    ReportAnswer ShowGameReport(GameReportPages& pages) override {
        return atReport ? atReport(pages) : ReportAnswer::kDone;
    }
    std::optional<AnalysisFilesChoice> AskAnalysisFiles(const AnalysisFilePaths& files) override {
        Add("ask files ", files.summary);
        return analysisFiles;
    }
    void TellOfFiles(const std::string& caption, const std::vector<WrittenFile>& files) override {
        Add("told ", caption, ":");
        lastFiles = files;
        for (const auto& [path, problem] : files) {
            log.back() += " " + path.substr(path.rfind('/') + 1);
            if (!problem.empty()) log.back() += " not written, " + problem;
        }
    }
    std::unique_ptr<Progress> ShowProgress(const std::string& text) override {
        Add("progress ", text);
        return std::make_unique<Steps>(*this);
    }
    void ShowStatistics(const GameEngine& shown) override {
        Add("statistics ", shown.settings.gameName, ", ", shown.statistics.handsPlayed.session,
            " hands");
    }

    // Sounds
    void Play(Wave wave) override { Add("play ", WaveName(wave)); }
    void PlayToEnd(Wave wave) override { Add("play to end ", WaveName(wave)); }
    void Sound(Beep beep) override { Add(beep == Beep::kDefault ? "beep" : "beep exclamation"); }

    // Clock
    std::int64_t Now() override { return now; }
    void Pause(int milliseconds) override {
        Add("pause ", milliseconds);
        if (passes) passes(milliseconds);
        if (engine.countingUp && duringInput) duringInput();
    }

  private:
    class Steps : public Progress {
      public:
        explicit Steps(Recorder& recorder) : recorder(recorder) {}
        bool Show(const std::string& text, int percent) override {
            recorder.Add("progress ", text, " (", percent, ")");
            return recorder.progressSteps < 0 || recorder.progressSteps-- > 0;
        }

      private:
        Recorder& recorder;
    };

    template <class... Words>
    void Add(const Words&... words) {
        std::ostringstream line;
        (line << ... << words);
        log.push_back(line.str());
    }

    static std::string WaveName(Wave wave) {
        constexpr const char* kNames[] = {"cash", "click", "arrow", "applause", "drumroll"};
        return kNames[static_cast<std::size_t>(wave)];
    }
    std::optional<int> NextNumber() {
        const auto answer = NextUnlessCancelled();
        if (!answer) return std::nullopt;
        return ParseInt(*answer);
    }

    const GameEngine& engine;
    Scene shown;
};

inline Seat SeatOf(TestMachine& machine, Recorder& ports, Player& player) {
    return {.engine = machine.engine,
            .files = machine.files,
            .tables = machine.tables,
            .display = ports,
            .player = player,
            .sounds = ports,
            .clock = ports};
}

class TestSeat {
  public:
    explicit TestSeat(const std::string& game = "Jacks or Better", int gameId = 300)
        : machine(game, gameId) {
        seat.random.RandomInit(42);
        ShowAtRest(seat);
        log.clear();
    }
    operator Seat&() { return seat; }

    // Both forget what was logged before.
    void Deal(std::string_view cards) {
        machine.Stack(cards);
        Settle();
        DealDraw(seat);
    }
    void Draw(HoldMask mask) {
        machine.Hold(mask);
        Settle();
        DealDraw(seat);
    }

    // What a test has changed in the machine is shown, and all that was logged is forgotten.
    void Settle() {
        ShowAtRest(seat);
        TakeLog();
    }

    // The lines logged since the last time, each ended by '\n'.
    std::string TakeLog() {
        std::string text;
        for (; taken < log.size(); ++taken) text += log[taken] + "\n";
        return text;
    }

    // The same in one line, with commas between the steps.
    std::string TakeSteps() {
        std::string text;
        for (; taken < log.size(); ++taken) text += (text.empty() ? "" : ", ") + log[taken];
        return text;
    }

    TestMachine machine;
    GameEngine& engine = machine.engine;
    Recorder ports{machine.engine};
    std::vector<std::string>& log = ports.log;
    std::deque<std::string>& answers = ports.answers;
    Seat seat = SeatOf(machine, ports, ports);

  private:
    std::size_t taken = 0;
};

// Shows credits and takes no time.
struct CreditTable : TestSeat {
    CreditTable() {
        engine.settings.showDollar = false;
        engine.settings.speed = Speed::kFast;
    }
};

// Bets one coin of them and offers no double up.
struct OneCoinTable : CreditTable {
    OneCoinTable() {
        engine.settings.doubleUp = false;
        engine.settings.bet = 1;
    }
};
