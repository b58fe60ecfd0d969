// The user's guide as data: its pages in the order in which the contents page links them, their
// sections, and the places where words stand. The pages are resources, ":/help/index.html" the
// contents.
#pragma once
#include <QString>
#include <vector>

inline constexpr const char* kHelpContents = "index.html";

struct HelpSection {
    QString title;
    QString anchor;  // empty when the heading has none
};

struct HelpTopic {
    QString page;  // file name
    QString title;
    std::vector<HelpSection> sections;
};

struct HelpHit {
    QString page;
    QString heading;   // "Reports: Statistics"
    QString excerpt;   // one line
    int position = 0;  // of the found text in the page's document, in characters
    int length = 0;
};

class HelpIndex {
  public:
    // Reads all pages, in some milliseconds.
    HelpIndex();

    // The contents page is not among them.
    const std::vector<HelpTopic>& Topics() const { return topics; }

    bool HasPage(const QString& page) const;

    // The paragraphs that hold all of the words, in any letter case and order: headings first, then
    // what begins with the first word, then the rest, each in the order of the guide; at most 200.
    // Nothing when there are no words.
    std::vector<HelpHit> Find(const QString& words) const;

  private:
    struct Paragraph {
        QString page;
        QString heading;
        QString text;
        int position = 0;
        bool isHeading = false;
    };

    void ReadPage(const QString& page);
    static int Rank(const Paragraph& paragraph, const QString& word);

    std::vector<HelpTopic> topics;
    std::vector<Paragraph> paragraphs;
};

// The text of a page; empty when there is none.
QString ReadHelpPage(const QString& page);
