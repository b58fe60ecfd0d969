// Walks through the play errors logged for an engine's game and table, the oldest first, with the
// buttons or with Page Up, Page Down, Home and End. Nothing is changed. An empty log is for the
// caller to tell of (TellIfErrorLogIsEmpty in game/MachineCommands.h).
#pragma once
#include <QDialog>
#include <array>

#include "game/engine/FixedHandEditor.h"

class PictureStore;
class QLayout;
class QLineEdit;
class QPushButton;
class ReportBox;
class SmallCard;
struct GameFiles;

class ErrorLogDialog : public QDialog {
    Q_OBJECT

  public:
    // All of them outlive the dialog; entries are read when they are shown.
    ErrorLogDialog(const GameEngine& engine, const GameFiles& files, PictureStore& store,
                   QWidget* parent);

    int Index() const { return index; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* MakeSummary();
    QLayout* MakeHand(PictureStore& store);
    QLayout* MakeButtons();
    void SetTabStops();
    void AddKeys();  // which turn pages from wherever the focus is
    void ShowError(int shown);
    int LastError() const;
    void Save();

    const GameEngine& engine;
    const GameFiles& files;
    int index = 0;
    QLineEdit* title;
    ReportBox* text;
    ReportBox* summary;
    std::array<SmallCard*, kPlaces> places{};
    SmallCard* knownCard;
    QPushButton* next;
    QPushButton* previous;
};
