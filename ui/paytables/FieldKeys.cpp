#include "ui/paytables/FieldKeys.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <algorithm>

#include "game/paytables/PayTableLines.h"
#include "ui/paytables/FormFields.h"

namespace {

bool HasCells(const QString& text) { return text.contains(u'\t') || text.contains(u'\n'); }

}  // namespace

FieldKeys::FieldKeys(FormFields& fields, PayTableEditor& editor, QDialog& dialog, QWidget& lines)
    : QObject(&dialog), fields(fields), editor(editor), dialog(dialog) {
    AddCommand(tr("&Undo"), "undo", {tr("Ctrl+Z")}, &FieldKeys::UndoStep);
    AddCommand(tr("&Redo"), "redo", {tr("Ctrl+Y"), tr("Ctrl+Shift+Z")}, &FieldKeys::RedoStep);
    AddCommand(tr("&Insert Line"), "insertLine", {tr("Ctrl+I")}, &FieldKeys::InsertHere);
    AddCommand(tr("Du&plicate Line"), "duplicateLine", {tr("Ctrl+D")}, &FieldKeys::DuplicateHere);
    AddCommand(tr("D&elete Line"), "deleteLine", {tr("Ctrl+Shift+K")}, &FieldKeys::DeleteHere);
    AddCommand(tr("&Move Line Up"), "moveLineUp", {tr("Ctrl+Shift+Up")}, &FieldKeys::MoveUp);
    AddCommand(tr("Move Line Do&wn"), "moveLineDown", {tr("Ctrl+Shift+Down")},
               &FieldKeys::MoveDown);
    AddCommand(tr("Pa&ste Rows of a Spreadsheet"), "pasteRows", {tr("Ctrl+Shift+V")},
               &FieldKeys::PasteHere);
    for (auto action = actions.begin() + kInsert; action != actions.end(); ++action) {
        (*action)->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        lines.addAction(*action);
    }
    for (const Command command : {kUndo, kRedo}) dialog.addAction(actions[command]);
    // The boxes have undo keys of their own, which would know of one box alone.
    for (QLineEdit* box : dialog.findChildren<QLineEdit*>()) box->installEventFilter(this);
    for (QWidget* part : dialog.findChildren<QWidget*>()) {
        const auto place = fields.PlaceOf(part);
        if (place && !qobject_cast<QLineEdit*>(part)) part->installEventFilter(this);
    }
}

void FieldKeys::AddCommand(const QString& caption, const char* name,
                           const QList<QKeySequence>& keys, void (FieldKeys::*command)()) {
    auto* action = new QAction(caption, &dialog);
    action->setObjectName(name);
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, command);
    actions.push_back(action);
}

QMenu* FieldKeys::MakeMenu() {
    auto* menu = new QMenu(&dialog);
    for (std::size_t i = 0; i < actions.size(); ++i) {
        if (i == kInsert || i == kPaste) menu->addSeparator();
        menu->addAction(actions[i]);
    }
    return menu;
}

void FieldKeys::ShowEnabled() {
    const bool own = editor.HasOwnTable();
    const bool isRoom = IsBlank(editor.texts.lines.back());
    actions[kUndo]->setEnabled(editor.CanUndo());
    actions[kRedo]->setEnabled(editor.CanRedo());
    actions[kInsert]->setEnabled(own && isRoom);
    actions[kDuplicate]->setEnabled(own && isRoom);
    actions[kDelete]->setEnabled(own);
    // Whether there is a line above or below is looked at when it is pressed: it changes with every
    // step of the focus.
    actions[kMoveUp]->setEnabled(own);
    actions[kMoveDown]->setEnabled(own);
    actions[kPaste]->setEnabled(editor.HasTable());
    FindHere();
}

// Another game or rank may have switched the field off.
void FieldKeys::FindHere() {
    using enum FormField;
    for (const FieldPlace place :
         {here, {kRank, here.line}, {kPayout, here.line}, FieldPlace{kPayout, 0}}) {
        if (!fields.ControlAt(place)->isEnabled()) continue;
        here = place;
        return;
    }
}

void FieldKeys::GoTo(QWidget* control) {
    control->setFocus(Qt::TabFocusReason);
    if (auto* box = qobject_cast<QLineEdit*>(control)) box->selectAll();
}

bool FieldKeys::IsCommandKey(const QKeyEvent& event) const {
    const QKeySequence pressed(event.keyCombination());
    return std::ranges::any_of(
        actions, [&](const QAction* action) { return action->shortcuts().contains(pressed); });
}

bool FieldKeys::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::FocusIn:
            if (const auto place = fields.PlaceOf(watched);
                place && place->field >= FormField::kRank) {
                here = *place;
            }
            break;
        case QEvent::ShortcutOverride:
            // Left to the dialog's own commands.
            if (!IsCommandKey(static_cast<QKeyEvent&>(*event))) break;
            event->ignore();
            return true;
        case QEvent::KeyPress:
            // A command that cannot be given now is not left to the box either.
            if (TakesKey(watched, static_cast<QKeyEvent&>(*event)) ||
                IsCommandKey(static_cast<QKeyEvent&>(*event))) {
                return true;
            }
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

// An open list is another window, whose keys do not come here.
bool FieldKeys::TakesKey(QObject* watched, const QKeyEvent& event) {
    const auto place = fields.PlaceOf(watched);
    if (!place || place->field < FormField::kRank) return false;
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool up = event.key() == Qt::Key_Up;
    if (modifiers == Qt::NoModifier && (up || event.key() == Qt::Key_Down)) {
        if (QWidget* next = fields.Beside(*place, up ? -1 : 1)) {
            GoTo(next);
            emit WentTo(next);
        }
        return true;
    }
    if (!event.matches(QKeySequence::Paste)) return false;
    const bool isText = qobject_cast<QLineEdit*>(watched) != nullptr;
    if (isText && !HasCells(QApplication::clipboard()->text())) return false;
    PasteHere();
    return true;
}

void FieldKeys::UndoStep() {
    editor.Undo();
    emit Changed();
}

void FieldKeys::RedoStep() {
    editor.Redo();
    emit Changed();
}

void FieldKeys::GoToLine(int line) {
    here.line = line;
    emit Changed();
    FindHere();
    QWidget* control = fields.ControlAt(here);
    GoTo(control);
    emit WentTo(control);
}

void FieldKeys::InsertHere() {
    if (!InsertLine(editor.texts, here.line)) return;
    here.field = FormField::kRank;  // which the new line needs first
    GoToLine(here.line);
}

void FieldKeys::DuplicateHere() {
    if (DuplicateLine(editor.texts, here.line)) GoToLine(here.line + 1);
}

void FieldKeys::DeleteHere() {
    DeleteLine(editor.texts, here.line);
    GoToLine(here.line);
}

void FieldKeys::MoveTo(int from, int to) {
    if (to < 0 || to >= kMaxPayLines || !editor.HasOwnTable()) return;
    MoveLine(editor.texts, from, to);
    GoToLine(to);
}

void FieldKeys::MoveUp() { MoveTo(here.line, here.line - 1); }

void FieldKeys::MoveDown() { MoveTo(here.line, here.line + 1); }

void FieldKeys::PasteHere() {
    const auto problem =
        PasteCells(editor.texts, here, QApplication::clipboard()->text().toStdString(),
                   [this](FieldPlace place) { return editor.TakesCell(place); });
    if (problem) {
        emit Refused(QString::fromStdString(*problem));
    } else {
        emit Changed();
    }
}
