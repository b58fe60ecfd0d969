// The application: builds the program's objects, runs them and takes them down.
#pragma once
#include <QApplication>
#include <memory>
#include <optional>

#include "app/CMainFrame.h"
#include "app/CMorvikDoc.h"
#include "app/IdleWork.h"
#include "app/SecondStart.h"
#include "core/profile/ProfileFile.h"
#include "core/store/LockFile.h"
#include "ui/art/PictureStore.h"
#include "ui/machine/QtSounds.h"
#include "ui/machine/WindowClock.h"

class CMorvikApp : public QApplication {
    Q_OBJECT

  public:
    CMorvikApp(int& argc, char** argv);
    ~CMorvikApp() override;

    // The whole run; the exit code of the program.
    int Run();

  private:
    void ReadArguments();
    bool TakeDataFolder();
    bool IsHandedOver(const QString& socket);
    void WarnOfLock();
    void ComeForward(const QString& wantedFile);
    bool BringDataUpToDate();
    void WarnOfMissingPayTables();
    void Warn(const QString& caption, const QString& text);
    void EndOnSignals();

    GameEngine engine;
    GameEngine spare;
    ProfileFile file;
    DataFilePaths paths;
    QString gameFile;         // to begin in, in full; empty = the last one
    bool begun = false;       // the document has been told where to begin
    bool handedOver = false;  // to a program that runs on the same data
    std::optional<LockFile> lock;
    SecondStarts secondStarts;
    PictureStore pictures;
    WindowClock clock;
    std::unique_ptr<QtSounds> sounds;
    std::unique_ptr<CMainFrame> frame;
    std::unique_ptr<CMorvikDoc> document;
    std::unique_ptr<IdleWork> idle;
};
