// Input without sense: any press, anywhere, of any key.
#pragma once
#include <array>
#include <iterator>

#include "core/cards/Random.h"
#include "tests/ui/TestProgram.h"

class AnyInput {
  public:
    explicit AnyInput(std::uint32_t seed) { chance.RandomInit(seed); }

    int Any(int from, int to) { return chance.IRandom(from, to); }
    bool OneIn(int count) { return Any(1, count) == 1; }
    template <class List>
    auto AnyOf(const List& list) {
        return *std::next(std::begin(list), Any(0, static_cast<int>(std::size(list)) - 1));
    }

    // One part of a press, or a whole one.
    void Mouse(const TestProgram& program) {
        const MachineLayout& at = program.Places();
        const std::array spots = {
            at.deal,       at.deal,     at.deal,         at.doubleUp,         at.betOne,
            at.maxBet,     at.cards[0], at.cards[1],     at.cards[3],         at.holdButtons[4],
            at.targets[2], at.redPanel, at.blackPanel,   at.creditValue.rect, at.namePanel,
            at.spinButton, at.coin,     at.betValue.rect};
        const QRect spot = AnyOf(spots);
        switch (Any(0, 6)) {
            case 0:
                return program.Press(spot);
            case 1:
                return program.Release(spot);
            case 2:
                return program.RightPress(spot);
            case 3:
                return program.DoubleClick(spot);
            default:
                program.Click(spot);
        }
    }
    void Key(const TestProgram& program, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        const int part = Any(0, 5);
        if (part != 0) QTest::keyPress(program.view, key, modifiers);
        if (part != 1) QTest::keyRelease(program.view, key, modifiers);
    }

  private:
    CombinedRandom chance;
};
