// One who does not wait: presses at random moments, in the middle of every flow too, in all games,
// modes and speeds. Books are kept beside the machine, from what the player is shown and told: each
// credit that comes or goes is in them, no card is foretold, and what is offered stands until used.
#include <QAbstractButton>
#include <QLineEdit>
#include <QTimer>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <set>

#include "app/IdleWork.h"
#include "core/paytable/GameCatalogue.h"
#include "game/flows/BonusFeatures.h"
#include "tests/Sanitized.h"
#include "tests/ui/AnyInput.h"

namespace {

constexpr int kHands = kSanitized ? 2000 : 20'000;
constexpr int kRounds = 2;  // through all games; after the first one every picture is drawn
constexpr int kDollars = 5000;
constexpr int kMostGrowth = 4096;  // kilobytes
constexpr int kChoices = 12;       // of modes and speeds
constexpr std::array kModes = {kModeWarning, kModeCasino, kModeAutoHold, kModeErrorLog};
constexpr std::array kSpeeds = {kSpeedFast, kSpeedNormal, kSpeedSlow};

int WantedHands() {
    const char* wanted = std::getenv("TOLVANE_IMPATIENT_HANDS");
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

// What the counters of a session must say.
struct Books {
    int deals = 0;
    int hands = 0;
    int won = 0;
    int bets = 0;
    int creditsWon = 0;
    int bonus = 0;
    int bonusTries = 0;
    int doubledUp = 0;  // less what was lost
    std::array<int, kMaxPayLines> lines{};
};

bool IsCharlie(const GameEngine& engine) {
    int sum = 0;
    bool ace = false;
    for (const CardCode card : engine.hand) {
        const int rank = engine.deck.table.cards[static_cast<std::size_t>(card)].rank;
        sum += std::min(rank, 10);
        ace = ace || rank == 1;
    }
    return sum == 21 || (ace && sum == 11);
}

class ImpatientPlayerTest : public ProgramTest, protected AnyInput {
  protected:
    ImpatientPlayerTest() : AnyInput(20'261'123) {}

    TestProgram& p() { return *program; }
    const GameEngine& E() { return program->engine; }

    void SitDown() {
        for (const BuiltInGame& game : BuiltInGames()) {
            const char* flags[] = {"SpinBonus", "TgtBonus", "RBBonus", "CharlieBonus"};
            if (game.id % 2 == 0) SetInTable(std::string(game.name), AnyOf(flags), "1");
            SetInTable(std::string(game.name), AnyOf(flags), "1");
        }
        TestProgram& p = Start();
        // Every card table is built at another second, as at a real table.
        p.engine.deck.clock = [] {
            static std::int64_t now = 1'790'000'000;
            return ++now;
        };
        p.clock.paints = false;
        p.clock.inEveryPause = [this] { Hurry(); };
        idle = std::make_unique<IdleWork>(*p.document);
        owned = E().settings.credits;
        coin = E().settings.coin;
        QObject::connect(p.document.get(), &CMorvikDoc::SceneChanged, [this] { Look(); });
        QObject::connect(p.document.get(), &CMorvikDoc::Settled, [this] { counting = false; });
        QObject::connect(&looker, &QTimer::timeout, [this] { Answer(); });
        looker.start(0);
    }

    // What the player is shown, step by step. A message is taken, so that each is seen once.
    void Look() {
        std::string& shown = p().document->PlayersSeat().scene.message;
        const std::string message = std::exchange(shown, "");
        if (message.starts_with("PAID ")) counting = true;
        if (message.starts_with("Paid ")) owned -= Credits(message.substr(5));
        if (message.ends_with(" Bonus Credits")) bonus = Credits(message);
        if (coin != E().settings.coin) {
            owned = static_cast<int>(owned * coin / E().settings.coin * (1 + 1e-12));
            coin = E().settings.coin;
        }
        LookAtHand();
        LookAtFeatures();
    }

    int Credits(const std::string& text) const {
        std::string digits;
        for (const char c : text) {
            if (std::isdigit(static_cast<unsigned char>(c)) != 0 || c == '.') digits += c;
        }
        const double amount = std::atof(digits.c_str());
        return static_cast<int>(std::lround(text.find('$') == 0 ? amount / coin : amount));
    }

    void LookAtHand() {
        if (dealt == !E().handOver) return;
        dealt = !dealt;
        if (dealt) {
            EXPECT_FALSE(counting) << "a deal within the flow that counts a win up";
            fixed = E().fixedHand;
            ++books.deals;
            if (!fixed) NoteDeal();
        } else if (!fixed && !E().fixedHand) {
            NoteResult(1);
        }
    }

    void NoteDeal() {
        const bool secondDraw =
            E().payTable.type == GameType::kDoubleDraw && E().dealtCopy == dealtHand;
        if (secondDraw) return NoteResult(-1);
        books.bets += E().settings.bet;
        owned -= E().settings.bet;
        const std::set<CardCode> cards(E().hand.begin(), E().hand.end());
        EXPECT_NE(cards, lastShown) << "the same hand again";
        lastShown = cards;
        dealtHand = E().dealtCopy;
    }

    // With times -1 the first result of two draws is taken back.
    void NoteResult(int times) {
        if (times > 0) line = E().finalLine;
        const int pay = times < 0 ? linePay : line < 0 ? 0 : PayOf(line);
        if (times > 0) charliePay = line >= 0 && E().payTable.charlieBonus && IsCharlie(E());
        linePay = pay;
        books.hands += times;
        books.creditsWon += pay * times;
        books.bonus += charliePay ? 4 * pay * times : 0;
        owned += (charliePay ? 5 : 1) * pay * times;
        if (line < 0) return;
        books.won += times;
        books.lines[static_cast<std::size_t>(line)] += times;
    }

    int PayOf(int won) {
        const PayLine& paid = E().payTable.lines[static_cast<std::size_t>(won)];
        return E().settings.bet == 5 ? paid.maxPayout : paid.payout * E().settings.bet;
    }

    // True in the step in which the feature ends. What it has paid must have been told.
    bool Ends(bool& pending, bool now) {
        const bool ended = std::exchange(pending, now) && !now;
        if (!ended) return false;
        EXPECT_GE(bonus, 0) << "thrown away";
        owned += bonus;
        books.bonus += std::exchange(bonus, -1);
        return true;
    }

    void LookAtFeatures() {
        const CardColour choice = p().ShownScene().redBlack.choice;
        if (choice != lastChoice && choice != CardColour::kNone) ++guesses;
        lastChoice = choice;
        EXPECT_FALSE(counting && (E().doubleUpPick || guesses > 0)) << "chosen in a count-up";
        const int bet = E().settings.bet;
        const int told = bonus;
        for (const auto& [pending, now, least] :
             {std::tuple(&spin, E().spinPending, 6), std::tuple(&target, E().targetPending, 3)}) {
            if (!Ends(*pending, now)) continue;
            EXPECT_GE(told, least * bet);
            ++books.bonusTries;
        }
        if (Ends(redBlack, E().redBlackPending)) {
            EXPECT_TRUE(told == bet * std::max(1, guesses) ||  // when it was left
                        told == bet * std::max(1, guesses - 1));
            books.bonusTries += std::max(1, std::exchange(guesses, 0));
        }
        LookAtDoubleUp();
    }

    // Of the wins that were risked, those lost are told as 0, and a tie that is left says nothing.
    void LookAtDoubleUp() {
        if (picking == E().doubleUpPick) return;
        picking = !picking;
        if (picking) {
            lastShown = {E().hand.begin(), E().hand.end()};
        } else if (bonus >= 0) {
            const int gain = bonus == 0 ? -E().win : bonus;
            books.doubledUp += gain;
            owned += gain;
        }
        bonus = -1;
    }

    // In a pause of a flow.
    void Hurry() {
        if (!p().document->PlayersSeat().dealing) holds = 0;
        for (int presses = OneIn(6) ? Any(1, 4) : 0; presses > 0; --presses) AnyPress();
        EXPECT_LE(p().document->Actions().WaitingPresses(),
                  p().document->PlayersSeat().dealing ? 2 * holds + 4 : 2);
    }

    void AnyPress() {
        constexpr std::string_view kKeys = "DDDD 12345BMURSCOX";
        constexpr int kCommands[] = {kModeCasino,  kModeAutoHold, kModeErrorLog,   kFixedHand,
                                     kSpeedNormal, kToggleSounds, kToggleDoubleUp, kCoinDollar,
                                     kCoinQuarter, kCashOut};
        ++holds;
        if (OneIn(30)) return p().document->Run(AnyOf(kCommands));
        if (OneIn(2)) return Mouse(p());
        const auto key = static_cast<Qt::Key>(AnyOf(kKeys));
        if (key != Qt::Key_S || E().spinPending) Key(p(), key);
    }

    // In Pick 'Em a pile; elsewhere mostly the best hold, since a warning is a dialog.
    void Draw() {
        if (E().payTable.type == GameType::kPickEm) {
            const bool left = OneIn(20) != (E().analysis.best == 28);
            return p().Key(left ? Qt::Key_Left : Qt::Key_Right);
        }
        const bool judged = E().settings.mode != PlayMode::kCasino && !OneIn(12);
        const HoldMask wanted = judged ? E().analysis.best : Any(0, 31);
        for (int i = 0; i < kHandSize; ++i) {
            if (Holds(wanted ^ p().Held(), i)) p().Key(static_cast<Qt::Key>(Qt::Key_1 + i));
        }
        PressDeal();
    }

    void PressDeal() {
        if (OneIn(4)) return p().Click(p().Places().deal);
        OneIn(3) ? p().RightPress(p().Places().cards[2]) : p().Key(Qt::Key_D);
    }

    // What waits is played, or goes on waiting in another mode, or its game is left.
    void PlayFeature() {
        if (OneIn(12)) return p().document->Run(AnyOf(kModes));
        if (OneIn(15)) return p().document->Run(kAssignFixedHand);
        if (OneIn(15)) return ChooseGame(E().settings.gameId);
        if (E().doubleUpPick) return p().Key(static_cast<Qt::Key>(Any(Qt::Key_2, Qt::Key_5)));
        if (E().redBlackPending) return p().Key(OneIn(2) ? Qt::Key_R : Qt::Key_B);
        if (E().spinPending) return p().Key(Qt::Key_S);
        p().Key(static_cast<Qt::Key>(Any(Qt::Key_1, Qt::Key_5)));
    }

    void TakeStep() {
        const Statistics& counted = E().statistics;
        if (FeaturePending(E())) {
            PlayFeature();
        } else if (!E().handOver) {
            Draw();
        } else if (E().doubleUpOffered && OneIn(8)) {
            p().Key(Qt::Key_U);
        } else {
            PressDeal();
        }
        if (OneIn(10)) AnyPress();
        if (OneIn(2)) {
            for (int i = AnyOf(std::array{1, 1, 1, 1, 2, 102}); i > 0; --i) idle->OnIdle(i);
        }
        ASSERT_FALSE(p().document->Actions().Busy());
        ASSERT_EQ(E().settings.credits, owned);
        ASSERT_EQ(counted.handsPlayed.session, books.hands);
        ASSERT_EQ(counted.creditsPlayed.session, books.bets);
        ASSERT_EQ(counted.bonusCredits.session, books.bonus);
        ASSERT_TRUE(FeaturePending(E()) || counted.bonusTries.session == books.bonusTries);
    }

    void ExpectCounted() {
        const Statistics& counted = E().statistics;
        EXPECT_EQ(counted.handsWon.session, books.won);
        EXPECT_EQ(counted.creditsWon.session, books.creditsWon);
        EXPECT_EQ(counted.doubleUpCredits.session - counted.doubleUpCreditsLost.session,
                  books.doubledUp);
        for (std::size_t i = 0; i < E().payTable.lines.size(); ++i) {
            EXPECT_EQ(E().payTable.lines[i].sessionWins, books.lines[i]) << i;
        }
    }

    // Begins a session. What a feature that still waits is worth is counted in the one that ends.
    void ChooseGame(int game) {
        while (!E().handOver && !E().fixedHand) TakeStep();
        ExpectCounted();
        doubleUps += E().statistics.doubleUpTries.session;
        p().document->Run(game);
        ASSERT_EQ(E().settings.gameId, game);
        deals += books.deals;
        hands += books.hands;
        features += books.bonusTries;
        books = {};
        line = -1;
    }

    void Sit(int mode, int speed, int wanted) {
        while (!E().handOver && !E().fixedHand) TakeStep();
        for (const int command : {speed, mode}) p().document->Run(command);
        if (!E().settings.doubleUp) p().document->Run(kToggleDoubleUp);
        p().view->setUpdatesEnabled(OneIn(10));  // behind dialogs all is painted
        const int before = books.deals;
        for (int steps = 0; books.deals < before + wanted && steps < 4 * wanted + 20; ++steps) {
            TakeStep();
            if (HasFailure()) return;
        }
    }

    void Answer() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible()) return;
        const QString name = dialog->objectName();
        if (OneIn(5)) return dialog->reject();
        if (name == "enterDollars") {
            dialog->findChild<QLineEdit*>()->setText(QString::number(kDollars));
            owned += static_cast<int>(kDollars / coin);
            return QTest::keyClick(dialog, Qt::Key_Return);
        }
        if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
            auto* yes = box->button(QMessageBox::Yes);
            return yes && OneIn(2) ? yes->click() : QTest::keyClick(box, Qt::Key_Escape);
        }
        auto* goOn = dialog->findChild<QAbstractButton*>(name == "bestPlayError" ? "yes" : "ok");
        goOn ? goOn->click() : dialog->reject();
    }

    std::unique_ptr<IdleWork> idle;
    QTimer looker;

    Books books;
    int owned = 0;
    double coin = 1;
    int bonus = -1;  // told, and of no feature yet
    int line = -1;   // of the last result
    int linePay = 0;
    bool charliePay = false;
    bool dealt = false;
    bool fixed = false;     // a fixed hand was dealt
    bool counting = false;  // a win was counted up in the flow that runs
    bool spin = false, target = false, redBlack = false, picking = false;
    CardColour lastChoice = CardColour::kNone;
    int guesses = 0;
    int holds = 0;  // at most, pressed during the deal
    std::set<CardCode> lastShown;
    HandCards dealtHand = kNoCards;
    int deals = 0, hands = 0, features = 0, doubleUps = 0;
};

