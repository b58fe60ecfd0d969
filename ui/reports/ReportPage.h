// A report as a widget, which a dialog shows, and a window that is put aside.
#pragma once
#include <QWidget>
#include <memory>

class ReportFrame;

class ReportPage : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

    // "Hand Analysis: Deuces Wild, AS KD 7H 2C 2D": what the report is of, to tell it from another.
    virtual QString Caption() const = 0;

    // A page that shows the same, with a copy of its own of all that it shows: pay table, hand,
    // bet, coin and figures. Nothing of it changes with the player's machine, and it holds nothing
    // that goes before the machine's window does; the spare engine is not among what it may hold.
    virtual std::unique_ptr<ReportPage> Copy() const = 0;

    // Whether there is a machine whose report this is, and not one that has played to its end.
    virtual bool CanRefresh() const { return true; }

    // Takes a new copy of what the player's machine shows now.
    virtual void Refresh() = 0;

    // Has the frame keep what the player may choose in the page.
    virtual void KeepIn(ReportFrame& frame) = 0;

  signals:
    void CaptionChanged();
};
