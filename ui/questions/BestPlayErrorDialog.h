// Tells what a play error costs, and asks whether to go on with it all the same: accepted means
// yes.
#pragma once
#include <QDialog>
#include <functional>
#include <optional>
#include <string>

#include "ui/parts/ChartReasonLabel.h"

class BestPlayErrorDialog : public QDialog {
    Q_OBJECT

  public:
    // Without an analysis there is no button for it; the analysis is shown over the dialog that it
    // is given. The beep, if any, sounds when the dialog opens.
    BestPlayErrorDialog(const std::string& message, std::function<void(QWidget& over)> analysis,
                        std::function<void()> beep, QWidget* parent);

    // Tells below the box why the best play is the best one, once that is known. The desk outlives
    // the dialog.
    void TellReason(StrategyDesk* charts, std::optional<ReasonAsked> asked);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    std::function<void(QWidget&)> analysis;
    std::function<void()> beep;
};
