// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "SplitView/ZelSplitViewPanes.h"

#include <QHash>
#include <optional>

class QKeyEvent;
class QMouseEvent;
class ZelPrioritySplitViewDelegate;

/// Handles the mouse and the keyboard on the dividers of a delegate's splitter.
class ZEL_EXPORT ZelSplitViewDividers
{
public:
    explicit ZelSplitViewDividers(ZelPrioritySplitViewDelegate *delegate)
        : m_delegate(delegate)
    {
    }
    /// Undoes what watch() has changed on the dividers.
    ~ZelSplitViewDividers();

    /// Lets the divider take the focus, and gives it an accessible name.
    void watch(QSplitterHandle *handle);
    void forget(const QObject *handle) { m_watched.remove(handle); }
    /// Answers whether nothing is left to do for the event.
    bool handleEvent(QSplitterHandle *handle, QEvent *event);

private:
    using Panes = ZelSplitViewPanes::List;
    struct Watched
    {
        QPointer<QSplitterHandle> handle;
        bool hadNoFocus = false;
        bool hadNoName = false;
    };
    /// Two panes between which a divider moves.
    struct Pair
    {
        int left;
        int right;
        int start;
        int end;
        int thickness;
    };

    bool press(QSplitterHandle *handle, const QMouseEvent *event);
    bool move(QSplitterHandle *handle, const QMouseEvent *event);
    bool release(QSplitterHandle *handle, QMouseEvent *event);
    bool pressKey(QSplitterHandle *handle, const QKeyEvent *event);
    bool paint(QSplitterHandle *handle, QEvent *event);

    int position(const QSplitterHandle *handle) const;
    std::optional<Pair> pairAt(const Panes &panes, int index, int direction) const;
    std::optional<std::pair<int, int>> range(const Panes &panes, const Pair &pair) const;
    /// The panes after the divider was moved as near to the coordinate as it may go; none if it cannot be moved.
    std::optional<Panes> moved(QSplitterHandle *handle, int coordinate, bool mayCollapse) const;
    bool collapse(Panes &panes, const Pair &pair, int coordinate) const;
    void moveTo(QSplitterHandle *handle, int coordinate, bool mayCollapse);
    void toggle(QSplitterHandle *handle);

    ZelPrioritySplitViewDelegate *m_delegate;
    QHash<const QObject *, Watched> m_watched;
    QPointer<QSplitterHandle> m_pressed;
    int m_offset = 0; // from the start of the divider to the mouse
};
