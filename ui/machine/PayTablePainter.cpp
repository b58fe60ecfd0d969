#include "ui/machine/PayTablePainter.h"

#include <QPainterPath>
#include <algorithm>
#include <string>

namespace {

constexpr int kNameInset = 3;
constexpr int kMarkerRoom = 4;  // on each side of the marker

class PayTablePainter {
  public:
    PayTablePainter(MachineCanvas& onCanvas, const Scene& shownScene,
                    const MachineLayout& machineLayout, const PayTable& table)
        : canvas(onCanvas), scene(shownScene), layout(machineLayout), payTable(table) {}

    void Paint() {
        payoutHeight = PayoutFontHeight();
        canvas.DrawBox(layout.namePanel, kMachineYellow, kMachineBlack);
        for (const QRect& column : layout.columns) {
            canvas.DrawBox(column, kMachineYellow, kMachineBlack);
        }
        PaintBet();
        for (int column = 0; column < kCoinColumns; ++column) PaintColumn(column);
        const std::size_t lines =
            std::min({layout.rows.size(), payTable.lines.size(), scene.lines.size()});
        for (std::size_t line = 0; line < lines; ++line) PaintName(line);
    }

  private:
    void PaintBet();
    void PaintColumn(int column);
    void PaintName(std::size_t line);
    void PaintMarker(const QRect& row, int nameWidth);
    void PaintPayout(int line, int column, int inset);
    int PayoutFontHeight();
    int WidestPayout(int column, int fontHeight);

    MachineCanvas& canvas;
    const Scene& scene;
    const MachineLayout& layout;
    const PayTable& payTable;
    int payoutHeight = 0;  // of the font
};

// A won line is told apart by more than its colour: by a frame, and by a marker where there is
// room.
void FillWon(MachineCanvas& canvas, const QRect& place) {
    canvas.DrawBox(place, kMachineYellow, kMachineRed);
}

// The column of the bet that is on has a bright outline of two pixels, one of them in the gap
// between the columns.
void PayTablePainter::PaintBet() {
    const QRect& column = layout.columns[static_cast<std::size_t>(scene.betColumn)];
    canvas.DrawBox(column.adjusted(-1, -1, 1, 1), kMachineWhite, kMachineWhite);
    canvas.DrawBox(column.adjusted(1, 1, -1, -1), kMachineBlack, kMachineBlack);
}

void PayTablePainter::PaintName(std::size_t line) {
    const QRect& row = layout.rows[line];
    const bool won = scene.lines[line].mark != LineMark::kPlain;
    if (won) FillWon(canvas, row);
    const std::string& name = payTable.lines[line].description;
    const QRect text = row.adjusted(kNameInset, 0, -2, 0);
    canvas.Write({text, layout.payFontHeight}, name, kMachineYellow, Qt::AlignLeft);
    if (won) PaintMarker(row, canvas.TextWidth(layout.payFontHeight, name));
}

// An arrow head at the end of the row that points at the payout, where the name leaves room.
void PayTablePainter::PaintMarker(const QRect& row, int nameWidth) {
    const double height = row.height() * 0.42;
    const double right = row.x() + row.width() - kMarkerRoom;
    if (row.x() + kNameInset + nameWidth + kMarkerRoom > right - height) return;
    const double middle = row.y() + row.height() / 2.0;
    QPainterPath arrow(QPointF(right - height * 0.9, middle - height / 2));
    arrow.lineTo(right, middle);
    arrow.lineTo(right - height * 0.9, middle + height / 2);
    arrow.closeSubpath();
    QPainter& painter = canvas.Painter();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(arrow, kMachineYellow);
    painter.restore();
}

// The largest font in which every number that is paid keeps clear of its column's outline.
int PayTablePainter::PayoutFontHeight() {
    int height = layout.payoutFontHeight;
    const int inset = height / 10;
    const int room = layout.PayoutCell(0, 1).width() - 2 * inset;
    const auto isTooWide = [&](int column) { return WidestPayout(column, height) > room; };
    for (int column = 0; column < kCoinColumns; ++column) {
        while (height > kReadableFontHeight && isTooWide(column)) --height;
    }
    return height;
}

int PayTablePainter::WidestPayout(int column, int fontHeight) {
    int widest = 0;
    for (std::size_t line = 0; line < payTable.lines.size(); ++line) {
        const int pay = LineUnitPay(payTable, static_cast<int>(line), column + 1);
        widest = std::max(widest, canvas.TextWidth(fontHeight, std::to_string(pay)));
    }
    return widest;
}

// The digits of a column end where its widest number stands in the middle. An announced number may
// be longer than that: then it takes the room that is left on its right.
void PayTablePainter::PaintColumn(int column) {
    const QRect cell = layout.PayoutCell(0, column + 1);
    const int inset = std::max(1, (cell.width() - WidestPayout(column, payoutHeight)) / 2);
    for (int line = 0; line < static_cast<int>(layout.rows.size()); ++line) {
        PaintPayout(line, column, inset);
    }
}

void PayTablePainter::PaintPayout(int line, int column, int inset) {
    const LineLook& look = scene.lines[static_cast<std::size_t>(line)];
    const bool announced = look.mark != LineMark::kPlain && look.column == column;
    const QRect cell = layout.PayoutCell(line, column + 1);
    if (announced && look.mark == LineMark::kWon) FillWon(canvas, cell);
    const int pay = announced ? look.payout : LineUnitPay(payTable, line, column + 1);
    const std::string text = std::to_string(pay);
    const int free = cell.width() - canvas.TextWidth(payoutHeight, text);
    const QRect room = cell.adjusted(1, 0, -std::clamp(free - 1, 1, inset), 0);
    canvas.Write({room, payoutHeight}, text, kMachineYellow, Qt::AlignRight);
}

}  // namespace

void PaintPayTable(MachineCanvas& canvas, const Scene& scene, const MachineLayout& layout,
                   const PayTable& payTable) {
    PayTablePainter(canvas, scene, layout, payTable).Paint();
}
