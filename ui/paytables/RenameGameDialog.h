// Asks for a new name of a game. It takes names that the files can keep (GameNameProblem).
#pragma once
#include <QDialog>
#include <string>

class QLineEdit;

class RenameGameDialog : public QDialog {
    Q_OBJECT

  public:
    // The new name is proposed as it was typed.
    RenameGameDialog(const std::string& name, const std::string& typed, QWidget* parent);

    // Without blanks at its ends.
    std::string NewName() const;

    void accept() override;

  private:
    QLineEdit* newName;
};
