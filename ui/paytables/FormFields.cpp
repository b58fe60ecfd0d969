#include "ui/paytables/FormFields.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QEvent>
#include <QLineEdit>
#include <QWheelEvent>
#include <algorithm>

#include "ui/parts/DialogParts.h"

namespace {

constexpr int kLongestText = static_cast<int>(kLongestTableText);
constexpr int kOfferedRanks = 17;  // the last two are in tables made elsewhere
constexpr int kEndOfTable = -1;    // data of that entry of a rank list
constexpr int kNothing = -1;       // selected in a list

// Turned over, the wheel scrolls the lines instead of changing a rank that nobody looks at.
class RankList : public QComboBox {
  public:
    using QComboBox::QComboBox;

  protected:
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus()) {
            QComboBox::wheelEvent(event);
        } else {
            event->ignore();
        }
    }
};

QString NameOfRank(HandRank rank) { return QString::fromUtf8(RankInfo(rank).longName); }

void ShowText(QLineEdit& box, const std::string& shown) {
    const QString text = QString::fromStdString(shown);
    if (box.text() == text) return;
    box.setText(text);
    box.setCursorPosition(0);  // of a long text the beginning is seen
}

// A rank that is not offered stands in the list of the line that has it.
void ShowRank(QComboBox& list, HandRank rank) {
    const int number = static_cast<int>(rank);
    if (number >= kOfferedRanks && list.findData(number) < 0) {
        list.insertItem(kOfferedRanks, NameOfRank(rank), number);
    }
    list.setCurrentIndex(rank == HandRank::kUnknown ? kNothing : list.findData(number));
}

}  // namespace

FormFields::FormFields(PayTableEditor& editor, QDialog& dialog)
    : QObject(&dialog), editor(editor), dialog(dialog) {
    dialog.installEventFilter(this);
}

void FormFields::Add(QWidget& control, FieldPlace place, const std::function<void()>& show) {
    fields.push_back({&control, place, show});
}

QLineEdit* FormFields::AddText(const QString& name, int shown, std::string& text,
                               FieldPlace place) {
    auto* box = TypingBox(dialog, name.toLatin1().constData(), shown, kLongestText);
    LimitToBytes(*box, kLongestText);
    Add(*box, place, [box, &text] { ShowText(*box, text); });
    connect(box, &QLineEdit::textEdited, this, [this, &text, place](const QString& typed) {
        text = typed.toStdString();
        editor.NoteTyped(place);
        emit Typed();
    });
    // What is typed here after the player has been elsewhere is another step.
    connect(box, &QLineEdit::editingFinished, this, [this] { editor.NoteChange(); });
    return box;
}

QCheckBox* FormFields::AddCheck(const QString& caption, const QString& name,
                                const std::function<bool()>& isChecked,
                                const std::function<void(bool)>& check, FieldPlace place) {
    auto* box = new QCheckBox(caption, &dialog);
    box->setObjectName(name);
    Add(*box, place, [box, isChecked] { box->setChecked(isChecked()); });
    connect(box, &QCheckBox::clicked, this, [this, check](bool checked) {
        check(checked);
        emit Changed();
    });
    return box;
}

QCheckBox* FormFields::AddType(const QString& caption, const QString& name, GameType type,
                               FormField field) {
    PayTableTexts& texts = editor.texts;
    return AddCheck(
        caption, name, [&texts, type] { return texts.type == type; },
        [&texts, type](bool checked) { CheckType(texts, type, checked); }, {field});
}

QComboBox* FormFields::AddRankList(int line) {
    auto* list = new RankList(&dialog);
    list->setObjectName("rank" + QString::number(line));
    list->setAccessibleName(tr("Hand Rank, line %1").arg(line + 1));
    list->setFocusPolicy(Qt::StrongFocus);
    list->setMaxVisibleItems(20);
    for (int rank = 0; rank < kOfferedRanks; ++rank) {
        list->addItem(NameOfRank(static_cast<HandRank>(rank)), rank);
    }
    list->addItem(tr("End of Table"), kEndOfTable);
    PayLineTexts& texts = editor.texts.lines[static_cast<std::size_t>(line)];
    Add(*list, {FormField::kRank, line}, [list, &texts] { ShowRank(*list, texts.rank); });
    connect(list, &QComboBox::activated, this, [this, list, &texts](int chosen) {
        ChooseRank(texts, HandRankFromNumber(list->itemData(chosen).toInt()));
        emit Changed();
    });
    return list;
}

void FormFields::ShowAll() {
    for (const Field& field : fields) {
        field.show();
        field.control->setEnabled(editor.IsEnabled(field.place));
    }
    KeepLegible();
}

QWidget* FormFields::ControlAt(FieldPlace place) const {
    const auto found = std::ranges::find(fields, place, &Field::place);
    return found == fields.end() ? nullptr : found->control;
}

std::optional<FieldPlace> FormFields::PlaceOf(const QObject* control) const {
    const auto found = std::ranges::find(fields, control, &Field::control);
    if (found == fields.end()) return std::nullopt;
    return found->place;
}

QWidget* FormFields::Beside(FieldPlace place, int step) const {
    for (place.line += step; place.line >= 0 && place.line < kMaxPayLines; place.line += step) {
        QWidget* control = ControlAt(place);
        if (control && control->isEnabled()) return control;
    }
    return nullptr;
}

bool FormFields::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &dialog && event->type() == QEvent::ApplicationPaletteChange) KeepLegible();
    return QObject::eventFilter(watched, event);
}

// What cannot be changed is there to be read: it has the ground of what is greyed, but not its ink.
void FormFields::KeepLegible() {
    const QPalette desktop = QApplication::palette();
    QPalette legible;
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        legible.setColor(QPalette::Disabled, role, desktop.color(QPalette::Active, role));
    }
    for (const Field& field : fields) {
        if (field.place.field >= FormField::kRank) field.control->setPalette(legible);
    }
}
