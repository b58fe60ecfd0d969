#include "ui/machine/MachineParts.h"

#include <QCoreApplication>
#include <array>
#include <cstddef>
#include <vector>

#include "game/seat/Seat.h"
#include "ui/machine/Layout.h"

namespace {

using enum PartKind;

QString Tr(const char* words) { return QCoreApplication::translate("MachineParts", words); }

std::vector<MachinePart> ListParts() {
    std::vector<MachinePart> parts;
    const auto add = [&](PartKind kind, int count = 1) {
        for (int i = 0; i < count; ++i) parts.push_back({kind, i});
    };
    add(kMessage);
    add(kPayLine, static_cast<int>(kMaxPayLines));
    for (const PartKind kind : {kStake, kDoubleUpTo}) add(kind);
    add(kCard, kHandSize);
    add(kHoldButton, kHandSize);
    for (const PartKind kind : {kFirstDraw, kCharlie, kRedOrBlack, kRedPanel, kBlackPanel,
                                kDrawnColour, kSpinButton, kSpinValue}) {
        add(kind);
    }
    add(kTarget, kTargets);
    for (const PartKind kind :
         {kDealButton, kBetOneButton, kMaxBetButton, kDoubleUpButton, kCoin, kBet, kCredits}) {
        add(kind);
    }
    return parts;
}

QString InWords(const CardTable& cards, CardCode code) {
    if (code == kNoCard) return Tr("no card");
    if (code < 0 || code >= std::min(cards.deckSize, kCardSlots)) return Tr("face down");
    const CardInfo& card = cards.cards[static_cast<std::size_t>(code)];
    if (card.IsJoker()) return Tr("joker");
    static constexpr std::array kRanks = {"",     "ace",  "two",   "three", "four",
                                          "five", "six",  "seven", "eight", "nine",
                                          "ten",  "jack", "queen", "king"};
    static constexpr std::array kSuits = {"", "spades", "hearts", "clubs", "diamonds", "stars"};
    const QString face = Tr("%1 of %2")
                             .arg(Tr(kRanks[static_cast<std::size_t>(card.rank)]),
                                  Tr(kSuits[static_cast<std::size_t>(card.suit)]));
    return card.wild ? Tr("%1, wild").arg(face) : face;
}

// Tells one part; what it does not say of it, is not so.
class PartTeller {
  public:
    PartTeller(const MachinePart& toldPart, const Seat& itsSeat)
        : part(toldPart),
          index(static_cast<std::size_t>(toldPart.index)),
          seat(itsSeat),
          scene(itsSeat.scene),
          engine(itsSeat.engine) {}

    PartLook Tell() {
        switch (part.kind) {
            case kPayLine:
                TellLine();
                break;
            case kCard:
            case kHoldButton:
            case kDealButton:
            case kBetOneButton:
            case kMaxBetButton:
            case kDoubleUpButton:
                TellPlayed();
                break;
            case kStake:
            case kDoubleUpTo:
            case kMessage:
            case kCoin:
            case kBet:
            case kCredits:
                TellMeter();
                break;
            default:
                TellFeature();
        }
        return look;
    }

  private:
    void Say(const QString& name, bool isShown) {
        look.name = name;
        look.shown = isShown;
    }
    void SayNews(const QString& name, bool isShown) {
        Say(name, isShown);
        look.news = name;
    }
    void SayButton(const QString& name, ButtonLook button, bool acts) {
        Say(name, button != ButtonLook::kHidden);
        look.enabled = look.shown && acts;
        look.pressed = button == ButtonLook::kPressed;
    }

    void TellLine();
    void TellPlayed();
    void TellCard();
    void TellHoldButton();
    void TellMeter();
    void TellFeature();
    void TellTarget();
    QString NameOfPlace() const;

