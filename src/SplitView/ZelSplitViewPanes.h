// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QSplitter>
#include <functional>
#include <vector>

/// The panes of a splitter: their lengths, read and applied.
///
/// The splitter lays itself out when it is given sizes that fill it. Two things it does not do: it squeezes panes that
/// are too long together, and it keeps the room of the divider beside a collapsed pane. There the sizes are given to it
/// as if it were larger, so that it knows them, and the panes and dividers are put in their places here.
class ZelSplitViewPanes
{
public:
    struct Pane
    {
        QWidget *widget = nullptr;
        int length = 0;    ///< points along the axis; 0 if collapsed
        int minimum = 0;   ///< of the widget itself
        int maximum = 0;   ///< of the widget itself
        int thickness = 0; ///< of the divider before the pane
        bool isHidden = false;
        bool isCollapsed = false;
        bool isShown() const { return !isHidden && !isCollapsed; }
    };
    using List = std::vector<Pane>;

    /// Coordinates along the axis, from where the panes begin, in the direction of reading.
    struct Axis
    {
        explicit Axis(const QSplitter *splitter);
        int pick(QSize size) const { return isHorizontal ? size.width() : size.height(); }
        int length() const { return pick(contents.size()); }
        int coordinate(QPoint point) const;
        int start(const QRect &rect) const;
        QRect rect(int start, int length) const;
        /// The margin of a divider before its bar, and both margins.
        int before(const QMargins &margins) const;
        int around(const QMargins &margins) const;
        QRect contents;
        bool isHorizontal;
        bool isMirrored;
    };

    /// `mayCollapse` tells whether a pane that somebody else has made empty counts as collapsed. The panes' own
    /// minimums are asked for once until forgetMinimums(), as long as the splitter is visible and so hears of changes.
    List read(const QSplitter *splitter, const std::function<bool(int)> &mayCollapse);
    /// What the panes leave of the splitter; negative if they are too long.
    static int space(const QSplitter *splitter, const List &panes);
    /// Where the pane begins, or would begin if it were not collapsed.
    static int start(const List &panes, int index);
    /// Where it ends, or would end.
    static int end(const QSplitter *splitter, const List &panes, int index);
    /// The nearest pane from the index on in steps of 1 or -1 that is shown, or, with collapsed ones, not hidden; or
    /// -1.
    static int nearest(const List &panes, int index, int step, bool withCollapsed);

    void forgetMinimums() { m_areMinimumsKnown = false; }
    /// Takes note of what is about to be applied.
    void remember(const List &panes);
    /// Lays out the splitter. Answers whether it had to be done in its place. Panes may die meanwhile, so that a pane's
    /// widget is only to be looked for in the splitter.
    static bool apply(QSplitter *splitter, const List &panes);
    /// Whether the splitter holds the panes at these lengths. It does not where one has another minimum by now.
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
        int length = -1;     // as applied last; -1: never
        int shownLength = 0; // the last one that was not 0
        int minimum = -1;    // the widget's own; -1: not known
        bool isCollapsed = false;
    };
    static void place(const QPointer<QSplitter> &splitter, const List &panes);
    /// The pane's state, looked for first where it is likely to be.
    State &state(size_t index, const QObject *pane)
    {
        return index < m_states.size() && m_states[index].pane == pane ? m_states[index] : foundState(pane);
    }
    State &foundState(const QObject *pane);
    std::vector<State> m_states;
    bool m_areMinimumsKnown = false;
};
