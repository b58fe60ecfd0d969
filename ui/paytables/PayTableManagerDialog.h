// The pay table manager: shows the tables of any game one at a time and edits them. All rules are
// the editor's. OK ("Done") and Cancel close it; where something has been changed, both ask first.
#pragma once
#include <QDialog>
#include <functional>
#include <vector>

#include "game/paytables/PayTableEditor.h"
#include "ui/paytables/PayTableQuestionBoxes.h"

class FieldKeys;
class FormFields;
class LineArea;
class LineRows;
class LiveReturn;
class QBoxLayout;
class QGridLayout;
class QLabel;
class QLayout;
class QLineEdit;
class QMenu;
class QPushButton;

class PayTableManagerDialog : public QDialog {
    Q_OBJECT

  public:
    // The editor outlives the dialog.
    PayTableManagerDialog(PayTableEditor& editor, QWidget* parent);

    void accept() override;
    void reject() override;
    void done(int result) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    using Condition = bool (PayTableEditor::*)() const;
    struct ConditionalButton {
        QPushButton* button;
        Condition isEnabled;
    };

    QLayout* MakeGameBand();
    QLayout* MakeTypeBand();
    QLineEdit* AddSetting(QBoxLayout& layout, const QString& caption, const char* name, int shown,
                          std::string& text, FormField field);
    QWidget* MakeLines();
    QLayout* MakeButtons();
    QPushButton* AddButton(QGridLayout& layout, const QString& caption, const char* name,
                           Condition isEnabled, const std::function<void()>& command);
    void Place(QGridLayout& layout, QPushButton* button, Condition isEnabled);
    void AddMenus(QGridLayout& layout);
    void AddExports(QMenu& menu);
    void Connect();
    void Save();
    void ShowAll();
    void ShowState();
    void ShowFigures();
    void NoteTable(const QString& text);
    void NoteDone(const QString& text);
    void GoTo(FieldPlace place);

    PayTableEditor& editor;
    PayTableQuestionBoxes questions;
    FormFields* fields;
    FieldKeys* keys = nullptr;
    LineRows* rows = nullptr;
    LineArea* lines = nullptr;
    LiveReturn* live;
    QLabel* detail;
    QLineEdit* index = nullptr;
    QPushButton* restore = nullptr;
    QPushButton* save = nullptr;
    std::vector<ConditionalButton> conditions;
};
