#include "ui/dialogs/ReportBox.h"

#include <QContextMenuEvent>
#include <QFontMetricsF>
#include <QMenu>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextOption>
#include <QtMath>
#include <algorithm>

namespace {

// Of a line whose cells begin at the stops; a cell that is too wide goes past its stop to the next.
qreal LineWidth(const QString& line, const QFontMetricsF& font,
                const QList<QTextOption::Tab>& stops) {
    qreal width = 0;
    bool first = true;
    for (const QString& cell : line.split(u'\t')) {
        if (!first) {
            const auto stop = std::ranges::find_if(
                stops, [width](const QTextOption::Tab& tab) { return tab.position > width; });
            if (stop != stops.end()) width = stop->position;
        }
        width += font.horizontalAdvance(cell);
        first = false;
    }
    return width;
}

}  // namespace

ReportBox::ReportBox(const char* name, const QString& accessibleName, QWidget* parent)
    : QPlainTextEdit(parent) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setLineWrapMode(QPlainTextEdit::NoWrap);
}

void ReportBox::ShowReport(const std::string& report) {
    QString text = QString::fromStdString(report);
    while (text.endsWith(u'\n') || text.endsWith(u'\r')) text.chop(1);
    setPlainText(text);
}

void ReportBox::SetTabStops(const QList<qreal>& stops) {
    QTextOption option = document()->defaultTextOption();
    QList<QTextOption::Tab> tabs;
    for (const qreal stop : stops) tabs.append(QTextOption::Tab(stop, QTextOption::LeftTab));
    option.setTabs(tabs);
    document()->setDefaultTextOption(option);
}

void ReportBox::FitToText() {
    const QFontMetricsF font(this->font());
    const auto stops = document()->defaultTextOption().tabs();
    const QStringList lines = toPlainText().split(u'\n');
    qreal width = 0;
    for (const QString& line : lines) width = std::max(width, LineWidth(line, font, stops));
    // The lines as they are laid out: a font's own spacing may be a fraction of a pixel less.
    qreal height = 0;
    for (QTextBlock line = document()->begin(); line.isValid(); line = line.next()) {
        height += blockBoundingRect(line).height();
    }
    const qreal borders = 2 * (frameWidth() + document()->documentMargin());
    // Room for a character and the bar, so that neither bar appears while the text fits.
    const qreal spare = font.averageCharWidth() + verticalScrollBar()->sizeHint().width();
    wanted = wanted.expandedTo(
        {qCeil(width + borders + spare), qCeil(height + borders + font.lineSpacing() / 2)});
    updateGeometry();
}

void ReportBox::UseFont(const QFont& font) {
    setFont(font);
    wanted = {};
}

QSize ReportBox::sizeHint() const { return wanted.expandedTo(minimumSizeHint()); }

QSize ReportBox::minimumSizeHint() const {
    const QFontMetrics font(this->font());
    return {12 * font.averageCharWidth(), 4 * font.lineSpacing()};
}

void ReportBox::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu();
    menu->setObjectName("reportMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (saveAs) {
        menu->addSeparator();
        menu->addAction(tr("&Save As Text..."), this, [this] { saveAs(); })
            ->setObjectName("saveAsText");
    }
    menu->popup(event->globalPos());
}
