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

    std::string CurrentGame() { return Stored("CurrGame", "main", "Tolvane.ini"); }
};

TEST_F(FileMenuTest, NewBeginsInAnEmptyGameFile) {
    TestProgram& p = Start();
    p.Keys({Qt::Key_D, Qt::Key_D, Qt::Key_B});
    {
        DialogRobot robot{TypeFile("holiday")};
        p.Key(Qt::Key_N, Qt::ControlModifier);
    }
    EXPECT_EQ(p.Title(), "Jacks or Better (holiday.qdx) - Tolvane");
    EXPECT_EQ(p.Scene().credits, "0");
    EXPECT_EQ(p.Scene().bet, "5");
    EXPECT_EQ(p.Message(), "GAME OVER");
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
    {
        DialogRobot robot{TypeFile("other.qdx")};
        p.Key(Qt::Key_O, Qt::ControlModifier);
    }
    EXPECT_EQ(p.Title(), "Deuces Wild (other.qdx) - Tolvane");
    EXPECT_EQ(p.Scene().credits, "77");
    EXPECT_EQ(p.Scene().bet, "2");
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
    QString caption;
    QString text;
    {
        DialogRobot robot{Press(Qt::Key_Escape), Press(Qt::Key_Escape), Press(Qt::Key_Escape),
                          TypeFile("letter.qdx"), ReadMessage(caption, text)};
        p.Choose(kFileNew);
        p.Choose(kFileOpen);
        p.Choose(kFileSaveAs);
        p.Choose(kFileOpen);
    }
    EXPECT_EQ(caption, "File Error");
    EXPECT_TRUE(text.contains("is not a game file")) << text.toStdString();
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
    {
        DialogRobot robot{TypeFile("copy.qdx"), Choose(QMessageBox::No), TypeFile("copy.qdx"),
                          Choose(QMessageBox::Yes)};
        p.Choose(kFileSaveAs);
    }
    EXPECT_EQ(p.Title(), "Jacks or Better (copy.qdx) - Tolvane");
    EXPECT_EQ(Stored("Bet", "main", "copy.qdx"), "2");
    EXPECT_EQ(Stored("Credits", "main", "copy.qdx"), "100");
    EXPECT_EQ(Stored("Bet"), "5") << "the first file stays as it was saved";
}

TEST_F(FileMenuTest, NextTimeTheGameFileLastUsedIsOpen) {
    {
        TestProgram& p = Start();
        DialogRobot robot{TypeFile("mine.qdx"), Type("250"), Press(Qt::Key_Return)};
        p.Choose(kFileNew);
        p.Choose(kEnterCredits);
        p.frame->close();
    }
    EXPECT_EQ(CurrentGame(), folder.Path("mine.qdx"));
    TestProgram& p = Start();
    EXPECT_EQ(p.Title(), "Jacks or Better (mine.qdx) - Tolvane");
    EXPECT_EQ(p.engine.settings.credits, 250);
}

TEST_F(FileMenuTest, AFileOpenedInPracticeEndsTheFixedHand) {
    folder.Write("other.qdx", "[main]\nCredits=77\nShowDollar=0\n");
    TestProgram& p = Start();
    {
        DialogRobot robot{ClickOn("ok"), TypeFile("other.qdx")};
        p.Key(Qt::Key_A);
        p.Choose(kFileOpen);
    }
    EXPECT_FALSE(p.engine.fixedHand);
    EXPECT_TRUE(p.engine.handOver);
    EXPECT_EQ(p.Scene().credits, "77");
}

}  // namespace
