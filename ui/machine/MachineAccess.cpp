#include "ui/machine/MachineAccess.h"

#include <QAccessibleActionInterface>
#include <QWindow>
#include <algorithm>

#include "ui/machine/AccessibleMachine.h"

// One part, or the news: what was last said of all of them.
class PartAccess : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    PartAccess(const MachineAccess& ofTable, const MachinePart* of) : table(ofTable), part(of) {}

    // What it is now. The news have a name and nothing to see.
    PartLook Look() const {
        if (part) return LookOf(*part, table.Machine().SeatShown());
        PartLook look;
        look.name = table.News();
        return look;
    }
    QRect Place() const { return part ? PlaceOf(*part, table.Machine().Places()) : QRect(); }

    bool isValid() const override { return table.isValid(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return table.window(); }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(table.object());
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name) return Look().name;
        if (kind == QAccessible::Accelerator && part) {
            return KeyOf(*part, table.Machine().SeatShown());
        }
        return {};
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override { return table.Machine().OnScreen(Place()); }
    QAccessible::Role role() const override;
    QAccessible::State state() const override;

    void* interface_cast(QAccessible::InterfaceType type) override {
        const bool acts = part && (IsButton(part->kind) || part->kind == PartKind::kCard);
        return acts && type == QAccessible::ActionInterface
                   ? static_cast<QAccessibleActionInterface*>(this)
                   : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    QStringList keyBindingsForAction(const QString& /*action*/) const override {
        const QString key = text(QAccessible::Accelerator);
        return key.isEmpty() ? QStringList() : QStringList(key);
    }
    void doAction(const QString& action) override;

  private:
    const MachineAccess& table;
    const MachinePart* part;  // none of the news
};

QAccessible::Role PartAccess::role() const {
    if (!part) return QAccessible::Notification;
    if (IsButton(part->kind)) return QAccessible::Button;
    switch (part->kind) {
        case PartKind::kCard:
        case PartKind::kFirstDraw:
        case PartKind::kCharlie:
        case PartKind::kCoin:
            return QAccessible::Graphic;
        default:
            return QAccessible::StaticText;
    }
}

QAccessible::State PartAccess::state() const {
    const PartLook look = Look();
    QAccessible::State state;
    if (!part) return state;
    state.invisible = !look.shown || !table.IsSeen();
    state.readOnly = !IsButton(part->kind);
    state.disabled = IsButton(part->kind) && !look.enabled;
    state.checkable = part->kind == PartKind::kHoldButton;
    state.checked = look.checked;
    state.pressed = look.pressed;
    state.selectable = part->kind == PartKind::kPayLine;
    state.selected = look.selected;
    return state;
}

void PartAccess::doAction(const QString& action) {
    if (action != pressAction() || !part || !Look().shown) return;
    table.Machine().Tap(Place().center());
}

MachineAccess* MachineAccess::Of(QWidget& widget) {
    return dynamic_cast<MachineAccess*>(QAccessible::queryAccessibleInterface(&widget));
}

MachineAccess::MachineAccess(QWidget& widget, AccessibleMachine& shown)
    : QAccessibleWidget(&widget, QAccessible::Grouping), machine(shown) {
    const auto add = [this](const MachinePart* part) {
        parts.push_back(new PartAccess(*this, part));
        QAccessible::registerAccessibleInterface(parts.back());
    };
    for (const MachinePart& part : MachineParts()) add(&part);
    add(nullptr);
}

MachineAccess::~MachineAccess() {
    for (PartAccess* part : parts) {
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(part));
    }
}

int MachineAccess::childCount() const { return static_cast<int>(parts.size()); }

QAccessibleInterface* MachineAccess::child(int index) const {
    if (index < 0 || index >= childCount()) return nullptr;
    return parts[static_cast<std::size_t>(index)];
}

int MachineAccess::indexOfChild(const QAccessibleInterface* wanted) const {
    const auto found = std::ranges::find(
        parts, wanted, [](const PartAccess* part) -> const QAccessibleInterface* { return part; });
    return found == parts.end() ? -1 : static_cast<int>(found - parts.begin());
}

QAccessibleInterface* MachineAccess::childAt(int x, int y) const {
    const auto isThere = [&](const PartAccess* part) {
        return !part->state().invisible && part->rect().contains(x, y);
    };
    const auto found = std::ranges::find_if(parts, isThere);
    return found == parts.end() ? nullptr : *found;
}

// The description holds the whole machine, so that who comes late misses nothing.
QString MachineAccess::text(QAccessible::Text kind) const {
    return kind == QAccessible::Description ? machine.Description() : QAccessibleWidget::text(kind);
}

void MachineAccess::TellChanges() {
    const bool isFirst = told.empty();
    told.resize(MachineParts().size());
    QStringList sentences;
    for (std::size_t i = 0; i < told.size(); ++i) {
        const PartLook now = parts[i]->Look();
        const PartLook before = std::exchange(told[i], now);
        if (now == before) continue;
        if (!isFirst) TellChange(*parts[i], before, now);
        const bool isNew = !before.shown || now.news != before.news;
        if (now.shown && isNew && !now.news.isEmpty()) sentences.append(now.news);
    }
    if (sentences.isEmpty()) return;
    news = sentences.join(". ") + ".";
    Announce();
}

void MachineAccess::TellChange(PartAccess& part, const PartLook& before,
                               const PartLook& now) const {
    const auto send = [&](QAccessible::Event kind) {
        QAccessibleEvent event(&part, kind);
        QAccessible::updateAccessibility(&event);
    };
    const auto sendState = [&](bool isChanged, auto set) {
        if (!isChanged) return;
        QAccessible::State changed;
        set(changed);
        QAccessibleStateChangeEvent event(&part, changed);
        QAccessible::updateAccessibility(&event);
    };
    if (now.name != before.name) send(QAccessible::NameChanged);
    if (now.shown != before.shown)
        send(now.shown ? QAccessible::ObjectShow : QAccessible::ObjectHide);
    if (!now.shown) return;
    sendState(now.enabled != before.enabled, [](auto& state) { state.disabled = true; });
    sendState(now.checked != before.checked, [](auto& state) { state.checked = true; });
    sendState(now.selected != before.selected, [](auto& state) { state.selected = true; });
}

// A notification that comes up is what screen readers say aloud, wherever their reader is.
void MachineAccess::Announce() {
    QAccessibleEvent renamed(parts.back(), QAccessible::NameChanged);
    QAccessible::updateAccessibility(&renamed);
    QAccessibleEvent shown(parts.back(), QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent said(widget(), news);
    QAccessible::updateAccessibility(&said);
#endif
}
