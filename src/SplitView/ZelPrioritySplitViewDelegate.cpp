// SPDX-License-Identifier: MIT
#include "SplitView/ZelPrioritySplitViewDelegate.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "Observation/ZelObservations.h"
#include "SplitView/ZelSplitView.h"
#include "ViewController/private/ZelAssignItems.h"

#include <QChildEvent>
#include <QCoreApplication>
#include <QResizeEvent>
#include <cmath>

namespace {

const char g_context = 0;

} // namespace

ZelPrioritySplitViewDelegate::ZelPrioritySplitViewDelegate(QSplitter *splitView, QObject *parent)
    : ZelGuarded(parent)
    , m_splitView(splitView)
{
    if (!ZelRequire(splitView, "splitView"))
        return;
    splitView->installEventFilter(this);
    ZelObservations(this).addObservationWithObject(
        this, "items", ZelKeyValueObservingOptionEqualCheck,
        [self = QPointer(this)](ZelBlockObservation *, const ZelKeyValueChange &) {
            if (self)
                self->itemsDidChange();
        },
        &g_context);
    updateItems();
}

ZelPrioritySplitViewDelegate::~ZelPrioritySplitViewDelegate()
{
    ZelObservations(this).removeAllObservationsForContext(&g_context);
    removeObservationForItems(m_itemObservations.keys());
}

QSplitter *ZelPrioritySplitViewDelegate::splitView() const
{
    // A dying splitter still gets events when only its QWidget or QObject is left, which the cast rejects.
    return qobject_cast<QSplitter *>(m_splitView.data());
}

// Items

QList<ZelPrioritySplitViewItem *> ZelPrioritySplitViewDelegate::items() const
{
    QList<ZelPrioritySplitViewItem *> items;
    items.reserve(m_items.size());
    for (const QPointer<ZelPrioritySplitViewItem> &item : m_items)
        if (item)
            items.append(item);
    return items;
}

void ZelPrioritySplitViewDelegate::setItems(const QList<ZelPrioritySplitViewItem *> &items)
{
    if (ZelAssignItems(m_items, items, this))
        Q_EMIT itemsChanged();
}

ZelPrioritySplitViewItem *ZelPrioritySplitViewDelegate::itemForViewIndex(qsizetype index) const
{
    const bool isInRange = index >= 0 && index < m_items.size();
    if (!ZelCheck(isInRange, QStringLiteral("Index %1 is out of range of %2 items").arg(index).arg(m_items.size())))
        return nullptr;
    return m_items[index];
}

QList<ZelPrioritySplitViewItem *> ZelPrioritySplitViewDelegate::sortedItemsByDescendingPriority() const
{
    QList<ZelPrioritySplitViewItem *> sorted = items();
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const auto *a, const auto *b) { return a->priorityIndex() > b->priorityIndex(); });
    return sorted;
}

QList<ZelPrioritySplitViewItem *> ZelPrioritySplitViewDelegate::sortedItemsByAscendingPriority() const
{
    QList<ZelPrioritySplitViewItem *> sorted = sortedItemsByDescendingPriority();
    std::reverse(sorted.begin(), sorted.end());
    return sorted;
}

void ZelPrioritySplitViewDelegate::itemsDidChange()
{
    const QList<ZelPrioritySplitViewItem *> current = items();
    QList<ZelPrioritySplitViewItem *> inserted;
    QList<ZelPrioritySplitViewItem *> removed = m_itemObservations.keys();
    for (ZelPrioritySplitViewItem *item : current) {
        if (!m_itemObservations.contains(item))
            inserted.append(item);
        removed.removeAll(item);
    }
    addObservationForItems(inserted);
    removeObservationForItems(removed);
    updateItems();
}

void ZelPrioritySplitViewDelegate::addObservationForItems(const QList<ZelPrioritySplitViewItem *> &items)
{
    for (ZelPrioritySplitViewItem *item : items) {
        if (m_itemObservations.contains(item))
            continue;
        // The limits are minLength and maxLength, which are not observed: a change of these alone takes effect with the
        // next layout.
        for (const char *key : {"minSize", "maxSize", "priorityIndex", "collapsible"})
            m_itemObservations[item].append(ZelBlockObservation::observationWithObject(
                item, key, ZelKeyValueObservingOptionEqualCheck,
                [self = QPointer(this)](ZelBlockObservation *, const ZelKeyValueChange &) {
                    if (self)
                        self->updateItems();
                }));
        connect(item, &QObject::destroyed, this, [this, item] { removeObservationForItems({item}); });
    }
}

