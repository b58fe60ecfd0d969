// What painting costs at 1024 x 700: everything, as when the window is uncovered, and what one
// turned card asks for.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "core/cards/Deck.h"
#include "core/profile/ProfileFile.h"
#include "game/seat/Scene.h"
#include "ui/art/PictureStore.h"
#include "ui/machine/ChangedRegion.h"
#include "ui/machine/Layout.h"
#include "ui/machine/MachinePainter.h"

namespace {

constexpr QSize kClient{1024, 700};

// Paints what differs between two scenes, there and back.
void PaintChanges(benchmark::State& state, bool oneCard) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int argc = 0;
    const QGuiApplication application(argc, nullptr);
    ProfileFile file;
    const PayTable payTable =
        LoadPayTable(file, 300, "Jacks or Better", 0, TOLVANE_DATA_FOLDER "/Tolvane.ini", "");
    Deck deck;
    deck.Build(DeckOf(payTable));
    const auto layout = LayOut(kClient, ShapeOf(payTable), QtTextMeasure());
    PictureStore pictures;
    QImage window(kClient, QImage::Format_RGB32);
    Scene before;
    for (PlaceLook& place : before.places) place.card = kCardBack;
    Scene now = before;
    now.places[2].card = 12;
    const QRegion all(QRect(QPoint(0, 0), kClient));
    while (state.KeepRunning()) {
        QPainter painter(&window);
        const QRegion region = oneCard ? ChangedRegion(before, now, payTable, *layout) : all;
        std::swap(before, now);
        PaintMachine(painter, region, before, *layout, payTable, deck.table, pictures);
    }
    if (oneCard) state.SetLabel("2 ms");
}

void PaintTableWhole(benchmark::State& state) { PaintChanges(state, false); }
void PaintOneCard(benchmark::State& state) { PaintChanges(state, true); }

BENCHMARK(PaintTableWhole)->Name("Paint/the_table");
BENCHMARK(PaintOneCard)->Name("Paint/one_card");

}  // namespace
