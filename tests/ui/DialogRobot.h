// Stands in for the person at a dialog that is shown with exec(): looks for it every 10 ms and
// takes one step after the other, each as soon as some dialog is open. It waits while a meter shows
// the progress of long work.
#pragma once
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <deque>
#include <functional>

class DialogRobot : public QObject {
  public:
    using Step = std::function<void(QDialog& dialog)>;

    DialogRobot(std::initializer_list<Step> plan) : steps(plan) { LookLater(); }
    ~DialogRobot() override { EXPECT_TRUE(steps.empty()) << steps.size() << " steps not taken"; }

  protected:
    void timerEvent(QTimerEvent* /*event*/) override {
        killTimer(timer);
        LookLater();
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible() || dialog->objectName() == "progress") return;
        if (!steps.empty()) {
            const Step step = steps.front();
            steps.pop_front();
            sinceStep.start();
            step(*dialog);
        } else if (sinceStep.elapsed() > 5000) {
            ADD_FAILURE() << "still open: " << dialog->objectName().toStdString();
            dialog->reject();
        }
    }

  private:
    // A timer of its own for every look: one timer does not fire again inside its own event, and a
    // step that opens another dialog does not return before that is answered.
    void LookLater() { timer = startTimer(10); }

    std::deque<Step> steps;
    QElapsedTimer sinceStep;
    int timer = 0;
};

// Steps. A button pressed by its shortcut (Alt and a letter) acts a moment later: a last step.
inline DialogRobot::Step Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    return [=](QDialog& dialog) {
        QWidget* focus = dialog.focusWidget();
        QTest::keyClick(focus ? focus : &dialog, key, modifiers);
    };
}

inline DialogRobot::Step Type(const QString& text) {
    return [=](QDialog& dialog) { QTest::keyClicks(dialog.focusWidget(), text); };
}

inline DialogRobot::Step ClickOn(const QString& name) {
    return [=](QDialog& dialog) {
        auto* widget = dialog.findChild<QWidget*>(name);
        ASSERT_NE(widget, nullptr) << name.toStdString();
        QTest::mouseClick(widget, Qt::LeftButton);
    };
}

inline DialogRobot::Step Choose(QMessageBox::StandardButton button) {
    return [=](QDialog& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        ASSERT_NE(box, nullptr) << dialog.objectName().toStdString();
        QTest::mouseClick(box->button(button), Qt::LeftButton);
    };
}

inline DialogRobot::Step ReadMessage(QString& caption, QString& text) {
    return [&](QDialog& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        ASSERT_NE(box, nullptr) << dialog.objectName().toStdString();
        caption = box->windowTitle();
        text = box->text();
        QTest::keyClick(box, Qt::Key_Escape);
    };
}
