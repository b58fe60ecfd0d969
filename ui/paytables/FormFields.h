// The controls of the pay table manager that stand for something in its editor: each shows it, and
// writes down what the player does to it.
#pragma once
#include <QObject>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "game/paytables/PayTableEditor.h"

class QCheckBox;
class QComboBox;
class QDialog;
class QLineEdit;
class QWidget;

class FormFields : public QObject {
    Q_OBJECT

  public:
    // Both outlive it.
    FormFields(PayTableEditor& editor, QDialog& dialog);

    // A box that shows about so many characters of the text, which outlives it.
    QLineEdit* AddText(const QString& name, int shown, std::string& text, FieldPlace place);
    QCheckBox* AddCheck(const QString& caption, const QString& name,
                        const std::function<bool()>& isChecked,
                        const std::function<void(bool)>& check, FieldPlace place);
    QCheckBox* AddType(const QString& caption, const QString& name, GameType type, FormField field);
    QComboBox* AddRankList(int line);

    void ShowAll();

    QWidget* ControlAt(FieldPlace place) const;                       // null when there is none
    std::optional<FieldPlace> PlaceOf(const QObject* control) const;  // nothing for other objects

    // The control that can be used in the same column, down (1) or up (-1); null when there is
    // none.
    QWidget* Beside(FieldPlace place, int step) const;

  signals:
    void Typed();    // into a text
    void Changed();  // anything else

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Field {
        QWidget* control;
        FieldPlace place;
        std::function<void()> show;
    };

    void Add(QWidget& control, FieldPlace place, const std::function<void()>& show);
    void KeepLegible();

    PayTableEditor& editor;
    QDialog& dialog;
    std::vector<Field> fields;
};
