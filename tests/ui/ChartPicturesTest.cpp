// The charts as pictures that are taken away, and as they are read by keys and by screen readers.
#include <QAccessible>
#include <QClipboard>
#include <QMimeData>
#include <QPainter>
#include <QPrinter>
#include <QSvgRenderer>
#include <QToolButton>

#include "tests/core/profile/TemporaryFolder.h"
#include "tests/ui/DialogRobot.h"
#include "ui/charts/CreditChart.h"
#include "ui/charts/HoldChart.h"
#include "ui/charts/ShareChart.h"

namespace {

// A return of all that is bet, with a deviation of the bet: after 100 dollars, 10.
ExpectedPlay FairPlay() {
    ExpectedPlay play;
    play.fullBet = {{}, 0.5, 1, 1};
    play.otherBets = {{}, 0.5, 0.5, 100};
    return play;
}

struct ChartPicturesTest : testing::Test {
    ChartPicturesTest() {
        for (int hand = 1; hand <= 100; ++hand) session.Record(hand, 0, 0.2, 5);
        course.ShowSession(session);
        course.ShowExpected(FairPlay(), "Expected of the best play.");
        shares.SetShares({{"ROYAL FLUSH", 25, 3, 40, 80}, {"FLUSH", 37.5, 0.75, 60, 20}});
        holds.ShowHolds({{{"A", "K"}, 4.5, "Best hold: A, K\nreturns $4.5", true},
                         {{"A", "-"}, 1.5, "Hold A\nreturns $1.5", false}});
        QPalette dark;
        dark.setColor(QPalette::Base, QColor(30, 30, 30));
        dark.setColor(QPalette::Text, Qt::white);
        for (PictureChart* chart : charts) {
            chart->setPalette(dark);
            chart->SetSubject("Jacks or Better(0), 5 × $0.20, 2026-11-23", "Jacks 1/2");
            chart->resize(chart->sizeHint());
        }
    }

    QColor CourseAt(double hand, double dollars) {
        const QRectF plot = course.Plot();  // from $-20 to $20
        const double x = plot.left() + plot.width() * hand / 100;
        const double y = plot.bottom() - plot.height() * (dollars + 20) / 40;
        return course.grab(QRect(QPointF(x, y).toPoint(), QSize(1, 1))).toImage().pixelColor(0, 0);
    }

    CreditHistory session;
    CreditChart course{nullptr};
    ShareChart shares{nullptr};
    HoldChart holds{nullptr};
    std::array<PictureChart*, 3> charts{&course, &shares, &holds};
};

QImage Drawn(const QByteArray& svg, QSize size) {
    QSvgRenderer drawing(svg);
    EXPECT_TRUE(drawing.isValid());
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    drawing.render(&painter);
    return image;
}

// Of a greyscale of 0 to 255, on average over all pixels.
double Difference(const QImage& a, const QImage& b) {
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            sum += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y)));
    }
    return sum / (a.width() * a.height());
}

// Below the title.
int DarkPixels(const QImage& image) {
    int dark = 0;
    for (int y = image.height() / 3; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) dark += qGray(image.pixel(x, y)) < 64 ? 1 : 0;
    }
    return dark;
}

