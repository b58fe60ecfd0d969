// Asks for one of a list of games.
#pragma once
#include <QDialog>
#include <optional>
#include <string>
#include <vector>

class QComboBox;

class SelectGameDialog : public QDialog {
    Q_OBJECT

  public:
    // The current game is found in any letter case; nothing is selected when it is not in the list,
    // and OK waits until something is.
    SelectGameDialog(const std::vector<std::string>& games, const std::string& current,
                     QWidget* parent);

    // Empty when nothing is selected.
    std::string Selected() const;

  private:
    QComboBox* list;
};

// Shows the dialog; nothing when it is cancelled.
std::optional<std::string> AskGame(const std::vector<std::string>& games,
                                   const std::string& current, QWidget* parent);