    const MachinePart& part;
    std::size_t index;
    const Seat& seat;
    const Scene& scene;
    const GameEngine& engine;
    PartLook look;
};

void PartTeller::TellLine() {
    const PayTable& table = engine.payTable;
    if (index >= table.lines.size() || scene.doubleUp.shown) return;
    const QString description = QString::fromStdString(table.lines[index].description);
    QStringList pays;
    for (int coins = 1; coins <= kCoinColumns; ++coins) {
        pays.append(QString::number(LineUnitPay(table, part.index, coins)));
    }
    Say(Tr("%1 pays %2").arg(description, pays.join(", ")), true);
    const LineLook& line = scene.lines[index];
    if (line.mark == LineMark::kPlain) return;
    look.selected = true;
    look.news = Tr("%1 pays %2").arg(description, QString::number(line.payout));
    look.name = Tr("%1, won %2").arg(look.name, QString::number(line.payout));
}

QString PartTeller::NameOfPlace() const {
    if (scene.doubleUp.shown && index == 0) return Tr("dealer");
    if (scene.places[index].pileTop) {
        return part.index == kLeftPilePosition ? Tr("left pile") : Tr("right pile");
    }
    return Tr("card %1").arg(part.index + 1);
}

void PartTeller::TellCard() {
    const PlaceLook& place = scene.places[index];
    QString name = NameOfPlace() + ", " + InWords(engine.deck.table, place.card);
    if (place.held) name += Tr(", held");
    if (!place.label.empty()) name += ", " + QString::fromStdString(place.label);
    SayNews(name, true);
    look.enabled = !place.holdDimmed;
}

void PartTeller::TellHoldButton() {
    const PlaceLook& place = scene.places[index];
    const QString name =
        place.pileTop ? Tr("HOLD, %1").arg(NameOfPlace()) : Tr("HOLD %1").arg(part.index + 1);
    SayButton(name, place.holdButton, !place.holdDimmed);
    look.checked = place.held;
}

void PartTeller::TellPlayed() {
    const MachineButtons& buttons = scene.buttons;
    switch (part.kind) {
        case kCard:
            return TellCard();
        case kHoldButton:
            return TellHoldButton();
        case kDealButton:
            return SayButton(Tr("DEAL/DRAW"), buttons.deal, !buttons.dealDimmed);
        case kBetOneButton:
            return SayButton(Tr("BET ONE"), buttons.betOne, !buttons.betsDimmed);
        case kMaxBetButton:
            return SayButton(Tr("MAX BET"), buttons.maxBet, !buttons.betsDimmed);
        default:
            SayButton(Tr("DBL UP"), buttons.doubleUp, CanDoubleUp(engine));
            look.news = Tr("double up offered");
    }
}

void PartTeller::TellMeter() {
    const bool plain = !scene.doubleUp.shown;
    switch (part.kind) {
        case kStake:
            return SayNews(Tr("credits won %1").arg(scene.doubleUp.stake), !plain);
        case kDoubleUpTo:
            return SayNews(Tr("double up to %1").arg(scene.doubleUp.doubleUpTo), !plain);
        case kMessage:
            return SayNews(QString::fromStdString(scene.message), plain);
        case kCoin:
            return SayNews(Tr("coin $%1").arg(scene.coin, 0, 'f', 2), plain);
        case kBet:
            return SayNews(Tr("bet %1").arg(QString::fromStdString(scene.bet)), plain);
        default:
            return SayNews(Tr("credits %1").arg(QString::fromStdString(scene.credits)), plain);
    }
}

void PartTeller::TellTarget() {
    const TargetLook& target = scene.targets[index];
    const QString value =
        target.face == TargetFace::kHidden ? Tr("not shot") : QString::number(target.value);
    SayNews(Tr("target %1, %2").arg(QString::number(part.index + 1), value),
            target.face != TargetFace::kGone);
    look.enabled = engine.targetPending && target.face == TargetFace::kHidden;
}

void PartTeller::TellFeature() {
    const RedBlackLook& colours = scene.redBlack;
    const auto panel = [&](CardColour colour, const QString& name) {
        const bool lit = colours.lit == colour;
        Say(lit ? Tr("%1, drawn last").arg(name) : name, colours.shown);
        look.enabled = engine.redBlackPending;
        look.news = lit ? look.name : QString();
    };
    switch (part.kind) {
        case kFirstDraw:
            return SayNews(
                Tr("first draw card, %1").arg(InWords(engine.deck.table, scene.firstDraw)),
                scene.firstDraw != kNoCard);
        case kCharlie:
            return SayNews(Tr("five card charlie"), scene.charlie);
        case kRedOrBlack:
            return SayNews(Tr("Red or Black?"), colours.shown);
        case kRedPanel:
            return panel(CardColour::kRed, Tr("red"));
        case kBlackPanel:
            return panel(CardColour::kBlack, Tr("black"));
        case kDrawnColour:
            return SayNews(colours.choice == CardColour::kRed ? Tr("it is red") : Tr("it is black"),
                           colours.shown && colours.choice != CardColour::kNone);
        case kSpinButton:
            SayNews(Tr("SPIN"), scene.spin.button != SpinButton::kHidden);
            look.enabled = engine.spinPending;
            return;
        case kSpinValue:
            return SayNews(QString::fromStdString(scene.spin.value),
                           scene.spin.window && !scene.spin.value.empty());
        default:
            return TellTarget();
    }
}

}  // namespace