TEST_F(ChartPicturesTest, TheyAreDarkOnWhiteAndSayWhatTheyAreOf) {
    const QStringList axes[] = {{"Net gain, dollars", "Hands played", "One standard deviation",
                                 "Expected of the best play."},
                                {"Share of the whole, %", "Share of the variance", "ROYAL FLUSH"},
                                {"Return ($)", "4.5000 best"}};
    for (std::size_t i = 0; i < charts.size(); ++i) {
        const QString svg = QString::fromUtf8(charts[i]->Svg());
        for (const QString& text :
             axes[i] + QStringList{charts[i]->accessibleName(),
                                   "Jacks or Better(0), 5 × $0.20, 2026-11-23"}) {
            EXPECT_TRUE(svg.contains(">" + text)) << qPrintable(text);
        }
        const QImage png = QImage::fromData(charts[i]->Png());
        EXPECT_EQ(png.dotsPerMeterX(), 11811);
        EXPECT_GT(png.width(), 900);
        EXPECT_EQ(png.pixelColor(0, 0), QColor(Qt::white));
        EXPECT_GT(DarkPixels(png), 1000) << "what is written is dark";
        const QImage small =
            png.scaled(png.size() / 3, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        QImage blank(small.size(), QImage::Format_RGB32);
        blank.fill(Qt::white);
        EXPECT_GT(Difference(small, blank), 3);
        EXPECT_LT(Difference(small, blank), 60) << "most of it is paper";
        EXPECT_LT(Difference(small, Drawn(charts[i]->Svg(), small.size())), 2.5)
            << "the same picture";
    }
}

TEST_F(ChartPicturesTest, TheyAreCopiedSavedAndPrinted) {
    const TemporaryFolder folder;
    QTest::keyClick(&shares, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->image().isNull()) << "not without the focus";
    shares.show();
    shares.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&shares));
    QTest::keyClick(&shares, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QImage::fromData(shares.Png()).size());
    EXPECT_TRUE(
        QGuiApplication::clipboard()->mimeData()->data("image/svg+xml").startsWith("<?xml"));
    const auto save = [&](const char* name) {
        Answer({TypeFile("Save As", folder.Path(name), "Jacks 1-2.png")},
               [&] { shares.findChild<QAction*>("savePicture")->trigger(); });
        return QByteArray::fromStdString(folder.Read(name));
    };
    EXPECT_EQ(save("a.png"), shares.Png());
    EXPECT_EQ(save("a.svg"), shares.Svg());
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFileName(QString::fromStdString(folder.Path("a.pdf")));
    shares.PrintOn(printer);
    const std::string pdf = folder.Read("a.pdf");
    EXPECT_TRUE(pdf.starts_with("%PDF") && pdf.find("/Count 1") != std::string::npos);
    EXPECT_NE(pdf.find("/Font"), std::string::npos);
    shares.SetShares({});
    EXPECT_FALSE(shares.findChild<QAction*>("copyPicture")->isEnabled());
    EXPECT_FALSE(shares.findChild<QToolButton*>("picture")->isEnabled()) << "there is no picture";
}

TEST_F(ChartPicturesTest, TheBandsAreThoseOfTheHandsAsTheyWereBet) {
    EXPECT_EQ(course.TextOf(99), "Hand 100: $0.00; expected $0.00, give or take $10.00");
    const QColor ground(30, 30, 30);
    EXPECT_EQ(CourseAt(50, 17), ground) << "two deviations are $14.14 there";
    EXPECT_EQ(CourseAt(25, -13), ground);
    const QColor outer = CourseAt(50, 12);
    const QColor inner = CourseAt(50, 4);
    EXPECT_TRUE(outer != ground && inner != ground && inner != outer);
    EXPECT_EQ(CourseAt(98, 15), outer);
    EXPECT_EQ(CourseAt(98, -5), inner);
    EXPECT_TRUE(
        course.accessibleDescription().endsWith("\nLowest $0.00, highest $0.00\n0.0 standard "
                                                "deviations above what is expected\nExpected of "
                                                "the best play."));
    session.Record(101, 0, 1, 2);
    course.ShowSession(session);
    EXPECT_EQ(course.TextOf(100), "Hand 101: $0.00");
    course.ShowExpected(FairPlay(), "");
    EXPECT_EQ(course.TextOf(100), "Hand 101: $0.00; expected $-1.00, give or take $22.36");
}

TEST_F(ChartPicturesTest, ThePointsAreReadByKeysAndByScreenReaders) {
    for (PictureChart* chart : charts) {
        QTest::keyClick(chart, Qt::Key_Home);
        EXPECT_EQ(chart->Read(), 0);
        QTest::keyClick(chart, Qt::Key_Down);
        EXPECT_EQ(chart->Read(), 1);
        const QImage second = chart->grab().toImage();
        QTest::keyClick(chart, Qt::Key_Left);
        QTest::keyClick(chart, Qt::Key_Up);
        EXPECT_EQ(chart->Read(), 0) << "there is none before it";
        EXPECT_NE(chart->grab().toImage(), second) << "what is read is seen";
        QTest::keyClick(chart, Qt::Key_End);
        QTest::keyClick(chart, Qt::Key_PageDown);
        EXPECT_EQ(chart->Read(), chart->Points() - 1);
        QAccessibleInterface* access = QAccessible::queryAccessibleInterface(chart);
        EXPECT_EQ(access->role(), QAccessible::Chart);
        ASSERT_EQ(access->childCount(), chart->Points() + 1) << "the button, and the points";
        QAccessibleInterface* last = access->child(chart->Points());
        EXPECT_EQ(last->text(QAccessible::Name), chart->TextOf(chart->Points() - 1));
        EXPECT_EQ(access->indexOfChild(last), chart->Points());
        EXPECT_EQ(last->rect().topLeft(),
                  chart->mapToGlobal(chart->PlaceOf(chart->Points() - 1).topLeft()));
        const QPoint middle = chart->PlaceOf(1).center();
        EXPECT_EQ(chart->PointAt(middle), 1);
        EXPECT_EQ(access->childAt(chart->mapToGlobal(middle).x(), chart->mapToGlobal(middle).y()),
                  access->child(2));
    }
}

}  // namespace
