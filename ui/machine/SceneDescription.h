// The machine in words, for those who do not see it.
#pragma once
#include <string>

struct CardTable;
struct PayTable;
struct Scene;

// What a player has to know to go on: message, won lines, cards with their marks, what waits to be
// pressed, bet and credits, in English sentences (UTF-8). A card that the deck does not hold lies
// face down. The pay table and the cards are those of the scene.
std::string Describe(const Scene& scene, const PayTable& payTable, const CardTable& cards);
