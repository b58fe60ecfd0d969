// The meter of long work. It keeps the player from the window that it stands over: what he presses
// there is not kept for when the work is done. The work may show its progress as often as it likes:
// most calls cost a few additions.
#pragma once
#include <QDialog>
#include <QElapsedTimer>

#include "game/seat/Player.h"

class QLineEdit;
class QProgressBar;

class ProgressDialog : public QDialog, public ProgressMeter {
    Q_OBJECT

  public:
    ProgressDialog(const std::string& text, QWidget* parent);

    // Shows the text and 0..100 percent and lets events through, some thirty times a second; the
    // calls between do nothing. False from the moment the player has closed the meter.
    bool Show(const std::string& text, int percent) override;

    void reject() override;

  private:
    bool IsTimeToLook();

    QLineEdit* line;
    QProgressBar* bar;
    QElapsedTimer sinceShown;
    QElapsedTimer sinceLooked;
    int callsPerLook = 1;
    int callsSkipped = 0;
    bool cancelled = false;
};
