#include "ui/machine/MachineTips.h"

#include <QCoreApplication>
#include <algorithm>

#include "game/seat/Seat.h"
#include "ui/machine/Layout.h"
#include "ui/machine/MachineParts.h"

namespace {

QString Tr(const char* words) { return QCoreApplication::translate("MachineTips", words); }

// nullptr when none of the kind that is wanted is shown there.
template <class Wanted>
const MachinePart* PartAt(QPoint point, const Seat& seat, const MachineLayout& layout,
                          Wanted isWanted) {
    const auto parts = MachineParts();
    const auto found = std::ranges::find_if(parts, [&](const MachinePart& part) {
        return isWanted(part.kind) && PlaceOf(part, layout).contains(point) &&
               LookOf(part, seat).shown;
    });
    return found == parts.end() ? nullptr : &*found;
}

QString TipOf(const MachinePart& part, const Seat& seat) {
    switch (part.kind) {
        case PartKind::kBet:
            return Tr("Click: bet one more (B). Right click: bet the most (M)");
        case PartKind::kCredits:
            return Tr("Click: credits or cash (C). Right click: cash out (O)");
        case PartKind::kPayLine:
            return Tr("Double click: edit the pay table (T)");
        default:
            break;
    }
    const PartLook look = LookOf(part, seat);
    const QString key = KeyOf(part, seat);
    return key.isEmpty() || !look.enabled ? look.name : Tr("%1 (%2)").arg(look.name, key);
}

}  // namespace

QRect ButtonUnder(QPoint point, const Seat& seat, const MachineLayout& layout) {
    const MachinePart* part = PartAt(point, seat, layout, IsButton);
    return part && LookOf(*part, seat).enabled ? PlaceOf(*part, layout) : QRect();
}

QString TipAt(QPoint point, const Seat& seat, const MachineLayout& layout) {
    const MachinePart* part = PartAt(point, seat, layout, [](PartKind kind) {
        return IsButton(kind) || kind == PartKind::kBet || kind == PartKind::kCredits ||
               kind == PartKind::kPayLine;
    });
    return part ? TipOf(*part, seat) : QString();
}
