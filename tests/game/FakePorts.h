// A table that nobody sits at: every call through a port becomes one line of a log, and the
// questions are answered from a list. Shared by all tests of the flows.
#pragma once
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/text/Numbers.h"
#include "game/GameTable.h"
#include "tests/game/TestMachine.h"

// All four ports. A question takes the next of the answers: "yes" or "no", a number, a path, the
// five cards of a fixed hand, "ok", "cancel". One that no answer is left for fails the test, and is
// answered with no.
class Recorder : public TableDisplay, public Player, public Sounds, public Clock {
  public:
    explicit Recorder(const GameEngine& engine) : engine(engine) {}

    std::vector<std::string> log;
    std::deque<std::string> answers;
    std::int64_t now = 1'790'000'000;
    bool logsOwned =
        false;  // a line "owns 95" before the first call after the credits have changed
    int progressSteps = -1;             // that may be shown before the work is cancelled; -1 any
    std::function<void()> duringInput;  // what the player does in a pause that lets input through

    // TableDisplay
    void ShowMessage(const std::string& text) override { Add("message " + text); }
    void ShowCredits(const std::string& text) override { Add("credits " + text); }
    void ShowBet(const std::string& text) override { Add("bet " + text); }
    void ShowCoin(double coin) override { Add("coin " + FormatDouble("%.2f", coin)); }
    void ShowLine(int line, LineMark mark, int payout) override {
        constexpr std::array marks = {" plain ", " won ", " won, cell dark "};
        Add("line " + std::to_string(line) + At(marks, mark) + std::to_string(payout));
    }
    void ShowCharlie(bool shown) override { Add("charlie" + Shown(shown)); }
    void ShowCard(int position, CardCode card) override {
        Add("card " + std::to_string(position) + " " + CardName(card));
    }
    void ShowHeld(int position, bool held) override {
        Add("held " + std::to_string(position) + (held ? " on" : " off"));
    }
    void ShowHoldButton(int position, bool pressed) override {
        Add("hold button " + std::to_string(position) + (pressed ? " pressed" : " released"));
    }
    void ShowFirstDraw(CardCode card) override { Add("first draw " + CardName(card)); }
    void ShowPile(int position, PileStage stage) override {
        constexpr std::array stages = {" one back", " stack"};
        Add("pile " + std::to_string(position) + At(stages, stage));
    }
    void ShowPileTop(int position, CardCode card, std::string_view label) override {
        Add("pile top " + std::to_string(position) + " " + CardName(card) +
            (label.empty() ? "" : " " + std::string(label)));
    }
    void ShowDoubleUpButton(bool shown) override { Add("double up button" + Shown(shown)); }
    void ShowDoubleUp(int stake, int doubleUpTo) override {
        Add("double up " + std::to_string(stake) + " to " + std::to_string(doubleUpTo));
    }
    void ShowDoubleUpAmounts(int stake, int doubleUpTo) override {
        Add("double up amounts " + std::to_string(stake) + " to " + std::to_string(doubleUpTo));
    }
    void ShowFeatureLabel(std::string_view text) override { Add("label " + std::string(text)); }
    void ShowSpin(SpinButton button) override {
        constexpr std::array buttons = {"hidden", "ready", "lit"};
        Add(std::string("spin ") + At(buttons, button));
    }
    void ShowSpinValue(const std::string& value) override { Add("spin value " + value); }
    void HideSpin() override { Add("hide spin"); }
    void ShowTarget(int target, TargetFace face, int value) override {
        constexpr std::array faces = {" gone", " hidden", " shot ", " missed "};
        const bool valueShown = face == TargetFace::kShot || face == TargetFace::kMissed;
        Add("target " + std::to_string(target) + At(faces, face) +
            (valueShown ? std::to_string(value) : ""));
    }
    void ShowRedBlack(bool shown) override { Add("red or black" + Shown(shown)); }
    void LightPanel(CardColour colour) override { Add("panel " + ColourName(colour)); }
    void ShowChoice(CardColour colour) override { Add("choice " + ColourName(colour)); }
    void Repaint() override { Add("repaint"); }
    void Relayout() override { Add("relayout"); }

