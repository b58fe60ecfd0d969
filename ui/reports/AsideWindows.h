// The reports that the player has put aside: each in a window of its own beside the machine's,
// which can be played on. They show the moment in which they were put aside until they are told to
// take a new one, ask nothing when they are closed, and are closed with the machine's window.
#pragma once
#include <QObject>
#include <QPointer>
#include <QString>
#include <memory>
#include <vector>

class QDialog;
class QPushButton;
class QWidget;
class ReportPage;

class AsideWindows : public QObject {
    Q_OBJECT

  public:
    explicit AsideWindows(QObject* parent = nullptr);
    ~AsideWindows() override;

    // Shows a copy of the page in a window as the dialog of that name was left; the place of the
    // window is its own. A second one lies a little beside the first.
    void PutAside(const ReportPage& page, const QString& name);

    // Cancels whatever one of them asks.
    void RefuseQuestions();

    // The machine's window is closed: nothing of them is asked or seen any more.
    void CloseAll();

  private:
    std::vector<QPointer<QWidget>> windows;
};

// A button "Put Aside", named "putAside", that puts the page of a dialog aside and closes the
// dialog.
QPushButton* PutAsideButton(QDialog& dialog, const ReportPage& page, AsideWindows& aside,
                            const QString& name);
