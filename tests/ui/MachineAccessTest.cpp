// The machine's objects as screen readers and voice control find them.
#include <QAccessible>
#include <QDialog>

#include "game/seat/ShowScene.h"
#include "tests/ui/TestProgram.h"
#include "ui/machine/MachineAccess.h"

namespace {

class MachineAccessTest : public ProgramTest {
  protected:
    QAccessibleInterface* Table() { return QAccessible::queryAccessibleInterface(program->view); }

    // nullptr when nothing that is shown has this name.
    QAccessibleInterface* Find(const QString& name) {
        for (int i = 0; i < Table()->childCount(); ++i) {
            QAccessibleInterface* part = Table()->child(i);
            if (part->text(QAccessible::Name) == name && !part->state().invisible) return part;
        }
        return nullptr;
    }
    QAccessibleInterface* Part(const QString& name) {
        QAccessibleInterface* part = Find(name);
        EXPECT_NE(part, nullptr) << name.toStdString();
        return part ? part : Table();
    }
    bool IsShown(const QString& name) { return Find(name) != nullptr; }
    bool IsEnabled(const QString& name) { return !Part(name)->state().disabled; }

    void Press(const QString& name) {
        ASSERT_TRUE(IsShown(name)) << name.toStdString();
        Part(name)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QApplication::processEvents();
    }

    std::string Said() {
        auto* access = MachineAccess::Of(*program->view);
        access->TellChanges();
        return access->News().toStdString();
    }
};

TEST_F(MachineAccessTest, AHandIsPlayedAndReadThroughItsObjects) {
    TestProgram& p = Start();
    EXPECT_TRUE(Said().starts_with("PRESS DEAL. card 1, face down. "));
    p.Stack("JS JD TC 9H 2S 3C 4D 6H", 8);
    Press("DEAL/DRAW");
    EXPECT_EQ(
        Said(),
        "HOLD/DRAW. JACKS OR BETTER pays 5. card 1, jack of spades. card 2, jack of diamonds. "
        "card 3, ten of clubs. card 4, nine of hearts. card 5, two of spades. credits 95.");
    EXPECT_TRUE(Part("JACKS OR BETTER pays 1, 2, 3, 4, 5, won 5")->state().selected);
    Press("HOLD 1");
    Press("card 2, jack of diamonds");
    EXPECT_EQ(p.Held(), 0b11000);
    EXPECT_EQ(Said(), "card 1, jack of spades, held. card 2, jack of diamonds, held.");
    EXPECT_TRUE(Part("HOLD 1")->state().checked && !Part("HOLD 3")->state().checked);
    Press("HOLD 2");
    EXPECT_EQ(Said(), "card 2, jack of diamonds.");
    Press("BET ONE");
    EXPECT_FALSE(IsEnabled("BET ONE"));
    EXPECT_EQ(p.engine.settings.bet, 5) << "refused as a click is";
    Press("HOLD 2");
    Press("DEAL/DRAW");
    EXPECT_TRUE(IsShown("WON 5") && IsShown("credits 100") && IsShown("bet 5"));
    EXPECT_TRUE(IsEnabled("BET ONE") && !IsEnabled("HOLD 1"));
    EXPECT_TRUE(Said().ends_with("double up offered. credits 100."));

    p.DecideNextDuel(-1);
    Press("DBL UP");
    EXPECT_TRUE(IsShown("double up to 10") && IsShown("card 2, face down"));
    EXPECT_FALSE(IsShown("DEAL/DRAW") || IsShown("HOLD 1") || IsShown("card 1, face down"));
    Press("HOLD 2");
    EXPECT_TRUE(IsShown("credits 95")) << "the card that was picked has lost";
}

TEST_F(MachineAccessTest, PressesWaitDuringAFlowAndNoneGetsPastADialog) {
    TestProgram& p = Start();
    p.Stack(kNothing, 5);
    p.clock.inPause = [&] {
        Press("HOLD 3");
        EXPECT_EQ(p.Held(), 0);
    };
    Press("DEAL/DRAW");
    EXPECT_EQ(p.Held(), 0b00100) << "held once the hand lay there";
    Press("DEAL/DRAW");
    const int credits = p.engine.settings.credits;
    {
        QDialog dialog(p.frame.get());
        dialog.setModal(true);
        dialog.show();
        Press("DEAL/DRAW");
    }
    EXPECT_EQ(p.engine.settings.credits, credits);
}

TEST_F(MachineAccessTest, PilesAndFeaturesAreToldAndPressed) {
    TestProgram& p = Start("Pick Em Poker", 350);
    p.Deal("KC KD 9D AH 2S KS JH 3C", 8);
    EXPECT_FALSE(IsShown("HOLD 1") || IsEnabled("DEAL/DRAW"));
    EXPECT_TRUE(IsShown("left pile, nine of diamonds") && IsShown("card 3, no card"));
    EXPECT_EQ(Part("HOLD, right pile")->text(QAccessible::Accelerator), "Right");
    Press("HOLD, right pile");
    EXPECT_TRUE(p.engine.handOver);

    Scene& scene = p.document->PlayersSeat().scene;
    p.engine.targetPending = true;
    ShowAtRest(p.document->PlayersSeat());
    scene.redBlack = {.shown = true, .lit = CardColour::kRed};
    scene.targets = {TargetLook{TargetFace::kHidden, 0}, TargetLook{TargetFace::kShot, 25}};
    EXPECT_TRUE(IsEnabled("target 1, not shot") && !IsEnabled("target 2, 25"));
    EXPECT_TRUE(IsShown("Red or Black?") && IsShown("red, drawn last") && IsShown("black"));
    EXPECT_FALSE(IsShown("SPIN") || IsEnabled("DEAL/DRAW") || IsEnabled("black"));
    p.engine.targetPending = false;
    p.document->Actions().Run([&p] { ShowAtRest(p.document->PlayersSeat()); });
}

TEST_F(MachineAccessTest, TheTreeFitsTogetherAndStaysWhateverIsPlayed) {
    TestProgram& p = Start();
    EXPECT_EQ(Table()->text(QAccessible::Name), "Video poker table");
    EXPECT_TRUE(
        Table()->text(QAccessible::Description).startsWith("PRESS DEAL. Cards: 1 face down"));
    std::vector<QAccessibleInterface*> before;
    for (int i = 0; i < Table()->childCount(); ++i) {
        QAccessibleInterface* part = Table()->child(i);
        before.push_back(part);
        EXPECT_EQ(part->parent(), Table());
        EXPECT_EQ(Table()->indexOfChild(part), i);
        if (part->state().invisible || part->role() == QAccessible::Notification) continue;
        const QPoint middle = part->rect().center();
        EXPECT_EQ(Table()->childAt(middle.x(), middle.y()), part)
            << part->text(QAccessible::Name).toStdString();
        EXPECT_TRUE(Table()->rect().contains(part->rect()));
    }
    const QRect deal = p.view->fit.ToClient(p.Places().deal);
    EXPECT_EQ(Part("DEAL/DRAW")->rect(), QRect(p.view->mapToGlobal(deal.topLeft()), deal.size()));
    EXPECT_EQ(Table()->child(-1), nullptr);
    EXPECT_EQ(Table()->child(Table()->childCount()), nullptr);
    p.Choose(330);
    for (int i = 0; i < Table()->childCount(); ++i) {
        EXPECT_EQ(Table()->child(i), before[static_cast<std::size_t>(i)]);
    }
}

}  // namespace
