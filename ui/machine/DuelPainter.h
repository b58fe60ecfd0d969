// What a double up shows beyond its cards and amounts: the two cards by name, and who won.
#pragma once

class MachineCanvas;
struct CardTable;
struct MachineLayout;
struct Moment;
struct Scene;

// The plates above the amounts.
void PaintDuelPlates(MachineCanvas& canvas, const Scene& scene, const MachineLayout& layout,
                     const CardTable& cards);

// A light and a badge on the card that wins, or a badge on both that tie; over the cards.
void PaintVerdict(MachineCanvas& canvas, const Scene& scene, const MachineLayout& layout,
                  const Moment& moment);
