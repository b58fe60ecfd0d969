#include "ui/paytables/SelectGameDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/text/Numbers.h"
#include "ui/parts/DialogParts.h"

SelectGameDialog::SelectGameDialog(const std::vector<std::string>& games,
                                   const std::string& current, QWidget* parent)
    : QDialog(parent) {
    setObjectName("selectGame");
    setWindowTitle(tr("Select Game"));
    auto* label = new QLabel(tr("&Game Name"), this);
    label->setObjectName("label");
    list = new QComboBox(this);
    list->setObjectName("game");
    list->setMinimumWidth(WidthOf(*this, 40));
    list->setMaxVisibleItems(20);
    label->setBuddy(list);
    int selected = -1;
    for (const std::string& game : games) {
        if (selected < 0 && SameText(game, current)) selected = list->count();
        list->addItem(QString::fromStdString(game));
    }
    list->setCurrentIndex(selected);

    auto* buttons = OkAndCancel(*this);
    auto* ok = buttons->button(QDialogButtonBox::Ok);
    ok->setEnabled(selected >= 0);
    connect(list, &QComboBox::currentIndexChanged, ok, [ok](int at) { ok->setEnabled(at >= 0); });

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(list);
    layout->addStretch();
    layout->addWidget(buttons);
    MakeRoomForCaption(*this);
    list->setFocus();
}

std::string SelectGameDialog::Selected() const { return list->currentText().toStdString(); }

std::optional<std::string> AskGame(const std::vector<std::string>& games,
                                   const std::string& current, QWidget* parent) {
    SelectGameDialog dialog(games, current, parent);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.Selected();
}
