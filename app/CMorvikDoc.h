// The document: the machine with its game file, and what the commands of the menus do with them.
// One document lives from start to exit; New and Open change what is in it.
#pragma once
#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <array>

#include "app/CommandTable.h"
#include "app/DesktopSettings.h"
#include "app/WindowPlayer.h"
#include "core/analysis/LineTableCache.h"
#include "core/store/DataFiles.h"
#include "game/seat/Seat.h"
#include "game/session/StrategyDesk.h"
#include "ui/machine/ActionQueue.h"
#include "ui/reports/AllGamesWindow.h"
#include "ui/reports/AsideWindows.h"
#include "ui/reports/BankrollWindow.h"
#include "ui/reports/CompareWindow.h"
#include "ui/reports/MeterWindow.h"
#include "ui/reports/StrategyWindow.h"

class PictureStore;
class ProfileFile;

// What the application owns for its whole run, and the document works with.
struct ProgramParts {
    GameEngine& engine;  // the player's
    GameEngine& spare;   // of autoplay and the reports
    ProfileFile& file;
    DataFilePaths paths;
    PictureStore& pictures;
    Clock& clock;
    Sounds& sounds;
};

class CMorvikDoc : public QObject, private SeatDisplay {
    Q_OBJECT

  public:
    // Questions are asked over the window, which outlives the document as the parts do.
    CMorvikDoc(const ProgramParts& parts, QWidget& window);
    ~CMorvikDoc() override;

    // Once the window is shown: goes on in the game file, unless it is empty or in use already.
    void OnNewDocument(const std::string& gameFile = "");

    // Saves everything. False when that failed; the player has been told.
    bool OnCloseDocument();

    // Saves what is played without ending anything in it: the desktop may close the session.
    void SaveForNow();

    // Runs a command of the menus, unless it is greyed as the machine stands. While a flow runs it
    // waits like any press, but for those that are done at once.
    void Run(int command);

    // By a command of the menus, as the machine stands.
    bool IsChecked(int command) const { return ::IsChecked(command, desk); }
    bool IsEnabled(int command) const { return ::IsEnabled(command, seat.engine); }

    // Opens a game file (in full) as File Open would. While that is greyed or anything runs, it
    // waits, which the title says; of several the newest one does.
    void OpenFile(const QString& path);

    // What waits is not opened any more.
    void ForgetWaitingFile() { waitingFile.clear(); }

    // Runs a command that a key or a press at the machine stands for, whose turn has come, unless
    // it may not be given so.
    void RunKey(int command);

    QString Title() const;

    // That a file waits, for a title and where there is none; empty when none does.
    QString WaitingNote() const;

    // The one in use, in full.
    QString GameFile() const { return QString::fromStdString(files.gamePath); }

    // For a window that closes: every question that is open is refused, those of the windows beside
    // it too, and so is what the machine asks later, until its questions are to be answered again.
    void RefuseQuestions();
    void AnswerQuestions();

    // With the machine's window go the others.
    void CloseReports();

    Seat& PlayersSeat() { return seat; }
    DesktopSettings& Desktop() { return desktop; }
    ActionQueue& Actions() { return actions; }  // all that acts on the table goes through it

  signals:
    void SceneChanged();
    void PayTableChanged();
    void Settled();  // all that the player has begun is done
    void TitleChanged();

  private:
    void Show(const Scene& scene) override;
    void Relayout() override { emit PayTableChanged(); }
    void Dispatch(int command);
    std::array<BesideWindow*, 5> Beside() const;  // nullptr: not opened yet
    void ShowAllGames();
    void ShowStrategy();
    template <typename Window>
    void OpenWhatIf(std::unique_ptr<Window>& window);
    void ShowHandOf(const TableOfGame& place, const PayTable& table, const Hand& hand);
    void ShowBankroll();
    TableActions ActionsOnTables();
    void RunAs(int command, const std::function<void()>& action);
    void OpenWaitingFile();
    void AskForHoldsAgain();
    void CountHands();
    void SoundChange(const Scene& scene);

    DataFilePaths paths;
    GameFiles files;
    LineTableCache lineTables;
    DesktopSettings desktop;
    WindowPlayer player;
    ActionQueue actions;
    Seat seat;
    StrategyDesk charts;
    AsideWindows aside;
    std::unique_ptr<AllGamesWindow> allGames;  // these are made when they are first opened
    std::unique_ptr<StrategyWindow> strategy;
    std::unique_ptr<BankrollWindow> bankroll;
    std::unique_ptr<CompareWindow> compare;
    std::unique_ptr<MeterWindow> meter;
    CommandDesk desk;
    Scene heard;                    // what was shown when something was last heard
    QElapsedTimer sinceCard;        // was last heard to be turned
    std::int32_t handsCounted = 0;  // of the session
    QString waitingFile;            // empty = none
    QTimer resetRead;               // the player has seen that the statistics are reset
};
