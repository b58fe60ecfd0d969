#include "ui/help/HelpWindow.h"

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTextBrowser>
#include <QTextCursor>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>

#include "ui/help/HelpPage.h"
#include "ui/parts/DialogParts.h"

namespace {

constexpr int kPlaceRole = Qt::UserRole;  // "page.html#anchor" of a line of the contents
constexpr int kSmallestZoom = -3;
constexpr int kLargestZoom = 12;
constexpr int kSideCharacters = 35;
constexpr QSize kUsualSize(960, 680);

// A place found: the heading in bold, the excerpt below it.
class HitDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem ground = option;
        initStyleOption(&ground, index);
        ground.text.clear();
        ground.widget->style()->drawControl(QStyle::CE_ItemViewItem, &ground, painter,
                                            ground.widget);
        QTextDocument text;
        Fill(text, option, index);
        const bool chosen = option.state.testFlag(QStyle::State_Selected);
        QAbstractTextDocumentLayout::PaintContext context;
        const auto role = chosen ? QPalette::HighlightedText : QPalette::Text;
        context.palette = option.palette;
        context.palette.setColor(QPalette::Text, option.palette.color(role));
        painter->save();
        painter->translate(option.rect.topLeft());
        text.documentLayout()->draw(painter, context);
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QTextDocument text;
        Fill(text, option, index);
        return text.size().toSize();
    }

  private:
    static void Fill(QTextDocument& text, const QStyleOptionViewItem& option,
                     const QModelIndex& index) {
        const auto* list = qobject_cast<const QListWidget*>(option.widget);
        const QString heading = index.data().toString().section('\n', 0, 0);
        const QString excerpt = index.data().toString().section('\n', 1);
        text.setDefaultFont(option.font);
        text.setHtml("<b>" + heading.toHtmlEscaped() + "</b>" +
                     (excerpt.isEmpty() ? QString() : "<br>" + excerpt.toHtmlEscaped()));
        text.setTextWidth(list->viewport()->width());
    }
};

}  // namespace

HelpWindow::HelpWindow(QWidget* parent) : QMainWindow(parent, Qt::Window) {
    setObjectName("help");
    setWindowTitle(tr("Tolvane Help"));
    setContextMenuPolicy(Qt::NoContextMenu);  // its only entry would hide the tools

    page = new HelpPage(this);
    page->setObjectName("page");
    page->setAccessibleName(tr("Page of the guide"));
    connect(page, &QTextBrowser::sourceChanged, this, &HelpWindow::MarkPlace);

    auto* splitter = new QSplitter(this);
    splitter->addWidget(MakeSide());
    splitter->addWidget(page);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    splitter->setSizes({WidthOf(*this, kSideCharacters), kUsualSize.width()});
    setCentralWidget(splitter);
    addToolBar(MakeTools());
    FillContents();
    setTabOrder(search, contents);
    setTabOrder(contents, results);
    setTabOrder(results, page);
    resize(kUsualSize.boundedTo(screen()->availableSize()));
}

QWidget* HelpWindow::MakeSide() {
    auto* box = new QWidget(this);
    search = new QLineEdit(box);
    search->setObjectName("search");
    search->setAccessibleName(tr("Search the guide"));
    search->setPlaceholderText(tr("Search (Ctrl+F)"));
    search->setClearButtonEnabled(true);
    connect(search, &QLineEdit::textChanged, this, &HelpWindow::FindTyped);
    connect(search, &QLineEdit::returnPressed, this, &HelpWindow::GoToNextHit);

    contents = new QTreeWidget(box);
    contents->setObjectName("contents");
    contents->setAccessibleName(tr("Contents"));
    contents->setHeaderHidden(true);
    contents->setIndentation(WidthOf(*this, 2));
    const auto goToItem = [this](QTreeWidgetItem* item) {
        GoTo(item->data(0, kPlaceRole).toString());
    };
    connect(contents, &QTreeWidget::itemClicked, this, goToItem);
    connect(contents, &QTreeWidget::itemActivated, this, goToItem);

    side = new QStackedWidget(box);
    side->addWidget(contents);
    side->addWidget(MakeFound());
    auto* layout = new QVBoxLayout(box);
    const int gap = style()->pixelMetric(QStyle::PM_LayoutTopMargin) / 2;
    layout->setContentsMargins(gap, gap, 0, gap);
    layout->setSpacing(gap);
    layout->addWidget(search);
    layout->addWidget(side, 1);
    box->setMinimumWidth(WidthOf(*this, kSideCharacters - 8));
    return box;
}

QWidget* HelpWindow::MakeFound() {
    auto* foundBox = new QWidget(this);
    found = new QLabel(foundBox);
    found->setObjectName("found");
    found->setWordWrap(true);
    results = new QListWidget(foundBox);
    results->setObjectName("results");
    results->setAccessibleName(tr("Places found"));
    results->setItemDelegate(new HitDelegate(results));
    results->setResizeMode(QListView::Adjust);
    results->setAlternatingRowColors(true);
    results->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    results->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // the places keep their width
    connect(results, &QListWidget::itemClicked, this, [this] { ShowHit(results->currentRow()); });
    connect(results, &QListWidget::itemActivated, this, [this] { ShowHit(results->currentRow()); });
    auto* foundLayout = new QVBoxLayout(foundBox);
    foundLayout->setContentsMargins({});
    foundLayout->addWidget(found);
    foundLayout->addWidget(results, 1);
    return foundBox;
}

