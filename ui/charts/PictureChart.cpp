#include "ui/charts/PictureChart.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QHelpEvent>
#include <QImage>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPrinter>
#include <QScrollArea>
#include <QSvgGenerator>
#include <QToolButton>
#include <QToolTip>
#include <QtMath>
#include <algorithm>
#include <utility>

#include "ui/charts/ChartAccess.h"
#include "ui/parts/FileQuestions.h"
#include "ui/parts/Printing.h"

namespace {

constexpr double kDotsPerInch = 300;   // of a picture that is copied or saved
constexpr double kPixelsPerInch = 96;  // logical ones
constexpr double kMetresPerInch = 0.0254;
constexpr int kPaperFont = 13;            // logical pixels
constexpr double kPaperCharacters = 110;  // the width of a chart on paper, at least
constexpr double kTitleSize = 1.3;        // of the title, in that font

constexpr double kMargin = 1.2;  // around the chart on paper, in line heights
constexpr double kTitle = 1.7;   // the height of the title
constexpr double kHead = 3.6;    // of the title and the subject

constexpr int kPages = 10;  // so many presses of Page Down go through all points

ChartSheet Paper() {
    QFont font(QFontInfo(QApplication::font()).family());  // a face by its own name
    font.setPixelSize(kPaperFont);
    return {{}, font, PaperColours(), {}};
}

// That of the title.
QFont Large(QFont font) {
    font.setPixelSize(qRound(kPaperFont * kTitleSize));
    font.setBold(true);
    return font;
}

}  // namespace

PictureChart::PictureChart(const char* name, const QString& title, QWidget* parent)
    : QWidget(parent), title(title), button(new QToolButton(this)) {
    InstallChartAccess();
    setObjectName(name);
    setAccessibleName(title);
    setBackgroundRole(QPalette::Base);
    setForegroundRole(QPalette::Text);
    setAutoFillBackground(true);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    AddCommands();
}

// In the menu of the button, which can be seen, and in the context menu of the chart.
void PictureChart::AddCommands() {
    const auto add = [this](const QString& text, const char* name, const QKeySequence& key,
                            auto command) {
        auto* action = new QAction(text, this);
        action->setObjectName(name);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, this, command);
        addAction(action);
    };
    add(tr("&Copy Picture"), "copyPicture", QKeySequence::Copy, [this] { Copy(); });
    add(tr("&Save As..."), "savePicture", QKeySequence::Save, [this] { Save(); });
    add(tr("&Print..."), "printPicture", QKeySequence::Print, [this] { Print(); });
    setContextMenuPolicy(Qt::ActionsContextMenu);

    button->setObjectName("picture");
    button->setText(tr("P&icture"));
    button->setAccessibleDescription(tr("Copy, save or print the picture"));
    button->setToolTip(button->accessibleDescription());
    button->setPopupMode(QToolButton::InstantPopup);
    button->setFocusPolicy(Qt::StrongFocus);
    auto* menu = new QMenu(button);
    menu->addActions(actions());
    button->setMenu(menu);
}

void PictureChart::SetSubject(const QString& shown, const QString& fileName) {
    subject = shown;
    proposedName = fileName;
}

void PictureChart::FiguresChanged() {
    SetRead(std::nullopt);
    setAccessibleDescription(Facts());
    button->setEnabled(Points() > 0);
    for (QAction* action : actions()) action->setEnabled(Points() > 0);
    updateGeometry();
    update();
}

double PictureChart::HeadHeight() const {
    return std::max(1.5 * QFontMetricsF(font()).lineSpacing(), button->sizeHint().height() + 2.0);
}

ChartSheet PictureChart::Screen() const {
    return {QRectF(rect()).adjusted(0, HeadHeight(), 0, 0), font(), ColoursOf(palette()), read};
}

QSize PictureChart::sizeHint() const {
    const QSizeF size = SizeFor(Screen());
    return {qCeil(size.width()), qCeil(size.height() + HeadHeight())};
}

