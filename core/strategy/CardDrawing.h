// The drawings of a card.
#pragma once
#include <string>
#include <string_view>

#include "core/strategy/ChartCard.h"

// The letters of the drawing: the first of these that a reader has.
inline constexpr std::string_view kCardFonts = "Helvetica, Arial, Liberation Sans, sans-serif";

// Black on white, the lines in one column or two, as large as they fit.
std::string CardAsSvg(const ChartCard& card);

// The same in a PDF's own fonts, which know the letters of western Europe; others are '?'.
std::string CardAsPdf(const ChartCard& card);
