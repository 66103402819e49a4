// SPDX-License-Identifier: MIT
#pragma once

#include "Observation/ZelBlockObservation.h"
#include "Platform/Runtime/ZelGuarded.h"
#include "SplitView/ZelPrioritySplitViewItem.h"
#include "SplitView/ZelSplitViewDividers.h"
#include "SplitView/ZelSplitViewPanes.h"

#include <QHash>
#include <QPointer>
#include <QSet>
#include <QSplitter>

/// Lays out the panes of any QSplitter by priority, and limits where its dividers can be dragged to.
///
/// The item at an index describes the pane at that index. When the splitter gets another size, all growth goes to the
/// pane of highest priority, and a shrink is taken from the pane of lowest priority down to its minimum, then from the
/// next; where all stand at their minimum, the panes overflow the splitter. A widget's own minimum and maximum size
/// hold as well. Lengths of items are rounded up to whole points. A collapsed pane and a hidden one take no room,
/// neither for themselves nor for a divider; the divider of a collapsed one stays within reach, above its neighbour's.
///
/// Dividers can be dragged and, once they have the focus, moved with the arrow keys (one point at a time with Shift),
/// Home and End; Return, Space and a double click collapse a pane beside the divider, or open it again. A pane that is
/// dragged below half of its minimum collapses.
///
/// As long as there are no items, or fewer than panes, the splitter is left to itself. Splitter, panes, items and
/// delegate may die in any order.
class ZelPrioritySplitViewDelegate : public ZelGuarded<QObject>
{
    Q_OBJECT
    /// One for each pane. Items without a parent become the delegate's children. What belonged to an item that dies is
    /// no more limited and keeps its length.
    Q_PROPERTY(QList<ZelPrioritySplitViewItem *> items READ items WRITE setItems NOTIFY itemsChanged)
    /// Held weakly.
    Q_PROPERTY(QSplitter *splitView READ splitView CONSTANT)
public:
    /// Asserts "splitView" if there is none.
    explicit ZelPrioritySplitViewDelegate(QSplitter *splitView, QObject *parent = nullptr);
    ~ZelPrioritySplitViewDelegate() override;

    QSplitter *splitView() const;
    /// Items that have died meanwhile are left out.
    QList<ZelPrioritySplitViewItem *> items() const;
    void setItems(const QList<ZelPrioritySplitViewItem *> &items);

    /// Asserts that the index is one of an item. Null for one that has died.
    ZelPrioritySplitViewItem *itemForViewIndex(qsizetype index) const;
    /// Among equal priorities, the later item comes first.
    QList<ZelPrioritySplitViewItem *> sortedItemsByAscendingPriority() const;
    /// The reverse.
    QList<ZelPrioritySplitViewItem *> sortedItemsByDescendingPriority() const;

    /// Lays out the panes for the present size. Asserts that there is an item for each pane, if there are any.
    void adjustSubviews();
    void updateItems() { adjustSubviews(); }
    /// Lays out again when an item's priority or collapsibility changes; not for a change of its limits.
    void addObservationForItems(const QList<ZelPrioritySplitViewItem *> &items);
    void removeObservationForItems(const QList<ZelPrioritySplitViewItem *> &items);

    /// The least and greatest coordinate of the divider after the pane at the index: neither that pane nor the next
    /// gets shorter than its minimum or longer than its maximum. Coordinates begin where the panes do, and are those
    /// of the end of the pane before the divider.
    virtual double splitViewConstrainMinCoordinateOfSubviewAt(QSplitter *splitView, double proposed, qsizetype index);
    virtual double splitViewConstrainMaxCoordinateOfSubviewAt(QSplitter *splitView, double proposed, qsizetype index);
    /// The old size is not looked at.
    virtual void splitViewResizeSubviewsWithOldSize(QSplitter *splitView, const QSizeF &oldSize);
    virtual bool splitViewCanCollapseSubview(QSplitter *splitView, QWidget *subview);

    /// False for a pane that is neither collapsed nor hidden, and for other widgets.
    bool isSubviewCollapsed(const QWidget *subview);
    /// Collapses the pane or opens it with the length that it had; does nothing if it is so already, for a hidden pane
    /// and for the last one that is shown. The room is given or taken by priority.
    void setSubviewCollapsed(QWidget *subview, bool collapsed);

    bool filterEvent(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void itemsChanged();

private:
    friend class ZelSplitViewDividers;
    using Panes = ZelSplitViewPanes::List;
    class Busy;

    bool isReady() const;
    Panes readPanes();
    /// Those of now, as far as they are the same ones with the former lengths.
    Panes readPanes(const Panes &before);
    double minimumOf(const Panes &panes, int index) const;
    double maximumOf(const Panes &panes, int index) const;
    int leastOf(const Panes &panes, int index) const; // the minimum in whole points
    void itemsDidChange();
    void distribute(Panes &panes, const QWidget *except) const;
    /// A pane that was just opened gives room only where the others have none.
    void layOut(const Panes &before, const QWidget *opened = nullptr, bool mayRepeat = true);
    /// Applies lengths as they are.
    void apply(const Panes &panes);
    void watchPanes();
    void layOutLater();
    bool splitViewEvent(QEvent *event);
    bool splitViewResizeEvent(QResizeEvent *event);
    void deliver(QEvent *event);

    QPointer<QObject> m_splitView;
    QList<QPointer<ZelPrioritySplitViewItem>> m_items;
    // Kept here and not with the items, which may die first.
    QHash<ZelPrioritySplitViewItem *, QList<ZelObservationPtr>> m_itemObservations;
    ZelSplitViewPanes m_panes;
    ZelSplitViewDividers m_dividers{this};
    int m_busy = 0;
    const QEvent *m_delivered = nullptr; // the event that the splitter is given just now
    enum class Applied { Nothing, BySplitter, InPlace } m_applied = Applied::Nothing; // in place: against its own ways
    bool m_isLayoutPosted = false;
    bool m_arePanesWatched = false;
    QSet<const QObject *> m_watchedPanes;
};
