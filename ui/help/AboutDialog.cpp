#include "ui/help/AboutDialog.h"

#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/art/PictureStore.h"
#include "ui/parts/DialogParts.h"

AboutDialog::AboutDialog(QWidget* parent) : QDialog(parent) {
    setObjectName("about");
    setWindowTitle(tr("About Tolvane"));
    const int side = 4 * fontMetrics().height();
    auto* icon = new QLabel(this);
    icon->setObjectName("icon");
    icon->setAccessibleName(tr("Tolvane's icon"));
    icon->setPixmap(PictureStore().Get(Picture::kIcon, {side, side}, devicePixelRatioF()));
    auto* text = new QLabel(tr("Tolvane Version %1").arg(TOLVANE_VERSION), this);
    text->setObjectName("text");
    auto* buttons = OkAlone(*this);

    auto* top = new QHBoxLayout;
    top->setSpacing(side / 3);
    top->addWidget(icon);
    top->addWidget(text, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(side / 3, side / 3, side / 3, side / 4);
    layout->setSpacing(side / 3);
    layout->addLayout(top);
    layout->addWidget(buttons);
    MakeRoomForCaption(*this);
    buttons->button(QDialogButtonBox::Ok)->setFocus();
}
