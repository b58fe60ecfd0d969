// The table of a report with the keys and clicks of a person: sorted, searched, filtered, copied,
// saved and printed.
#include "ui/tables/ReportTableView.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QPrinter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>
#include <QVBoxLayout>

#include "game/reports/ReportText.h"
#include "tests/core/profile/TemporaryFolder.h"
#include "tests/ui/DialogRobot.h"
#include "ui/tables/PrintedTable.h"
#include "ui/tables/TableFiles.h"

namespace {

// In its own order: c 2, a none, b 10, d 2; many columns behind them.
ReportTable Four() {
    ReportTable table{
        .title = "Four",
        .head = {{"Game", "Jacks"}, {"Bet", "5"}},
        .columns = {{.title = "Name"}, {.title = "Cost", .unit = "$", .number = true}}};
    const auto add = [&](const char* name, std::optional<double> value) {
        ReportRow row{.id = static_cast<std::int64_t>(100 + table.rows.size()),
                      .cells = {{.text = name}}};
        row.cells.push_back(
            {.text = value ? QString::number(*value).toStdString() : "", .value = value});
        for (int i = 0; i < 12; ++i) row.cells.push_back({.text = std::string(name) + "...."});
        table.rows.push_back(row);
    };
    add("c", 2);
    add("a", std::nullopt);
    add("b", 10);
    add("d", 2);
    for (int i = 0; i < 12; ++i) table.columns.push_back({.title = "More" + std::to_string(i)});
    return table;
}

class ReportTableViewTest : public testing::Test {
  protected:
    ReportTableViewTest() : view(new ReportTableView("view", "Costs", &dialog)) {
        auto* layout = new QVBoxLayout(&dialog);
        layout->addWidget(view);
        layout->addWidget(ok);
        ok->setDefault(true);
        QObject::connect(ok, &QPushButton::clicked, &dialog, &QDialog::accept);
        view->SetTable(Four());
        dialog.resize(640, 320);
        ShowDialog(dialog);
        Table().setFocus();
    }

    QTableView& Table() { return PartOf<QTableView>(*view, "table"); }
    QTableView& Frozen() { return PartOf<QTableView>(*view, "frozen"); }
    void Click(const char* name) {
        QTest::mouseClick(&PartOf<QWidget>(*view, name), Qt::LeftButton);
    }
    void ClickHeading(int column) {
        QHeaderView& header = *(column == 0 ? Frozen() : Table()).horizontalHeader();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          {header.sectionViewportPosition(column) + 8, header.height() / 2});
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    std::string Order() {
        std::string names;
        for (const ReportRow& row : view->Shown().rows) names += row.cells[0].text;
        return names;
    }
    std::string Outcome() { return PartOf<QLabel>(*view, "findOutcome").text().toStdString(); }
    std::string Saved(const char* button, const char* typed, const char* file) {
        Answer({TypeFile(button == std::string("tableToPdf") ? "Save As PDF" : "Save As",
                         folder.Path(typed))},
               [&] { Click(button); });
        return folder.Read(file);
    }

    TemporaryFolder folder;
    QDialog dialog;
    QPushButton* ok = new QPushButton("OK", &dialog);
    ReportTableView* view;
};

TEST_F(ReportTableViewTest, AHeadingSortsUpwardsThenDownwardsThenNotAtAll) {
    for (const char* order : {"cdba", "bcda", "cabd"}) {
        ClickHeading(1);
        EXPECT_EQ(Order(), order) << "equal ones as they came, none last";
    }
    ClickHeading(0);
    EXPECT_EQ(Order(), "abcd");
    EXPECT_EQ(view->SortedBy(), "Name");
    Table().setCurrentIndex(Table().model()->index(1, 1));
    ReportTable again = Four();
    std::swap(again.rows[0], again.rows[3]);
    view->SetTable(again);
    EXPECT_EQ(Order(), "abcd") << "a new table is sorted as the old one was";
    EXPECT_EQ(view->CurrentRow(), 102);
    EXPECT_EQ(Table().selectionModel()->selectedIndexes().size(), 1);
    view->SortBy("-Cost ($)");
    EXPECT_EQ(Order(), "bdca") << "equal ones as they come now";
}

TEST_F(ReportTableViewTest, TheOrderStaysWithItsColumnWhenTheUnitChangesOrTheTitleComesTwice) {
    ReportTable twice = Four();
    for (std::size_t row = 0; row < twice.rows.size(); ++row) {
        twice.columns[2] = {.title = "Cost", .unit = "%", .number = true};
        const auto value = static_cast<double>(row);
        twice.rows[row].cells[2] = {.text = std::to_string(row), .value = value};
    }
    view->SetTable(twice);
    for (int i = 0; i < 2; ++i) ClickHeading(2);
    EXPECT_EQ(Order(), "dbac");
    EXPECT_EQ(view->SortedBy(), "-Cost#2");
    twice.columns[1].unit = twice.columns[2].unit = "1 in";
    view->SetTable(twice);
    EXPECT_EQ(Order(), "dbac");
    view->SortBy("-Cost");
    EXPECT_EQ(Order(), "bcda");
}

TEST_F(ReportTableViewTest, FindGoesOnBackAndAroundAndSaysWhenThereIsNothing) {
    ok->setFocus();
    Key(Qt::Key_F, Qt::ControlModifier);  // from anywhere in the window
    QTest::keyClicks(QApplication::focusWidget(), "D");
    EXPECT_EQ(view->CurrentRow(), 103);
    EXPECT_EQ(Table().currentIndex().column(), 0);
    Key(Qt::Key_Return);
    EXPECT_EQ(Table().currentIndex().column(), 2);
    EXPECT_EQ(Outcome(), "");
    for (int i = 0; i < 12; ++i) Key(Qt::Key_Return);
    EXPECT_EQ(Table().currentIndex().column(), 0);
    EXPECT_EQ(Outcome(), "from the top again");
    Key(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Table().currentIndex().column(), 13);
    EXPECT_EQ(Outcome(), "from the end again");
    QTest::keyClicks(QApplication::focusWidget(), "x");
    EXPECT_EQ(Outcome(), "not found");
    EXPECT_EQ(view->CurrentRow(), 103);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible() && Table().hasFocus()) << "Esc closes the bar alone";
}

