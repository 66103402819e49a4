// SPDX-License-Identifier: MIT
#include "SplitView/ZelSplitViewPanes.h"

#include <QLayoutItem>

using Pane = ZelSplitViewPanes::Pane;

namespace {

/// Makes the splitter believe that it is larger, by negative margins. Qt allows these only without the safe area.
class Enlargement
{
public:
    Enlargement(QSplitter *splitter, QSize size)
        : m_splitter(splitter)
        , m_margins(splitter->contentsMargins())
        , m_wasSafe(splitter->testAttribute(Qt::WA_ContentsMarginsRespectsSafeArea))
    {
        splitter->setAttribute(Qt::WA_ContentsMarginsRespectsSafeArea, false);
        splitter->setContentsMargins(m_margins - QMargins(0, 0, size.width(), size.height()));
    }
    ~Enlargement()
    {
        if (!m_splitter)
            return;
        m_splitter->setContentsMargins(m_margins);
        m_splitter->setAttribute(Qt::WA_ContentsMarginsRespectsSafeArea, m_wasSafe);
    }
    Q_DISABLE_COPY_MOVE(Enlargement)

private:
    QPointer<QSplitter> m_splitter;
    QMargins m_margins;
    bool m_wasSafe;
};

} // namespace

ZelSplitViewPanes::Axis::Axis(const QSplitter *splitter)
    : contents(splitter->contentsRect())
    , isHorizontal(splitter->orientation() == Qt::Horizontal)
    , isMirrored(isHorizontal && splitter->isRightToLeft())
{
}

int ZelSplitViewPanes::Axis::coordinate(QPoint point) const
{
    if (isMirrored)
        return contents.right() + 1 - point.x();
    return isHorizontal ? point.x() - contents.x() : point.y() - contents.y();
}

int ZelSplitViewPanes::Axis::start(const QRect &rect) const
{
    return coordinate(isMirrored ? QPoint(rect.right() + 1, rect.y()) : rect.topLeft());
}

QRect ZelSplitViewPanes::Axis::rect(int start, int length) const
{
    if (!isHorizontal)
        return {contents.x(), contents.y() + start, contents.width(), length};
    const int x = isMirrored ? contents.right() + 1 - start - length : contents.x() + start;
    return {x, contents.y(), length, contents.height()};
}

int ZelSplitViewPanes::Axis::before(const QMargins &margins) const
{
    if (!isHorizontal)
        return margins.top();
    return isMirrored ? margins.right() : margins.left();
}

int ZelSplitViewPanes::Axis::around(const QMargins &margins) const
{
    return isHorizontal ? margins.left() + margins.right() : margins.top() + margins.bottom();
}

ZelSplitViewPanes::List ZelSplitViewPanes::read(const QSplitter *splitter, const std::function<bool(int)> &mayCollapse)
{
    const Axis axis(splitter);
    List panes(size_t(splitter->count()));
    // All dividers have the same size hint, and asking the style for it is slow.
    const int thickness = panes.empty() ? 0 : axis.pick(splitter->handle(0)->sizeHint());
    for (int i = 0; i < splitter->count(); ++i) {
        Pane &pane = panes[size_t(i)];
        QWidget *widget = splitter->widget(i);
        pane.widget = widget;
        pane.isHidden = widget->isHidden();
        pane.maximum = axis.pick(widget->maximumSize());
        pane.thickness = thickness;
        // QSplitter moves a collapsed pane out of sight, but does not make it smaller than its minimum.
        const QRect geometry = widget->geometry();
        const bool isOutOfSight = (axis.isHorizontal ? geometry.bottom() : geometry.right()) < 0;
        pane.length = isOutOfSight ? 0 : axis.pick(widget->size());
        State *state = &this->state(size_t(i), widget);
        if (pane.isHidden)
            state->minimum = -1;
        else if (!m_areMinimumsKnown || state->minimum < 0)
            state->minimum = axis.pick(QWidgetItem(widget).minimumSize());
        pane.minimum = qMax(0, state->minimum);
        if (pane.length > 0) {
            state->isCollapsed = false;
            state->shownLength = pane.length;
        } else if (state->length != 0 && !pane.isHidden) {
            const bool isCollapsed = mayCollapse(i); // this may call read() again and move the states
            state = &this->state(size_t(i), widget);
            state->isCollapsed = isCollapsed;
        }
        pane.isCollapsed = state->isCollapsed;
    }
    m_areMinimumsKnown = splitter->isVisible();
    return panes;
}

