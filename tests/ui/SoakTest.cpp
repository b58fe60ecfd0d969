// An evening at the machine: hand after hand in one game after the other, through the window. The
// program does not grow by it, and the counters tell where every credit has gone.
#include <QAbstractButton>
#include <QLineEdit>
#include <QTimer>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <set>

#include "core/paytable/GameCatalogue.h"
#include "tests/ui/TestProgram.h"

namespace {

constexpr int kHands = 2000;
constexpr int kHandsOfASitting = 20;
constexpr int kHandsOfADoubleUp = 7;
constexpr int kHandsOfAnimation = 100;  // painted card by card
constexpr int kHandsOfARepaint = 10;
constexpr int kHandsOfAnError = 5;
constexpr HoldMask kUsualHold = 0b01100;
constexpr int kBet = 5;
constexpr int kMostGrowth = 4096;  // kilobytes
constexpr int kDollars = 200;

// Ordinary, with wild cards and jokers, two draws, two piles, six cards, each feature.
constexpr std::array kGames = {300, 330, 345, 318, 350, 351, 352, 353, 354, 355, 356};
constexpr std::array kModes = {kModeCasino, kModeWarning, kModeAutoHold};
constexpr int kWarmUpRounds = 2;  // every game has built its tables, every picture is drawn

int WantedHands() {
    const char* wanted = std::getenv("TOLVANE_SOAK_HANDS");
    return wanted ? std::atoi(wanted) : kHands;
}

// Of this process, in kilobytes.
int ResidentMemory() {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word && word != "VmRSS:") continue;
    int kilobytes = 0;
    status >> kilobytes;
    return kilobytes;
}

// What AddressSanitizer keeps of freed memory would be measured; it looks for leaks itself.
constexpr bool kMeasuresMemory =
#ifdef __SANITIZE_ADDRESS__
    false;
#else
    true;
#endif

class SoakTest : public ProgramTest {
  protected:
    TestProgram& p() { return *program; }

