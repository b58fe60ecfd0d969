// Asks for a printer.
#pragma once
#include <functional>

class QPrinter;
class QWidget;

// Asks which printer and how to print, and has it done; only the parent is held up meanwhile, and
// the machine is played on. The player is told when the printer, or the file that is printed to,
// takes nothing: print is false then.
void AskAndPrint(QPrinter& printer, const char* dialogName, QWidget* parent,
                 const std::function<bool(QPrinter&)>& print);
