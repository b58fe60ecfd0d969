// What is done when nothing else happens: changed files are written back, what was played is saved,
// and the deck is shuffled.
#pragma once
#include <QObject>
#include <QTimer>

class CMorvikDoc;

// Works after each input, painting or action for a while and then sleeps, so that a machine at rest
// costs no processor time.
class IdleWork : public QObject {
    Q_OBJECT

  public:
    static constexpr int kMaxCalls = 102;  // in a row

    // Milliseconds after the last action until what was played is saved, and until a save that
    // failed is tried again.
    static constexpr int kRest = 3000;
    static constexpr int kRetry = 10'000;

    explicit IdleWork(CMorvikDoc& document);

    // Watches the events of the whole program.
    bool eventFilter(QObject* object, QEvent* event) override;

    // One call; false when no more are wanted. count is that of the calls before in the row.
    bool OnIdle(int count);

  private:
    void Begin();
    void Call();
    void Keep(bool rested);
    void Settle();

    CMorvikDoc& document;
    QTimer timer;
    QTimer rest;  // runs while something waits to be saved
    int calls = 0;
};