void PictureChart::resizeEvent(QResizeEvent* event) {
    const QSize size = button->sizeHint();
    button->setGeometry(std::max(0, width() - size.width() - 2), 2, size.width(), size.height());
    QWidget::resizeEvent(event);
}

void PictureChart::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) updateGeometry();
    QWidget::changeEvent(event);
}

void PictureChart::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const ChartSheet sheet = Screen();
    painter.setPen(sheet.colours.text);
    Draw(painter, sheet);
    if (const auto told = read ? read : PointAtRest()) {
        painter.setPen(sheet.colours.text);
        painter.setFont(font());
        const QRectF head(sheet.Character(), 0, button->x() - 2 * sheet.Character(),
                          sheet.area.top());
        painter.drawText(
            head, Qt::AlignLeft | Qt::AlignVCenter,
            QFontMetricsF(font()).elidedText(TextOf(*told), Qt::ElideRight, head.width()));
    }
    if (!hasFocus()) return;
    DrawDottedFrame(painter, QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), sheet.colours.text);
}

QSizeF PictureChart::PaperSize() const {
    const ChartSheet paper = Paper();
    const QSizeF chart = SizeFor(paper);
    const double width =
        std::max({chart.width(), kPaperCharacters * paper.Character(), paper.WidthOf(subject),
                  QFontMetricsF(Large(paper.font)).horizontalAdvance(title)});
    return {width + 2 * kMargin * paper.Line(),
            chart.height() + (kHead + 2 * kMargin) * paper.Line()};
}

// Everything in logical pixels, which the painter may have been told to draw larger.
void PictureChart::PaintPaper(QPainter& painter) const {
    ChartSheet paper = Paper();
    const double line = paper.Line();
    const QRectF inside =
        QRectF(QPointF(), PaperSize())
            .adjusted(kMargin * line, kMargin * line, -kMargin * line, -kMargin * line);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRectF(QPointF(), PaperSize()), paper.colours.ground);
    painter.setPen(paper.colours.text);
    painter.setFont(Large(paper.font));
    const QRectF top(inside.left(), inside.top(), inside.width(), kTitle * line);
    painter.drawText(top, Qt::AlignLeft | Qt::AlignTop, title);
    painter.setFont(paper.font);
    painter.drawText(top.translated(0, top.height()), Qt::AlignLeft | Qt::AlignTop, subject);
    paper.area = inside.adjusted(0, kHead * line, 0, 0);
    Draw(painter, paper);
}

QByteArray PictureChart::Png() const {
    const double scale = kDotsPerInch / kPixelsPerInch;
    QImage image((PaperSize() * scale).toSize(), QImage::Format_RGB32);
    const int dots = qRound(kDotsPerInch / kMetresPerInch);
    image.setDotsPerMeterX(dots);
    image.setDotsPerMeterY(dots);
    image.setText(QStringLiteral("Title"), title + QStringLiteral(", ") + subject);
    image.setText(QStringLiteral("Description"), Facts());
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        painter.scale(scale, scale);
        PaintPaper(painter);
    }
    QBuffer bytes;
    image.save(&bytes, "PNG");
    return bytes.data();
}

QByteArray PictureChart::Svg() const {
    QBuffer bytes;
    QSvgGenerator drawing;
    drawing.setOutputDevice(&bytes);
    drawing.setResolution(qRound(kPixelsPerInch));
    drawing.setSize(PaperSize().toSize());
    drawing.setViewBox(QRectF(QPointF(), PaperSize()));
    drawing.setTitle(title + QStringLiteral(", ") + subject);
    drawing.setDescription(Facts());
    QPainter painter(&drawing);
    PaintPaper(painter);
    painter.end();
    // Where the face is not installed, another one without serifs does as well.
    const QByteArray face = "font-family=\"" + Paper().font.family().toUtf8();
    QByteArray text = bytes.data();
    return text.replace(face + '"', face + ", sans-serif\"");
}

