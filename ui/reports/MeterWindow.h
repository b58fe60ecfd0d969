// A growing jackpot, in a window beside the machine's: the return of the game at every meter, the
// meter at which it is even, and the meters from which on hands are played otherwise. It blocks
// nothing; the work is done in the background, and once it is done the slider needs none.
#pragma once
#include <QTimer>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "core/whatif/Meter.h"
#include "core/whatif/MeterSearch.h"
#include "game/session/BackgroundWork.h"
#include "ui/reports/BesideWindow.h"
#include "ui/reports/CompareWindow.h"

class MeterChart;
class QComboBox;
class QDoubleSpinBox;
class QSlider;
class QSpinBox;

class MeterWindow : public BesideWindow {
    Q_OBJECT

  public:
    // The seat outlives the window.
    MeterWindow(Seat& seat, OpenHand openHand);
    ~MeterWindow() override;

    // Shows the window, in front of the others, with the pay tables as they are now.
    void Open();

  private:
    // What is known of the line; without a curve, of the meter that was searched for.
    struct Known {
        std::shared_ptr<const MeterCurve> curve;
        MeterResult searched;
        double last = 0;  // meter of the curve
    };

    QLayout* MakeChoice();
    QLayout* MakeMeter();
    QWidget* MakeTabs();
    QLayout* MakeBottom();
    void ReadTables();
    void FillLines();
    void ShowNothing();
    void TakeLine();
    void SetMeter(int coins);
    PayTable TableNow() const;
    int Start() const;
    void Begin();
    void LookAtWork();
    void ShowCurve();
    void ShowMeter();
    void ShowTurns();
    QString OtherMeters() const;
    void OpenTheHand();

    Seat& seat;
    OpenHand openHand;
    BackgroundWork<Known> work;
    std::optional<Known> known;
    std::string whyNoCurve;
    std::string metersOf;       // the table
    std::map<int, int> meters;  // coins by line, of those that were moved
    QTimer pause;               // until a search begins
    QTimer settle;              // until the turning points follow the slider
    QTimer look;                // at the work
    TableChoice* game = nullptr;
    QComboBox* line = nullptr;
    QSlider* slider = nullptr;
    QSpinBox* coins = nullptr;
    QDoubleSpinBox* rise = nullptr;
    QLabel* words = nullptr;
    QTabWidget* tabs = nullptr;
    MeterChart* chart = nullptr;
    ReportTableView* turns = nullptr;
    QProgressBar* bar = nullptr;
    QPushButton* hand = nullptr;
};
