// The table display of the window: each step of a flow changes the scene, and the window is told.
#pragma once
#include <functional>
#include <string>
#include <string_view>

#include "game/TableDisplay.h"
#include "ui/table/TableScene.h"

class SceneDisplay : public TableDisplay {
  public:
    // The scene outlives the display. changed is called after every step; what is to be seen is in
    // the scene then.
    SceneDisplay(TableScene& scene, std::function<void()> changed);

    // The table and the display refer to each other, so the table comes second: before the first
    // step. It outlives the display.
    void Attach(const GameTable& table);

    // Called by Relayout before changed: the places of the window depend on the pay table.
    std::function<void()> relaidOut;

    // A button under the player's finger; nothing where the button is not shown.
    void PressButton(TableButton button, bool pressed);

    void ShowMessage(const std::string& text) override;
    void ShowCredits(const std::string& text) override;
    void ShowBet(const std::string& text) override;
    void ShowCoin(double coin) override;
    void ShowLine(int line, LineMark mark, int payout) override;
    void ShowCharlie(bool shown) override;
    void ShowCard(int position, CardCode card) override;
    void ShowHeld(int position, bool held) override;
    void ShowHoldButton(int position, bool pressed) override;
    void ShowFirstDraw(CardCode card) override;
    void ShowPile(int position, PileStage stage) override;
    void ShowPileTop(int position, CardCode card, std::string_view label) override;
    void ShowDoubleUpButton(bool shown) override;
    void ShowDoubleUp(int stake, int doubleUpTo) override;
    void ShowDoubleUpAmounts(int stake, int doubleUpTo) override;
    void ShowFeatureLabel(std::string_view text) override;
    void ShowSpin(SpinButton button) override;
    void ShowSpinValue(const std::string& value) override;
    void HideSpin() override;
    void ShowTarget(int target, TargetFace face, int value) override;
    void ShowRedBlack(bool shown) override;
    void LightPanel(CardColour colour) override;
    void ShowChoice(CardColour colour) override;
    void Repaint() override;
    void Relayout() override;

  private:
    PlaceLook& Place(int position);

    TableScene& scene;
    std::function<void()> changed;
    const GameTable* table = nullptr;
};
