// Paints the machine's table.
#pragma once
#include <QRegion>

class PictureStore;
class QPainter;
struct CardTable;
struct PayTable;
struct TableLayout;
struct TableScene;

// The whole table, cloth first, as far as it lies in clip (client coordinates). The same arguments
// always give the same pixels. The layout is one for the pay table, the cards those of its deck.
void PaintTable(QPainter& painter, const QRegion& clip, const TableScene& scene,
                const TableLayout& layout, const PayTable& payTable, const CardTable& cards,
                PictureStore& pictures);
