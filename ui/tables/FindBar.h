// A line below a table to look for a word in its cells, from the current one on and around the end.
#pragma once
#include <QWidget>

class QAbstractItemView;
class QLabel;
class QLineEdit;

class FindBar : public QWidget {
    Q_OBJECT

  public:
    // Hidden until Open. The table outlives the bar, and has its model.
    FindBar(QAbstractItemView& table, QWidget* parent);

    void Open();
    void FindNext();
    void FindPrevious();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void AddButton(const QString& caption, const char* name, void (FindBar::*action)());
    void Typed();
    void Find(int first, int step);
    void Say(const QString& outcome);
    void Close();

    QAbstractItemView& table;
    QLineEdit* word;
    QLabel* outcome;
};
