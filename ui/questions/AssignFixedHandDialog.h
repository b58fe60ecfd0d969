// Composes the fixed hand of an engine from the cards of its deck. OK gives the engine the hand and
// has it dealt from now on; cancelled, nothing has changed.
#pragma once
#include <QDialog>
#include <array>
#include <vector>

#include "game/engine/FixedHandEditor.h"

class PictureButton;
class PictureStore;
class PlaceButtons;
class PlaceFrame;
class QGridLayout;
class QHBoxLayout;
class SmallCard;

class AssignFixedHandDialog : public QDialog {
    Q_OBJECT

  public:
    // The engine and the store outlive the dialog.
    AssignFixedHandDialog(GameEngine& engine, PictureStore& store, QWidget* parent);

    void accept() override;

    // The arrow keys go from card to card; the cards are one stop of the tab key.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct GridCard {
        PictureButton* button;
        int row;
        int column;
        CardFace card;  // a joker's suit is its number, 0..4
    };
    struct Place {
        PlaceFrame* frame;
        PlaceButtons* buttons;
    };

    void FillGrid(QGridLayout& layout);
    void AddRow(QGridLayout& layout, int suit, int ranks);
    void AddCard(QGridLayout& layout, int row, int column, CardFace card);
    QWidget* MakePlaces();
    QWidget* MakeDraws();
    void AddButtons(QHBoxLayout& row);
    void ShowAll();
    void ShowPlace(int place);
    bool IsFree(const GridCard& card) const;
    const GridCard* Beside(const GridCard& from, int key) const;
    void LeaveTaken(const GridCard& taken);
    void MakeTabStop(const GridCard& card);

    PictureStore& store;
    FixedHandEditor editor;
    std::vector<GridCard> grid;
    std::array<Place, kPlaces> places{};
    std::array<SmallCard*, kPlaces> draws{};
};
