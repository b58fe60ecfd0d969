// How long money lasts, and how lucky the player was: the exact law of sessions, of the long run,
// and of the hands that the game file has counted, for the game at the machine. A window beside the
// machine's, which follows what is typed without a button and reckons beside the window's thread.
#pragma once
#include <QTimer>
#include <atomic>
#include <thread>

#include "game/engine/GameEngine.h"
#include "game/reports/BankrollAnswer.h"
#include "ui/reports/BesideWindow.h"

class LawChart;
class QDoubleSpinBox;
class QGridLayout;
class QLabel;
class QSpinBox;
class QTabWidget;
class ReportTableView;

class BankrollWindow : public BesideWindow {
    Q_OBJECT

  public:
    // The player's engine outlives the window.
    explicit BankrollWindow(const GameEngine& engine);

    // Shows the window, in front of the others, with all as it is now.
    void Open();

    // Takes over what has changed at the machine; nothing while the window is hidden.
    void Follow();

  signals:
    // From the thread that reckons.
    void Reckoned(int run, const std::optional<BankrollAnswer>& found);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    QWidget* MakeSession();
    QWidget* MakeLongRun();
    QWidget* MakeLuck();
    void MakeAmounts(QGridLayout& grid);
    template <typename Box>
    Box* AddField(QGridLayout& grid, int row, int column, const QString& caption, const char* name,
                  double most, double start);
    int UsualHands() const;
    BankrollQuestion Question() const;
    void Ask();
    void Reckon();
    void Take(int run, const std::optional<BankrollAnswer>& found);
    void ShowAnswer();
    void ShowWords(QLabel& label, std::string words);
    void ShowSession(double betDollars);
    void ShowLongRun(double betDollars);
    void ShowRisks(const ReportTable& risks);
    void ShowLuck();
    QString GameAtTheMachine() const;
    void NameFiles();
    std::optional<double> OwnGain() const;

    const GameEngine& engine;
    BankrollQuestion asked;  // last
    QString askedGame;       // with its table
    BankrollAnswer answer;   // to asked, once it is shown
    QTabWidget* tabs;
    QSpinBox* hands = nullptr;
    int startHands = 0;  // that the window has put there
    QDoubleSpinBox* hours = nullptr;
    QSpinBox* rate = nullptr;  // hands an hour
    QSpinBox* lines = nullptr;
    QDoubleSpinBox* money = nullptr;  // dollars, 0 = there is always more
    QDoubleSpinBox* goal = nullptr;   // dollars, 0 = none
    QDoubleSpinBox* cashBack = nullptr;
    QDoubleSpinBox* longCashBack = nullptr;
    QDoubleSpinBox* longMoney = nullptr;
    QLabel* sessionWords = nullptr;
    QLabel* longWords = nullptr;
    QLabel* luckWords = nullptr;
    LawChart* sessionChart = nullptr;
    LawChart* luckChart = nullptr;
    ReportTableView* sessionTable = nullptr;
    ReportTableView* riskTable = nullptr;
    ReportTableView* luckTable = nullptr;
    QTimer wait;  // until it is said that something is reckoned
    bool reckons = false;
    std::atomic<int> runs = 0;  // asked for so far
    BankrollReckoner reckoner;  // of the thread alone
    std::jthread thread;        // last, so that it ends before what it works on
};
