// Shows the patterns of holds in a text, such as "A___Q", in a face of fixed width: elsewhere they
// can be told apart only where an underscore is as wide as a letter.
#pragma once
#include <QSyntaxHighlighter>

// Characters of a line; none where the length is not above 0.
struct TextSpan {
    int start = 0;
    int length = 0;
};

class HoldPatterns : public QSyntaxHighlighter {
    Q_OBJECT

  public:
    // Where a line has its pattern, by its text and its number, the first 0.
    using Find = TextSpan (*)(const QString& line, int number);

    // The document owns the object.
    HoldPatterns(QTextDocument& document, Find find);

  protected:
    void highlightBlock(const QString& line) override;

  private:
    Find find;
};
