// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"
#include "Observation/ZelBlockObservation.h"
#include "SplitView/ZelPrioritySplitViewItem.h"
#include "SplitView/ZelSplitViewDividers.h"
#include "SplitView/ZelSplitViewPanes.h"

#include <QHash>
#include <QPointer>
#include <QSet>
#include <QSplitter>

/// Lays out the panes of any QSplitter by priority, and limits where its dividers can be dragged to.
///
/// The item at an index describes the pane at that index. When the splitter grows, the pane of the highest priority
/// grows. When the splitter shrinks, the pane of the lowest priority shrinks to its minimum, then the next one; when
/// all are at their minimum, the panes overflow the splitter. A widget's own minimum and maximum size hold as well.
/// Lengths of items are rounded up to whole points. Collapsed and hidden panes take no room, neither for themselves nor
/// for a divider. The divider of a collapsed pane can still be reached: it lies above its neighbour's.
///
/// Dividers can be dragged and, once they have the focus, moved with the arrow keys (one point at a time with Shift),
/// Home and End; Return, Space and a double click collapse a pane beside the divider or open it again. A pane that is
/// dragged below half of its minimum collapses.
///
/// As long as there are fewer items than panes, the delegate leaves the splitter alone. Splitter, panes, items and
/// delegate may die in any order.
class ZEL_EXPORT ZelPrioritySplitViewDelegate : public ZelGuarded<QObject>
{
    Q_OBJECT
    /// One item for each pane. Items without a parent become the delegate's children. The pane of an item that has died
    /// keeps its length and is not limited any more.
    Q_PROPERTY(QList<ZelPrioritySplitViewItem *> items READ items WRITE setItems NOTIFY itemsChanged)
    /// Null after the splitter has died.
    Q_PROPERTY(QSplitter *splitView READ splitView CONSTANT)
public:
    /// Asserts that the splitter is not null.
    explicit ZelPrioritySplitViewDelegate(QSplitter *splitView, QObject *parent = nullptr);
    ~ZelPrioritySplitViewDelegate() override;

    QSplitter *splitView() const;
    /// The items, without those that have died.
    QList<ZelPrioritySplitViewItem *> items() const;
    void setItems(const QList<ZelPrioritySplitViewItem *> &items);

    /// Asserts that the index is in the range of the items. Null for an item that has died.
    ZelPrioritySplitViewItem *itemForViewIndex(qsizetype index) const;
    /// Of items of equal priority the later one comes first.
    QList<ZelPrioritySplitViewItem *> sortedItemsByAscendingPriority() const;
    /// The reverse of sortedItemsByAscendingPriority.
    QList<ZelPrioritySplitViewItem *> sortedItemsByDescendingPriority() const;

    /// Lays out the panes for the present size. Does nothing without items. Asserts that there are at least as many
    /// items as panes.
    void adjustSubviews();
    void updateItems() { adjustSubviews(); }
    /// Makes the delegate lay out again when the priority or the collapsibility of an item changes. A change of its
    /// limits does not cause a layout.
    void addObservationForItems(const QList<ZelPrioritySplitViewItem *> &items);
    void removeObservationForItems(const QList<ZelPrioritySplitViewItem *> &items);

    /// The least and greatest coordinate of the divider after the pane at the index: neither that pane nor the next
    /// gets shorter than its minimum or longer than its maximum. A coordinate is the distance from the start of the
    /// first pane to the end of the pane before the divider.
    virtual double splitViewConstrainMinCoordinateOfSubviewAt(QSplitter *splitView, double proposed, qsizetype index);
    virtual double splitViewConstrainMaxCoordinateOfSubviewAt(QSplitter *splitView, double proposed, qsizetype index);
    /// Lays out the panes for the present size. The old size is ignored.
    virtual void splitViewResizeSubviewsWithOldSize(QSplitter *splitView, const QSizeF &oldSize);
    virtual bool splitViewCanCollapseSubview(QSplitter *splitView, QWidget *subview);

    /// True for a pane that is collapsed or hidden; false for other panes and widgets.
    bool isSubviewCollapsed(const QWidget *subview);
    /// Collapses the pane, or opens it with its former length. The other panes take or give the room by priority. Does
    /// nothing if there is nothing to change or the pane is hidden. The last shown pane cannot be collapsed.
    void setSubviewCollapsed(QWidget *subview, bool collapsed);

    bool filterEvent(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void itemsChanged();

private:
    friend class ZelSplitViewDividers;
    using Panes = ZelSplitViewPanes::List;

    bool isReady() const;
    Panes readPanes();
    /// The present panes. Those that are in `before` have their former lengths.
    Panes readPanes(const Panes &before);
    double minimumOf(const Panes &panes, int index) const;
    double maximumOf(const Panes &panes, int index) const;
    int leastOf(const Panes &panes, int index) const; // minimumOf() in whole points
    void itemsDidChange();
    void distribute(Panes &panes, const QWidget *except) const;
    /// Lays out the panes. A pane that was just opened gives room only if the others have none left.
    void layOut(const Panes &before, const QWidget *opened = nullptr, bool mayRepeat = true);
    /// Gives the panes exactly these lengths.
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
    bool m_isBusy = false;               // is resizing panes or delivering an event, must not react
    const QEvent *m_delivered = nullptr; // the event that is just being sent to the splitter again
    enum class Applied { Nothing, BySplitter, InPlace } m_applied = Applied::Nothing; // InPlace: not by QSplitter
    bool m_isLayoutPosted = false;
    bool m_arePanesWatched = false;
    QSet<const QObject *> m_watchedPanes;
};
