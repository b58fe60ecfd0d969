// A table whose data folder is the test's own, and a player at its pay table manager who answers
// from a list.
#pragma once
#include <filesystem>

#include "game/paytables/EditPayTable.h"
#include "tests/game/FakePorts.h"

// Answers are "yes", "no", "ok", "save", "discard", "cancel" or a name.
class ManagerRecorder : public Answering, public PayTableQuestions {
  public:
    FieldPlace where;  // of the last refusal

    ManagerRecorder& Saying(std::deque<std::string> next) {
        answers = std::move(next);
        return *this;
    }

    void Refuse(const std::string& caption, const std::string& text, FieldPlace place) override {
        log.push_back(caption + ": " + text);
        where = place;
    }
    void Tell(const std::string& caption, const std::string& text) override {
        log.push_back(caption + ": " + text);
    }
    OverwriteChoice Overwrites(const std::string& caption, const std::string& question) override {
        const std::string answer = Answer(caption + ": " + question);
        return answer == "yes"  ? OverwriteChoice::kOverwrite
               : answer == "no" ? OverwriteChoice::kAppend
                                : OverwriteChoice::kCancel;
    }
    LeaveChoice Leaves(const std::string& caption, const std::string& question) override {
        const std::string answer = Answer(caption + ": " + question);
        return answer == "save"      ? LeaveChoice::kSave
               : answer == "discard" ? LeaveChoice::kDiscard
                                     : LeaveChoice::kCancel;
    }
    bool Confirms(const std::string& caption, const std::string& question) override {
        return Answer(caption + ": " + question) == "ok";
    }
    bool Agrees(const std::string& caption, const std::string& question) override {
        return Answer(caption + ": " + question) == "yes";
    }
    std::optional<std::string> SelectsGame(const std::vector<std::string>& games,
                                           const std::string& current) override {
        log.push_back("select of " + std::to_string(games.size()) + " at " + current);
        auto answer = NextUnlessCancelled();
        EXPECT_TRUE(!answer || std::ranges::count(games, *answer) == 1) << *answer;
        return answer;
    }
    std::optional<std::string> RenamesGame(const std::string& current,
                                           const std::string& typed) override {
        log.push_back("rename " + current + (typed == current ? "" : ", typed " + typed));
        return NextUnlessCancelled();
    }

    // What was told and asked since the last time.
    std::string Take() {
        std::string text;
        for (const std::string& line : log) text += (text.empty() ? "" : "\n") + line;
        log.clear();
        return text;
    }

  private:
    std::string Answer(const std::string& question) {
        log.push_back(question);
        return NextAnswer();
    }
};

class ManagerTable : public TestSeat {
  public:
    ManagerTable() {
        std::filesystem::copy_file(TOLVANE_DATA_FOLDER "/Tolvane.ini", paths.mainProfile);
        machine.folder.Write("Game Analyses.ini", "[x]\n");
        machine.folder.Write("Strategy Charts.ini", "[x]\n");
        machine.files.mainPath = paths.mainProfile;
    }

    PayTableFiles Files() { return {machine.file, paths.mainProfile, paths.analysisCache}; }

    PayTableEditor Manager(const std::string& game, int id, int index = 0, bool newGame = false) {
        return {seat, paths, {id, game, index}, newGame};
    }

    // "My Game" in slot 1, a copy of Jacks or Better, with so many tables.
    void MakeMyGame(int tables = 1) {
        const auto texts = ReadPayTableTexts(Files().main, "Jacks or Better", 0);
        for (int i = 0; i < tables; ++i) AppendTable(Files(), {9001, "My Game"}, texts);
    }

    std::string Stored(const std::string& path, std::string_view section, std::string_view key) {
        return machine.file.GetString(section, key, "(none)", 80, path);
    }
    std::string InMain(std::string_view section, std::string_view key) {
        return Stored(paths.mainProfile, section, key);
    }
    bool Exists(const std::string& game, int index) {
        return TableExists({machine.file, paths.mainProfile}, game, index);
    }

    const DataFilePaths& paths = machine.paths;
    ManagerRecorder player;
};