void ZelPrioritySplitViewDelegate::removeObservationForItems(const QList<ZelPrioritySplitViewItem *> &items)
{
    for (ZelPrioritySplitViewItem *item : items) {
        for (const ZelObservationPtr &observation : m_itemObservations.take(item))
            observation->cancel();
    }
}

// What the splitter asks

double ZelPrioritySplitViewDelegate::splitViewConstrainMinCoordinateOfSubviewAt(QSplitter *splitView, double proposed,
                                                                                qsizetype index)
{
    const ZelPrioritySplitViewItem *before = itemForViewIndex(index);
    const ZelPrioritySplitViewItem *after = itemForViewIndex(index + 1);
    const QWidget *a = splitView->widget(int(index));
    const QWidget *b = splitView->widget(int(index) + 1);
    if (!before || !after || !a || !b)
        return proposed;
    const ZelSplitViewPanes::Axis axis(splitView);
    const int end = axis.start(b->geometry()) + axis.pick(b->size());
    return std::max({proposed, end - after->maxLength(), axis.start(a->geometry()) + before->minLength()});
}

double ZelPrioritySplitViewDelegate::splitViewConstrainMaxCoordinateOfSubviewAt(QSplitter *splitView, double proposed,
                                                                                qsizetype index)
{
    const ZelPrioritySplitViewItem *before = itemForViewIndex(index);
    const ZelPrioritySplitViewItem *after = itemForViewIndex(index + 1);
    const QWidget *a = splitView->widget(int(index));
    const QWidget *b = splitView->widget(int(index) + 1);
    if (!before || !after || !a || !b)
        return proposed;
    const ZelSplitViewPanes::Axis axis(splitView);
    const int end = axis.start(b->geometry()) + axis.pick(b->size());
    return std::min({proposed, axis.start(a->geometry()) + before->maxLength(), end - after->minLength()});
}

void ZelPrioritySplitViewDelegate::splitViewResizeSubviewsWithOldSize(QSplitter *splitView, const QSizeF &)
{
    if (!splitView || splitView != this->splitView() || splitView->count() == 0 || m_items.isEmpty())
        return;
    watchPanes();
    if (splitView->count() > m_items.size())
        itemForViewIndex(m_items.size());
    else
        layOut(readPanes());
}

bool ZelPrioritySplitViewDelegate::splitViewCanCollapseSubview(QSplitter *splitView, QWidget *subview)
{
    const ZelPrioritySplitViewItem *item = itemForViewIndex(splitView->indexOf(subview));
    return item && item->isCollapsible();
}

bool ZelPrioritySplitViewDelegate::isSubviewCollapsed(const QWidget *subview)
{
    if (!splitView())
        return false;
    for (const ZelSplitViewPanes::Pane &pane : readPanes())
        if (pane.widget == subview)
            return !pane.isShown();
    return false;
}

void ZelPrioritySplitViewDelegate::setSubviewCollapsed(QWidget *subview, bool collapsed)
{
    if (!isReady())
        return;
    Panes panes = readPanes();
    const auto isShown = [](const ZelSplitViewPanes::Pane &pane) { return pane.isShown(); };
    for (ZelSplitViewPanes::Pane &pane : panes) {
        if (pane.widget != subview || pane.isHidden || pane.isCollapsed == collapsed)
            continue;
        if (collapsed && std::count_if(panes.begin(), panes.end(), isShown) < 2)
            return;
        pane.isCollapsed = collapsed;
        pane.length = collapsed ? 0 : qMax(1, m_panes.lengthBeforeCollapse(subview));
        layOut(panes, collapsed ? nullptr : subview);
        return;
    }
}

// Layout

bool ZelPrioritySplitViewDelegate::isReady() const
{
    return splitView() && splitView()->count() > 0 && m_items.size() >= splitView()->count();
}

ZelSplitViewPanes::List ZelPrioritySplitViewDelegate::readPanes()
{
    return m_panes.read(splitView(), [this](int index) {
        return index < m_items.size() && splitViewCanCollapseSubview(splitView(), splitView()->widget(index));
    });
}

ZelSplitViewPanes::List ZelPrioritySplitViewDelegate::readPanes(const Panes &before)
{
    Panes panes = readPanes();
    for (size_t i = 0; i < panes.size(); ++i) {
        const auto isSame = [&](const auto &pane) { return pane.widget == panes[i].widget; };
        const bool isInPlace = i < before.size() && isSame(before[i]);
        const auto same =
            isInPlace ? before.begin() + ptrdiff_t(i) : std::find_if(before.begin(), before.end(), isSame);
        if (same == before.end())
            continue;
        panes[i].length = same->length;
        panes[i].isCollapsed = same->isCollapsed;
    }
    return panes;
}

