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

TEST_F(FileMenuTest, NewBeginsInAnEmptyGameFile) {
    TestProgram& p = Start();
    p.Keys({Qt::Key_D, Qt::Key_D, Qt::Key_B});
    Answer({TypeFile("holiday")}, [&] { p.Key(Qt::Key_N, Qt::ControlModifier); });
    EXPECT_EQ(p.Title(), "Jacks or Better (holiday.qdx) - Tolvane");
    EXPECT_EQ(p.Meters(), "GAME OVER, bet 5, credits 0");
    EXPECT_EQ(p.engine.settings.mode, PlayMode::kWarning);
    EXPECT_EQ(p.engine.statistics.handsPlayed.total, 0);
    EXPECT_EQ(Stored("Mode", "main", "holiday.qdx"), "2");
    EXPECT_EQ(Stored("HandsPlayed", "Jacks or Better(0)"), "1") << "the old file keeps its own";
}

TEST_F(FileMenuTest, OpenGoesOnInAnotherGameFile) {
    folder.Write("other.qdx",
                 "[main]\nMode=3\nCoin=0.25\nCredits=77\nBet=2\nGameID=330\n"
                 "GameName=Deuces Wild\nShowDollar=0\nSpeed=3\n");
    TestProgram& p = Start();
    p.Key(Qt::Key_B);
    Answer({TypeFile("other.qdx")}, [&] { p.Key(Qt::Key_O, Qt::ControlModifier); });
    EXPECT_EQ(p.Title(), "Deuces Wild (other.qdx) - Tolvane");
    EXPECT_EQ(p.Meters(), "GAME OVER, bet 2, credits 77");
    EXPECT_EQ(p.Scene().coin, 0.25);
    EXPECT_EQ(p.engine.payTable.lines.size(), 10U);
    EXPECT_EQ(Stored("Bet"), "1") << "what was changed before is saved in the old file";
    p.Key(Qt::Key_D);
    EXPECT_EQ(p.Scene().credits, "75");
    p.Key(Qt::Key_D);
}

TEST_F(FileMenuTest, ACancelledOrWrongFileLeavesTheGameAsItIs) {
    folder.Write("letter.qdx", "Dear player\n");
    TestProgram& p = Start();
    const TableScene before = p.Scene();
    std::string told;
    for (const int command : {kFileNew, kFileOpen, kFileSaveAs}) {
        Answer({Press(Qt::Key_Escape)}, [&] { p.Choose(command); });
    }
    Answer({TypeFile("letter.qdx"), Note(told)}, [&] { p.Choose(kFileOpen); });
    EXPECT_TRUE(told.starts_with("File Error: ")) << told;
    EXPECT_NE(told.find("is not a game file"), std::string::npos) << told;
    EXPECT_EQ(p.Title(), "Jacks or Better - Tolvane");
    EXPECT_TRUE(p.Scene() == before);
    EXPECT_EQ(folder.Read("letter.qdx"), "Dear player\n");
}

TEST_F(FileMenuTest, SaveWritesWhatIsPlayed) {
    TestProgram& p = Start();
    p.Keys({Qt::Key_B, Qt::Key_B});
    EXPECT_EQ(Stored("Bet"), "5") << "not yet";
    p.Key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Stored("Bet"), "2");
}

TEST_F(FileMenuTest, SaveAsGoesOnInACopyAndAsksBeforeItReplacesAFile) {
    folder.Write("copy.qdx", "[main]\nCredits=1\n");
    TestProgram& p = Start();
    p.Keys({Qt::Key_B, Qt::Key_B});
    Answer({TypeFile("copy.qdx"), Choose(QMessageBox::No), TypeFile("copy.qdx"),
            Choose(QMessageBox::Yes)},
           [&] { p.Choose(kFileSaveAs); });
    EXPECT_EQ(p.Title(), "Jacks or Better (copy.qdx) - Tolvane");
    EXPECT_EQ(Stored("Bet", "main", "copy.qdx"), "2");
    EXPECT_EQ(Stored("Credits", "main", "copy.qdx"), "100");
    EXPECT_EQ(Stored("Bet"), "5") << "the first file stays as it was saved";
}

TEST_F(FileMenuTest, NextTimeTheGameFileLastUsedIsOpen) {
    Start();
    Answer({TypeFile("mine.qdx")}, [&] { program->Choose(kFileNew); });
    Answer({Type("250"), Press(Qt::Key_Return)}, [&] { program->Choose(kEnterCredits); });
    program->frame->close();
    EXPECT_EQ(Stored("CurrGame", "main", "Tolvane.ini"), folder.Path("mine.qdx"));
    TestProgram& p = Start();
    EXPECT_EQ(p.Title(), "Jacks or Better (mine.qdx) - Tolvane");
    EXPECT_EQ(p.engine.settings.credits, 250);
}

TEST_F(FileMenuTest, AFileOpenedInPracticeEndsTheFixedHand) {
    folder.Write("other.qdx", "[main]\nCredits=77\nShowDollar=0\n");
    TestProgram& p = Start();
    Answer({ClickOn("ok")}, [&] { p.Key(Qt::Key_A); });
    Answer({TypeFile("other.qdx")}, [&] { p.Choose(kFileOpen); });
    EXPECT_FALSE(p.engine.fixedHand);
    EXPECT_TRUE(p.engine.handOver);
    EXPECT_EQ(p.Scene().credits, "77");
}

}  // namespace
