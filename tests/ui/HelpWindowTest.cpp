#include "ui/help/HelpWindow.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTreeWidget>
#include <set>

#include "ui/help/HelpIndex.h"

namespace {

// What stands on a page, as the help window's browser reads it.
struct ReadPage {
    std::set<QString> anchors;
    std::set<QString> links;
    std::set<QString> pictures;
};

ReadPage Read(const QString& page) {
    QTextDocument document;
    document.setHtml(ReadHelpPage(page));
    ReadPage read;
    for (const QTextFormat& part : document.allFormats()) {
        const QTextCharFormat format = part.toCharFormat();
        for (const QString& name : format.anchorNames()) read.anchors.insert(name);
        if (!format.anchorHref().isEmpty()) read.links.insert(format.anchorHref());
        if (format.isImageFormat()) read.pictures.insert(format.toImageFormat().name());
    }
    return read;
}

TEST(HelpIndexTest, EveryPictureIsThereAndEveryLinkLeadsToAPageThatHasItsAnchor) {
    const HelpIndex index;
    std::vector<QString> pages = {kHelpContents};
    EXPECT_EQ(index.Topics().size(), 19U);
    for (const HelpTopic& topic : index.Topics()) {
        pages.push_back(topic.page);
        for (const HelpSection& section : topic.sections) {
            EXPECT_TRUE(Read(topic.page).anchors.contains(section.anchor));
        }
    }
    for (const QString& page : pages) {
        const ReadPage read = Read(page);
        for (const QString& picture : read.pictures) {
            const QUrl url = QUrl("qrc:/help/").resolved(QUrl(picture));
            EXPECT_TRUE(QFile::exists(":" + url.path())) << picture.toStdString();
            const bool sized = picture.contains("?w=") && picture.contains("&h=");
            EXPECT_TRUE(sized || !url.path().startsWith("/art/")) << picture.toStdString();
        }
        for (const QString& link : read.links) {
            const QString file = link.section('#', 0, 0);
            const QString anchor = link.section('#', 1);
            EXPECT_TRUE(index.HasPage(file) &&
                        (anchor.isEmpty() || Read(file).anchors.contains(anchor)))
                << page.toStdString() << " links " << link.toStdString();
        }
    }
}

TEST(HelpIndexTest, AllKeysOfTheMachineAreNamed) {
    const QString page = ReadHelpPage("machine.html");
    for (const char* key :
         {"Space", "D", "1", "2", "5",  "B", "M",    "U",     "C",      "O",      "A",     "H",
          "S",     "E", "T", "0", "F1", "R", "Left", "Right", "Ctrl+N", "Ctrl+O", "Ctrl+S"}) {
        EXPECT_TRUE(page.contains(QString("<b>%1</b>").arg(key))) << key;
    }
}

TEST(HelpIndexTest, FindsAllWordsInOneParagraphInAnyOrder) {
    const HelpIndex index;
    const auto hits = index.Find("ROYAL natural");
    ASSERT_FALSE(hits.empty());
    EXPECT_TRUE(hits[0].excerpt.contains("natural royal")) << hits[0].excerpt.toStdString();
    EXPECT_EQ(index.Find("variance")[0].page, "reports.html") << "a heading comes first";
    EXPECT_TRUE(index.Find("royal zeppelin").empty() && index.Find("  ").empty());
}

// What the guide says that the program prints; "..." stands for any lines.
TEST(HelpIndexTest, TheExamplesAreWhatTheCommandLinePrints) {
    const QRegularExpression example("<pre>\\$ tolvane-cli ([^\n]*)\n(.*?)</pre>",
                                     QRegularExpression::DotMatchesEverythingOption);
    auto examples = example.globalMatch(ReadHelpPage("command-line.html"));
    ASSERT_TRUE(examples.hasNext());
    while (examples.hasNext()) {
        const auto match = examples.next();
        SCOPED_TRACE(match.captured(1).toStdString());
        QProcess program;
        program.start(TOLVANE_CLI, QProcess::splitCommand(match.captured(1)) +
                                       QStringList{"--data", TOLVANE_DATA_FOLDER});
        ASSERT_TRUE(program.waitForFinished());
        QStringList printed;
        for (const QString& line : QString(program.readAllStandardOutput()).split('\n')) {
            printed.append(QString("x" + line).trimmed());
        }
        qsizetype next = 0;
        for (const QString& line : match.captured(2).replace("&gt;", ">").split('\n')) {
            if (line == "...") continue;
            next = printed.indexOf("x" + line, next) + 1;
            ASSERT_GT(next, 0) << line.toStdString();
        }
    }
}

class HelpWindowTest : public testing::Test {
  protected:
    void SetUp() override {
        window.Open();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        window.activateWindow();
        QApplication::setActiveWindow(&window);
    }

