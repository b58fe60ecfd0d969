// Pay tables that are written to a file, and those that are read from one.
#pragma once
#include <QString>

#include "game/paytables/PayTableEditor.h"

class QWidget;

// Each asks for a file and says what was done, for the player to read; an empty text when it is
// refused, which is told, or cancelled. A file that is there is replaced only when the player says
// so.
QString ExportTable(const PayTableEditor& editor, PayTableQuestions& questions, TableFormat format,
                    QWidget* parent);
QString ExportGame(const PayTableEditor& editor, PayTableQuestions& questions, TableFormat format,
                   QWidget* parent);
QString ImportTables(PayTableEditor& editor, PayTableQuestions& questions, QWidget* parent);
