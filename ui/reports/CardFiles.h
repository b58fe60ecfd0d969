// Takes a chart's card for the pocket out of the program: to a file, to a printer. What is drawn is
// the drawing of core/strategy/ChartCard.h.
#pragma once
#include <QByteArray>
#include <QString>

#include "core/strategy/ChartCard.h"

class QPrinter;
class QWidget;

// Asks for a place and writes the card there: as PDF, SVG or text, by the name or the filter
// chosen. The name is proposed without an extension.
void SaveCard(const ChartCard& card, const QString& name, QWidget* parent);

// Asks for a printer and how to print, and prints the card in its own size at the top left.
void PrintCard(const ChartCard& card, QWidget* parent);
// False when the printer takes nothing.
bool PrintCardTo(const ChartCard& card, QPrinter& printer);

// On a page of the card's size, in any letters.
QByteArray CardPdf(const ChartCard& card);
