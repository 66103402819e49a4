// SPDX-License-Identifier: MIT
#include "ExpandableViews/private/ZelExpandableHeaderAccessible.h"

#include "ExpandableViews/ZelExpandableHeader.h"

namespace {

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *header = qobject_cast<ZelExpandableHeader *>(object);
    return header ? new ZelExpandableHeaderAccessible(header) : nullptr;
}

} // namespace

void ZelExpandableHeaderAccessible::install()
{
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(installed);
}

void ZelExpandableHeaderAccessible::stateDidChange(ZelExpandableHeader *header)
{
    if (!QAccessible::isActive())
        return;
    QAccessible::State changed;
    changed.expanded = true;
    changed.collapsed = true;
    QAccessibleStateChangeEvent event(header, changed);
    QAccessible::updateAccessibility(&event);
}

ZelExpandableHeaderAccessible::ZelExpandableHeaderAccessible(ZelExpandableHeader *header)
    : QAccessibleWidget(header, QAccessible::Button)
{
}

ZelExpandableHeader *ZelExpandableHeaderAccessible::header() const
{
    return static_cast<ZelExpandableHeader *>(object());
}

QString ZelExpandableHeaderAccessible::text(QAccessible::Text kind) const
{
    const QString text = QAccessibleWidget::text(kind);
    return text.isEmpty() && kind == QAccessible::Name ? header()->title() : text;
}

QAccessible::State ZelExpandableHeaderAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.expanded = header()->isChecked();
    state.collapsed = !header()->isChecked();
    return state;
}

QStringList ZelExpandableHeaderAccessible::actionNames() const
{
    return QStringList{pressAction()} + QAccessibleWidget::actionNames();
}

void ZelExpandableHeaderAccessible::doAction(const QString &name)
{
    if (name == pressAction())
        ZelExceptionReporter::run(header(), [this] { header()->click(); });
    else
        QAccessibleWidget::doAction(name);
}