TEST_F(ReportTableViewTest, ABlockIsCopiedForSpreadsheetsAndTexts) {
    ClickHeading(0);
    Table().setCurrentIndex(Table().model()->index(1, 0));
    Key(Qt::Key_Down, Qt::ShiftModifier);
    Key(Qt::Key_Right, Qt::ShiftModifier);
    Key(Qt::Key_C, Qt::ControlModifier);
    const QMimeData& data = *QApplication::clipboard()->mimeData();
    EXPECT_EQ(data.text(), "Name\tCost ($)\nb\t10\nc\t2\n");
    const std::string html = data.html().toStdString();
    EXPECT_NE(html.find("<td>b</td><td align=\"right\">10</td>"), std::string::npos) << html;
    EXPECT_EQ(html.find("<td>a"), std::string::npos) << html;
    Key(Qt::Key_A, Qt::ControlModifier);
    Click("copyTable");
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), TabSeparated(view->Shown()));
}

TEST_F(ReportTableViewTest, WhatIsShownIsSavedInEveryFormatAndPrinted) {
    view->OfferFilter();
    QTest::keyClicks(&PartOf<QWidget>(*view, "filter"), "1");
    EXPECT_EQ(Order(), "b");
    const std::string csv = Saved("saveTable", "saved", "saved.csv");
    EXPECT_EQ(csv, Csv(view->Shown()));
    EXPECT_TRUE(csv.starts_with("Four\nGame,Jacks\nBet,5\nRows,\"1 of 4 rows with \"\"1\"\"\"\n"))
        << csv;
    EXPECT_EQ(Saved("saveTable", "saved.html", "saved.html"), Html(view->Shown()));
    EXPECT_EQ(Saved("saveTable", "saved.txt", "saved.txt"), PlainText(view->Shown()));
    const std::string pdf = Saved("tableToPdf", "saved", "saved.pdf");
    EXPECT_TRUE(pdf.starts_with("%PDF-") && pdf.find("/ToUnicode") != std::string::npos);
    EXPECT_NE(pdf.find("/MediaBox [0 0 842"), std::string::npos) << "wide";
    EXPECT_EQ(TablePdf({.title = "Narrow", .columns = {{.title = "A"}}}).indexOf("[0 0 842"), -1);
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(folder.Path("printed.pdf")));
    EXPECT_TRUE(PrintTableTo(view->Table(), printer));
    EXPECT_NE(folder.Read("printed.pdf").find("/ToUnicode"), std::string::npos);
    printer.setOutputFileName(QString::fromStdString(folder.Path("nowhere/printed.pdf")));
    EXPECT_FALSE(PrintTableTo(view->Table(), printer));
    Answer({[](QDialog& print) {
               EXPECT_EQ(print.objectName(), "print");
               print.reject();
           }},
           [&] { Click("printTable"); });
}

// A page of 273 x 186 millimetres, 100 dots to an inch.
QImage FirstPage(const ReportTable& table) {
    QImage paper(1075, 732, QImage::Format_RGB32);
    paper.setDotsPerMeterX(3937);
    paper.setDotsPerMeterY(3937);
    paper.fill(Qt::white);
    PrintedTable printed(table);
    printed.LayOutFor(paper);
    QPainter painter(&paper);
    printed.DrawPage(painter, 0);
    return paper;
}

bool IsWhite(const QImage& picture, int column) {
    for (int y = 0; y < picture.height(); ++y) {
        if (picture.pixel(column, y) != qRgb(255, 255, 255)) return false;
    }
    return true;
}

