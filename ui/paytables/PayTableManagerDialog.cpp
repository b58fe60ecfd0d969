#include "ui/paytables/PayTableManagerDialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QStyleOptionButton>

#include "ui/parts/DialogParts.h"
#include "ui/paytables/FieldKeys.h"
#include "ui/paytables/FormFields.h"
#include "ui/paytables/LineArea.h"
#include "ui/paytables/LiveReturn.h"
#include "ui/paytables/PayTableFileDialogs.h"

namespace {

constexpr int kLongestText = static_cast<int>(kLongestTableText);
constexpr int kButtonsInRow = 5;
constexpr bool (PayTableEditor::*kAlways)() const = nullptr;

bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

// Opens a menu and does not wait for its end, as a button with a menu of Qt's own does: the window
// may close meanwhile.
class MenuButton : public QPushButton {
  public:
    MenuButton(const QString& caption, QMenu& menu, QWidget* parent)
        : QPushButton(caption, parent) {
        setAutoDefault(false);
        setAccessibleDescription(QObject::tr("opens a menu"));
        connect(this, &QPushButton::clicked, &menu,
                [this, &menu] { menu.popup(mapToGlobal(rect().bottomLeft())); });
    }

  protected:
    void initStyleOption(QStyleOptionButton* option) const override {
        QPushButton::initStyleOption(option);
        option->features |= QStyleOptionButton::HasMenu;
    }
};

}  // namespace

PayTableManagerDialog::PayTableManagerDialog(PayTableEditor& editor, QWidget* parent)
    : QDialog(parent),
      editor(editor),
      questions(*this, [this](FieldPlace place) { GoTo(place); }),
      fields(new FormFields(editor, *this)),
      live(new LiveReturn(editor, this)),
      detail(new QLabel(this)) {
    setObjectName("payTableManager");
    detail->setObjectName("liveDetail");
    detail->setWordWrap(true);
    detail->setTextFormat(Qt::PlainText);
    detail->setToolTip(
        tr("What a bet of one coin returns, the change of the return against the "
           "table as it is stored, and the least Max Payout of the line that pays "
           "most with which the game returns 100 %"));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(MakeGameBand());
    layout->addLayout(MakeTypeBand());
    layout->addWidget(live);
    layout->addWidget(detail);
    layout->addWidget(MakeLines(), 1);
    keys = new FieldKeys(*fields, editor, *this, *rows);
    layout->addLayout(MakeButtons());
    Connect();
    ShowAll();
    resize(sizeHint().boundedTo(screen()->availableSize() * 0.95));
    QWidget* first = fields->ControlAt({FormField::kName});
    (first->isEnabled() ? first : fields->ControlAt({FormField::kPayout, 0}))->setFocus();
}

