// The error log of an engine's game and table. Its pages are turned with the buttons or with Page
// Up, Page Down, Home and End. An empty log is for the caller to tell of (TellIfErrorLogIsEmpty in
// game/commands/MachineCommands.h).
#pragma once
#include <QDialog>
#include <optional>

#include "ui/reports/ErrorLogPage.h"

class AsideWindows;
class StrategyDesk;

class ErrorLogDialog : public QDialog {
    Q_OBJECT

  public:
    // All of them outlive the dialog. Without actions and windows to put it aside in, the log can
    // only be read. Dealing a hand is for the caller, who is told by ToDeal.
    ErrorLogDialog(const GameEngine& engine, const GameFiles& files, PictureStore& store,
                   QWidget* parent, ErrorActions actions = {}, AsideWindows* aside = nullptr,
                   StrategyDesk* charts = nullptr);

    int Index() const { return page->Index(); }

    // The entry whose hand is to be dealt as the fixed one, once the dialog is closed.
    std::optional<int> ToDeal() const { return toDeal; }

  private:
    void AddKeys();  // which turn pages from wherever the focus is

    ErrorLogPage* page;
    std::optional<int> toDeal;
};
