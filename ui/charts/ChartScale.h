// The numbers along the axes of the charts.
#pragma once

// What the marks of an axis are apart: 1, 2 or 5 times a power of ten, not below the least and not
// below the smallest, one of which is above 0.
double RoundStep(double least, double smallest = 0);
