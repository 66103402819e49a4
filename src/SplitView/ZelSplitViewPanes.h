// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QPointer>
#include <QSplitter>
#include <functional>
#include <vector>

/// Reads and applies the lengths of a splitter's panes.
///
/// A QSplitter that gets sizes that fill it exactly lays itself out as wanted. Otherwise it differs in two ways: it
/// squeezes panes that are too long together, and it leaves room for the divider beside a collapsed pane. In these
/// cases it gets the sizes while it takes itself for larger, so that it stores them, and the panes and dividers are
/// placed here.
class ZEL_EXPORT ZelSplitViewPanes
{
public:
    struct Pane
    {
        QWidget *widget = nullptr;
        int length = 0;    ///< points along the axis; 0 if collapsed
        int minimum = 0;   ///< of the widget itself
        int maximum = 0;   ///< of the widget itself
        int thickness = 0; ///< the width of the divider before the pane
        bool isHidden = false;
        bool isCollapsed = false;
        bool isShown() const { return !isHidden && !isCollapsed; }
    };
    using List = std::vector<Pane>;

    /// Maps coordinates along the axis. They start where the first pane begins and grow in the direction of reading.
    struct Axis
    {
        explicit Axis(const QSplitter *splitter);
        int pick(QSize size) const { return isHorizontal ? size.width() : size.height(); }
        int length() const { return pick(contents.size()); }
        int coordinate(QPoint point) const;
        int start(const QRect &rect) const;
        QRect rect(int start, int length) const;
        /// The margin of a divider before its bar, and the sum of both margins.
        int before(const QMargins &margins) const;
        int around(const QMargins &margins) const;
        QRect contents;
        bool isHorizontal;
        bool isMirrored;
    };

    /// Reads the panes. `mayCollapse` tells whether a pane that something else has made empty counts as collapsed.
    /// While the splitter is visible, and so gets layout requests, the panes' own minimums are read only once until
    /// forgetMinimums().
    List read(const QSplitter *splitter, const std::function<bool(int)> &mayCollapse);
    /// What the panes leave of the splitter; negative if they are too long.
    static int space(const QSplitter *splitter, const List &panes);
    /// The coordinate where the pane begins, or would begin if it were not collapsed.
    static int start(const List &panes, int index);
    /// The coordinate where the pane ends, or would end.
    static int end(const QSplitter *splitter, const List &panes, int index);
    /// The index of the first shown pane from `index` on, in steps of 1 or -1. With `withCollapsed` a collapsed pane
    /// counts, too. -1 if there is none.
    static int nearest(const List &panes, int index, int step, bool withCollapsed);

    void forgetMinimums() { m_areMinimumsKnown = false; }
    /// Stores the lengths that are about to be applied.
    void remember(const List &panes);
    /// Lays out the splitter. Answers whether the panes had to be placed past the splitter's own layout. Panes may die
    /// during this, so a pane's widget may only be compared with those in the splitter.
    static bool apply(QSplitter *splitter, const List &panes);
    /// Whether the splitter has given the panes these lengths. It has not if the minimum of a pane has changed
    /// meanwhile.
    static bool isApplied(const QSplitter *splitter, const List &panes);
    /// The length that the pane had before it was collapsed.
    int lengthBeforeCollapse(const QWidget *pane) { return state(0, pane).shownLength; }
    void forget(const QObject *pane)
    {
        std::erase_if(m_states, [&](const State &state) { return state.pane == pane; });
    }

private:
    struct State
    {
        const QObject *pane = nullptr;
        int length = -1;     // the length applied last; -1 before the first time
        int shownLength = 0; // the last length that was not 0
        int minimum = -1;    // of the widget itself; -1 if not known
        bool isCollapsed = false;
    };
    static void place(const QPointer<QSplitter> &splitter, const List &panes);
    /// The pane's state. It is looked for at the given index first.
    State &state(size_t index, const QObject *pane)
    {
        return index < m_states.size() && m_states[index].pane == pane ? m_states[index] : foundState(pane);
    }
    State &foundState(const QObject *pane);
    std::vector<State> m_states;
    bool m_areMinimumsKnown = false;
};
