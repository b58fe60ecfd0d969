// What painting costs at 1024 x 700 and at full HD: everything, as when the window is uncovered,
// and what one turned card asks for.
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
#include "ui/machine/MachineFit.h"
#include "ui/machine/MachinePainter.h"

namespace {

constexpr QSize kSmall{1024, 700};
constexpr QSize kFullHd{1920, 1080};

// Paints what differs between two scenes, there and back.
void PaintChanges(benchmark::State& state, QSize client, bool oneCard) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int argc = 0;
    const QGuiApplication application(argc, nullptr);
    ProfileFile file;
    const PayTable payTable =
        LoadPayTable({file, TOLVANE_DATA_FOLDER "/Tolvane.ini"}, {300, "Jacks or Better"}, "");
    Deck deck;
    deck.Build(DeckOf(payTable));
    const MachineFit fit = MachineFit::Into(client);
    const auto layout = LayOut(fit.table, ShapeOf(payTable), QtTextMeasure());
    PictureStore pictures;
    QImage window(client, QImage::Format_RGB32);
    Scene before;
    for (PlaceLook& place : before.places) place.card = kCardBack;
    Scene now = before;
    now.places[2].card = 12;
    const QRegion all(QRect(QPoint(0, 0), client));
    while (state.KeepRunning()) {
        QPainter painter(&window);
        const QRegion region =
            oneCard ? fit.ToClient(ChangedRegion(before, now, payTable, *layout)) : all;
        std::swap(before, now);
        PaintMachine(painter, region, before, fit, *layout, payTable, deck.table, pictures);
    }
    if (oneCard) state.SetLabel(client == kFullHd ? "4 ms" : "2 ms");
}

void PaintTableWhole(benchmark::State& state) { PaintChanges(state, kSmall, false); }
void PaintOneCard(benchmark::State& state) { PaintChanges(state, kSmall, true); }
void PaintLargeTableWhole(benchmark::State& state) { PaintChanges(state, kFullHd, false); }
void PaintOneLargeCard(benchmark::State& state) { PaintChanges(state, kFullHd, true); }

BENCHMARK(PaintTableWhole)->Name("Paint/the_table");
BENCHMARK(PaintOneCard)->Name("Paint/one_card");
BENCHMARK(PaintLargeTableWhole)->Name("Paint/the_table_at_full_HD");
BENCHMARK(PaintOneLargeCard)->Name("Paint/one_card_at_full_HD");

}  // namespace
