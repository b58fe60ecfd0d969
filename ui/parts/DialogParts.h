// What the dialogs have in common.
#pragma once
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QString>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

class QComboBox;
class QDialog;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

// The width of so many average characters in the widget's font, in logical pixels.
int WidthOf(const QWidget& widget, int characters);

// Buttons that end the dialog, named "ok", "cancel", "yes" and "no"; Enter is one of them.
QDialogButtonBox* EndButtons(QDialog& dialog, QDialogButtonBox::StandardButtons shown,
                             QDialogButtonBox::StandardButton enter);

// Rejects the dialogs over a window, in which somebody further up the stack may be waiting.
void RefuseDialogsOver(const QWidget& window);

// "OK" and "Cancel", and "OK" alone; Enter is OK.
QDialogButtonBox* OkAndCancel(QDialog& dialog);
QDialogButtonBox* OkAlone(QDialog& dialog);

// A button for what leaves the dialog open; Enter presses it only where it has the focus.
QPushButton* ActionButton(QDialog& dialog, const QString& caption, const char* name,
                          const std::function<void()>& action);

// A box for typing that shows about so many characters and takes at most as many as told.
QLineEdit* TypingBox(QDialog& dialog, const char* name, int shown, int longest);

// Lays out a dialog that asks for one thing: a label (named "label") above the widget that takes
// the answer, which gets the focus, and OK and Cancel, which are returned, below it.
QDialogButtonBox* LayOutQuestion(QDialog& dialog, const QString& label, QWidget& answer);

// The caption of a widget, whose letter with Alt goes there.
QLabel* Caption(const QString& text, QWidget* buddy);

// A list of games (named "game") that shows about so many characters of each, and finds them as
// they are typed.
QComboBox* GameList(QDialog& dialog, const std::vector<std::string>& games, int shown);

// Selects a game, which is found in any letter case; nothing when it is not in the list.
void SelectGame(QComboBox& list, const std::string& game);

// The row of widgets that a new group is to hold.
QHBoxLayout* RowInGroup(const QString& title, const char* name, QWidget* parent);

// A way to show a report.
struct DisplayOption {
    QString caption;
    const char* name;  // of its button
};

// The group "Display" to choose one of them, by its number 0, 1, ...; the first one is chosen.
QWidget* DisplayChoice(std::initializer_list<DisplayOption> options,
                       const std::function<void(int chosen)>& show, QWidget* parent);

// Makes a dialog wide enough for its caption beside the window's buttons. Its layout is complete.
void MakeRoomForCaption(QDialog& dialog);

// Moves a dialog that is being shown near the top of its window: the player who is asked sees his
// cards and amounts.
void PlaceNearTop(QDialog& dialog);

// Keeps out what would make the text longer than so many bytes, where the files would cut it, and
// line breaks that are pasted.
void LimitToBytes(QLineEdit& box, int longest);

// Tells or asks something in a message box that shows its whole caption. The button that closed it,
// or 0 when it was closed from outside; Enter is the given one of several.
int ShowMessage(const char* name, QMessageBox::Icon icon, const QString& caption,
                const QString& text, QWidget* parent,
                QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                QMessageBox::StandardButton enter = QMessageBox::Ok);

// Tells what is wrong with what was typed, and has it typed again.
void RefuseInput(QLineEdit& box, QMessageBox::Icon icon, const QString& caption,
                 const QString& problem);

// The whole number typed in a box, in plain digits. When it is none that is told, the number is to
// be typed again, and there is nothing.
std::optional<std::string> AskedWholeNumber(QLineEdit& box);

// "16,215".
QString Grouped(std::int64_t number);
