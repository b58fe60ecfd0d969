// The charts for screen readers: each of them has its points as parts, which say what they are.
#pragma once

class QWidget;

// Has all widgets with ChartPoints be served so. Any number of times.
void InstallChartAccess();

// The point is being read now: what is said of it is spoken.
void TellPoint(QWidget& chart, int point);
