// The line about a pay table that is edited: its exact return and variance a moment after the last
// change, or what it still lacks, and what was last done with it. The window stays free meanwhile,
// and the next change starts over.
#pragma once
#include <QLabel>
#include <QTimer>
#include <optional>

#include "game/paytables/LiveAnalysis.h"
#include "game/paytables/PayTableEditor.h"

class LiveReturn : public QLabel {
    Q_OBJECT

  public:
    // The editor outlives the line.
    LiveReturn(const PayTableEditor& editor, QWidget* parent);

    // What the player types counts when he pauses.
    void Typed();

    // Another table or name counts at once; the same one is left as it is.
    void Changed();

    // Says what has been done with the table, from now until the next change. Changed follows.
    void Note(const QString& text);

    // What is known of the table. While that is being found out, what was known before, as long as
    // it is of the same lines in the same order. Nothing where the table has a fault.
    const std::optional<LiveResult>& Result() const { return result; }
    bool IsWaiting() const { return waiting; }

  signals:
    // Result or IsWaiting may be others.
    void Refreshed();

  private:
    // All that the line depends on.
    struct Subject {
        std::string gameName;
        int gameId = 0;
        int tableIndex = 0;
        PayTableTexts texts;
        std::optional<PayTable> stored;

        bool operator==(const Subject&) const = default;
    };

    static bool HaveSameLines(const Subject& a, const Subject& b);

    Subject Shown() const;
    void Wait();
    void Begin();
    void Take(const LiveResult& reported);
    void Tell(const QString& text);
    void ShowLine();

    const PayTableEditor& editor;
    std::optional<Subject> reckoned;  // what the line is about, or will be when it is reckoned
    std::optional<LiveResult> result;
    std::optional<Subject> resultOf;
    QString told;          // the last return or problem
    bool waiting = false;  // for the next one
    QString note;
    std::optional<Subject> noted;  // for which the note holds
    QTimer pause;
    LiveAnalysis analysis;  // last, so that it ends before what it tells
};
