#include "ui/help/HelpPage.h"

#include <QEvent>
#include <QImage>
#include <QScrollBar>
#include <QTextDocument>
#include <QUrlQuery>
#include <algorithm>

#include "ui/art/Contrast.h"
#include "ui/help/HelpIndex.h"

namespace {

QColor Blend(const QColor& from, const QColor& to, double share) {
    const auto mix = [share](int a, int b) { return a + static_cast<int>((b - a) * share); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

QString StyleFor(const QPalette& palette) {
    const QColor paper = palette.color(QPalette::Base);
    const QColor ink = palette.color(QPalette::Text);
    QString style = ReadHelpPage("style.css");
    style.replace("@line", Blend(paper, ink, 0.28).name());
    style.replace("@tint", Blend(paper, ink, 0.08).name());
    // Many dark desktops leave links in the blue that was made for white paper.
    style.replace("@link", ReadableOn(paper, palette.color(QPalette::Link)).name());
    return style;
}

}  // namespace

HelpPage::HelpPage(QWidget* parent) : QTextBrowser(parent) {
    setOpenExternalLinks(true);
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(2 * document()->documentMargin() + 4);
    document()->setIndentWidth(3 * fontMetrics().averageCharWidth());
}

QVariant HelpPage::loadResource(int type, const QUrl& name) {
    if (name.fileName() == "style.css") return StyleFor(palette());
    if (name.scheme() == "qrc" && name.path().startsWith("/art/")) return Drawing(name);
    if (type != QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
    return Fitting(QTextBrowser::loadResource(type, name));
}

// The colours stand in the page as it was read.
void HelpPage::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || source().isEmpty()) return;
    const int place = verticalScrollBar()->value();
    reload();
    verticalScrollBar()->setValue(place);
}

QVariant HelpPage::Drawing(const QUrl& name) {
    const QUrlQuery query(name);
    const QSize size(query.queryItemValue("w").toInt(), query.queryItemValue("h").toInt());
    const auto picture = static_cast<Picture>(name.fileName().toInt());
    return pictures.Get(picture, size, devicePixelRatioF());
}

QVariant HelpPage::Fitting(const QVariant& loaded) const {
    const QImage image = loaded.userType() == QMetaType::QByteArray
                             ? QImage::fromData(loaded.toByteArray())
                             : loaded.value<QImage>();
    const int room = viewport()->width() - 4 * static_cast<int>(document()->documentMargin());
    if (image.isNull() || image.width() <= room || room <= 0) return loaded;
    const double ratio = devicePixelRatioF();
    const int pixels = std::min(image.width(), static_cast<int>(room * ratio));
    QPixmap small = QPixmap::fromImage(image.scaledToWidth(pixels, Qt::SmoothTransformation));
    small.setDevicePixelRatio(static_cast<double>(pixels) / room);
    return small;
}
