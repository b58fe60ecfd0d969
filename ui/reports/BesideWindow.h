// A window of reports beside the machine's: it blocks nothing, ends when the program does, and
// opens as the player left it.
#pragma once
#include <QWidget>
#include <functional>

class QLabel;
class QLayout;
class QProgressBar;
class QPushButton;
class ReportFrame;

class BesideWindow : public QWidget {
    Q_OBJECT

  protected:
    explicit BesideWindow(const QString& name);

    // When all parts are laid out: F5 refreshes, Esc closes, and the window has so many characters
    // and lines where the screen has room for them, or the size and place in which it was left.
    ReportFrame& Furnish(int characters, int lines, std::function<void()> onRefresh);

    // What F5 does; without it, nothing.
    void RefreshBy(std::function<void()> onRefresh) { refresh = std::move(onRefresh); }
    void ResizeOnScreen(QSize wanted);

    // In front of the others, and not as an icon.
    void ShowInFront();

    QPushButton* MakeClose();
    // A sentence or more that can be selected and copied.
    QLabel* MakeWords(const char* name);
    // One command on what is shown, the progress of the work, hidden, and Close.
    QLayout* MakeFoot(QPushButton* command, QProgressBar* bar);

    // What has the focus may have another use for the keys, as Esc ends a search.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    std::function<void()> refresh;
};
