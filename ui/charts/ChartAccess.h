// The charts for screen readers: each of them has its points as parts, which say what they are.
#pragma once

class Chart;

// Has all charts be served so. Any number of times.
void InstallChartAccess();

// The point is being read now: what is said of it is spoken.
void TellPoint(Chart& chart, int point);
