#include "ui/parts/DialogParts.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDialog>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QVBoxLayout>
#include <QValidator>
#include <algorithm>

#include "core/text/Amount.h"
#include "core/text/Numbers.h"
#include "core/text/WholeNumber.h"
#include "ui/parts/FindingList.h"

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

void RefuseDialogsOver(const QWidget& window) {
    const auto dialogs = window.findChildren<QDialog*>();
    // Those that stand over others come last in the list, and go first.
    std::for_each(dialogs.rbegin(), dialogs.rend(), [](QDialog* dialog) { dialog->reject(); });
}

QDialogButtonBox* EndButtons(QDialog& dialog, QDialogButtonBox::StandardButtons shown,
                             QDialogButtonBox::StandardButton enter) {
    auto* buttons = new QDialogButtonBox(shown, &dialog);
    const std::pair<QDialogButtonBox::StandardButton, const char*> names[] = {
        {QDialogButtonBox::Ok, "ok"},
        {QDialogButtonBox::Cancel, "cancel"},
        {QDialogButtonBox::Yes, "yes"},
        {QDialogButtonBox::No, "no"}};
    for (const auto& [which, name] : names) {
        if (auto* button = buttons->button(which)) button->setObjectName(name);
    }
    buttons->button(enter)->setDefault(true);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return buttons;
}

QDialogButtonBox* OkAndCancel(QDialog& dialog) {
    return EndButtons(dialog, QDialogButtonBox::Ok | QDialogButtonBox::Cancel,
                      QDialogButtonBox::Ok);
}

QDialogButtonBox* OkAlone(QDialog& dialog) {
    return EndButtons(dialog, QDialogButtonBox::Ok, QDialogButtonBox::Ok);
}

QPushButton* ActionButton(QDialog& dialog, const QString& caption, const char* name,
                          const std::function<void()>& action) {
    auto* button = new QPushButton(caption, &dialog);
    button->setObjectName(name);
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, &dialog, action);
    return button;
}

QLineEdit* TypingBox(QDialog& dialog, const char* name, int shown, int longest) {
    auto* box = new QLineEdit(&dialog);
    box->setObjectName(name);
    box->setMaxLength(longest);
    box->setMinimumWidth(WidthOf(dialog, shown));
    return box;
}

QDialogButtonBox* LayOutQuestion(QDialog& dialog, const QString& label, QWidget& answer) {
    auto* caption = Caption(label, &answer);
    caption->setObjectName("label");
    auto* buttons = OkAndCancel(dialog);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(caption);
    layout->addWidget(&answer);
    layout->addStretch();
    layout->addWidget(buttons);
    MakeRoomForCaption(dialog);
    answer.setFocus();
    return buttons;
}

QLabel* Caption(const QString& text, QWidget* buddy) {
    auto* label = new QLabel(text);
    label->setBuddy(buddy);
    return label;
}

QComboBox* GameList(QDialog& dialog, const std::vector<std::string>& games, int shown) {
    auto* list = new FindingList(&dialog);
    list->setObjectName("game");
    list->setMaxVisibleItems(20);
    list->setMinimumWidth(WidthOf(dialog, shown));
    for (const std::string& game : games) list->addItem(QString::fromStdString(game));
    return list;
}

void SelectGame(QComboBox& list, const std::string& game) {
    int at = list.count() - 1;
    while (at >= 0 && !SameText(list.itemText(at).toStdString(), game)) --at;
    list.setCurrentIndex(at);
}

QHBoxLayout* RowInGroup(const QString& title, const char* name, QWidget* parent) {
    auto* group = new QGroupBox(title, parent);
    group->setObjectName(name);
    return new QHBoxLayout(group);
}

QWidget* DisplayChoice(std::initializer_list<DisplayOption> options,
                       const std::function<void(int chosen)>& show, QWidget* parent) {
    auto* layout = RowInGroup(QObject::tr("Display"), "display", parent);
    QWidget* group = layout->parentWidget();
    auto* choice = new QButtonGroup(group);
    int number = 0;
    for (const DisplayOption& option : options) {
        auto* radio = new QRadioButton(option.caption, group);
        radio->setObjectName(option.name);
        radio->setChecked(number == 0);
        choice->addButton(radio, number++);
        layout->addWidget(radio);
    }
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

int ShowMessage(const char* name, QMessageBox::Icon icon, const QString& caption,
                const QString& text, QWidget* parent, QMessageBox::StandardButtons buttons,
                QMessageBox::StandardButton enter) {
    QMessageBox box(icon, caption, text, buttons, parent);
    box.setObjectName(name);
    box.setTextFormat(Qt::PlainText);
    MakeRoomForCaption(box);
    if (parent) box.setWindowModality(Qt::WindowModal);  // not the machine beside it
    box.setDefaultButton(enter);
    return box.exec();
}

void RefuseInput(QLineEdit& box, QMessageBox::Icon icon, const QString& caption,
                 const QString& problem) {
    ShowMessage("refusal", icon, caption, problem, box.window());
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