TEST(PrintedTableTest, TheLastColumnAndTheLastRowAreOnThePaper) {
    for (const int columns : {3, 13, 60}) {
        ReportTable table{.title = "Wide", .rows = {{.id = 1}}};
        for (int i = 0; i < columns; ++i) {
            table.columns.push_back({.title = "Royal flush " + std::to_string(i), .unit = "%"});
            table.rows[0].cells.push_back({.text = "123,456.7890"});
        }
        const QImage page = FirstPage(table);
        table.rows[0].cells.back().text = "HHHHHHHHHHHH";
        EXPECT_NE(FirstPage(table), page) << columns;
        EXPECT_TRUE(IsWhite(page, page.width() - 1)) << columns;
        EXPECT_TRUE(columns == 3 || !IsWhite(page, page.width() * 24 / 25)) << columns;
    }
    ReportTable tall{.title = "Tall", .columns = {{.title = "A"}}};
    for (int i = 0; i < 100; ++i) tall.rows.push_back({.id = i, .cells = {{.text = "A"}}});
    PrintedTable printed(tall);
    QImage paper = FirstPage(tall);
    printed.LayOutFor(paper);
    EXPECT_EQ(printed.PageCount(), 4);
}

TEST_F(ReportTableViewTest, TheFirstColumnStandsStillAndIsNeverInTheWay) {
    const QPoint before = Frozen().mapToGlobal(QPoint());
    for (int i = 0; i < 12; ++i) Key(Qt::Key_Right);
    EXPECT_GT(Table().horizontalScrollBar()->value(), 0);
    EXPECT_EQ(Frozen().mapToGlobal(QPoint()), before);
    EXPECT_EQ(Frozen().columnWidth(0), Table().columnWidth(0));
    while (Table().currentIndex().column() > 1) {
        Key(Qt::Key_Left);
        const QRect cell = Table().visualRect(Table().currentIndex());
        EXPECT_GE(cell.left(), Table().columnWidth(0)) << "not below the first column";
        EXPECT_LE(cell.right(), Table().viewport()->width());
    }
    QTest::mouseClick(Frozen().viewport(), Qt::LeftButton, {},
                      Frozen().visualRect(Frozen().model()->index(2, 0)).center());
    EXPECT_EQ(view->CurrentRow(), 102);
    EXPECT_TRUE(Table().hasFocus());
}

TEST_F(ReportTableViewTest, TheMenuSortsByKeysAndBeginsWithWhatIsTheReports) {
    QAction play("Play", nullptr);
    view->addAction(&play);
    Table().setCurrentIndex(Table().model()->index(0, 1));
    for (const auto& [entry, order] :
         {std::pair("sortDown", "bcda"), {"sortUp", "cdba"}, {"ownOrder", "cabd"}}) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5}, {5, 5});
        QApplication::sendEvent(Table().viewport(), &event);
        auto* menu = view->findChild<QMenu*>("tableMenu");
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(menu->actions().first(), &play);
        menu->findChild<QAction*>(entry)->trigger();
        menu->close();
        QTest::qWait(0);
        EXPECT_EQ(Order(), order);
    }
}

TEST_F(ReportTableViewTest, EnterIsForTheRowWhereSomebodyListens) {
    QSignalSpy activated(view, &ReportTableView::RowActivated);
    Table().setCurrentIndex(Table().model()->index(2, 0));
    Key(Qt::Key_Return);
    ASSERT_EQ(activated.size(), 1);
    EXPECT_EQ(activated[0][0], 102);
    EXPECT_TRUE(dialog.isVisible());
    view->SetTable({.title = "Nothing", .columns = {{.title = "A"}}});
    Key(Qt::Key_Return);
    EXPECT_EQ(activated.size(), 1);
    EXPECT_EQ(view->CurrentRow(), -1);
    Click("copyTable");
    EXPECT_EQ(QApplication::clipboard()->text(), "A\n");
}

TEST_F(ReportTableViewTest, LongNamesAndMarksAreSeenAndHeard) {
    ReportTable table = Four();
    table.rows[0].cells[0].text = std::string(80, 'W');
    table.rows[1].mark = RowMark::kBest;
    table.rows[1].remark = "best, and your hold";
    table.rows[2].cells[1] = {.text = "AS", .cards = {{1, 1}, {}}};
    table.warning = "stopped at 24 %";
    view->SetTable(table);
    EXPECT_LT(Table().columnWidth(0), dialog.width() / 2);
    const auto heard = [&](int row, int column) {
        return Table().model()->index(row, column).data(Qt::AccessibleTextRole).toString();
    };
    EXPECT_EQ(heard(1, 0), "best, and your hold: a");
    EXPECT_EQ(heard(2, 1), "ace of spades, no card");
    EXPECT_TRUE(PartOf<QLabel>(*view, "warning").isVisible());
    EXPECT_TRUE(Table().accessibleDescription().startsWith("stopped at 24 %\nGame:\u00a0Jacks"));
    const QImage image = Table().grab().toImage();
    view->SetTable(Four());
    EXPECT_NE(Table().grab().toImage(), image);
}

}  // namespace
