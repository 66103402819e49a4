// SPDX-License-Identifier: MIT
#include "ViewController/private/ZelTabOrder.h"

#include "ViewController/ZelView.h"

#include <algorithm>

namespace {

bool isTabStop(const QWidget *widget)
{
    return (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && !widget->isWindow();
}

/// Collects the tab stops below the widget in the order of its children, but none within another tab stop: their order
/// is that control's own affair.
void collectTabStops(const QWidget *widget, QList<QWidget *> &stops)
{
    for (QObject *object : widget->children()) {
        auto *child = qobject_cast<QWidget *>(object);
        if (!child || child->isWindow())
            continue;
        if (isTabStop(child))
            stops.append(child);
        else
            collectTabStops(child, stops);
    }
}

QList<QWidget *> tabStopsOf(const QWidget *widget)
{
    QList<QWidget *> stops;
    collectTabStops(widget, stops);
    return stops;
}

/// The tab stop that is visited before this one; null if there is none in the window, whose chain is a circle, or if it
/// lies below the view as well.
QWidget *visitedBefore(const QWidget *stop, const QWidget *view)
{
    QWidget *before = stop->previousInFocusChain();
    while (before && before != stop && !before->isWindow() && !isTabStop(before))
        before = before->previousInFocusChain();
    const bool isFound = before && before != stop && !before->isWindow() && !view->isAncestorOf(before);
    return isFound ? before : nullptr;
}

/// The last tab stop in the nearest view that stands before this one and has any; null if there is none.
QWidget *standingBefore(const QWidget *view)
{
    const QWidget *parent = view->isWindow() ? nullptr : view->parentWidget();
    if (!qobject_cast<const ZelView *>(parent))
        return nullptr;
    const QObjectList &siblings = parent->children();
    for (qsizetype i = siblings.indexOf(const_cast<QWidget *>(view)) - 1; i >= 0; --i) {
        auto *sibling = qobject_cast<QWidget *>(siblings.at(i));
        if (!sibling || sibling->isWindow())
            continue;
        const QList<QWidget *> stops = isTabStop(sibling) ? QList<QWidget *>{sibling} : tabStopsOf(sibling);
        if (!stops.isEmpty())
            return stops.last();
    }
    return standingBefore(parent);
}

} // namespace

ZelTabOrder::ZelTabOrder(QWidget *view)
    : m_view(view)
{
    const QList<QWidget *> stops = tabStopsOf(view);
    m_first = stops.value(0);
    m_before = stops.isEmpty() ? standingBefore(view) : visitedBefore(stops.first(), view);
}

/// The last one is moved first: Qt walks from the stop that stays to the next one behind it, over all widgets between
/// them that take no focus. So it walks over those behind the view once, and not for each stop. What stays is the stop
/// before the view, or the former first one, whose place is that of the view.
void ZelTabOrder::followSubviews() const
{
    QList<QWidget *> stops = m_view ? tabStopsOf(m_view) : QList<QWidget *>();
    if (stops.isEmpty())
        return;
    QWidget *anchor = m_before ? m_before.data() : stops.contains(m_first) ? m_first.data() : stops.first();
    const qsizetype place = stops.indexOf(anchor);
    if (place >= 0)
        stops.removeAt(place);
    std::for_each(stops.rbegin(), stops.rend(), [anchor](QWidget *stop) { QWidget::setTabOrder(anchor, stop); });
    if (place > 0)
        QWidget::setTabOrder(stops.at(place - 1), anchor);
}