QToolBar* HelpWindow::MakeTools() {
    const auto add = [this](const char* name, const QString& text, const QList<QKeySequence>& keys,
                            const std::function<void()>& does) {
        auto* action = new QAction(text, this);
        action->setObjectName(name);
        action->setShortcuts(keys);
        action->setToolTip(text + " (" + keys.constFirst().toString(QKeySequence::NativeText) +
                           ")");
        connect(action, &QAction::triggered, this, does);
        addAction(action);
        return action;
    };
    auto* back = add("back", tr("Back"), {Qt::ALT | Qt::Key_Left}, [this] { page->backward(); });
    auto* forward =
        add("forward", tr("Forward"), {Qt::ALT | Qt::Key_Right}, [this] { page->forward(); });
    auto* home = add("home", tr("Home"), {Qt::ALT | Qt::Key_Home}, [this] { GoTo(kHelpContents); });
    auto* smaller = add("smaller", tr("Smaller text"), {Qt::CTRL | Qt::Key_Minus},
                        [this] { Zoom(zoomSteps - 1); });
    auto* larger =
        add("larger", tr("Larger text"), {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal},
            [this] { Zoom(zoomSteps + 1); });
    add("normal", tr("Usual text size"), {Qt::CTRL | Qt::Key_0}, [this] { Zoom(0); });
    add("find", tr("Search"), {Qt::CTRL | Qt::Key_F}, [this] {
        search->setFocus(Qt::ShortcutFocusReason);
        search->selectAll();
    });
    add("close", tr("Close"), {Qt::Key_Escape}, [this] { close(); });
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(page, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(page, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

    auto* tools = new QToolBar(tr("Tools"), this);
    tools->setObjectName("tools");
    tools->setMovable(false);
    tools->setToolButtonStyle(Qt::ToolButtonTextOnly);
    tools->addActions({back, forward, home});
    tools->addSeparator();
    tools->addActions({smaller, larger});
    return tools;
}

void HelpWindow::FillContents() {
    const auto add = [this](auto* under, const QString& title, const QString& place) {
        auto* line = new QTreeWidgetItem(under, {title});
        line->setData(0, kPlaceRole, place);
        line->setToolTip(0, title);
        lines.insert(place, line);
        return line;
    };
    for (const HelpTopic& topic : index.Topics()) {
        auto* item = add(contents, topic.title, topic.page);
        for (const HelpSection& section : topic.sections) {
            add(item, section.title, topic.page + '#' + section.anchor);
        }
    }
}

void HelpWindow::Open(const QString& wanted) {
    const bool fresh = !isVisible();
    if (fresh) {
        search->clear();
        contents->collapseAll();
        Zoom(0);
    }
    GoTo(index.HasPage(wanted.section('#', 0, 0)) ? wanted : QString(kHelpContents));
    if (fresh) {
        page->clearHistory();
        page->setFocus();
    }
    if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void HelpWindow::GoTo(const QString& place) { page->setSource(QUrl("qrc:/help/" + place)); }

// Shows in the contents where the page on the right stands.
void HelpWindow::MarkPlace(const QUrl& url) {
    page->setExtraSelections({});
    QTreeWidgetItem* topic = lines.value(url.fileName());
    for (int i = 0; i < contents->topLevelItemCount(); ++i) {
        contents->topLevelItem(i)->setExpanded(contents->topLevelItem(i) == topic);
    }
    QTreeWidgetItem* marked = lines.value(url.fileName() + '#' + url.fragment(), topic);
    contents->setCurrentItem(marked);
    if (marked) contents->scrollToItem(marked);
}

void HelpWindow::FindTyped() {
    const QString words = search->text().simplified();
    hits = index.Find(words);
    results->clear();
    for (const HelpHit& hit : hits) {
        results->addItem(hit.excerpt == hit.heading ? hit.heading
                                                    : hit.heading + '\n' + hit.excerpt);
    }
    const auto count = static_cast<int>(hits.size());
    found->setText(count == 0   ? tr("Nothing found. Try another word, or the start of one.")
                   : count == 1 ? tr("1 place found")
                                : tr("%1 places found").arg(count));
    side->setCurrentIndex(words.isEmpty() ? 0 : 1);
    if (words.isEmpty()) page->setExtraSelections({});
}

void HelpWindow::GoToNextHit() {
    if (hits.empty()) return;
    ShowHit((results->currentRow() + 1) % results->count());
}

void HelpWindow::ShowHit(int row) {
    if (row < 0 || row >= static_cast<int>(hits.size())) return;
    results->setCurrentRow(row);
    const HelpHit& hit = hits[static_cast<std::size_t>(row)];
    if (page->source().fileName() != hit.page) GoTo(hit.page);
    MarkFound(hit);
}

// The place itself is selected, the other places of the words on the page have a ground of their
// own, in colours that are legible on any.
void HelpWindow::MarkFound(const HelpHit& hit) {
    QList<QTextEdit::ExtraSelection> others;
    QTextCharFormat format;
    format.setBackground(QColor(255, 232, 120));
    format.setForeground(Qt::black);
    for (const QString& word : search->text().split(' ', Qt::SkipEmptyParts)) {
        QTextCursor cursor = page->document()->find(word);
        while (!cursor.isNull()) {
            if (cursor.selectionStart() != hit.position) others.append({cursor, format});
            cursor = page->document()->find(word, cursor);
        }
    }
    page->setExtraSelections(others);
    QTextCursor place(page->document());
    place.setPosition(hit.position);
    const QRect line = page->cursorRect(place);
    QScrollBar* bar = page->verticalScrollBar();
    bar->setValue(bar->value() + line.top() - page->viewport()->height() / 3);
    place.setPosition(hit.position + hit.length, QTextCursor::KeepAnchor);
    page->setTextCursor(place);
}

void HelpWindow::Zoom(int steps) {
    const int wanted = std::clamp(steps, kSmallestZoom, kLargestZoom);
    page->zoomIn(wanted - zoomSteps);
    zoomSteps = wanted;
}