    QString PageShown() const { return page->source().fileName(); }
    void Search(const QString& words) {
        QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(search, words);
    }

    HelpWindow window{nullptr};
    QTextBrowser* page = window.findChild<QTextBrowser*>("page");
    QLineEdit* search = window.findChild<QLineEdit*>("search");
    QListWidget* results = window.findChild<QListWidget*>("results");
    QTreeWidget* contents = window.findChild<QTreeWidget*>("contents");
};

TEST_F(HelpWindowTest, EnterInTheSearchGoesFromResultToResultAndMarksTheWord) {
    Search("royal");
    ASSERT_GT(results->count(), 1);
    for (int row = 0; row <= results->count(); ++row) {
        QTest::keyClick(search, Qt::Key_Return);
        EXPECT_EQ(results->currentRow(), row % results->count());
        EXPECT_EQ(page->textCursor().selectedText().toLower(), "royal");
        EXPECT_TRUE(page->viewport()->rect().contains(page->cursorRect()));
    }
    search->clear();
    EXPECT_TRUE(contents->isVisible());
}

TEST_F(HelpWindowTest, BackForwardAndHomeWalkByKeysFromAnywhere) {
    window.Open("files.html#backup");
    EXPECT_EQ(contents->currentItem()->text(0), "Backup");
    search->setFocus();
    QTest::keyClick(&window, Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(PageShown(), "index.html");
    page->setFocus();
    QTest::keyClick(page, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(PageShown(), "files.html");
    QTest::keyClick(page, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(PageShown(), "index.html");
    window.Open("files.html");
    window.Open("../art.qrc");
    EXPECT_EQ(PageShown(), "index.html");
}

TEST_F(HelpWindowTest, EscapeClosesAndTheNextOpeningStartsAfresh) {
    const double usual = page->font().pointSizeF();
    for (int i = 0; i < 30; ++i) QTest::keyClick(&window, Qt::Key_Minus, Qt::ControlModifier);
    const double smallest = page->font().pointSizeF();
    EXPECT_TRUE(smallest > 3 && smallest < usual);
    Search("deuces");
    QTest::keyClick(search, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    window.Open("games.html");
    EXPECT_EQ(page->font().pointSizeF(), usual);
    EXPECT_TRUE(search->text().isEmpty());
    EXPECT_FALSE(window.findChild<QAction*>("back")->isEnabled());
}

TEST_F(HelpWindowTest, FollowsADarkPaletteWhileItIsOpen) {
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::Link, Qt::blue);  // as desktops leave it that name no links
    window.setPalette(dark);
    QApplication::processEvents();
    const auto format = [this](const char* text) {
        return page->document()->find(text).charFormat();
    };
    EXPECT_GT(format("First steps").foreground().color().lightness(), 140);
    EXPECT_FALSE(format("in two minutes").hasProperty(QTextFormat::ForegroundBrush));
}

TEST_F(HelpWindowTest, FitsASmallScreenAndNamesItsParts) {
    window.resize(640, 480);
    EXPECT_EQ(window.size(), QSize(640, 480));
    for (const QWidget* part : std::initializer_list<QWidget*>{page, search, results, contents}) {
        EXPECT_FALSE(part->accessibleName().isEmpty());
    }
    const HelpIndex index;
    for (const HelpTopic& topic : index.Topics()) {
        window.Open(topic.page);
        if (topic.page == "command-line.html") continue;  // lines of a terminal are not broken
        EXPECT_LE(page->document()->size().width(), page->viewport()->width())
            << topic.page.toStdString();
    }
}

}  // namespace
