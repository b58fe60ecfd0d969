#include "ui/parts/DialogParts.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QValidator>
#include <algorithm>

#include "core/text/Amount.h"
#include "core/text/WholeNumber.h"

namespace {

class ByteLimit : public QValidator {
  public:
    ByteLimit(int longest, QObject* parent) : QValidator(parent), longest(longest) {}

    State validate(QString& text, int& /*cursor*/) const override {
        std::ranges::replace_if(
            text, [](QChar c) { return c < u' '; }, QChar(u' '));
        return text.toUtf8().size() <= longest ? Acceptable : Invalid;
    }

  private:
    int longest;
};

}  // namespace

int WidthOf(const QWidget& widget, int characters) {
    return widget.fontMetrics().averageCharWidth() * characters;
}

QDialogButtonBox* OkAndCancel(QDialog& dialog) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("ok");
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("cancel");
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return buttons;
}

QDialogButtonBox* OkAlone(QDialog& dialog) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, &dialog);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("ok");
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    return buttons;
}

QLineEdit* TypingBox(QDialog& dialog, const char* name, int shown, int longest) {
    auto* box = new QLineEdit(&dialog);
    box->setObjectName(name);
    box->setMaxLength(longest);
    box->setMinimumWidth(WidthOf(dialog, shown));
    return box;
}

QGroupBox* DisplayChoice(std::initializer_list<DisplayOption> options,
                         const std::function<void(int chosen)>& show, QWidget* parent) {
    auto* group = new QGroupBox(QObject::tr("Display"), parent);
    group->setObjectName("display");
    auto* choice = new QButtonGroup(group);
    auto* layout = new QHBoxLayout;
    int number = 0;
    for (const DisplayOption& option : options) {
        auto* radio = new QRadioButton(option.caption, group);
        radio->setObjectName(option.name);
        radio->setChecked(number == 0);
        choice->addButton(radio, number++);
        layout->addWidget(radio);
    }
    group->setLayout(layout);
    QObject::connect(choice, &QButtonGroup::idToggled, group, [show](int chosen, bool checked) {
        if (checked) show(chosen);
    });
    return group;
}

void MakeRoomForCaption(QDialog& dialog) {
    constexpr int kWindowButtons = 24;  // average characters, with the icon
    const int caption = dialog.fontMetrics().horizontalAdvance(dialog.windowTitle());
    const int width = caption + WidthOf(dialog, kWindowButtons);
    if (auto* box = qobject_cast<QBoxLayout*>(dialog.layout())) {
        box->addStrut(width);
    } else if (auto* grid = qobject_cast<QGridLayout*>(dialog.layout())) {
        grid->addItem(new QSpacerItem(width, 0), 0, 0, 1, grid->columnCount());
    } else {
        dialog.setMinimumWidth(std::max(width, dialog.minimumSizeHint().width()));
    }
}

void PlaceNearTop(QDialog& dialog) {
    if (!dialog.parentWidget()) return;
    const QWidget& window = *dialog.parentWidget()->window();
    const int belowMenu = 3 * window.fontMetrics().lineSpacing();
    const QPoint place =
        window.mapToGlobal(QPoint((window.width() - dialog.width()) / 2, belowMenu));
    const QRect screen = window.screen()->availableGeometry();
    const auto within = [](int wanted, int first, int last) {
        return std::clamp(wanted, first, std::max(first, last));
    };
    const int height = dialog.height() + belowMenu;  // with the title bar
    dialog.move(within(place.x(), screen.left(), screen.right() - dialog.width()),
                within(place.y(), screen.top(), screen.bottom() - height));
}

void LimitToBytes(QLineEdit& box, int longest) { box.setValidator(new ByteLimit(longest, &box)); }

void RefuseInput(QLineEdit& box, QMessageBox::Icon icon, const QString& caption,
                 const QString& problem) {
    QMessageBox message(icon, caption, problem, QMessageBox::Ok, box.window());
    message.setObjectName("refusal");
    MakeRoomForCaption(message);
    message.exec();
    box.setFocus();
    box.selectAll();
}

std::optional<std::string> AskedWholeNumber(QLineEdit& box) {
    auto number = PlainWholeNumber(box.text().toStdString());
    if (!number) {
        RefuseInput(box, QMessageBox::Warning, QObject::tr("Tolvane"),
                    QObject::tr("Enter a whole number."));
    }
    return number;
}

QString Grouped(std::int64_t number) { return QString::fromStdString(FormatCount(number)); }
