// What the pay table manager's editor tells and asks, in boxes over its window. Nothing is told or
// asked any more once that is hidden: the whole program may be closing in the middle of a command.
#pragma once
#include <functional>

#include "game/paytables/PayTableEditor.h"

class QDialog;

class PayTableQuestionBoxes : public PayTableQuestions {
  public:
    // The function puts the focus on a field.
    PayTableQuestionBoxes(QDialog& dialog, std::function<void(FieldPlace)> goTo);

    void Refuse(const std::string& caption, const std::string& text, FieldPlace where) override;
    void Tell(const std::string& caption, const std::string& text) override;
    OverwriteChoice Overwrites(const std::string& caption, const std::string& question) override;
    LeaveChoice Leaves(const std::string& caption, const std::string& question) override;
    bool Confirms(const std::string& caption, const std::string& question) override;
    bool Agrees(const std::string& caption, const std::string& question) override;
    std::optional<std::string> SelectsGame(const std::vector<std::string>& games,
                                           const std::string& current) override;
    std::optional<std::string> RenamesGame(const std::string& current,
                                           const std::string& typed) override;

  private:
    QDialog& dialog;
    std::function<void(FieldPlace)> goTo;
};
