#include "ui/parts/ReportBox.h"

#include <QContextMenuEvent>
#include <QFontMetricsF>
#include <QMenu>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextOption>
#include <QtMath>
#include <algorithm>

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
    // Behind the last stop a tab is a character: one that ends a line takes no room.
    option.setTabStopDistance(QFontMetricsF(font()).averageCharWidth());
    document()->setDefaultTextOption(option);
}

void ReportBox::FitToText() {
    const QFontMetricsF font(this->font());
    // The lines as they are laid out: only there a tab has its width, and a font's own spacing may
    // be a fraction of a pixel less.
    qreal width = 0;
    qreal height = 0;
    for (QTextBlock line = document()->begin(); line.isValid(); line = line.next()) {
        height += blockBoundingRect(line).height();
        width = std::max(width, line.layout()->lineAt(0).naturalTextWidth());
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
