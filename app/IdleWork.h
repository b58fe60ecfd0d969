// What is done when nothing else happens: changed files are written back, and the deck is shuffled.
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

    explicit IdleWork(CMorvikDoc& document);

    // Watches the events of the whole program.
    bool eventFilter(QObject* object, QEvent* event) override;

    // One call; false when no more are wanted. count is that of the calls before in the row.
    bool OnIdle(int count);

  private:
    void Begin();
    void Call();

    CMorvikDoc& document;
    QTimer timer;
    int calls = 0;
};
