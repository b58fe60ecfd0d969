// Asks how many hands are to be played by themselves.
#pragma once
#include <QDialog>
#include <cstdint>

class QLineEdit;

class AutoplayHandsDialog : public QDialog {
    Q_OBJECT

  public:
    explicit AutoplayHandsDialog(QWidget* parent);

    // The number that the text begins with, 0 when there is none; it may be negative.
    std::int64_t Hands() const;

  private:
    QLineEdit* count;
};