QLayout* PayTableManagerDialog::MakeGameBand() {
    auto* layout = new QHBoxLayout;
    auto* name = fields->AddText("gameName", 24, editor.gameName, {FormField::kName});
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
    types->addWidget(fields->AddType(tr("&OEJ"), "oej", GameType::kOneEyedJacks, kOneEyedJacks));
    types->addWidget(fields->AddType(tr("&5 Aces"), "fiveAces", GameType::kFiveAces, kFiveAces));
    types->addWidget(fields->AddType(tr("Pic&k 'Em"), "pickEm", GameType::kPickEm, kPickEm));
    layout->addWidget(types->parentWidget());
    layout->addStretch();

    PayTableTexts& texts = editor.texts;
    auto* settings = new QHBoxLayout;
    settings->addWidget(fields->AddCheck(
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
    auto* box = fields->AddText(name, shown, text, {field});
    box->setMaximumWidth(box->minimumWidth() * 2);
    layout.addWidget(Caption(caption, box));
    layout.addWidget(box);
    return box;
}

QWidget* PayTableManagerDialog::MakeLines() {
    rows = new LineRows(*fields, editor, this);
    lines = new LineArea(rows, fields->ControlAt({FormField::kPayout, 0}), this);
    return lines;
}

QPushButton* PayTableManagerDialog::AddButton(QGridLayout& layout, const QString& caption,
                                              const char* name, Condition isEnabled,
                                              const std::function<void()>& command) {
    auto* button = ActionButton(*this, caption, name, [this, command] {
        command();
        ShowAll();
    });
    Place(layout, button, isEnabled);
    return button;
}

void PayTableManagerDialog::Place(QGridLayout& layout, QPushButton* button, Condition isEnabled) {
    if (isEnabled) conditions.push_back({button, isEnabled});
    const int place = layout.count();
    layout.addWidget(button, place / kButtonsInRow, place % kButtonsInRow);
}

QLayout* PayTableManagerDialog::MakeButtons() {
    auto* layout = new QGridLayout;
    using Editor = PayTableEditor;
    const auto add = [&](const QString& caption, const char* name, Condition isEnabled,
                         const std::function<void()>& command) {
        return AddButton(*layout, caption, name, isEnabled, command);
    };
    add(tr("&Prev Tbl"), "prevTable", &Editor::HasPreviousTable,
        [this] { editor.GoToPreviousTable(questions); });
    add(tr("&Next Tbl"), "nextTable", &Editor::HasNextTable,
        [this] { editor.GoToNextTable(questions); });
    auto* changeGame =
        add(tr("C&hange Game"), "changeGame", kAlways, [this] { editor.ChangeGame(questions); });
    add(tr("&Load Template"), "loadTemplate", &Editor::HasOwnTable,
        [this] { editor.LoadTemplate(questions); });
    add(tr("&Clear"), "clear", &Editor::HasTable, [this] { editor.Clear(); });
    save = add(tr("&Save Tbl"), "saveTable", &Editor::HasTable, [this] { Save(); });
    save->setDefault(true);  // Enter, which may be pressed by chance, loses nothing then
    save->installEventFilter(this);
    add(tr("Make &Active"), "makeActive", &Editor::HasTable, [this] {
        if (editor.MakeActive(questions)) NoteTable(tr("Table %1 is saved and active."));
    });
    add(tr("&Rename Game"), "renameGame", &Editor::HasOwnTable,
        [this] { editor.Rename(questions); });
    add(tr("D&elete Tbl"), "deleteTable", &Editor::HasDeletableTable, [this, changeGame] {
        editor.Delete(questions);
        if (!editor.HasTable()) changeGame->setFocus();
    });
    add(tr("Add &Tbl"), "addTable", &Editor::HasTable, [this] {
        if (editor.Add(questions)) NoteTable(tr("Table %1 is saved."));
    });
    AddMenus(*layout);
    // It shares its letter with the button that is off when this one is there.
    restore = add(tr("&Restore"), "restore", &Editor::HasShippedTable, [this] {
        if (editor.Restore(questions)) NoteTable(tr("Table %1 is as it was shipped."));
    });
    layout->setColumnStretch(kButtonsInRow, 1);
    layout->addWidget(ActionButton(*this, tr("&Done"), "done", [this] { accept(); }), 0, 6);
    layout->addWidget(ActionButton(*this, tr("Cancel"), "cancel", [this] { reject(); }), 1, 6);
    return layout;
}

void PayTableManagerDialog::AddMenus(QGridLayout& layout) {
    auto* revise = new MenuButton(tr("Re&vise"), *keys->MakeMenu(), this);
    revise->setObjectName("revise");
    Place(layout, revise, kAlways);
    auto* files = new QMenu(this);
    files->setObjectName("filesMenu");
    auto* import = files->addAction(tr("&Import..."), this,
                                    [this] { NoteDone(ImportTables(editor, questions, this)); });
    import->setObjectName("import");
    files->addSeparator();
    AddExports(*files);
    auto* button = new MenuButton(tr("&Files"), *files, this);
    button->setObjectName("files");
    Place(layout, button, &PayTableEditor::HasTable);
}

void PayTableManagerDialog::AddExports(QMenu& menu) {
    const auto add = [&](const QString& caption, const char* name, auto command,
                         TableFormat format) {
        auto* action = menu.addAction(caption, this, [this, command, format] {
            NoteDone(command(editor, questions, format, this));
        });
        action->setObjectName(name);
    };
    add(tr("Export Table as &Text..."), "exportTable", &ExportTable, TableFormat::kText);
    add(tr("Export Table as &CSV..."), "exportTableCsv", &ExportTable, TableFormat::kCsv);
    add(tr("Export &Game as Text..."), "exportGame", &ExportGame, TableFormat::kText);
    add(tr("Export Game as C&SV..."), "exportGameCsv", &ExportGame, TableFormat::kCsv);
}

void PayTableManagerDialog::Connect() {
    connect(fields, &FormFields::Typed, this, [this] {
        ShowState();
        live->Typed();
    });
    connect(fields, &FormFields::Changed, this, &PayTableManagerDialog::ShowAll);
    connect(keys, &FieldKeys::Changed, this, &PayTableManagerDialog::ShowAll);
    connect(keys, &FieldKeys::WentTo, this,
            [this](QWidget* control) { lines->ensureWidgetVisible(control); });
    connect(keys, &FieldKeys::Refused, this, [this](const QString& problem) {
        questions.Tell(tr("Input Error").toStdString(), problem.toStdString());
    });
    connect(rows, &LineRows::Moved, keys, &FieldKeys::MoveTo);
    connect(live, &LiveReturn::Refreshed, this, &PayTableManagerDialog::ShowFigures);
}

void PayTableManagerDialog::accept() {
    if (editor.MayLeave(questions) && isVisible()) return QDialog::accept();
    ShowAll();
}

void PayTableManagerDialog::reject() {
    if (editor.MayLeave(questions) && isVisible()) return QDialog::reject();
    ShowAll();
}

void PayTableManagerDialog::done(int result) {
    for (auto* menu : findChildren<QMenu*>()) menu->close();
    QDialog::done(result);
}

// On a table as it is stored Enter does nothing: pressed by chance, it adds no table.
void PayTableManagerDialog::keyPressEvent(QKeyEvent* event) {
    if (!IsEnter(*event) || editor.IsChanged()) QDialog::keyPressEvent(event);
}

bool PayTableManagerDialog::eventFilter(QObject* watched, QEvent* event) {
    const bool isKeyOfSave = watched == save && event->type() == QEvent::KeyPress;
    if (isKeyOfSave && IsEnter(static_cast<QKeyEvent&>(*event)) && !editor.IsChanged()) return true;
    return QDialog::eventFilter(watched, event);
}

void PayTableManagerDialog::Save() {
    if (editor.Save(questions)) NoteTable(tr("Table %1 is saved."));
}

void PayTableManagerDialog::ShowAll() {
    editor.NoteChange();
    fields->ShowAll();
    index->setText(editor.TableIndex() < 0 ? QString() : QString::number(editor.TableIndex()));
    for (const auto& [button, isEnabled] : conditions) {
        button->setEnabled((editor.*isEnabled)());
    }
    restore->setVisible(!editor.IsUserGame());
    rows->SetMovable(editor.HasOwnTable());
    ShowState();
    live->Changed();
}

// What every key may change.
void PayTableManagerDialog::ShowState() {
    const bool changed = editor.IsChanged();
    // The mark has its place in the caption only while it is shown.
    setWindowTitle(changed ? tr("Pay Table Manager[*]") : tr("Pay Table Manager"));
    setWindowModified(changed);
    keys->ShowEnabled();
}

void PayTableManagerDialog::ShowFigures() {
    const auto& result = live->Result();
    QString text =
        result ? QString::fromStdString(LiveDetailText(*result, editor.texts)) : QString();
    const auto problem = editor.Problem();
    const bool ofName = problem && problem->where.field == FormField::kName && editor.HasTable();
    if (ofName) text = QString::fromStdString(problem->text) + (text.isEmpty() ? "" : "  ") + text;
    detail->setText(text);
    detail->setEnabled(!live->IsWaiting());
    rows->ShowFigures(result, live->IsWaiting());
}

void PayTableManagerDialog::NoteTable(const QString& text) {
    live->Note(text.arg(editor.TableIndex()));
}

void PayTableManagerDialog::NoteDone(const QString& text) {
    if (!text.isEmpty()) live->Note(text);
    ShowAll();
}

void PayTableManagerDialog::GoTo(FieldPlace place) {
    QWidget* control = fields->ControlAt(place);
    if (place.field >= FormField::kRank) lines->ensureWidgetVisible(control);
    control->setFocus();
    if (auto* box = qobject_cast<QLineEdit*>(control)) box->selectAll();
}
