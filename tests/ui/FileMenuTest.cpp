// The File menu with real files, chosen in the file dialogs as a player types them.
#include <QLineEdit>

#include "tests/ui/TestProgram.h"

namespace {

class FileMenuTest : public ProgramTest {
  protected:
    DialogRobot::Step TypeFile(const std::string& name) {
        return [path = folder.Path(name)](QDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
            ASSERT_NE(edit, nullptr) << dialog.objectName().toStdString();
            edit->setText(QString::fromStdString(path));  // typed, a list of files would open
            QTest::keyClick(edit, Qt::Key_Return);
        };
    }
};

TEST_F(FileMenuTest, EachCommandTakesTheFileThatIsTyped) {
    folder.Write("other.qdx",
                 "[main]\nMode=3\nCredits=77\nBet=2\nGameID=330\n"
                 "GameName=Deuces Wild\nShowDollar=0\nSpeed=3\n");
    folder.Write("copy.qdx", "[main]\nCredits=1\n");
    TestProgram& p = Start();
    p.Keys({Qt::Key_B, Qt::Key_B});
    EXPECT_EQ(Stored("Bet"), "5") << "not yet";
    p.Key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Stored("Bet"), "2");
    Answer({TypeFile("copy.qdx"), Choose(QMessageBox::No), TypeFile("copy.qdx"),
            Choose(QMessageBox::Yes)},
           [&] { p.Choose(kFileSaveAs); });
    EXPECT_EQ(p.Title(), "Jacks or Better (copy.qdx) - Tolvane");
    EXPECT_EQ(Stored("Credits", "main", "copy.qdx"), "100");
    Answer({TypeFile("other.qdx")}, [&] { p.Choose(kFileOpen); });
    EXPECT_EQ(p.Title(), "Deuces Wild (other.qdx) - Tolvane");
    EXPECT_EQ(p.Meters(), "GAME OVER, bet 2, credits 77");
    EXPECT_EQ(p.engine.payTable.lines.size(), 10U);
    Answer({TypeFile("holiday")}, [&] { p.Choose(kFileNew); });
    EXPECT_EQ(p.Title(), "Deuces Wild (holiday.qdx) - Tolvane");
    EXPECT_EQ(p.Meters(), "GAME OVER, bet 5, credits 0");
}

}  // namespace
