// The machine for screen readers and voice control: an accessible object for each of its parts
// (MachineParts.h), which lives as long as the machine. What is pressed through one goes the way of
// a click.
#pragma once
#include <QAccessibleWidget>
#include <QRect>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "ui/machine/MachineParts.h"

class CMorvikView;
class PartAccess;

class MachineAccess : public QAccessibleWidget {
  public:
    // Tells of this machine; null when the interface is of something else.
    static MachineAccess* Of(CMorvikView& view);

    explicit MachineAccess(CMorvikView& view);
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

    CMorvikView& View() const { return view; }
    const QString& News() const { return news; }

  private:
    void TellChange(PartAccess& part, const PartLook& before, const PartLook& now) const;
    void Announce();

    CMorvikView& view;
    std::vector<PartAccess*> parts;  // of the accessibility's own registry
    std::vector<PartLook> told;      // empty: nothing yet
    QString news;
};