    // Player
    bool GoesOnAfterError(const std::string& message) override {
        Add("ask " + message.substr(0, message.find("\r\n")));
        return NextAnswer() == "yes";
    }
    bool SaysYes(const std::string& caption, const std::string& question) override {
        Add("ask " + caption + ": " + question);
        return NextAnswer() == "yes";
    }
    void IsTold(const std::string& caption, const std::string& text, MessageIcon) override {
        Add("told " + caption + ": " + text);
    }
    std::optional<int> EntersDollars(int proposed) override {
        Add("ask dollars " + std::to_string(proposed));
        return NextNumber();
    }
    std::optional<std::int64_t> EntersHandCount() override {
        Add("ask hands");
        return NextNumber();
    }
    bool AssignsFixedHand(GameEngine& fixed) override {
        Add("ask fixed hand");
        const std::string answer = NextAnswer();
        if (answer == "cancel") return false;
        if (answer == "ok") return true;
        const auto cards = Cards(fixed.payTable, answer, kHandSize);
        std::ranges::copy(cards, fixed.statistics.setCards.begin());
        return true;
    }
    std::optional<std::string> ChoosesFileToOpen(const std::string& folder) override {
        Add("ask file to open in " + folder);
        return NextPath();
    }
    std::optional<std::string> ChoosesFileToSave(const std::string& proposed) override {
        Add("ask file to save " + proposed);
        return NextPath();
    }
    std::unique_ptr<Progress> SeesProgress(const std::string& text) override {
        Add("progress " + text);
        return std::make_unique<Steps>(*this);
    }
    void ReadsStatistics(const GameEngine& shown) override {
        Add("statistics " + shown.settings.gameName + ", " +
            std::to_string(shown.statistics.handsPlayed.session) + " hands");
    }

    // Sounds
    void Play(Wave wave) override { Add("play " + WaveName(wave)); }
    void PlayToEnd(Wave wave) override { Add("play to end " + WaveName(wave)); }
    void Sound(Beep beep) override { Add(beep == Beep::kDefault ? "beep" : "beep exclamation"); }

    // Clock
    std::int64_t Now() override { return now; }
    void Pause(int milliseconds) override { Add("pause " + std::to_string(milliseconds)); }
    void PauseWithInput(int milliseconds) override {
        Add("pause with input " + std::to_string(milliseconds));
        if (duringInput) duringInput();
    }

  private:
    class Steps : public Progress {
      public:
        explicit Steps(Recorder& recorder) : recorder(recorder) {}
        bool Show(const std::string& text, int percent) override {
            recorder.Add("progress " + text + " (" + std::to_string(percent) + ")");
            return recorder.progressSteps < 0 || recorder.progressSteps-- > 0;
        }

      private:
        Recorder& recorder;
    };

    void Add(std::string line) {
        if (logsOwned && owned != engine.settings.credits) {
            owned = engine.settings.credits;
            log.push_back("owns " + std::to_string(owned));
        }
        log.push_back(std::move(line));
    }

    template <class Names, class Value>
    static std::string At(const Names& names, Value value) {
        return names.at(static_cast<std::size_t>(value));
    }
    static std::string Shown(bool shown) { return shown ? " shown" : " gone"; }
    static std::string ColourName(CardColour colour) {
        constexpr std::array names = {"none", "red", "black"};
        return At(names, colour);
    }
    static std::string WaveName(Wave wave) {
        constexpr std::array names = {"cash", "click", "arrow", "applause", "drumroll"};
        return At(names, wave);
    }
    std::string CardName(CardCode card) const {
        if (card == kCardBack) return "back";
        if (card == kNoCard) return "none";
        return CardText(engine.deck.table, card);
    }

    std::string NextAnswer() {
        if (answers.empty()) {
            ADD_FAILURE() << "no answer for: " << log.back();
            return "cancel";
        }
        std::string answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::optional<int> NextNumber() {
        const std::string answer = NextAnswer();
        if (answer == "cancel") return std::nullopt;
        return ParseInt(answer);
    }
    std::optional<std::string> NextPath() {
        std::string answer = NextAnswer();
        if (answer == "cancel") return std::nullopt;
        return answer;
    }

    const GameEngine& engine;
    int owned = engine.settings.credits;
};

class TestTable {
  public:
    explicit TestTable(const std::string& game = "Jacks or Better", int gameId = 300)
        : machine(game, gameId) {
        table.random.RandomInit(42);
    }
    operator GameTable&() { return table; }

    // The lines logged since the last time, each ended by '\n'.
    std::string TakeLog() {
        std::string text;
        for (; taken < log.size(); ++taken) text += log[taken] + "\n";
        return text;
    }

    TestMachine machine;
    GameEngine& engine = machine.engine;
    Recorder ports{machine.engine};
    std::vector<std::string>& log = ports.log;
    std::deque<std::string>& answers = ports.answers;
    GameTable table{.engine = machine.engine,
                    .files = machine.files,
                    .tables = machine.tables,
                    .display = ports,
                    .player = ports,
                    .sounds = ports,
                    .clock = ports};

    // The same, running on, with a new line after each pause and where a line would grow too long.
    std::string TakeSteps() {
        constexpr std::size_t kWidth = 96;
        std::string text;
        std::string line;
        for (; taken < log.size(); ++taken) {
            const std::string step = (line.empty() ? "" : ", ") + log[taken];
            if (line.size() + step.size() > kWidth) {
                text += line + ",\n";
                line = log[taken];
            } else {
                line += step;
            }
            if (!log[taken].starts_with("pause")) continue;
            text += line + "\n";
            line.clear();
        }
        return line.empty() ? text : text + line + "\n";
    }

  private:
    std::size_t taken = 0;
};
