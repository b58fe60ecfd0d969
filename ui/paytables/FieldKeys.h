// The keys that go from field to field of the pay table manager, and its commands for a line and
// for its steps, with the menu that offers them.
#pragma once
#include <QAction>
#include <QObject>
#include <vector>

#include "game/paytables/PayTableEditor.h"

class FormFields;
class QDialog;
class QKeyEvent;
class QMenu;

class FieldKeys : public QObject {
    Q_OBJECT

  public:
    // All outlive it. The fields are complete. The keys of the commands for a line are taken while
    // the focus is among the lines; the menu offers them always.
    FieldKeys(FormFields& fields, PayTableEditor& editor, QDialog& dialog, QWidget& lines);

    // A menu of the commands, which the dialog owns.
    QMenu* MakeMenu();

    // What can be done now.
    void ShowEnabled();

    void MoveTo(int from, int to);

    // Puts the focus on the control, of a text the whole is selected.
    static void GoTo(QWidget* control);

  signals:
    void Changed();  // by a command, or by what is pasted
    void Refused(const QString& problem);
    void WentTo(QWidget* control);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum Command {
        kUndo,
        kRedo,
        kInsert,
        kDuplicate,
        kDelete,
        kMoveUp,
        kMoveDown,
        kPaste,
    };

    void AddCommand(const QString& caption, const char* name, const QList<QKeySequence>& keys,
                    void (FieldKeys::*command)());
    void FindHere();
    bool IsCommandKey(const QKeyEvent& event) const;
    bool TakesKey(QObject* watched, const QKeyEvent& event);
    void UndoStep();
    void RedoStep();
    void InsertHere();
    void DuplicateHere();
    void DeleteHere();
    void MoveUp();
    void MoveDown();
    void PasteHere();
    void GoToLine(int line);

    FormFields& fields;
    PayTableEditor& editor;
    QDialog& dialog;
    std::vector<QAction*> actions;         // by command
    FieldPlace here{FormField::kRank, 0};  // the field of a line that had the focus last, or one
                                           // beside it that can be used
};
