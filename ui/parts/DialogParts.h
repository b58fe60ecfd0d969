// What the dialogs have in common.
#pragma once
#include <QMessageBox>
#include <QString>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>

class QDialog;
class QDialogButtonBox;
class QGroupBox;
class QLineEdit;
class QWidget;

// The width of so many average characters in the widget's font, in logical pixels.
int WidthOf(const QWidget& widget, int characters);

// "OK" and "Cancel" (named "ok" and "cancel"), which end the dialog; Enter is OK.
QDialogButtonBox* OkAndCancel(QDialog& dialog);

// "OK" alone (named "ok").
QDialogButtonBox* OkAlone(QDialog& dialog);

// A box for typing that shows about so many characters and takes at most as many as told.
QLineEdit* TypingBox(QDialog& dialog, const char* name, int shown, int longest);

// A way to show a report.
struct DisplayOption {
    QString caption;
    const char* name;  // of its button
};

// The group "Display" to choose one of them, by its number 0, 1, ...; the first one is chosen.
QGroupBox* DisplayChoice(std::initializer_list<DisplayOption> options,
                         const std::function<void(int chosen)>& show, QWidget* parent);

// Makes a dialog wide enough for its caption beside the window's buttons. Its layout is complete.
void MakeRoomForCaption(QDialog& dialog);

// Moves a dialog that is being shown near the top of its window: the player who is asked sees his
// cards and amounts.
void PlaceNearTop(QDialog& dialog);

// Keeps out what would make the text longer than so many bytes, where the files would cut it, and
// line breaks that are pasted.
void LimitToBytes(QLineEdit& box, int longest);

// Tells what is wrong with what was typed, and has it typed again.
void RefuseInput(QLineEdit& box, QMessageBox::Icon icon, const QString& caption,
                 const QString& problem);

// The whole number typed in a box, in plain digits. When it is none that is told, the number is to
// be typed again, and there is nothing.
std::optional<std::string> AskedWholeNumber(QLineEdit& box);

// "16,215".
QString Grouped(std::int64_t number);