// Both, since a word processor takes the drawing and most others the picture.
void PictureChart::Copy() const {
    auto* data = new QMimeData;
    data->setImageData(QImage::fromData(Png(), "PNG"));
    data->setData(QStringLiteral("image/svg+xml"), Svg());
    QGuiApplication::clipboard()->setMimeData(data);
}

void PictureChart::Save() {
    const FileKind kinds[] = {{tr("PNG pictures (*.png)"), QStringLiteral("png")},
                              {tr("SVG drawings (*.svg)"), QStringLiteral("svg")}};
    const auto file = AskFileToSave(tr("Save As"), kinds,
                                    ProposedFile(proposedName + QStringLiteral(".png")), this);
    if (!file) return;
    const QByteArray picture = file->kind == 0 ? Png() : Svg();
    WriteFileOrTell(file->path, picture.toStdString(), this);
}

void PictureChart::Print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(proposedName);
    const QSizeF size = PaperSize();
    printer.setPageOrientation(size.width() > size.height() ? QPageLayout::Landscape
                                                            : QPageLayout::Portrait);
    AskAndPrint(printer, "printPictureDialog", this, [this](QPrinter& to) { return PrintOn(to); });
}

bool PictureChart::PrintOn(QPrinter& printer) const {
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    const QRectF page(painter.viewport());
    const QSizeF size = PaperSize();
    const double scale = std::min(page.width() / size.width(), page.height() / size.height());
    painter.scale(scale, scale);
    PaintPaper(painter);
    return painter.end();
}

void PictureChart::SetRead(std::optional<int> point) {
    if (read == point) return;
    read = point;
    update();
}

// The words are told where the eyes are: at the point, when the head is scrolled away.
void PictureChart::ReadByKey(int point) {
    SetRead(point);
    const QRect place = PlaceOf(point);
    for (QWidget* around = parentWidget(); around; around = around->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(around)) {
            const QPoint at = mapTo(area->widget(), place.center());
            area->ensureVisible(at.x(), at.y(), 0, place.height());
        }
    }
    if (!visibleRegion().contains(QPoint(0, 0))) {
        QToolTip::showText(mapToGlobal(place.center()), NoteOf(point), this, place);
    }
    TellPoint(*this, point);
}

void PictureChart::keyPressEvent(QKeyEvent* event) {
    const int last = Points() - 1;
    const int page = std::max(last / kPages, 1);
    const std::pair<int, int> steps[] = {{Qt::Key_Left, -1},      {Qt::Key_Right, 1},
                                         {Qt::Key_Up, -1},        {Qt::Key_Down, 1},
                                         {Qt::Key_PageUp, -page}, {Qt::Key_PageDown, page},
                                         {Qt::Key_Home, -last},   {Qt::Key_End, last}};
    const auto* step = std::ranges::find(steps, event->key(), &std::pair<int, int>::first);
    if (step == std::end(steps) || last < 0) return QWidget::keyPressEvent(event);
    const auto from = read ? read : PointAtRest();
    const int at = from ? *from + step->second : event->key() == Qt::Key_End ? last : 0;
    ReadByKey(std::clamp(at, 0, last));
}

void PictureChart::mouseMoveEvent(QMouseEvent* event) {
    const int point = PointAt(event->position().toPoint());
    SetRead(point >= 0 ? std::optional(point) : std::nullopt);
}

void PictureChart::leaveEvent(QEvent* /*event*/) { SetRead(std::nullopt); }

void PictureChart::focusOutEvent(QFocusEvent* event) {
    SetRead(std::nullopt);
    QWidget::focusOutEvent(event);
}

bool PictureChart::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const int point = PointAt(help.pos());
    if (point < 0) {
        QToolTip::hideText();
        event->ignore();
    } else {
        QToolTip::showText(help.globalPos(), NoteOf(point), this, PlaceOf(point));
    }
    return true;
}
