#include "ui/questions/AssignFixedHandDialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
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

bool IsArrow(int key) {
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

}  // namespace

// Holds the two pictures of a place. That where the next card goes has a line around it, and an
// arrow that points to it.
class PlaceFrame : public QWidget {
  public:
    explicit PlaceFrame(QWidget* parent) : QWidget(parent) {
        const int arrow = ArrowHeight();
        setContentsMargins(kLine, kLine, kLine, kLine + arrow);
    }

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

    bool current = false;
};

AssignFixedHandDialog::AssignFixedHandDialog(GameEngine& engine, PictureStore& store,
                                             QWidget* parent)
    : QDialog(parent), store(store), editor(engine) {
    setObjectName("assignFixedHand");
    setWindowTitle(tr("Assign Fixed Hand"));
    auto* hands = new QHBoxLayout;
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(MakeGrid(), 0, Qt::AlignHCenter);
    hands->addWidget(MakePlaces());
    hands->addWidget(MakeDraws());
    layout->addLayout(hands);
    layout->addWidget(MakeButtons());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    ShowAll();
    const auto free = std::ranges::find_if(grid, [this](const GridCard& c) { return IsFree(c); });
    free->button->setFocus();
}

QWidget* AssignFixedHandDialog::MakeGrid() {
    auto* cards = new QWidget(this);
    cards->setObjectName("cards");
    auto* layout = new QGridLayout(cards);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->setColumnMinimumWidth(0, TileSize(*this, kSuitTile).width() * 4 / 3);
    for (int suit = kSpades; suit <= kDiamonds; ++suit) AddRow(*layout, suit, kRanks);
    if (editor.HasStars()) AddRow(*layout, kStars, 1);
    AddJokers(*layout);
    MakeTabStop(grid.front());
    return cards;
}

void AssignFixedHandDialog::AddRow(QGridLayout& layout, int suit, int ranks) {
    const QSize size = TileSize(*this, kSuitTile);
    auto* tile = new QLabel(this);
    tile->setObjectName(QString("suit%1").arg(suit));
    tile->setPixmap(store.Get(SuitPicture(suit), size, devicePixelRatioF()));
    layout.addWidget(tile, suit - 1, 0);
    for (int rank = 1; rank <= ranks; ++rank) AddCard(layout, suit - 1, rank, {rank, suit});
}

void AssignFixedHandDialog::AddJokers(QGridLayout& layout) {
    for (int joker = 0; joker < editor.JokerCount(); ++joker) {
        AddCard(layout, kLastRow, joker + 1, {0, joker});
    }
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
    const GridCard placed{button, row, column, card};
    grid.push_back(placed);
    connect(button, &QToolButton::clicked, this, [this, placed] { Click(placed); });
}

QWidget* AssignFixedHandDialog::MakePlaces() {
    auto* group = new QGroupBox(tr("Starting Hand"), this);
    group->setObjectName("startingHand");
    auto* layout = new QHBoxLayout(group);
    for (int number = 0; number < kPlaces; ++number) {
        auto* frame = new PlaceFrame(group);
        frame->setObjectName(QString("place%1").arg(number));
        auto* buttons = new PlaceButtons(store, number, frame, [this, number] {
            editor.ClickPlace(number);
            ShowAll();
        });
        auto* inside = new QVBoxLayout(frame);
        inside->setContentsMargins(0, 0, 0, 0);
        inside->addWidget(buttons);
        if (editor.IsPickEm() && number == kPickEmGap) {
            QSizePolicy keepsGap = frame->sizePolicy();
            keepsGap.setRetainSizeWhenHidden(true);
            frame->setSizePolicy(keepsGap);
            frame->hide();
        }
        layout->addWidget(frame);
        places[static_cast<std::size_t>(number)] = {frame, buttons};
    }
    return group;
}

QWidget* AssignFixedHandDialog::MakeDraws() {
    auto* group = new QGroupBox(tr("Draw Cards"), this);
    group->setObjectName("drawCards");
    auto* layout = new QHBoxLayout;
    group->setLayout(layout);
    for (std::size_t i = 0; i < draws.size(); ++i) {
        auto* frame = new PlaceFrame(group);
        draws[i] = new SmallCard(store, frame);
        draws[i]->setObjectName(QString("draw%1").arg(i));
        auto* inside = new QVBoxLayout(frame);
        inside->setContentsMargins(0, 0, 0, 0);
        inside->addWidget(draws[i]);
        layout->addWidget(frame);
    }
    return group;
}

QWidget* AssignFixedHandDialog::MakeButtons() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const QString& caption, const char* name, auto action) {
        auto* button = new QPushButton(caption, row);
        button->setObjectName(name);
        button->setAutoDefault(false);
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, action] {
            (editor.*action)();
            ShowAll();
        });
    };
    add(tr("&Last Dealt"), "lastDealt", &FixedHandEditor::LastDealt);
    add(tr("Cl&ear"), "clear", &FixedHandEditor::Clear);
    layout->addStretch();
    layout->addWidget(OkAndCancel(*this));
    return row;
}

void AssignFixedHandDialog::Click(const GridCard& clicked) {
    if (clicked.card.IsJoker()) {
        editor.ClickJoker();
    } else {
        editor.ClickCard(clicked.card.suit, clicked.card.rank);
    }
    ShowAll();
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
    for (int place = 0; place < kPlaces; ++place) ShowPlace(place);
    for (int i = 0; i < kPlaces; ++i) {
        draws[static_cast<std::size_t>(i)]->SetCard(editor.DrawCard(i));
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

const AssignFixedHandDialog::GridCard* AssignFixedHandDialog::CardOf(const QObject* button) const {
    const auto found = std::ranges::find(grid, button, &GridCard::button);
    return found == grid.end() ? nullptr : &*found;
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
        const int distance = std::abs(rows) * 2 * kRanks + std::abs(columns);
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
    for (const int key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_Down, Qt::Key_Up}) {
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
    const GridCard* card = CardOf(watched);
    if (!card) return QDialog::eventFilter(watched, event);
    if (event->type() == QEvent::FocusIn) MakeTabStop(*card);
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (!IsArrow(key)) return QDialog::eventFilter(watched, event);
    if (const GridCard* next = Beside(*card, key)) next->button->setFocus();
    return true;
}
