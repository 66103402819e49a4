// SPDX-License-Identifier: MIT
#pragma once

#include "SplitView/ZelSplitViewPanes.h"

#include <QHash>
#include <optional>

class QKeyEvent;
class QMouseEvent;
class ZelPrioritySplitViewDelegate;

/// The mouse and the keyboard on the dividers of a delegate's splitter.
class ZelSplitViewDividers
{
public:
    explicit ZelSplitViewDividers(ZelPrioritySplitViewDelegate *delegate)
        : m_delegate(delegate)
    {
    }
    /// The dividers get back what watch() has changed.
    ~ZelSplitViewDividers();

    /// Lets the divider take the focus.
    void watch(QSplitterHandle *handle);
    void forget(const QObject *handle) { m_watched.remove(handle); }
    /// Whether the event is done with.
    bool handleEvent(QSplitterHandle *handle, QEvent *event);

private:
    using Panes = ZelSplitViewPanes::List;
    struct Watched
    {
        QPointer<QSplitterHandle> handle;
        bool hadNoFocus = false;
        bool hadNoName = false;
    };
    /// Two panes whose common boundary is moved.
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
    /// The lengths after the divider was moved as near to the coordinate as it may go.
    std::optional<Panes> moved(QSplitterHandle *handle, int coordinate, bool mayCollapse) const;
    bool collapse(Panes &panes, const Pair &pair, int coordinate) const;
    void moveTo(QSplitterHandle *handle, int coordinate, bool mayCollapse);
    void toggle(QSplitterHandle *handle);

    ZelPrioritySplitViewDelegate *m_delegate;
    QHash<const QObject *, Watched> m_watched;
    QPointer<QSplitterHandle> m_pressed;
    int m_offset = 0; // of the mouse from the divider
};
