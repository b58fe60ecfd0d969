// All starting hands of a deck under two pay tables at once, with the exact worth of their holds
// under both.
#pragma once
#include <functional>
#include <memory>
#include <string>

#include "core/strategy/StartingHands.h"

// Asked from time to time, with the share of the work that is done; false ends it.
using WhatIfProgress = std::function<bool(double done)>;

class TwoTables {
  public:
    // Why the hands of the two cannot be set side by side, as a sentence; empty when they can.
    static std::string WhyNot(const PayTable& a, const PayTable& b);

    // Why the play of a table is no choice of one of 32 holds by their means, as a sentence goes on
    // behind its name; empty when it is.
    static std::string WhyNoPlainPlay(const PayTable& table);

    // Only for tables that have no reason against it.
    TwoTables(const PayTable& a, const PayTable& b);

    const PayTable& A() const { return tableA; }
    const PayTable& B() const { return tableB; }
    const LineTables& LinesOfA() const { return linesA; }
    const LineTables& LinesOfB() const { return linesB; }
    const StartingHands& Hands() const { return handsB; }

    // Each class of hands once, with the same cards and weight under both. The visitor ends the run
    // by false; it is true when all were visited, and false too when there is no thread for it: one
    // reads a table's hands ahead.
    using Visitor = std::function<bool(const StartingHand& a, const StartingHand& b)>;
    bool ForEach(const Visitor& visit) const;

  private:
    PayTable tableA;  // with the suits told apart that the other table tells apart
    PayTable tableB;
    LineTables linesA;
    LineTables linesB;
    StartingHands handsA;
    StartingHands handsB;
};
