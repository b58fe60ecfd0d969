#include "ui/questions/AssignFixedHandDialog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdlib>

#include "ui/art/PictureStore.h"
#include "ui/parts/DialogParts.h"
#include "ui/parts/PictureButton.h"
#include "ui/parts/PlaceButtons.h"
#include "ui/parts/SmallCard.h"

namespace {

constexpr int kLastRow = 4;  // below the four suits: the fifth ace, or the jokers

constexpr Qt::Key kArrows[] = {Qt::Key_Right, Qt::Key_Left, Qt::Key_Down, Qt::Key_Up};

}  // namespace

// Holds the two pictures of a place. That where the next card goes has a line around it, and an
// arrow that points to it.
class PlaceFrame : public QWidget {
  public:
    explicit PlaceFrame(QWidget* parent) : QWidget(parent), inside(new QVBoxLayout(this)) {
        setContentsMargins(kLine, kLine, kLine, kLine + ArrowHeight());
        inside->setContentsMargins(0, 0, 0, 0);
    }

    void Hold(QWidget* pictures) { inside->addWidget(pictures); }

    void SetCurrent(bool isCurrent) {
        current = isCurrent;
        update();
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        if (!current) return;
        const qreal arrow = ArrowHeight();
        const QRectF around = QRectF(rect()).adjusted(1, 1, -1, -1 - arrow);
        const QPointF tip(around.center().x(), around.bottom());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().windowText(), 1.5));
        painter.drawRoundedRect(around, 4, 4);
        painter.setBrush(palette().windowText());
        painter.drawPolygon(
            QPolygonF({tip, tip + QPointF(-arrow, arrow), tip + QPointF(arrow, arrow)}));
    }

  private:
    static constexpr int kLine = 3;

    int ArrowHeight() const { return fontMetrics().height() / 2; }

    QVBoxLayout* inside;
    bool current = false;
};

AssignFixedHandDialog::AssignFixedHandDialog(GameEngine& engine, PictureStore& store,
                                             QWidget* parent)
    : QDialog(parent), store(store), editor(engine) {
    setObjectName("assignFixedHand");
    setWindowTitle(tr("Assign Fixed Hand"));
    auto* cards = new QGridLayout;
    auto* hands = new QHBoxLayout;
    auto* buttons = new QHBoxLayout;
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(cards);
    layout->setAlignment(cards, Qt::AlignHCenter);
    layout->addLayout(hands);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    FillGrid(*cards);
    hands->addWidget(MakePlaces());
    hands->addWidget(MakeDraws());
    AddButtons(*buttons);
    ShowAll();
    const auto free = std::ranges::find_if(grid, [this](const GridCard& c) { return IsFree(c); });
    free->button->setFocus();
}

void AssignFixedHandDialog::FillGrid(QGridLayout& layout) {
    layout.setSpacing(0);
    layout.setColumnMinimumWidth(0, TileSize(*this, kSuitTile).width() * 4 / 3);
    for (int suit = kSpades; suit <= kDiamonds; ++suit) AddRow(layout, suit, kCardRanks);
    if (editor.HasStars()) AddRow(layout, kStars, 1);
    for (int joker = 0; joker < editor.JokerCount(); ++joker) {
        AddCard(layout, kLastRow, joker + 1, {0, joker});
    }
    MakeTabStop(grid.front());
}

void AssignFixedHandDialog::AddRow(QGridLayout& layout, int suit, int ranks) {
    const QSize size = TileSize(*this, kSuitTile);
    auto* tile = new QLabel(this);
    tile->setObjectName(QString("suit%1").arg(suit));
    tile->setPixmap(store.Get(SuitPicture(suit), size, devicePixelRatioF()));
    layout.addWidget(tile, suit - 1, 0);
    for (int rank = 1; rank <= ranks; ++rank) AddCard(layout, suit - 1, rank, {rank, suit});
}

void AssignFixedHandDialog::AddCard(QGridLayout& layout, int row, int column, CardFace card) {
    auto* button = new PictureButton(store, kRankTile, this);
    button->setFocusPolicy(Qt::ClickFocus);
    if (card.IsJoker()) {
        button->setObjectName(QString("joker%1").arg(card.suit + 1));
        button->setAccessibleName(tr("joker %1").arg(card.suit + 1));
    } else {
        button->setObjectName(
            QString("card%1-%2").arg(QString::number(card.suit), QString::number(card.rank)));
        button->setAccessibleName(NameOf(card));
    }
    button->installEventFilter(this);
    layout.addWidget(button, row, column);
    grid.push_back({button, row, column, card});
    connect(button, &QToolButton::clicked, this, [this, card] {
        if (card.IsJoker()) {
            editor.ClickJoker();
        } else {
            editor.ClickCard(card.suit, card.rank);
        }
        ShowAll();
    });
}

