// A picture of figures, which is read point by point with the pointer, the arrow keys or a screen
// reader, and can be copied, saved and printed. The same code draws it in the window and on paper;
// there it has a title, and no colours of the desktop.
//
// An heir says what its points are, draws them, and calls FiguresChanged when they are others.
#pragma once
#include <QWidget>
#include <optional>

#include "ui/charts/ChartParts.h"
#include "ui/charts/ChartPoints.h"

class QPrinter;
class QToolButton;

class PictureChart : public QWidget, public ChartPoints {
    Q_OBJECT

  public:
    // The title is its accessible name too.
    PictureChart(const char* name, const QString& title, QWidget* parent);

    // What stands below the title on paper, see PictureSubject, and the name that is proposed for a
    // file, without its extension.
    void SetSubject(const QString& shown, const QString& fileName);

    QByteArray Png() const;  // of 300 dots per inch
    QByteArray Svg() const;
    void Copy() const;  // to the clipboard

    // On one page, as large as there is room.
    bool PrintOn(QPrinter& printer) const;  // false when it takes nothing

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    // What the chart wants to be drawn in.
    virtual QSizeF SizeFor(const ChartSheet& sheet) const = 0;
    virtual void Draw(QPainter& painter, const ChartSheet& sheet) const = 0;

    // All that the picture tells, for those who do not see it.
    virtual QString Facts() const = 0;

    // The point that is told of while none is read.
    virtual std::optional<int> PointAtRest() const { return {}; }

    void FiguresChanged();

    // What is drawn in the window.
    ChartSheet Screen() const;

    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void AddCommands();
    double HeadHeight() const;
    QSizeF PaperSize() const;
    void PaintPaper(QPainter& painter) const;
    void Save();
    void Print();
    void SetRead(std::optional<int> point);
    void ReadByKey(int point);

    QString title;
    QString subject;
    QString proposedName;
    QToolButton* button;
};
