#include "ui/help/HelpIndex.h"

#include <QFile>
#include <QStringList>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

// The linker would leave the pages out of a program that links them from a static library. The
// macro works outside of namespaces only.
static void LoadHelp() { Q_INIT_RESOURCE(help); }

namespace {

constexpr std::size_t kMostHits = 200;
constexpr int kExcerptLength = 110;
constexpr int kExcerptLead = 30;  // characters shown before the first word found

QString FirstAnchor(const QTextBlock& block) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QStringList names = it.fragment().charFormat().anchorNames();
        if (!names.isEmpty()) return names.constFirst();
    }
    return {};
}

// The pages that the contents link, each once, in their order.
QStringList LinkedPages() {
    QTextDocument contents;
    contents.setHtml(ReadHelpPage(kHelpContents));
    QStringList pages;
    for (const QTextFormat& format : contents.allFormats()) {
        const QString page = format.toCharFormat().anchorHref().section('#', 0, 0);
        if (page.endsWith(".html") && !page.contains(':') && !pages.contains(page)) {
            pages.append(page);
        }
    }
    return pages;
}

QString Excerpt(const QString& text, int found) {
    int start = 0;
    if (text.size() > kExcerptLength && found > kExcerptLead) {
        start = static_cast<int>(text.indexOf(' ', found - kExcerptLead)) + 1;
        if (start > found) start = found;
    }
    QString excerpt = text.mid(start, kExcerptLength).simplified();
    if (start > 0) excerpt.prepend("\u2026 ");
    if (start + kExcerptLength < text.size()) excerpt.append(" \u2026");
    return excerpt;
}

}  // namespace

QString ReadHelpPage(const QString& page) {
    LoadHelp();
    QFile file(":/help/" + page);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readAll());
}

HelpIndex::HelpIndex() {
    for (const QString& page : LinkedPages()) ReadPage(page);
}

bool HelpIndex::HasPage(const QString& page) const {
    return page == kHelpContents ||
           std::ranges::any_of(topics, [&](const HelpTopic& topic) { return topic.page == page; });
}

void HelpIndex::ReadPage(const QString& page) {
    QTextDocument document;
    document.setHtml(ReadHelpPage(page));
    HelpTopic topic{page, {}, {}};
    QString heading;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        const QString text = block.text();
        if (level == 1) {
            topic.title = heading = text;
        } else if (level == 2) {
            topic.sections.push_back({text, FirstAnchor(block)});
            heading = topic.title + ": " + text;
        }
        if (!text.isEmpty()) {
            paragraphs.push_back({page, heading, text, block.position(), level > 0});
        }
    }
    topics.push_back(std::move(topic));
}

std::vector<HelpHit> HelpIndex::Find(const QString& words) const {
    const QStringList wanted = words.split(' ', Qt::SkipEmptyParts);
    std::vector<HelpHit> hits;
    if (wanted.isEmpty()) return hits;
    const QString& first = wanted.constFirst();
    for (const int rank : {0, 1, 2}) {
        for (const Paragraph& paragraph : paragraphs) {
            if (Rank(paragraph, first) != rank || hits.size() == kMostHits) continue;
            const bool all = std::ranges::all_of(wanted, [&](const QString& word) {
                return paragraph.text.contains(word, Qt::CaseInsensitive);
            });
            if (!all) continue;
            const auto found =
                static_cast<int>(paragraph.text.indexOf(first, 0, Qt::CaseInsensitive));
            hits.push_back({paragraph.page, paragraph.heading, Excerpt(paragraph.text, found),
                            paragraph.position + found, static_cast<int>(first.size())});
        }
    }
    return hits;
}

int HelpIndex::Rank(const Paragraph& paragraph, const QString& word) {
    if (paragraph.isHeading) return 0;
    return paragraph.text.startsWith(word, Qt::CaseInsensitive) ? 1 : 2;
}
