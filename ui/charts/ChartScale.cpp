#include "ui/charts/ChartScale.h"

#include <algorithm>
#include <cmath>

double RoundStep(double least, double smallest) {
    if (least <= smallest) return smallest;
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= least * (1 - 1e-9)) return std::max(factor * power, smallest);
    }
    return 10 * power;
}
