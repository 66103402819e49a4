// SPDX-License-Identifier: MIT
#include "SplitView/ZelPrioritySplitViewDelegate.h"

#include "Observation/ZelObservations.h"
#include "Platform/Runtime/ZelAssertions.h"

#include <QChildEvent>
#include <QCoreApplication>
#include <QResizeEvent>
#include <cmath>

namespace {

const char context = 0;

} // namespace

/// The delegate resizes panes itself, and is not to answer.
class ZelPrioritySplitViewDelegate::Busy
{
public:
    explicit Busy(ZelPrioritySplitViewDelegate *delegate)
        : m_delegate(delegate)
    {
        ++delegate->m_busy;
    }
    ~Busy()
    {
        if (m_delegate)
            --m_delegate->m_busy;
    }
    Q_DISABLE_COPY_MOVE(Busy)

private:
    QPointer<ZelPrioritySplitViewDelegate> m_delegate; // a pane that is resized may delete it
};

ZelPrioritySplitViewDelegate::ZelPrioritySplitViewDelegate(QSplitter *splitView, QObject *parent)
    : QObject(parent)
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
        &context);
    updateItems();
}

ZelPrioritySplitViewDelegate::~ZelPrioritySplitViewDelegate()
{
    ZelObservations(this).removeAllObservationsForContext(&context);
    removeObservationForItems(m_itemObservations.keys());
}

QSplitter *ZelPrioritySplitViewDelegate::splitView() const
{
    // A splitter still gets events while it dies, when it is none any more.
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
    if (std::equal(items.begin(), items.end(), m_items.begin(), m_items.end()))
        return;
    m_items = {items.begin(), items.end()};
    for (ZelPrioritySplitViewItem *item : items)
        if (!item->parent())
            item->setParent(this);
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
        // Limits are named minLength and maxLength: a change of these alone waits for the next layout.
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

double ZelPrioritySplitViewDelegate::minimumOf(const Panes &panes, int index) const
{
    const ZelPrioritySplitViewItem *item = m_items[index];
    return std::max<double>(panes[size_t(index)].minimum, item ? item->minLength() : 0);
}

double ZelPrioritySplitViewDelegate::maximumOf(const Panes &panes, int index) const
{
    const ZelPrioritySplitViewItem *item = m_items[index];
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
    QHash<const QObject *, int> indexes;
    for (int i = 0; i < int(panes.size()); ++i)
        indexes.insert(m_items[i], i);
    for (const auto *item : space > 0 ? sortedItemsByDescendingPriority() : sortedItemsByAscendingPriority()) {
        const int index = indexes.value(item, -1);
        if (index < 0 || !panes[size_t(index)].isShown() || (except && panes[size_t(index)].widget == except))
            continue;
        ZelSplitViewPanes::Pane &pane = panes[size_t(index)];
        const int least = qMin(pane.length, int(std::ceil(minimumOf(panes, index))));
        const int most = qMax(pane.length, pane.maximum);
        const int length = qBound(least, pane.length + space, most);
        space -= length - pane.length;
        pane.length = length;
    }
}

void ZelPrioritySplitViewDelegate::layOut(Panes panes, const QWidget *opened)
{
    if (ZelSplitViewPanes::Axis(splitView()).length() <= 0 || ZelSplitViewPanes::nearest(panes, 0, 1, false) < 0)
        return;
    for (int i = 0; i < int(panes.size()); ++i) {
        ZelSplitViewPanes::Pane &pane = panes[size_t(i)];
        if (pane.isShown())
            pane.length = qMax(pane.length, int(std::ceil(qMin<double>(minimumOf(panes, i), QWIDGETSIZE_MAX))));
    }
    if (opened)
        distribute(panes, opened);
    distribute(panes, nullptr);
    apply(panes);
}

void ZelPrioritySplitViewDelegate::apply(const Panes &panes)
{
    for (int i = 0; i < int(panes.size()); ++i) {
        const bool canCollapse = panes[size_t(i)].isCollapsed || (m_items[i] && m_items[i]->isCollapsible());
        if (splitView()->isCollapsible(i) != canCollapse)
            splitView()->setCollapsible(i, canCollapse);
    }
    m_panes.remember(panes);
    const QPointer<ZelPrioritySplitViewDelegate> self(this);
    const Busy busy(this);
    const bool isPlaced = ZelSplitViewPanes::apply(splitView(), panes);
    if (self)
        m_isPlaced = isPlaced;
}

// Events

void ZelPrioritySplitViewDelegate::watchPanes()
{
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

bool ZelPrioritySplitViewDelegate::eventFilter(QObject *watched, QEvent *event)
{
    if (!splitView())
        return false;
    if (watched == m_splitView)
        return splitViewEvent(event);
    if (auto *handle = qobject_cast<QSplitterHandle *>(watched); handle && handle->splitter() == splitView())
        return isReady() && m_dividers.handleEvent(handle, event);
    // Somebody else, such as setSizes(), gives the pane another length.
    if (event->type() == QEvent::Resize && m_busy == 0 && isReady() && watched->parent() == splitView())
        layOutLater();
    return false;
}

bool ZelPrioritySplitViewDelegate::splitViewEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Resize: {
        const auto *resize = static_cast<QResizeEvent *>(event);
        if (m_busy > 0)
            return resize->size() == resize->oldSize(); // of the margins alone
        if (!isReady())
            return false;
        // Done before the splitter sees its new size: then it finds everything in place.
        const QPointer<ZelPrioritySplitViewDelegate> self(this);
        adjustSubviews();
        if (!self || !m_isPlaced || !isReady())
            return false;
        deliver(event);
        return true;
    }
    case QEvent::LayoutRequest:
        m_isLayoutPosted = false;
        [[fallthrough]];
    case QEvent::Show:
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        watchPanes();
        if (m_busy > 0 || !isReady())
            return false;
        deliver(event);
        return true;
    case QEvent::ChildRemoved: {
        const QObject *child = static_cast<QChildEvent *>(event)->child();
        m_panes.forget(child);
        m_watchedPanes.remove(child);
        m_dividers.forget(child);
        layOutLater();
        return false;
    }
    case QEvent::ChildAdded:
        layOutLater();
        return false;
    default:
        return false;
    }
}

void ZelPrioritySplitViewDelegate::deliver(QEvent *event)
{
    const QPointer<ZelPrioritySplitViewDelegate> self(this);
    const Panes before = readPanes();
    {
        const Busy busy(this);
        static_cast<QObject *>(splitView())->event(event);
    }
    if (!self || !isReady())
        return;
    Panes panes = readPanes();
    for (size_t i = 0; i < panes.size(); ++i) {
        const auto same = std::find_if(before.begin(), before.end(),
                                       [&](const auto &pane) { return pane.widget == panes[i].widget; });
        if (same == before.end())
            continue;
        panes[i].length = same->length;
        panes[i].isCollapsed = same->isCollapsed;
    }
    // The splitter opens a collapsed pane when all others have been hidden.
    if (ZelSplitViewPanes::nearest(panes, 0, 1, false) < 0)
        panes = readPanes();
    layOut(panes);
}
