// A drop-down list whose entries are found by typing them, blanks included, closed or open: the
// entry that begins so, otherwise the first one that has it anywhere.
#pragma once
#include <QComboBox>
#include <QElapsedTimer>

class FindingList : public QComboBox {
  public:
    explicit FindingList(QWidget* parent);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool TakesKey(const QKeyEvent& event);
    int Found(int from) const;

    QString typed;  // so far
    QElapsedTimer sinceKey;
};
