// The right side of the help window: pages of the guide, in the colours of the palette, with the
// program's drawings and with pictures that fit.
#pragma once
#include <QTextBrowser>

#include "ui/art/PictureStore.h"

class HelpPage : public QTextBrowser {
    Q_OBJECT

  public:
    explicit HelpPage(QWidget* parent);

    // "qrc:/art/1400?w=45&h=30" is a drawing at that size, and style.css names its colours @line,
    // @tint and @link. Pictures wider than the page are shown smaller.
    QVariant loadResource(int type, const QUrl& name) override;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    QVariant Drawing(const QUrl& name);
    QVariant Fitting(const QVariant& loaded) const;

    PictureStore pictures;
};
