#include "ui/table/SceneDisplay.h"

#include <algorithm>
#include <utility>

#include "ui/art/Pictures.h"

SceneDisplay::SceneDisplay(TableScene& shownScene, std::function<void()> sceneChanged)
    : scene(shownScene), changed(std::move(sceneChanged)) {}

void SceneDisplay::Attach(const GameTable& attached) { table = &attached; }

PlaceLook& SceneDisplay::Place(int position) {
    return scene.places[static_cast<std::size_t>(std::clamp(position, 0, kHandSize - 1))];
}

void SceneDisplay::PressButton(TableButton button, bool pressed) {
    ButtonLook& look = scene.Button(button);
    if (look == ButtonLook::kHidden) return;
    look = pressed ? ButtonLook::kPressed : ButtonLook::kReleased;
    changed();
}

void SceneDisplay::ShowMessage(const std::string& text) {
    scene.message = text;
    changed();
}

void SceneDisplay::ShowCredits(const std::string& text) {
    scene.credits = text;
    changed();
}

void SceneDisplay::ShowBet(const std::string& text) {
    scene.bet = text;
    changed();
}

void SceneDisplay::ShowCoin(double coin) {
    scene.coin = coin;
    changed();
}

void SceneDisplay::ShowLine(int line, LineMark mark, int payout) {
    if (line < 0 || line >= kMaxPayLines) return;
    LineLook look;
    if (mark != LineMark::kPlain) look = {mark, payout, BetColumn(table->engine)};
    scene.lines[static_cast<std::size_t>(line)] = look;
    changed();
}

void SceneDisplay::ShowCharlie(bool shown) {
    scene.charlie = shown;
    changed();
}

// A card that is laid down takes away what lay in the place before, but for the mark and the button
// that belong to the place itself.
void SceneDisplay::ShowCard(int position, CardCode card) {
    PlaceLook& place = Place(position);
    place.card = card;
    place.pileTop = false;
    place.pileDepth = 0;
    place.label.clear();
    changed();
}

void SceneDisplay::ShowHeld(int position, bool held) {
    Place(position).held = held;
    changed();
}

void SceneDisplay::ShowHoldButton(int position, bool pressed) {
    ButtonLook& look = Place(position).holdButton;
    if (look == ButtonLook::kHidden) return;
    look = pressed ? ButtonLook::kPressed : ButtonLook::kReleased;
    changed();
}

void SceneDisplay::ShowFirstDraw(CardCode card) {
    scene.firstDraw = card;
    changed();
}

void SceneDisplay::ShowPile(int position, PileStage stage) {
    PlaceLook& place = Place(position);
    place.card = kNoCard;
    place.pileDepth = stage == PileStage::kOneBack ? 1 : 2;
    changed();
}

void SceneDisplay::ShowPileTop(int position, CardCode card, std::string_view label) {
    PlaceLook& place = Place(position);
    place.card = card;
    place.pileTop = true;
    place.label = label;
    changed();
}

void SceneDisplay::ShowDoubleUpButton(bool shown) {
    scene.Button(TableButton::kDoubleUp) = shown ? ButtonLook::kReleased : ButtonLook::kHidden;
    changed();
}

void SceneDisplay::ShowDoubleUp(int stake, int doubleUpTo) {
    scene = DoubleUpScene(*table, scene.message, stake, doubleUpTo);
    changed();
}

void SceneDisplay::ShowDoubleUpAmounts(int stake, int doubleUpTo) {
    scene.doubleUp.stake = stake;
    scene.doubleUp.doubleUpTo = doubleUpTo;
    changed();
}

void SceneDisplay::ShowFeatureLabel(std::string_view text) {
    scene.featureLabel = text;
    changed();
}

void SceneDisplay::ShowSpin(SpinButton button) {
    scene.spin.button = button;
    scene.spin.window = true;
    changed();
}

void SceneDisplay::ShowSpinValue(const std::string& value) {
    scene.spin.window = true;
    scene.spin.value = value;
    changed();
}

void SceneDisplay::HideSpin() {
    scene.spin = {};
    scene.featureLabel.clear();
    changed();
}

void SceneDisplay::ShowTarget(int target, TargetFace face, int value) {
    if (target < 0 || target >= kTargets) return;
    const bool valueSeen = face == TargetFace::kShot || face == TargetFace::kMissed;
    scene.targets[static_cast<std::size_t>(target)] = {face, valueSeen ? value : 0};
    changed();
}

void SceneDisplay::ShowRedBlack(bool shown) {
    scene.redBlack = {shown, CardColour::kNone, CardColour::kNone};
    changed();
}

void SceneDisplay::LightPanel(CardColour colour) {
    scene.redBlack.lit = colour;
    changed();
}

void SceneDisplay::ShowChoice(CardColour colour) {
    scene.redBlack.choice = colour;
    changed();
}

void SceneDisplay::Repaint() {
    scene = SceneOf(*table, scene.message);
    changed();
}

void SceneDisplay::Relayout() {
    if (relaidOut) relaidOut();
    Repaint();
}