double ZelPrioritySplitViewDelegate::minimumOf(const Panes &panes, int index) const
{
    const ZelPrioritySplitViewItem *item = m_items.at(index);
    return std::max<double>(panes[size_t(index)].minimum, item ? item->minLength() : 0);
}

int ZelPrioritySplitViewDelegate::leastOf(const Panes &panes, int index) const
{
    return int(std::ceil(qMin<double>(minimumOf(panes, index), QWIDGETSIZE_MAX)));
}

double ZelPrioritySplitViewDelegate::maximumOf(const Panes &panes, int index) const
{
    const ZelPrioritySplitViewItem *item = m_items.at(index);
    return item ? std::min<double>(panes[size_t(index)].maximum, item->maxLength()) : panes[size_t(index)].maximum;
}

void ZelPrioritySplitViewDelegate::adjustSubviews()
{
    splitViewResizeSubviewsWithOldSize(splitView(), QSizeF(0, 0));
}

void ZelPrioritySplitViewDelegate::distribute(Panes &panes, const QWidget *except) const
{
    int space = ZelSplitViewPanes::space(splitView(), panes);
    if (space == 0)
        return;
    // The pane of the highest priority grows first, among equal ones the earliest. Panes shrink in the reverse order.
    // Usually the first pane takes everything, so the others are sorted only when they are needed.
    std::vector<std::pair<quint64, int>> ranks; // sorted ascending: the first one is the next to change
    ranks.reserve(panes.size());
    // For growth the mask inverts the priorities, for a shrink the sign inverts the order of the panes. So ascending
    // order is right in both cases.
    const quint64 mask = space > 0 ? ~quint64(0) : 0;
    for (int i = 0; i < int(panes.size()); ++i) {
        const ZelPrioritySplitViewItem *item = m_items.at(i);
        if (item && panes[size_t(i)].isShown() && (!except || panes[size_t(i)].widget != except))
            ranks.emplace_back(item->priorityIndex() ^ mask, space > 0 ? i : -i);
    }
    for (auto rank = ranks.begin(); space != 0 && rank != ranks.end(); ++rank) {
        if (rank == ranks.begin())
            std::iter_swap(rank, std::min_element(rank, ranks.end()));
        else if (rank == ranks.begin() + 1)
            std::sort(rank, ranks.end());
        const int index = std::abs(rank->second);
        ZelSplitViewPanes::Pane &pane = panes[size_t(index)];
        const int length =
            qBound(qMin(pane.length, leastOf(panes, index)), pane.length + space, qMax(pane.length, pane.maximum));
        space -= length - pane.length;
        pane.length = length;
    }
}

void ZelPrioritySplitViewDelegate::layOut(const Panes &before, const QWidget *opened, bool mayRepeat)
{
    if (ZelSplitViewPanes::Axis(splitView()).length() <= 0 || ZelSplitViewPanes::nearest(before, 0, 1, false) < 0)
        return;
    Panes panes = before;
    for (int i = 0; i < int(panes.size()); ++i) {
        ZelSplitViewPanes::Pane &pane = panes[size_t(i)];
        if (pane.isShown() && pane.length < minimumOf(panes, i))
            pane.length = leastOf(panes, i);
    }
    if (opened)
        distribute(panes, opened);
    distribute(panes, nullptr);
    const QPointer<ZelPrioritySplitViewDelegate> self(this);
    apply(panes);
    if (!mayRepeat || !self || !isReady() || ZelSplitViewPanes::isApplied(splitView(), panes))
        return;
    m_panes.forgetMinimums();
    layOut(readPanes(before), opened, false);
}

void ZelPrioritySplitViewDelegate::apply(const Panes &panes)
{
    QSplitter *splitter = splitView();
    for (int i = 0; i < int(panes.size()); ++i) {
        const ZelPrioritySplitViewItem *item = m_items.at(i);
        const bool canCollapse = panes[size_t(i)].isCollapsed || (item && item->isCollapsible());
        if (splitter->isCollapsible(i) != canCollapse)
            splitter->setCollapsible(i, canCollapse);
    }
    m_panes.remember(panes);
    const ZelMemberScope busy(this, m_isBusy, true);
    const bool isPlaced = ZelSplitViewPanes::apply(splitter, panes);
    if (busy.isOwnerAlive())
        m_applied = isPlaced ? Applied::InPlace : Applied::BySplitter;
}

