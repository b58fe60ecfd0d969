// The line under a pay table that is edited: its exact return and variance a moment after the last
// change, or what it still lacks. The window stays free meanwhile, and the next change starts over.
#pragma once
#include <QLabel>
#include <QTimer>

#include "game/LiveAnalysis.h"

class PayTableEditor;

class LiveReturn : public QLabel {
    Q_OBJECT

  public:
    // The editor outlives the line.
    LiveReturn(const PayTableEditor& editor, QWidget* parent);

    // What the player types counts when he pauses.
    void Typed();

    // Another table counts at once; the same one is left as it is.
    void Changed();

  signals:
    // From the thread of the analysis.
    void Reckoned(quint64 run, double returnPercent, double variance);

  private:
    void Wait();
    void Begin();
    void Tell(const QString& text);

    const PayTableEditor& editor;
    PayTableTexts reckoned;  // what the line is about, or will be when it is reckoned
    QString told;            // the last line that was no waiting
    QTimer pause;
    LiveAnalysis analysis;  // last, so that it ends before what it tells
};
