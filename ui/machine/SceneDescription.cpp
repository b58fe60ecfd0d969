#include "ui/machine/SceneDescription.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "core/cards/CardTable.h"
#include "core/paytable/PayTable.h"
#include "game/seat/Scene.h"

namespace {

std::string Join(const std::vector<std::string>& parts, std::string_view separator) {
    std::string all;
    for (const std::string& part : parts) {
        if (!all.empty()) all += separator;
        all += part;
    }
    return all;
}

class SceneTeller {
  public:
    SceneTeller(const Scene& shownScene, const PayTable& table, const CardTable& cardTable)
        : scene(shownScene), payTable(table), cards(cardTable) {}

    std::string Tell() {
        if (scene.doubleUp.shown) {
            TellDoubleUp();
        } else {
            Say(scene.message);
            TellLines();
            TellCards(0);
            TellFeatures();
            Say("Bet " + scene.bet);
            Say("Credits " + scene.credits);
            Say(scene.plate.game + ", " + scene.plate.details);
        }
        Say(scene.hint);
        return Join(sentences, " ");
    }

  private:
    void Say(const std::string& words) {
        if (!words.empty()) sentences.push_back(words + ".");
    }

    void TellDoubleUp();
    void TellLines();
    void TellCards(std::size_t first);
    void TellFeatures();
    void TellTargets();
    std::string NameOf(CardCode card) const;
    std::string WordsFor(std::size_t position) const;

    const Scene& scene;
    const PayTable& payTable;
    const CardTable& cards;
    std::vector<std::string> sentences;
};

void SceneTeller::TellDoubleUp() {
    Say("Credits won " + std::to_string(scene.doubleUp.stake));
    Say("Double up to " + std::to_string(scene.doubleUp.doubleUpTo));
    Say("Dealer " + NameOf(scene.places[0].card));
    TellCards(1);
}

void SceneTeller::TellLines() {
    const std::size_t lines = std::min(payTable.lines.size(), scene.lines.size());
    for (std::size_t i = 0; i < lines; ++i) {
        if (scene.lines[i].mark == LineMark::kPlain) continue;
        Say(payTable.lines[i].description + " pays " + std::to_string(scene.lines[i].payout));
    }
}

std::string SceneTeller::NameOf(CardCode card) const {
    if (card == kNoCard) return "no card";
    if (card < 0 || card >= std::min(cards.deckSize, kCardSlots)) return "face down";
    const CardInfo& info = cards.cards[static_cast<std::size_t>(card)];
    return info.wild && info.rank != 0 ? info.name + ", wild" : info.name;
}

// By the number of the key that holds the card, and a pile by the side that its key points to.
std::string SceneTeller::WordsFor(std::size_t position) const {
    const PlaceLook& look = scene.places[position];
    std::string words = std::to_string(position + 1);
    if (look.pileTop) words = position == kLeftPilePosition ? "left pile" : "right pile";
    words += " " + NameOf(look.card);
    if (look.held) words += ", held";
    if (!look.label.empty()) words += ", " + look.label;
    return words;
}

void SceneTeller::TellCards(std::size_t first) {
    std::vector<std::string> all;
    for (std::size_t i = first; i < scene.places.size(); ++i) all.push_back(WordsFor(i));
    Say("Cards: " + Join(all, "; "));
    if (scene.firstDraw != kNoCard) Say("First draw card " + NameOf(scene.firstDraw));
}

void SceneTeller::TellFeatures() {
    if (scene.charlie) Say("Five card charlie");
    if (scene.redBlack.shown) {
        sentences.emplace_back("Red or Black?");
        if (scene.redBlack.lit == CardColour::kRed) Say("Last it was red");
        if (scene.redBlack.lit == CardColour::kBlack) Say("Last it was black");
    }
    Say(scene.featureLabel);
    TellTargets();
    if (scene.buttons.doubleUp != ButtonLook::kHidden) Say("Double up offered");
}

void SceneTeller::TellTargets() {
    std::vector<std::string> all;
    for (std::size_t i = 0; i < scene.targets.size(); ++i) {
        const TargetLook& target = scene.targets[i];
        if (target.face == TargetFace::kGone) continue;
        const bool hidden = target.face == TargetFace::kHidden;
        all.push_back(std::to_string(i + 1) + " " +
                      (hidden ? "not shot" : std::to_string(target.value)));
    }
    if (!all.empty()) Say("Targets: " + Join(all, "; "));
}

}  // namespace

std::string Describe(const Scene& scene, const PayTable& payTable, const CardTable& cards) {
    return SceneTeller(scene, payTable, cards).Tell();
}
