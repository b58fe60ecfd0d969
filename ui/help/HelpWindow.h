// The user's guide in a window of its own, beside the machine: contents and search on the left, the
// page on the right. Nothing is remembered from one opening to the next.
#pragma once
#include <QHash>
#include <QMainWindow>
#include <vector>

#include "ui/help/HelpIndex.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QStackedWidget;
class QTextBrowser;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;
class QUrl;

class HelpWindow : public QMainWindow {
    Q_OBJECT

  public:
    // With the main window as its parent it goes away with that, and does not keep the program
    // alive.
    explicit HelpWindow(QWidget* parent);

    // Shows the window with that page, "files.html" or "files.html#backup", and brings it to the
    // front; the contents page when there is no such page. A window that was closed starts afresh.
    void Open(const QString& page = kHelpContents);

  private:
    QWidget* MakeSide();
    QWidget* MakeFound();
    QToolBar* MakeTools();
    void FillContents();
    void GoTo(const QString& page);
    void MarkPlace(const QUrl& url);
    void FindTyped();
    void GoToNextHit();
    void ShowHit(int row);
    void MarkFound(const HelpHit& hit);
    void Zoom(int steps);

    HelpIndex index;
    std::vector<HelpHit> hits;               // by row of the list
    QHash<QString, QTreeWidgetItem*> lines;  // of the contents, by their place
    int zoomSteps = 0;                       // points by which the text is larger
    QLineEdit* search = nullptr;
    QStackedWidget* side = nullptr;
    QTreeWidget* contents = nullptr;
    QLabel* found = nullptr;
    QListWidget* results = nullptr;
    QTextBrowser* page = nullptr;
};
