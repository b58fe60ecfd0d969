#include "ui/parts/ChartReasonLabel.h"

#include "core/strategy/StartingHands.h"
#include "game/engine/GameEngine.h"

namespace {

// Milliseconds. A dialog that is answered at once starts no search.
constexpr int kLookInterval = 150;
constexpr int kBeforeSearch = 700;

}  // namespace

ChartReasonLabel::ChartReasonLabel(StrategyDesk* desk, QWidget* parent)
    : QLabel(parent), desk(desk) {
    setObjectName("chartReason");
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::ClickFocus);
    look.setInterval(kLookInterval);
    connect(&look, &QTimer::timeout, this, &ChartReasonLabel::Look);
    hide();
}

void ChartReasonLabel::Ask(std::optional<ReasonAsked> wanted) {
    asked = std::move(wanted);
    Say({});
    look.stop();
    if (!desk || !asked) return;
    sinceAsked.start();
    look.start();
    Look();
}

void ChartReasonLabel::Look() {
    desk->Collect();
    if (const Chart* chart = desk->StandardChart(asked->table)) {
        look.stop();
        const PayTable& table = asked->table.table;
        Say(QString::fromStdString(ChartReason(LineTables(table), table, asked->hand, *chart)));
    } else if (sinceAsked.hasExpired(kBeforeSearch)) {
        desk->SearchStandard(asked->table);
    }
}

void ChartReasonLabel::Say(const QString& sentence) {
    setText(sentence.isEmpty() ? sentence : tr("Strategy chart: %1.").arg(sentence));
    setAccessibleName(text());
    setVisible(!sentence.isEmpty());
}

std::optional<ReasonAsked> AskedOf(const GameEngine& engine, const HandCards& hand,
                                   std::optional<HoldMask> played) {
    const PayTable& table = engine.payTable;
    if (table.lines.empty() || !StartingHands::WhyNot(table).empty()) return std::nullopt;
    const TableOfGame place{engine.settings.gameId, engine.settings.gameName,
                            engine.settings.activeTable};
    return ReasonAsked{{place, table}, {FacesOf(engine.deck.table, hand), played}};
}
