// Stands in for the person at a dialog that is shown with exec(): looks for it every 10 ms and
// takes one step after the other, each as soon as some dialog has the keys. It waits while a meter
// shows the progress of long work.
#pragma once
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <deque>
#include <functional>
#include <string>

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
        if (!dialog->isActiveWindow()) return dialog->activateWindow();  // as a desktop does
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

// Notes the caption, with a message box's text as "caption: text", and closes it.
inline DialogRobot::Step Note(std::string& told) {
    return [&told](QDialog& dialog) {
        told = dialog.windowTitle().toStdString();
        const auto* box = qobject_cast<QMessageBox*>(&dialog);
        if (!box) return dialog.reject();
        told += ": " + box->text().toStdString();
        QTest::keyClick(&dialog, Qt::Key_Escape);
    };
}

// In a file dialog; typed, a list of files would open.
inline DialogRobot::Step TypeFile(const char* caption, const std::string& path,
                                  const char* proposed = nullptr) {
    return [=](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), caption);
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        ASSERT_NE(name, nullptr) << dialog.objectName().toStdString();
        EXPECT_TRUE(!proposed || name->text() == proposed) << name->text().toStdString();
        name->setText(QString::fromStdString(path));
        QTest::keyClick(name, Qt::Key_Return);
    };
}

// The player takes all of these steps at the dialogs that the action opens.
template <class Action>
void Answer(std::initializer_list<DialogRobot::Step> steps, Action action) {
    const DialogRobot robot(steps);
    action();
}

// What the one dialog that the action opens says.
template <class Action>
std::string Told(Action action) {
    std::string told;
    Answer({Note(told)}, action);
    return told;
}

template <typename Widget>
Widget& PartOf(const QWidget& dialog, const QString& name) {
    return *dialog.findChild<Widget*>(name);
}

inline void ShowDialog(QDialog& dialog) {
    dialog.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
}