QWidget* AssignFixedHandDialog::MakePlaces() {
    auto* row = RowInGroup(tr("Starting Hand"), "startingHand", this);
    for (int number = 0; number < kPlaces; ++number) {
        auto* frame = new PlaceFrame(row->parentWidget());
        frame->setObjectName(QString("place%1").arg(number));
        auto* buttons = new PlaceButtons(store, number, frame, [this, number] {
            editor.ClickPlace(number);
            ShowAll();
        });
        frame->Hold(buttons);
        if (editor.IsPickEm() && number == kPickEmGap) {
            QSizePolicy keepsGap = frame->sizePolicy();
            keepsGap.setRetainSizeWhenHidden(true);
            frame->setSizePolicy(keepsGap);
            frame->hide();
        }
        row->addWidget(frame);
        places[static_cast<std::size_t>(number)] = {frame, buttons};
    }
    return row->parentWidget();
}

QWidget* AssignFixedHandDialog::MakeDraws() {
    auto* row = RowInGroup(tr("Draw Cards"), "drawCards", this);
    for (std::size_t i = 0; i < draws.size(); ++i) {
        auto* frame = new PlaceFrame(row->parentWidget());
        draws[i] = new SmallCard(store, frame);
        draws[i]->setObjectName(QString("draw%1").arg(i));
        frame->Hold(draws[i]);
        row->addWidget(frame);
    }
    return row->parentWidget();
}

void AssignFixedHandDialog::AddButtons(QHBoxLayout& row) {
    const auto add = [&](const QString& caption, const char* name, auto action) {
        row.addWidget(ActionButton(*this, caption, name, [this, action] {
            (editor.*action)();
            ShowAll();
        }));
    };
    add(tr("&Last Dealt"), "lastDealt", &FixedHandEditor::LastDealt);
    add(tr("Cl&ear"), "clear", &FixedHandEditor::Clear);
    row.addStretch();
    row.addWidget(OkAndCancel(*this));
}

bool AssignFixedHandDialog::IsFree(const GridCard& card) const {
    return card.card.IsJoker() ? editor.IsJokerFree(card.card.suit)
                               : editor.IsFree(card.card.suit, card.card.rank);
}

void AssignFixedHandDialog::ShowAll() {
    for (const GridCard& card : grid) {
        if (IsFree(card)) card.button->setEnabled(true);
    }
    for (const GridCard& card : grid) {
        const bool free = IsFree(card);
        const CardFace shown = card.card.IsJoker() ? CardFace{0, kNoSuit} : card.card;
        card.button->SetPicture(free ? RankPictureOf(shown) : Picture::kEmptyPicture);
        if (!free) LeaveTaken(card);
        card.button->setEnabled(free);
    }
    for (int place = 0; place < kPlaces; ++place) {
        ShowPlace(place);
        draws[static_cast<std::size_t>(place)]->SetCard(editor.DrawCard(place));
    }
}

void AssignFixedHandDialog::ShowPlace(int place) {
    const CardFace card = editor.At(place);
    const Place& shown = places[static_cast<std::size_t>(place)];
    const QString name = tr("place %1, %2").arg(QString::number(place + 1), NameOf(card));
    const bool current = place == editor.CurrentPlace();
    shown.frame->SetCurrent(current);
    shown.buttons->SetCard(card, current ? tr("%1, the next card goes here").arg(name) : name);
}

void AssignFixedHandDialog::accept() {
    editor.Apply();
    QDialog::accept();
}

// The nearest free card in the row, or in the next row that has a free one; none at the edge.
const AssignFixedHandDialog::GridCard* AssignFixedHandDialog::Beside(const GridCard& from,
                                                                     int key) const {
    const bool acrossRows = key == Qt::Key_Up || key == Qt::Key_Down;
    const int step = key == Qt::Key_Up || key == Qt::Key_Left ? -1 : 1;
    const GridCard* nearest = nullptr;
    int least = 0;
    for (const GridCard& card : grid) {
        const int rows = (card.row - from.row) * step;
        const int columns = (card.column - from.column) * step;
        const bool ahead = acrossRows ? rows > 0 : rows == 0 && columns > 0;
        const int distance = std::abs(rows) * 2 * kCardRanks + std::abs(columns);
        if (!ahead || !IsFree(card) || (nearest && distance >= least)) continue;
        nearest = &card;
        least = distance;
    }
    return nearest;
}

// A card that is taken cannot keep the focus: it goes on to the next one, and so does the tab stop.
void AssignFixedHandDialog::LeaveTaken(const GridCard& taken) {
    if (taken.button->focusPolicy() != Qt::StrongFocus) return;
    const bool hadFocus = taken.button->hasFocus();
    for (const int key : kArrows) {
        if (const GridCard* next = Beside(taken, key)) {
            MakeTabStop(*next);
            if (hadFocus) next->button->setFocus();
            return;
        }
    }
}

void AssignFixedHandDialog::MakeTabStop(const GridCard& card) {
    for (const GridCard& other : grid) other.button->setFocusPolicy(Qt::ClickFocus);
    card.button->setFocusPolicy(Qt::StrongFocus);
}

bool AssignFixedHandDialog::eventFilter(QObject* watched, QEvent* event) {
    const auto card = std::ranges::find(grid, watched, &GridCard::button);
    if (card == grid.end()) return QDialog::eventFilter(watched, event);
    if (event->type() == QEvent::FocusIn) MakeTabStop(*card);
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (!std::ranges::count(kArrows, key)) return QDialog::eventFilter(watched, event);
    if (const GridCard* next = Beside(*card, key)) next->button->setFocus();
    return true;
}