int ZelSplitViewPanes::space(const QSplitter *splitter, const List &panes)
{
    int space = Axis(splitter).length();
    bool isFirst = true;
    for (const Pane &pane : panes) {
        if (!pane.isShown())
            continue;
        space -= pane.length + (isFirst ? 0 : pane.thickness);
        isFirst = false;
    }
    return space;
}

int ZelSplitViewPanes::start(const List &panes, int index)
{
    int offset = 0;
    bool isFirst = true;
    for (int i = 0; i < index; ++i) {
        const Pane &pane = panes[size_t(i)];
        if (!pane.isShown())
            continue;
        offset += pane.length + (isFirst ? 0 : pane.thickness);
        isFirst = false;
    }
    return isFirst ? offset : offset + panes[size_t(index)].thickness;
}

int ZelSplitViewPanes::end(const QSplitter *splitter, const List &panes, int index)
{
    if (panes[size_t(index)].isShown())
        return start(panes, index) + panes[size_t(index)].length;
    const int next = nearest(panes, index + 1, 1, false);
    if (next >= 0)
        return start(panes, next) - panes[size_t(next)].thickness;
    return Axis(splitter).length();
}

int ZelSplitViewPanes::nearest(const List &panes, int index, int step, bool withCollapsed)
{
    for (; index >= 0 && index < int(panes.size()); index += step) {
        const Pane &pane = panes[size_t(index)];
        if (withCollapsed ? !pane.isHidden : pane.isShown())
            return index;
    }
    return -1;
}

ZelSplitViewPanes::State &ZelSplitViewPanes::foundState(const QObject *pane)
{
    const auto known = std::find_if(m_states.begin(), m_states.end(), [&](const State &s) { return s.pane == pane; });
    return known != m_states.end() ? *known : m_states.emplace_back(State{pane});
}

void ZelSplitViewPanes::remember(const List &panes)
{
    for (size_t i = 0; i < panes.size(); ++i) {
        const Pane &pane = panes[i];
        State &state = this->state(i, pane.widget);
        state.length = pane.length;
        state.isCollapsed = pane.isCollapsed;
        if (pane.length > 0)
            state.shownLength = pane.length;
    }
}

bool ZelSplitViewPanes::apply(QSplitter *splitter, const List &panes)
{
    QList<int> sizes;
    sizes.reserve(qsizetype(panes.size()));
    int needed = 0;
    for (size_t i = 0; i < panes.size(); ++i) {
        sizes.append(panes[i].length);
        needed += panes[i].isShown() ? panes[i].length : 0;
        needed += splitter->handle(int(i))->isHidden() ? 0 : panes[i].thickness;
    }
    const Axis axis(splitter);
    const int missing = qMax(0, needed - axis.length());
    // In a right-to-left layout QSplitter misplaces panes by one point, so they are placed here.
    if (missing == 0 && !axis.isMirrored) {
        splitter->setSizes(sizes);
        return false;
    }
    const QPointer<QSplitter> alive(splitter);
    {
        const Enlargement enlargement(splitter, axis.isHorizontal ? QSize(missing, 0) : QSize(0, missing));
        splitter->setSizes(sizes);
    }
    place(alive, panes);
    return true;
}

bool ZelSplitViewPanes::isApplied(const QSplitter *splitter, const List &panes)
{
    const QList<int> sizes = splitter->sizes();
    const auto isSame = [](const Pane &pane, int size) { return !pane.isShown() || pane.length == size; };
    return std::equal(panes.begin(), panes.end(), sizes.begin(), sizes.end(), isSame);
}

void ZelSplitViewPanes::place(const QPointer<QSplitter> &splitter, const List &panes)
{
    for (size_t i = 0; i < panes.size(); ++i) {
        const Pane &pane = panes[i];
        const int index = !splitter                                 ? -1
                          : splitter->widget(int(i)) == pane.widget ? int(i)
                                                                    : splitter->indexOf(pane.widget);
        if (index < 0 || pane.isHidden)
            continue;
        const Axis axis(splitter);
        QSplitterHandle *handle = splitter->handle(index);
        const QMargins margins = handle->contentsMargins();
        // Dividers beside collapsed panes share one place. At the ends they cover a part of the first or the last shown
        // pane.
        const bool isLeading = nearest(panes, int(i) - 1, -1, false) < 0;
        const bool isTrailing = nearest(panes, int(i), 1, false) < 0;
        const int start = ZelSplitViewPanes::start(panes, int(i));
        const int divider = isLeading ? 0 : start - (isTrailing ? 2 : 1) * pane.thickness;
        handle->setGeometry(axis.rect(divider - axis.before(margins), pane.thickness + axis.around(margins)));
        handle->raise();
        if (pane.isShown())
            splitter->widget(index)->setGeometry(axis.rect(start, pane.length));
    }
}
