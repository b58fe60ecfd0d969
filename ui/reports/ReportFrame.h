// The frame around a report, in a dialog or in a window put aside: it remembers in the program's
// own settings how the player left the window, its size and place, its tab, its display and the
// order of its tables. At the very first opening all is as the window comes.
//
//     frame = new ReportFrame(*this, "hand");  // the window is laid out and sized
//     frame->Keep(*tabs);
//     frame->Keep(*table);
#pragma once
#include <QObject>
#include <QString>
#include <functional>
#include <vector>

class QTabWidget;
class ReportTableView;

class ReportFrame : public QObject {
    Q_OBJECT

  public:
    // Belongs to the window. What was remembered under the name is taken up at once; a place on a
    // screen that is gone is moved onto one that is there. It is noted when the window is hidden.
    // A window of another kind may share all but its place with the dialog of that name.
    ReportFrame(QWidget& window, const QString& name, const QString& placeName = "place");

    // They belong to the window. A tab and a display are known by the names of their objects.
    void Keep(QTabWidget& tabs);
    void Keep(ReportTableView& table);
    void KeepDisplay(QWidget& choice);  // of DisplayChoice

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QString KeyOf(const QString& what) const { return "reports/" + name + "/" + what; }

    QWidget& window;
    QString name;
    std::vector<std::function<void()>> notes;  // each writes what it keeps
};
