// The pay table manager: shows the tables of any game one at a time and edits them. All rules are
// the editor's; OK ("Done") and Cancel close it, and neither saves.
#pragma once
#include <QDialog>
#include <functional>
#include <vector>

#include "game/paytables/PayTableEditor.h"

class LiveReturn;
class QBoxLayout;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLayout;
class QLineEdit;
class QPushButton;
class QScrollArea;

class PayTableManagerDialog : public QDialog, private PayTableQuestions {
    Q_OBJECT

  public:
    // The editor outlives the dialog.
    PayTableManagerDialog(PayTableEditor& editor, QWidget* parent);

  private:
    // A control, what it stands for in the editor, and what makes it show that.
    struct Field {
        QWidget* control;
        FieldPlace place;
        std::function<void()> show;
    };

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
    void MakeLine(QGridLayout& layout, int line);
    QLayout* MakeButtons();
    QLineEdit* AddText(const QString& name, int shown, std::string& text, FieldPlace place);
    QCheckBox* AddCheck(const QString& caption, const QString& name,
                        const std::function<bool()>& isChecked,
                        const std::function<void(bool)>& check, FieldPlace place);
    QCheckBox* AddType(const QString& caption, const QString& name, GameType type, FormField field);
    QComboBox* AddRankList(int line);
    void ShowAll();
    void NoteTable(const QString& text);
    QWidget* ControlAt(FieldPlace place) const;

    void Refuse(const std::string& caption, const std::string& text, FieldPlace where) override;
    void Tell(const std::string& caption, const std::string& text) override;
    OverwriteChoice Overwrites(const std::string& caption, const std::string& question) override;
    bool Confirms(const std::string& caption, const std::string& question) override;
    std::optional<std::string> SelectsGame(const std::vector<std::string>& games,
                                           const std::string& current) override;
    std::optional<std::string> RenamesGame(const std::string& current) override;

    PayTableEditor& editor;
    std::vector<Field> fields;
    std::vector<ConditionalButton> conditions;
    QLineEdit* index = nullptr;
    QScrollArea* lines = nullptr;
    LiveReturn* live = nullptr;
};
