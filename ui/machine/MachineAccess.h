// The machine for screen readers and voice control: an accessible object for each of its parts
// (MachineParts.h), which lives as long as the machine. What is pressed through one goes the way of
// a click.
#pragma once
#include <QAccessibleWidget>
#include <QString>
#include <QWidget>
#include <vector>

#include "ui/machine/MachineParts.h"

class AccessibleMachine;
class PartAccess;

class MachineAccess : public QAccessibleWidget {
  public:
    // That of the widget; nullptr when it shows something else.
    static MachineAccess* Of(QWidget& widget);

    // Both are the view that shows the machine.
    MachineAccess(QWidget& widget, AccessibleMachine& machine);
    ~MachineAccess() override;
    MachineAccess(const MachineAccess&) = delete;
    MachineAccess& operator=(const MachineAccess&) = delete;

    // Says what has changed since the last time, and only that: by events of the parts, and once in
    // words for those who look at none of them.
    void TellChanges();

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* wanted) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QString text(QAccessible::Text kind) const override;

    AccessibleMachine& Machine() const { return machine; }
    bool IsSeen() const { return widget()->isVisible(); }
    const QString& News() const { return news; }

  private:
    void TellChange(PartAccess& part, const PartLook& before, const PartLook& now) const;
    void Announce();

    AccessibleMachine& machine;
    std::vector<PartAccess*> parts;  // of the accessibility's own registry
    std::vector<PartLook> told;      // empty: nothing yet
    QString news;
};
