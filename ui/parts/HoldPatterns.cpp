#include "ui/parts/HoldPatterns.h"

#include <QFontDatabase>
#include <QTextDocument>

HoldPatterns::HoldPatterns(QTextDocument& document, Find find)
    : QSyntaxHighlighter(&document), find(find) {}

void HoldPatterns::highlightBlock(const QString& line) {
    const auto [start, length] = find(line, currentBlock().blockNumber());
    if (length <= 0) return;
    QTextCharFormat fixed;
    fixed.setFontFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
    fixed.setFontFixedPitch(true);
    setFormat(start, length, fixed);
}