    // No to every question, on with every hold, and more money.
    void AnswerDialogs() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible()) return;
        answered.insert(dialog->objectName().toStdString());
        if (dialog->objectName() == "question") return QTest::keyClick(dialog, Qt::Key_Escape);
        if (auto* yes = dialog->findChild<QAbstractButton*>("yes")) return yes->click();
        if (auto* edit = dialog->findChild<QLineEdit*>()) edit->setText(QString::number(kDollars));
        QTest::keyClick(dialog, Qt::Key_Return);
    }

    void PlayHand(int number) {
        const GameEngine& engine = p().engine;
        p().clock.paints = number % kHandsOfAnimation == 0;
        for (int tries = 0; engine.handOver && tries < 2; ++tries) p().Key(Qt::Key_D);
        if (engine.payTable.type == GameType::kPickEm) {
            p().Key(number % 2 == 0 ? Qt::Key_Left : Qt::Key_Right);
        } else {
            if (engine.settings.mode != PlayMode::kAutoHold) HoldCards(number);
            p().Key(Qt::Key_D);
        }
        PlayFeatures();
        if (number % kHandsOfADoubleUp == 0 && engine.doubleUpOffered) {
            p().Key(Qt::Key_U);
            p().Key(Qt::Key_4);
        }
        if (number % kHandsOfARepaint == 0) QApplication::processEvents();
    }

    // A warning is a dialog, which takes longer than many hands.
    void HoldCards(int number) {
        const GameEngine& engine = p().engine;
        const bool best =
            engine.settings.mode == PlayMode::kWarning && number % kHandsOfAnError != 0;
        const HoldMask mask = best ? engine.analysis.best : kUsualHold;
        for (int i = 0; i < kHandSize; ++i) {
            if (Holds(mask, i)) p().Key(static_cast<Qt::Key>(Qt::Key_1 + i));
        }
    }

    void PlayFeatures() {
        const GameEngine& engine = p().engine;
        if (engine.spinPending) p().Key(Qt::Key_S);
        if (engine.targetPending) p().Keys({Qt::Key_1, Qt::Key_3, Qt::Key_5});
        while (engine.redBlackPending) p().Key(Qt::Key_R);
    }

    // In a game whose session begins. Every credit that comes or goes is in one of its counters.
    void Sit(int game) {
        CMorvikDoc& document = *p().document;
        document.Run(kModes[static_cast<std::size_t>(sittings++) % kModes.size()]);
        document.Run(game);
        const GameEngine& engine = p().engine;
        ASSERT_EQ(engine.settings.gameId, game);
        const Statistics& counted = engine.statistics;
        ASSERT_EQ(counted.handsPlayed.session, 0);
        const int before = engine.settings.credits;
        for (int hand = 0; hand < kHandsOfASitting; ++hand) PlayHand(played++);
        EXPECT_EQ(counted.handsPlayed.session, kHandsOfASitting);
        EXPECT_EQ(counted.creditsPlayed.session, kHandsOfASitting * kBet);
        EXPECT_EQ(engine.settings.credits,
                  before + counted.sessionDollarsIn - counted.creditsPlayed.session +
                      counted.creditsWon.session + counted.bonusCredits.session +
                      counted.doubleUpCredits.session - counted.doubleUpCreditsLost.session);
        bonusTries += counted.bonusTries.session;
        doubleUps += counted.doubleUpTries.session;
        p().sounds.played.clear();
    }

    void PlayRound() {
        for (const int game : kGames) {
            Sit(game);
            ASSERT_FALSE(HasFailure()) << "game " << game << " after " << played << " hands";
        }
        p().ExpectAtRest("after " + std::to_string(played) + " hands");
    }

    // Of all games, as the game file has it.
    int StoredTotal(std::string_view key) {
        int total = 0;
        for (const auto& game : BuiltInGames()) {
            total += StoredNumber(key, TableSection(std::string(game.name), 0));
        }
        return total;
    }

    int StoredNumber(std::string_view key, const std::string& section = "main") {
        return std::atoi(Stored(key, section).c_str());
    }

    int sittings = 0;
    int played = 0;
    int bonusTries = 0;
    int doubleUps = 0;
    std::set<std::string> answered;  // dialogs, by name
};

TEST_F(SoakTest, ThousandsOfHandsTakeNoMemoryAndNoCreditIsLost) {
    Start();
    QTimer looker;
    QObject::connect(&looker, &QTimer::timeout, [this] { AnswerDialogs(); });
    looker.start(1);
    for (int round = 0; round < kWarmUpRounds; ++round) PlayRound();
    const int before = ResidentMemory();
    const int hands = WantedHands();
    while (played < hands && !HasFailure()) PlayRound();
    const int after = ResidentMemory();
    std::cout << played << " hands: " << before << " kB, then " << after << " kB; " << bonusTries
              << " features, " << doubleUps << " double ups\n";
    if (kMeasuresMemory) {
        EXPECT_LT(after - before, kMostGrowth);
    }
    EXPECT_GT(bonusTries, 0);
    EXPECT_GT(doubleUps, 0);
    EXPECT_EQ(answered, (std::set<std::string>{"bestPlayError", "enterDollars", "question"}));

    EXPECT_TRUE(p().document->OnCloseDocument());
    EXPECT_EQ(StoredTotal("HandsPlayed"), played);
    EXPECT_EQ(StoredTotal("CreditsPlayed"), played * kBet);
    EXPECT_EQ(StoredNumber("Credits"),
              100 + StoredNumber("CreditsEntered") - StoredTotal("CreditsPlayed") +
                  StoredTotal("CreditsWon") + StoredTotal("BonusCredits") +
                  StoredTotal("DblUpCredits") - StoredTotal("DblUpCreditsLost"));
    Start();
}

}  // namespace
