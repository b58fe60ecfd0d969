// The pay table manager's window for its tests: opened by itself, or by a machine's player.
#pragma once
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>

#include "app/WindowPlayer.h"
#include "tests/game/ManagerTable.h"
#include "tests/ui/DialogRobot.h"
#include "ui/art/PictureStore.h"
#include "ui/paytables/PayTableManagerDialog.h"

using Step = DialogRobot::Step;

// Over what stands in the box.
inline Step Enter(const QString& name, const QString& text) {
    return [=](QDialog& dialog) {
        auto* box = dialog.findChild<QLineEdit*>(name);
        ASSERT_TRUE(box && box->isEnabled()) << name.toStdString();
        QTest::mouseClick(box, Qt::LeftButton);
        box->selectAll();
        QTest::keyClicks(box, text);
    };
}

inline Step ExpectText(const QString& name, const QString& text) {
    return [=](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>(name)->text(), text) << name.toStdString();
    };
}

inline bool IsOn(const QDialog& dialog, const char* name) {
    return dialog.findChild<QWidget*>(name)->isEnabled();
}

inline Step ExpectOff(std::initializer_list<const char*> names) {
    return [off = std::vector(names)](QDialog& dialog) {
        for (const char* name : off) EXPECT_FALSE(IsOn(dialog, name)) << name;
    };
}

struct Machine : ManagerTable {
    QWidget window;
    PictureStore pictures;
    WindowPlayer player{window, pictures, ports};
    Seat seat = SeatOf(machine, ports, player);

    Machine() { window.show(); }
};

// The manager opened by itself, for what needs no answers.
struct OpenManager : ManagerTable {
    explicit OpenManager(const std::string& game, int id, bool newGame = false)
        : editor(Manager(game, id, 0, newGame)), dialog(editor, nullptr) {
        ShowDialog(dialog);
    }
    QString Live() const { return Part<QLabel>("live").text(); }
    bool IsLiveWaiting() const { return !IsOn(dialog, "live"); }
    template <typename Widget>
    Widget& Part(const QString& name) const {
        return PartOf<Widget>(dialog, name);
    }
    void Click(const QString& name) const {
        QTest::mouseClick(&Part<QWidget>(name), Qt::LeftButton, {}, QPoint(5, 8));
    }

    PayTableEditor editor;
    PayTableManagerDialog dialog;
};
