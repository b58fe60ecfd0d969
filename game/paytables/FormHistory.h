// The steps of a pay table that is edited, to be taken back and done again: each is the whole form
// as it stood then.
#pragma once
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "game/paytables/PayTableForm.h"

struct FormState {
    std::string gameName;
    int tableIndex = 0;
    PayTableTexts texts;
    std::array<bool, kMaxPayLines> payoutLoaded{};  // lines that had a value when it was loaded
    std::array<bool, kMaxPayLines> maxPayoutLoaded{};

    bool operator==(const FormState&) const = default;
};

class FormHistory {
  public:
    // Forgets all steps.
    void Begin(const FormState& state);

    // Notes a step unless nothing has changed. What is typed into one field without anything else
    // in between is one step, or none where it is taken out again. Of more than a thousand steps
    // the oldest are forgotten.
    void Note(const FormState& state, std::optional<FieldPlace> typedIn = std::nullopt);

    // Puts what has become of the last step in its place.
    void Amend(const FormState& state);

    bool CanUndo() const { return at > 0; }
    bool CanRedo() const { return at + 1 < states.size(); }

    // The state before or after; the present one when there is none. Begin has been called.
    const FormState& Undo();
    const FormState& Redo();

    // For what is no step and holds for all of them: a game has another name, a table another
    // index. Steps that change nothing then are dropped.
    void ChangeAll(const std::function<void(FormState&)>& change);

  private:
    std::vector<FormState> states;
    std::size_t at = 0;  // of the present one
    std::optional<FieldPlace> typing;
};