// Events

void ZelPrioritySplitViewDelegate::watchPanes()
{
    if (std::exchange(m_arePanesWatched, true))
        return;
    for (int i = 0; i < splitView()->count(); ++i) {
        QWidget *pane = splitView()->widget(i);
        if (m_watchedPanes.contains(pane))
            continue;
        m_watchedPanes.insert(pane);
        pane->installEventFilter(this);
        QSplitterHandle *handle = splitView()->handle(i);
        handle->installEventFilter(this);
        m_dividers.watch(handle);
    }
}

void ZelPrioritySplitViewDelegate::layOutLater()
{
    if (m_isLayoutPosted || !splitView())
        return;
    m_isLayoutPosted = true;
    QCoreApplication::postEvent(splitView(), new QEvent(QEvent::LayoutRequest));
}

bool ZelPrioritySplitViewDelegate::filterEvent(QObject *watched, QEvent *event)
{
    if (event == m_delivered || !m_splitView)
        return false;
    if (watched == m_splitView)
        return splitView() && splitViewEvent(event);
    const bool isPlaced = event->type() == QEvent::Move || event->type() == QEvent::Resize;
    if (isPlaced && m_isBusy)
        return false;
    if (auto *handle = qobject_cast<QSplitterHandle *>(watched); handle && handle->splitter() == splitView())
        return isReady() && m_dividers.handleEvent(handle, event);
    // Something else, such as setSizes(), has moved or resized the pane.
    if (isPlaced && watched->parent() == m_splitView && isReady())
        layOutLater();
    return false;
}

bool ZelPrioritySplitViewDelegate::splitViewEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Resize: {
        const auto *resize = static_cast<QResizeEvent *>(event);
        if (m_isBusy)
            return resize->size() == resize->oldSize(); // only the margins have changed
        return isReady() && splitViewResizeEvent(static_cast<QResizeEvent *>(event));
    }
    case QEvent::LayoutRequest:
        m_isLayoutPosted = false;
        m_arePanesWatched = false;
        m_panes.forgetMinimums();
        [[fallthrough]];
    case QEvent::Show:
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        watchPanes();
        // The system has shown the window again; nothing has changed.
        if (m_isBusy || !isReady() || event->spontaneous())
            return false;
        deliver(event);
        return true;
    case QEvent::ChildRemoved: {
        const QObject *child = static_cast<QChildEvent *>(event)->child();
        if (!child->isWidgetType())
            return false;
        m_arePanesWatched = false;
        m_panes.forget(child);
        m_watchedPanes.remove(child);
        m_dividers.forget(child);
        layOutLater();
        return false;
    }
    case QEvent::ChildAdded:
        // QMainWindow adds an animation object to the widgets that it lays out, each time. A layout for such a child
        // would cause the next one, and so on for ever.
        if (!static_cast<QChildEvent *>(event)->child()->isWidgetType())
            return false;
        m_arePanesWatched = false;
        layOutLater();
        return false;
    default:
        return false;
    }
}

bool ZelPrioritySplitViewDelegate::splitViewResizeEvent(QResizeEvent *event)
{
    // The panes are laid out before the splitter handles its new size, so that it finds everything in place.
    const QPointer<ZelPrioritySplitViewDelegate> self(this);
    m_applied = Applied::Nothing;
    adjustSubviews();
    if (!self || m_applied == Applied::Nothing || !isReady())
        return false;
    if (auto *view = qobject_cast<ZelSplitView *>(splitView())) {
        view->m_laidOutSize = event->size();
        return false;
    }
    if (m_applied == Applied::BySplitter)
        return false;
    deliver(event);
    return true;
}

void ZelPrioritySplitViewDelegate::deliver(QEvent *event)
{
    const QPointer<ZelPrioritySplitViewDelegate> self(this);
    const Panes before = readPanes();
    {
        // The event is sent again, so that event filters after this one get it, too. Filters before this one would get
        // it twice; to avoid that, this filter is installed again, which makes it the first.
        splitView()->installEventFilter(this);
        const ZelMemberScope busy(this, m_isBusy, true);
        const ZelMemberScope delivered(this, m_delivered, event);
        QCoreApplication::sendEvent(splitView(), event);
    }
    if (!self || !isReady())
        return;
    Panes panes = readPanes(before);
    // QSplitter opens a collapsed pane when all others were hidden. That is accepted.
    if (ZelSplitViewPanes::nearest(panes, 0, 1, false) < 0)
        panes = readPanes();
    layOut(panes);
}
