// The combinations calculator: how many ways there are to draw some cards of others.
#pragma once
#include <QDialog>

class QLineEdit;

class CombinationsDialog : public QDialog {
    Q_OBJECT

  public:
    explicit CombinationsDialog(QWidget* parent);

  private:
    void Calculate();

    QLineEdit* cards;
    QLineEdit* drawn;
    QLineEdit* result;
};
