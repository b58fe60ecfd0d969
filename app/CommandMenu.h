// A menu that is worked by the keyboard alone: a letter goes to the next entry that begins with it,
// Home and End to the first and the last.
#pragma once
#include <QMenu>

class QActionGroup;

class CommandMenu : public QMenu {
    Q_OBJECT

  public:
    CommandMenu(const QString& caption, QWidget* parent);

    // The caption with the key that does the same at the machine, a Qt::Key, written where
    // shortcuts are; 0 for none. It is told, and no shortcut: in another window the key is a
    // letter.
    static QString WithKey(const QString& caption, int key);

    // One of them is chosen at a time, which a dot marks.
    void AddChoice(QAction& action);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    bool IsReached(const QAction& action) const;
    bool GoTo(const QList<QAction*>& entries);
    bool GoToLetter(const QString& typed);

    QActionGroup* choices = nullptr;
};
