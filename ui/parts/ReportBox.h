// A read-only box for the text of a report: it can be selected, copied and, where there is somebody
// to take it, saved from the context menu.
#pragma once
#include <QList>
#include <QPlainTextEdit>
#include <functional>
#include <string>

class ReportBox : public QPlainTextEdit {
    Q_OBJECT

  public:
    ReportBox(const char* name, const QString& accessibleName, QWidget* parent);

    // Line breaks at the end are not shown.
    void ShowReport(const std::string& report);

    // Logical pixels from the left of the text.
    void SetTabStops(const QList<qreal>& stops);

    // Makes the box ask for room for its text, and for all it was fitted to before.
    void FitToText();

    // The box asks for no more room than any does, until it is fitted to its text in this font.
    void UseFont(const QFont& font);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // "Save As Text..." in the context menu, when set.
    std::function<void()> saveAs;

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    QSize wanted;
};
