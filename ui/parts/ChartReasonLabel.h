// A line below a report in which a strategy chart says why the best play of a hand is the best one.
// It is empty until the chart of the table is there, and fills itself then; nothing waits for it.
#pragma once
#include <QElapsedTimer>
#include <QLabel>
#include <QTimer>
#include <functional>
#include <optional>

#include "game/reports/ChartReason.h"
#include "game/session/StrategyDesk.h"

// Of which hand of which table.
struct ReasonAsked {
    ListedTable table;
    AskedHand hand;
};

class ChartReasonLabel : public QLabel {
    Q_OBJECT

  public:
    // Without a desk there are no charts, and the label stays hidden. The desk outlives the label.
    ChartReasonLabel(StrategyDesk* desk, QWidget* parent);

    // Shows the sentence on a hand, once it is known; on nothing, none.
    void Ask(std::optional<ReasonAsked> asked);

  private:
    void Look();
    void Say(const QString& sentence);

    StrategyDesk* desk;
    std::optional<ReasonAsked> asked;
    QTimer look;  // whether the chart has been found
    QElapsedTimer sinceAsked;
};

// Of the hand last dealt to a machine; nothing when none was, or its table has no charts. Without a
// hold the two best ones are compared.
std::optional<ReasonAsked> AskedOf(const GameEngine& engine, const HandCards& hand,
                                   std::optional<HoldMask> played);
