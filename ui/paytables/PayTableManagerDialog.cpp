#include "ui/paytables/PayTableManagerDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "ui/parts/DialogParts.h"
#include "ui/paytables/LiveReturn.h"
#include "ui/paytables/RenameGameDialog.h"
#include "ui/paytables/SelectGameDialog.h"

namespace {

constexpr int kLongestText = 80;  // bytes
constexpr int kPayoutColumn = 2;
constexpr int kOfferedRanks = 17;  // the last two are in tables made elsewhere
constexpr int kEndOfTable = -1;    // data of that entry of a rank list
constexpr int kNothing = -1;       // selected in a list
constexpr bool (PayTableEditor::*kAlways)() const = nullptr;

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

// As large as what it holds where the screen allows.
class LineArea : public QScrollArea {
  public:
    using QScrollArea::QScrollArea;

    QSize sizeHint() const override {
        const int frame = 2 * frameWidth();
        return widget()->sizeHint() + QSize(frame + verticalScrollBar()->sizeHint().width(), frame);
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

PayTableManagerDialog::PayTableManagerDialog(PayTableEditor& editor, QWidget* parent)
    : QDialog(parent), editor(editor) {
    setObjectName("payTableManager");
    setWindowTitle(tr("Pay Table Manager"));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(MakeGameBand());
    layout->addLayout(MakeTypeBand());
    layout->addWidget(MakeLines(), 1);
    live = new LiveReturn(editor, this);
    layout->addWidget(live);
    layout->addLayout(MakeButtons());
    ShowAll();
    resize(sizeHint().boundedTo(screen()->availableSize() * 0.95));
    QWidget* first = ControlAt({FormField::kName});
    (first->isEnabled() ? first : ControlAt({FormField::kPayout, 0}))->setFocus();
}

QLayout* PayTableManagerDialog::MakeGameBand() {
    auto* layout = new QHBoxLayout;
    auto* name = AddText("gameName", 24, editor.gameName, {FormField::kName});
    layout->addWidget(Caption(tr("&Game Name"), name));
    layout->addWidget(name, 1);
    AddSetting(*layout, tr("Max &Bet"), "maxBet", 4, editor.texts.maxBet, FormField::kMaxBet);
    index = TypingBox(*this, "index", 4, kLongestText);
    index->setReadOnly(true);
    index->setMaximumWidth(index->minimumWidth() * 2);
    layout->addWidget(Caption(tr("Inde&x"), index));
    layout->addWidget(index);
    return layout;
}

QLayout* PayTableManagerDialog::MakeTypeBand() {
    using enum FormField;
    auto* layout = new QHBoxLayout;
    auto* types = RowInGroup(tr("Game Type"), "gameType", this);
    types->addWidget(AddType(tr("&OEJ"), "oej", GameType::kOneEyedJacks, kOneEyedJacks));
    types->addWidget(AddType(tr("&5 Aces"), "fiveAces", GameType::kFiveAces, kFiveAces));
    types->addWidget(AddType(tr("Pic&k 'Em"), "pickEm", GameType::kPickEm, kPickEm));
    layout->addWidget(types->parentWidget());
    layout->addStretch();

    PayTableTexts& texts = editor.texts;
    auto* settings = new QHBoxLayout;
    settings->addWidget(AddCheck(
        tr("&Wilds"), "wilds", [&texts] { return texts.usesWilds; },
        [&texts](bool checked) { CheckWilds(texts, checked); }, {kWilds}));
    AddSetting(*settings, tr("&Jokers"), "jokers", 4, texts.jokers, kJokers);
    AddSetting(*settings, tr("W&ilds"), "wildRanks", 10, texts.wildRanks, kWildRanks)
        ->setAccessibleName(tr("Wild ranks"));
    AddSetting(*settings, tr("&Min Pair"), "minPair", 4, texts.minPair, kMinPair);
    // Level with the boxes of the group, whose title is above them.
    auto* level = new QVBoxLayout;
    level->addStretch();
    level->addLayout(settings);
    level->addSpacing(types->contentsMargins().bottom());
    layout->addLayout(level);
    return layout;
}

QLineEdit* PayTableManagerDialog::AddSetting(QBoxLayout& layout, const QString& caption,
                                             const char* name, int shown, std::string& text,
                                             FormField field) {
    auto* box = AddText(name, shown, text, {field});
    box->setMaximumWidth(box->minimumWidth() * 2);
    layout.addWidget(Caption(caption, box));
    layout.addWidget(box);
    return box;
}

QWidget* PayTableManagerDialog::MakeLines() {
    lines = new LineArea(this);
    lines->setObjectName("lines");
    lines->setFocusPolicy(Qt::NoFocus);
    lines->setWidgetResizable(true);
    auto* content = new QWidget(lines);
    auto* layout = new QGridLayout(content);
    const QStringList captions = {tr("Hand Rank"),  tr("Description"), tr("Pa&yout"),
                                  tr("Max Payout"), tr("Bonus/Quads"), tr("Kicker"),
                                  tr("Wilds OK")};
    QList<QLabel*> headings;
    for (int column = 0; column < captions.size(); ++column) {
        headings.append(new QLabel(captions[column], content));
        layout->addWidget(headings.back(), 0, column + 1);
    }
    layout->setColumnStretch(2, 3);
    layout->setColumnStretch(5, 1);
    layout->setColumnStretch(6, 1);
    for (int line = 0; line < kMaxPayLines; ++line) MakeLine(*layout, line);
    headings[kPayoutColumn]->setBuddy(ControlAt({FormField::kPayout, 0}));  // a way into the lines
    layout->setRowStretch(kMaxPayLines + 1, 1);
    lines->setWidget(content);
    return lines;
}

void PayTableManagerDialog::MakeLine(QGridLayout& layout, int line) {
    using enum FormField;
    PayLineTexts& texts = editor.texts.lines[static_cast<std::size_t>(line)];
    const int row = line + 1;
    int column = 0;
    auto* number = new QLabel(QString::number(row));
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    layout.addWidget(number, row, column++);
    layout.addWidget(AddRankList(line), row, column++);
    const auto add = [&](const QString& caption, const char* name, int shown, std::string& text,
                         FormField field) {
        auto* box = AddText(name + QString::number(line), shown, text, {field, line});
        box->setAccessibleName(tr("%1, line %2").arg(caption, QString::number(row)));
        layout.addWidget(box, row, column++);
        return box;
    };
    add(tr("Description"), "description", 24, texts.description, kDescription);
    for (auto* box : {add(tr("Payout"), "payout", 7, texts.payout, kPayout),
                      add(tr("Max Payout"), "maxPayout", 7, texts.maxPayout, kMaxPayout)}) {
        box->setAlignment(Qt::AlignRight);
        box->setMaximumWidth(WidthOf(*box, 12));
    }
    for (auto* box : {add(tr("Bonus/Quads"), "bonusQuads", 18, texts.bonusQuads, kBonusQuads),
                      add(tr("Kicker"), "kicker", 9, texts.kickers, kKickers)}) {
        connect(box, &QLineEdit::textChanged, box, &QWidget::setToolTip);
    }
    auto* wildsOK = AddCheck(
        "", "wildsOK" + QString::number(line), [&texts] { return texts.wildsOK; },
        [&texts](bool checked) { texts.wildsOK = checked; }, {kWildsOK, line});
    wildsOK->setAccessibleName(tr("Wilds OK, line %1").arg(row));
    layout.addWidget(wildsOK, row, column, Qt::AlignHCenter);
}

QLayout* PayTableManagerDialog::MakeButtons() {
    constexpr int kInRow = 5;
    auto* layout = new QGridLayout;
    using Editor = PayTableEditor;
    int place = 0;
    const auto add = [&](const QString& caption, const char* name, Condition isEnabled,
                         const std::function<void()>& command) {
        auto* button = ActionButton(*this, caption, name, [this, command] {
            command();
            ShowAll();
        });
        if (isEnabled) conditions.push_back({button, isEnabled});
        layout->addWidget(button, place / kInRow, place % kInRow);
        ++place;
        return button;
    };
    add(tr("&Prev Tbl"), "prevTable", &Editor::HasPreviousTable,
        [this] { editor.GoToPreviousTable(); });
    add(tr("&Next Tbl"), "nextTable", &Editor::HasNextTable, [this] { editor.GoToNextTable(); });
    auto* changeGame =
        add(tr("C&hange Game"), "changeGame", kAlways, [this] { editor.ChangeGame(*this); });
    add(tr("&Load Template"), "loadTemplate", &Editor::HasOwnTable,
        [this] { editor.LoadTemplate(*this); });
    add(tr("&Clear"), "clear", &Editor::HasTable, [this] { editor.Clear(); });
    auto* save = add(tr("&Save Tbl"), "saveTable", &Editor::HasTable, [this] {
        if (editor.Save(*this)) NoteTable(tr("Table %1 is saved."));
    });
    save->setDefault(true);  // Enter, which may be pressed by chance, loses nothing then
    add(tr("Make &Active"), "makeActive", &Editor::HasTable, [this] {
        if (editor.MakeActive(*this)) NoteTable(tr("Table %1 is saved and active."));
    });
    add(tr("&Rename Game"), "renameGame", &Editor::HasOwnTable, [this] { editor.Rename(*this); });
    add(tr("D&elete Tbl"), "deleteTable", &Editor::HasOwnTable, [this, changeGame] {
        editor.Delete(*this);
        if (!editor.HasTable()) changeGame->setFocus();
    });
    add(tr("Add &Tbl"), "addTable", &Editor::HasTable, [this] {
        if (editor.Add(*this)) NoteTable(tr("Table %1 is saved."));
    });
    layout->setColumnStretch(kInRow, 1);
    layout->addWidget(ActionButton(*this, tr("&Done"), "done", [this] { accept(); }), 0, 6);
    layout->addWidget(ActionButton(*this, tr("Cancel"), "cancel", [this] { reject(); }), 1, 6);
    return layout;
}

QLineEdit* PayTableManagerDialog::AddText(const QString& name, int shown, std::string& text,
                                          FieldPlace place) {
    auto* box = TypingBox(*this, name.toLatin1().constData(), shown, kLongestText);
    LimitToBytes(*box, kLongestText);
    fields.push_back({box, place, [box, &text] { ShowText(*box, text); }});
    connect(box, &QLineEdit::textEdited, this, [this, &text](const QString& typed) {
        text = typed.toStdString();
        live->Typed();
    });
    return box;
}

QCheckBox* PayTableManagerDialog::AddCheck(const QString& caption, const QString& name,
                                           const std::function<bool()>& isChecked,
                                           const std::function<void(bool)>& check,
                                           FieldPlace place) {
    auto* box = new QCheckBox(caption, this);
    box->setObjectName(name);
    fields.push_back({box, place, [box, isChecked] { box->setChecked(isChecked()); }});
    connect(box, &QCheckBox::clicked, this, [this, check](bool checked) {
        check(checked);
        ShowAll();
    });
    return box;
}

QCheckBox* PayTableManagerDialog::AddType(const QString& caption, const QString& name,
                                          GameType type, FormField field) {
    PayTableTexts& texts = editor.texts;
    return AddCheck(
        caption, name, [&texts, type] { return texts.type == type; },
        [&texts, type](bool checked) { CheckType(texts, type, checked); }, {field});
}

QComboBox* PayTableManagerDialog::AddRankList(int line) {
    auto* list = new RankList(this);
    list->setObjectName("rank" + QString::number(line));
    list->setAccessibleName(tr("Hand Rank, line %1").arg(line + 1));
    list->setFocusPolicy(Qt::StrongFocus);
    list->setMaxVisibleItems(20);
    for (int rank = 0; rank < kOfferedRanks; ++rank) {
        list->addItem(NameOfRank(static_cast<HandRank>(rank)), rank);
    }
    list->addItem(tr("End of Table"), kEndOfTable);
    PayLineTexts& texts = editor.texts.lines[static_cast<std::size_t>(line)];
    fields.push_back(
        {list, {FormField::kRank, line}, [list, &texts] { ShowRank(*list, texts.rank); }});
    connect(list, &QComboBox::activated, this, [this, list, &texts](int chosen) {
        ChooseRank(texts, HandRankFromNumber(list->itemData(chosen).toInt()));
        ShowAll();
    });
    return list;
}

void PayTableManagerDialog::ShowAll() {
    for (const Field& field : fields) {
        field.show();
        field.control->setEnabled(editor.IsEnabled(field.place));
    }
    index->setText(editor.TableIndex() < 0 ? QString() : QString::number(editor.TableIndex()));
    for (const auto& [button, isEnabled] : conditions) {
        button->setEnabled((editor.*isEnabled)());
    }
    live->Changed();
}

void PayTableManagerDialog::NoteTable(const QString& text) {
    live->Note(text.arg(editor.TableIndex()));
}

QWidget* PayTableManagerDialog::ControlAt(FieldPlace place) const {
    return std::ranges::find(fields, place, &Field::place)->control;
}

void PayTableManagerDialog::Refuse(const std::string& caption, const std::string& text,
                                   FieldPlace where) {
    Tell(caption, text);
    QWidget* control = ControlAt(where);
    if (where.field >= FormField::kRank) lines->ensureWidgetVisible(control);
    control->setFocus();
    if (auto* box = qobject_cast<QLineEdit*>(control)) box->selectAll();
}

// Nothing is told or asked any more when the whole window closes in the middle of a command.
void PayTableManagerDialog::Tell(const std::string& caption, const std::string& text) {
    if (!isVisible()) return;
    ShowMessage("message", QMessageBox::Critical, QString::fromStdString(caption),
                QString::fromStdString(text), this);
}

OverwriteChoice PayTableManagerDialog::Overwrites(const std::string& caption,
                                                  const std::string& question) {
    if (!isVisible()) return OverwriteChoice::kCancel;
    switch (ShowMessage("overwrite", QMessageBox::Question, QString::fromStdString(caption),
                        QString::fromStdString(question), this,
                        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                        QMessageBox::No)) {
        case QMessageBox::Yes:
            return OverwriteChoice::kOverwrite;
        case QMessageBox::No:
            return OverwriteChoice::kAppend;
        default:
            return OverwriteChoice::kCancel;
    }
}

bool PayTableManagerDialog::Confirms(const std::string& caption, const std::string& question) {
    if (!isVisible()) return false;
    return ShowMessage("confirm", QMessageBox::Warning, QString::fromStdString(caption),
                       QString::fromStdString(question), this,
                       QMessageBox::Ok | QMessageBox::Cancel,
                       QMessageBox::Cancel) == QMessageBox::Ok;
}

std::optional<std::string> PayTableManagerDialog::SelectsGame(const std::vector<std::string>& games,
                                                              const std::string& current) {
    if (!isVisible()) return std::nullopt;
    return AskGame(games, current, this);
}

std::optional<std::string> PayTableManagerDialog::RenamesGame(const std::string& current) {
    if (!isVisible()) return std::nullopt;
    RenameGameDialog dialog(current, this);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.NewName();
}
