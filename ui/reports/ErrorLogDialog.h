// The error log of an engine's game and table. Its pages are turned with the buttons or with Page
// Up, Page Down, Home and End. An empty log is for the caller to tell of (TellIfErrorLogIsEmpty in
// game/commands/MachineCommands.h).
#pragma once
#include <QDialog>

#include "ui/reports/ErrorLogPage.h"

class AsideWindows;

class ErrorLogDialog : public QDialog {
    Q_OBJECT

  public:
    // All of them outlive the dialog. Without actions and windows to put it aside in, the log can
    // only be read. A hand that is to be dealt closes the dialog first.
    ErrorLogDialog(const GameEngine& engine, const GameFiles& files, PictureStore& store,
                   QWidget* parent, ErrorActions actions = {}, AsideWindows* aside = nullptr);

    int Index() const { return page->Index(); }

  private:
    void AddKeys();  // which turn pages from wherever the focus is

    ErrorLogPage* page;
};
