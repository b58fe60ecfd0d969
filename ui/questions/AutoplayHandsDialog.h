// Asks how many hands are to be played by themselves.
#pragma once
#include <QDialog>
#include <cstdint>

class QLineEdit;

class AutoplayHandsDialog : public QDialog {
    Q_OBJECT

  public:
    explicit AutoplayHandsDialog(QWidget* parent);

    // What was accepted, which may be negative; 0 before that.
    std::int64_t Hands() const { return hands; }

    void accept() override;

  private:
    QLineEdit* count;
    std::int64_t hands = 0;
};
