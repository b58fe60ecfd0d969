// Asks for a new name of a game. It takes names that the files can keep (GameNameProblem).
#pragma once
#include <QDialog>
#include <string>

class QLineEdit;

class RenameGameDialog : public QDialog {
    Q_OBJECT

  public:
    RenameGameDialog(const std::string& name, QWidget* parent);

    // Without blanks at its ends.
    std::string NewName() const;

    void accept() override;

  private:
    QLineEdit* newName;
};
