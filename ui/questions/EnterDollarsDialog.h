// Asks for an amount of 1..kMostDollars whole dollars.
#pragma once
#include <QDialog>

class QLineEdit;

class EnterDollarsDialog : public QDialog {
    Q_OBJECT

  public:
    EnterDollarsDialog(int proposed, QWidget* parent);

    // What was accepted; 0 before that.
    int Dollars() const { return dollars; }

    void accept() override;

  private:
    QLineEdit* amount;
    int dollars = 0;
};