std::span<const MachinePart> MachineParts() {
    static const std::vector<MachinePart> parts = ListParts();
    return parts;
}

PartLook LookOf(const MachinePart& part, const Seat& seat) { return PartTeller(part, seat).Tell(); }

bool IsButton(PartKind kind) {
    switch (kind) {
        case kHoldButton:
        case kRedPanel:
        case kBlackPanel:
        case kSpinButton:
        case kTarget:
        case kDealButton:
        case kBetOneButton:
        case kMaxBetButton:
        case kDoubleUpButton:
            return true;
        default:
            return false;
    }
}

QString KeyOf(const MachinePart& part, const Seat& seat) {
    switch (part.kind) {
        case kCard:
        case kHoldButton:
            if (!IsPickEm(seat.engine) || seat.engine.doubleUpPick) {
                return QString::number(part.index + 1);
            }
            if (part.index < kLeftPilePosition) return {};
            return part.index == kLeftPilePosition ? "Left" : "Right";
        case kTarget:
            return QString::number(part.index + 1);
        case kDealButton:
            return "D";
        case kBetOneButton:
        case kBlackPanel:
            return "B";
        case kMaxBetButton:
            return "M";
        case kDoubleUpButton:
            return "U";
        case kRedPanel:
            return "R";
        case kSpinButton:
            return "S";
        default:
            return {};
    }
}

QRect PlaceOf(const MachinePart& part, const MachineLayout& layout) {
    const auto index = static_cast<std::size_t>(part.index);
    switch (part.kind) {
        case kMessage:
            return layout.message.rect;
        case kPayLine:
            if (index >= layout.rows.size()) return {};
            return layout.rows[index] | layout.PayoutCell(part.index, kCoinColumns);
        case kStake:
            return layout.creditsWonLabel.rect | layout.creditsWonValue.rect;
        case kDoubleUpTo:
            return layout.doubleUpToLabel.rect | layout.doubleUpToValue.rect;
        case kCard:
            return layout.cards[index];
        case kHoldButton:
            return layout.holdButtons[index];
        case kFirstDraw:
            return layout.sneakPeakCard;
        case kCharlie:
            return layout.charlie;
        case kRedOrBlack:
            return layout.redBlackLabel.rect;
        case kRedPanel:
            return layout.redPanel;
        case kBlackPanel:
            return layout.blackPanel;
        case kDrawnColour:
            return layout.choiceMark;
        case kSpinButton:
            return layout.spinButton;
        case kSpinValue:
            return layout.spinValue;
        case kTarget:
            return layout.targets[index];
        case kDealButton:
            return layout.deal;
        case kBetOneButton:
            return layout.betOne;
        case kMaxBetButton:
            return layout.maxBet;
        case kDoubleUpButton:
            return layout.doubleUp;
        case kCoin:
            return layout.coin;
        case kBet:
            return layout.betLabel.rect | layout.betValue.rect;
        case kCredits:
            return layout.creditLabel.rect | layout.creditValue.rect;
    }
    return {};
}
