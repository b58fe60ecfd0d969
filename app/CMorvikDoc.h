// The document: the machine with its game file, and what the commands of the menus do with them.
// One document lives from start to exit; New and Open change what is in it.
#pragma once
#include <QObject>
#include <QString>
#include <QTimer>
#include <QWidget>

#include "app/CommandTable.h"
#include "core/analysis/LineTableCache.h"
#include "core/store/DataFiles.h"
#include "game/GameTable.h"
#include "ui/dialogs/WindowPlayer.h"
#include "ui/table/ActionQueue.h"
#include "ui/table/SceneDisplay.h"

class PictureStore;
class ProfileFile;

class CMorvikDoc : public QObject {
    Q_OBJECT

    GameFiles files;  // first, because the table refers to these two
    LineTableCache lineTables;

  public:
    // The player's engine and the spare one. All arguments outlive the document; questions are
    // asked over the window.
    CMorvikDoc(GameEngine& engine, GameEngine& spare, ProfileFile& file, DataFilePaths paths,
               QWidget& window, PictureStore& pictures, Clock& clock, Sounds& sounds);
    ~CMorvikDoc() override;

    // Once the window is shown: goes on in the game file, unless it is empty or in use already.
    void OnNewDocument(const std::string& gameFile = "");

    // Saves everything. False when that failed; the player has been told.
    bool OnCloseDocument();

    // Saves what is played without ending anything in it: the desktop may close the session.
    void SaveForNow();

    // Runs a command of the menus, unless it is greyed as the machine stands. While a flow runs it
    // waits like any press; the exit never does.
    void Run(int command);

    // Runs a command that a key or a press at the table stands for, whose turn has come, unless it
    // may not be given so.
    void RunKey(int command);

    QString Title() const;

    // For a window that closes: every question that is open or comes later is refused, until they
    // are to be answered again.
    void RefuseQuestions();
    void AnswerQuestions();

    TableScene scene;  // what the window shows
    SceneDisplay display;
    WindowPlayer player;
    ActionQueue actions;
    GameTable table;

  signals:
    void SceneChanged();
    void Settled();  // all that the player has begun is done
    void TitleChanged();

  private:
    void Dispatch(int command);
    void AskForHoldsAgain();

    DataFilePaths paths;
    CommandDesk desk;
    QTimer resetRead;  // the player has seen that the statistics are reset
};