TEST_F(ImpatientPlayerTest, TheBooksAgreeAndNothingIsForetoldWhateverIsPressedWhen) {
    SitDown();
    const int games = static_cast<int>(BuiltInGames().size());
    const int wanted = WantedHands() / (kRounds * games * kChoices) + 1;
    std::array<int, kRounds> memory{};
    for (int& after : memory) {
        for (const BuiltInGame& game : BuiltInGames()) {
            ChooseGame(game.id);
            for (const int mode : kModes) {
                for (const int speed : kSpeeds) Sit(mode, speed, wanted);
            }
            ASSERT_FALSE(HasFailure()) << game.name << " after " << deals << " deals";
            QApplication::processEvents();
            p().Release({0, 0, 2, 2});
            p().ExpectAtRest(std::string(game.name));
        }
        after = ResidentMemory();
    }
    ChooseGame(300);
    std::cout << deals << " deals, " << hands << " hands, " << features << " features, "
              << doubleUps << " picks; " << memory[0] << " kB, then " << memory[1] << " kB\n";
    EXPECT_GT(std::min(features, doubleUps), hands / 100);
    EXPECT_TRUE(kSanitized || memory[1] - memory[0] < kMostGrowth);
    looker.stop();
    p().clock.inEveryPause = nullptr;
    idle.reset();
    EXPECT_TRUE(p().document->OnCloseDocument());
    EXPECT_EQ(Stored("Credits"), std::to_string(owned));
    Start();
}

}  // namespace
