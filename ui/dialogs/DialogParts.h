// What the dialogs have in common.
#pragma once
#include <QString>
#include <cstdint>

class QDialog;
class QDialogButtonBox;
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

// Makes a dialog that has little in it wide enough for its caption beside the window's buttons.
void MakeRoomForCaption(QDialog& dialog);

// Keeps out what would make the text longer than so many bytes, where the files would cut it, and
// line breaks that are pasted.
void LimitToBytes(QLineEdit& box, int longest);

// Tells what is wrong with what was typed, and has it typed again.
void RefuseInput(QLineEdit& box, const QString& caption, const QString& problem);

// "16,215".
QString Grouped(std::int64_t number);
