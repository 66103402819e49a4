// SPDX-License-Identifier: MIT
#include "SplitView/ZelSplitViewDividers.h"

#include "Resources/ZelLocalizedString.h"
#include "SplitView/ZelPrioritySplitViewDelegate.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <cmath>

namespace {

constexpr int g_step = 10;

/// Gives access to a protected function of any QSplitter.
struct Access : QSplitter
{
    static void showBand(QSplitter *splitter, int position) { (splitter->*&Access::setRubberBand)(position); }
};

} // namespace

ZelSplitViewDividers::~ZelSplitViewDividers()
{
    for (const Watched &watched : std::as_const(m_watched)) {
        if (watched.handle && watched.hadNoFocus)
            watched.handle->setFocusPolicy(Qt::NoFocus);
        if (watched.handle && watched.hadNoName)
            watched.handle->setAccessibleName(QString());
    }
}

void ZelSplitViewDividers::watch(QSplitterHandle *handle)
{
    Watched watched{handle, handle->focusPolicy() == Qt::NoFocus, handle->accessibleName().isEmpty()};
    if (watched.hadNoFocus)
        handle->setFocusPolicy(Qt::TabFocus);
    if (watched.hadNoName)
        handle->setAccessibleName(ZelLocalizedString(QStringLiteral("Divider")));
    m_watched.insert(handle, watched);
}

bool ZelSplitViewDividers::handleEvent(QSplitterHandle *handle, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return press(handle, static_cast<QMouseEvent *>(event));
    case QEvent::MouseMove:
        return move(handle, static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        return release(handle, static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonDblClick:
        if (static_cast<QMouseEvent *>(event)->button() != Qt::LeftButton)
            return false;
        toggle(handle);
        return true;
    case QEvent::KeyPress:
        return pressKey(handle, static_cast<QKeyEvent *>(event));
    case QEvent::Paint:
        return handle->hasFocus() && paint(handle, event);
    default:
        return false;
    }
}

// Mouse and keyboard

namespace {

int mouseCoordinate(const QSplitterHandle *handle, const QMouseEvent *event)
{
    const QSplitter *splitter = handle->splitter();
    return ZelSplitViewPanes::Axis(splitter).coordinate(splitter->mapFromGlobal(event->globalPosition().toPoint()));
}

} // namespace

bool ZelSplitViewDividers::press(QSplitterHandle *handle, const QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        m_pressed = handle;
        m_offset = mouseCoordinate(handle, event) - position(handle);
    }
    return false;
}

bool ZelSplitViewDividers::move(QSplitterHandle *handle, const QMouseEvent *event)
{
    if (!(event->buttons() & Qt::LeftButton))
        return false;
    if (m_pressed != handle)
        return true;
    const int coordinate = mouseCoordinate(handle, event) - m_offset;
    QSplitter *splitter = handle->splitter();
    if (splitter->opaqueResize()) {
        moveTo(handle, coordinate, true);
        return true;
    }
    const std::optional<Panes> panes = moved(handle, coordinate, true);
    const ZelSplitViewPanes::Axis axis(splitter);
    const int index = splitter->indexOf(handle);
    const int bar =
        panes ? qMax(0, ZelSplitViewPanes::start(*panes, index) - (*panes)[size_t(index)].thickness) : position(handle);
    const QPoint corner = axis.rect(bar, splitter->handleWidth()).topLeft();
    Access::showBand(splitter, axis.isHorizontal ? corner.x() : corner.y());
    return true;
}

bool ZelSplitViewDividers::release(QSplitterHandle *handle, QMouseEvent *event)
{
    QSplitter *splitter = handle->splitter();
    if (event->button() != Qt::LeftButton)
        return false;
    const bool isDragged = m_pressed == handle;
    m_pressed = nullptr;
    if (splitter->opaqueResize())
        return false;
    const int coordinate = mouseCoordinate(handle, event) - m_offset;
    Access::showBand(splitter, -1);
    // The handle must get the release, but would move the panes itself. With opaque resizing it does not.
    const QPointer<QSplitter> alive(splitter);
    const QPointer<QSplitterHandle> aliveHandle(handle);
    splitter->setOpaqueResize(true);
    static_cast<QObject *>(handle)->event(event);
    if (alive)
        alive->setOpaqueResize(false);
    if (isDragged && aliveHandle)
        moveTo(handle, coordinate, true);
    return true;
}

bool ZelSplitViewDividers::pressKey(QSplitterHandle *handle, const QKeyEvent *event)
{
    const bool isHorizontal = handle->splitter()->orientation() == Qt::Horizontal;
    const bool isMirrored = isHorizontal && handle->splitter()->isRightToLeft();
    const int forward = isHorizontal ? (isMirrored ? Qt::Key_Left : Qt::Key_Right) : Qt::Key_Down;
    const int backward = isHorizontal ? (isMirrored ? Qt::Key_Right : Qt::Key_Left) : Qt::Key_Up;
    const int step = event->modifiers() & Qt::ShiftModifier ? 1 : g_step;
    const int key = event->key();
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    if (key == forward)
        moveTo(handle, position(handle) + step, false);
    else if (key == backward)
        moveTo(handle, position(handle) - step, false);
    else if (key == Qt::Key_Home)
        moveTo(handle, -QWIDGETSIZE_MAX, false);
    else if (key == Qt::Key_End)
        moveTo(handle, QWIDGETSIZE_MAX, false);
    else if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space)
        toggle(handle);
    else
        return false;
    return true;
}

bool ZelSplitViewDividers::paint(QSplitterHandle *handle, QEvent *event)
{
    static_cast<QObject *>(handle)->event(event);
    QPainter painter(handle);
    painter.fillRect(handle->contentsRect(), handle->palette().color(QPalette::Highlight));
    return true;
}

// Moving a divider

int ZelSplitViewDividers::position(const QSplitterHandle *handle) const
{
    const ZelSplitViewPanes::Axis axis(handle->splitter());
    return axis.start(handle->geometry()) + axis.before(handle->contentsMargins());
}

std::optional<ZelSplitViewDividers::Pair> ZelSplitViewDividers::pairAt(const Panes &panes, int index,
                                                                       int direction) const
{
    // The pane that grows may be collapsed; it then opens. The pane that shrinks must be shown, so collapsed ones are
    // skipped.
    const int left = ZelSplitViewPanes::nearest(panes, index - 1, -1, direction > 0);
    const int right = ZelSplitViewPanes::nearest(panes, index, 1, direction < 0);
    if (left < 0 || right < 0)
        return std::nullopt;
    return Pair{left, right, ZelSplitViewPanes::start(panes, left),
                ZelSplitViewPanes::end(m_delegate->splitView(), panes, right), panes[size_t(right)].thickness};
}

std::optional<std::pair<int, int>> ZelSplitViewDividers::range(const Panes &panes, const Pair &pair) const
{
    ZelPrioritySplitViewDelegate *delegate = m_delegate;
    const int last = pair.end - pair.thickness;
    double least = pair.start + delegate->minimumOf(panes, pair.left);
    double greatest =
        std::min(pair.start + delegate->maximumOf(panes, pair.left), last - delegate->minimumOf(panes, pair.right));
    least = std::max(least, last - delegate->maximumOf(panes, pair.right));
    const bool areShown = panes[size_t(pair.left)].isShown() && panes[size_t(pair.right)].isShown();
    if (areShown && pair.right == pair.left + 1) {
        QSplitter *splitter = delegate->splitView();
        least = delegate->splitViewConstrainMinCoordinateOfSubviewAt(splitter, least, pair.left);
        greatest = delegate->splitViewConstrainMaxCoordinateOfSubviewAt(splitter, greatest, pair.left);
    }
    if (std::ceil(least) > std::floor(greatest))
        return std::nullopt;
    return std::pair(int(std::ceil(least)), int(std::floor(greatest)));
}

bool ZelSplitViewDividers::collapse(Panes &panes, const Pair &pair, int coordinate) const
{
    const auto tryPane = [&](int index, int other, int length) {
        ZelSplitViewPanes::Pane &pane = panes[size_t(index)];
        const bool isBelowHalf = length <= 0 || length < m_delegate->minimumOf(panes, index) / 2;
        if (!isBelowHalf)
            return false;
        if (pane.isCollapsed)
            return true;
        const bool canCollapse = m_delegate->splitViewCanCollapseSubview(m_delegate->splitView(), pane.widget);
        const int room = pair.end - pair.start;
        if (!canCollapse || room < m_delegate->minimumOf(panes, other) || room > m_delegate->maximumOf(panes, other))
            return false;
        pane.isCollapsed = true;
        pane.length = 0;
        // The other pane may have been collapsed, and all panes may have been too long, so the lengths are distributed
        // again.
        panes[size_t(other)].isCollapsed = false;
        panes[size_t(other)].length = room;
        m_delegate->distribute(panes, nullptr);
        return true;
    };
    return tryPane(pair.left, pair.right, coordinate - pair.start) ||
           tryPane(pair.right, pair.left, pair.end - pair.thickness - coordinate);
}

std::optional<ZelSplitViewPanes::List> ZelSplitViewDividers::moved(QSplitterHandle *handle, int coordinate,
                                                                   bool mayCollapse) const
{
    Panes panes = m_delegate->readPanes();
    const int direction = coordinate - position(handle);
    const std::optional<Pair> pair = pairAt(panes, handle->splitter()->indexOf(handle), direction);
    if (!pair || direction == 0)
        return std::nullopt;
    ZelSplitViewPanes::Pane &left = panes[size_t(pair->left)];
    ZelSplitViewPanes::Pane &right = panes[size_t(pair->right)];
    if (mayCollapse && collapse(panes, *pair, coordinate))
        return panes;
    const std::optional<std::pair<int, int>> range = this->range(panes, *pair);
    if (!range)
        return std::nullopt;
    coordinate = qBound(range->first, coordinate, range->second);
    left.isCollapsed = right.isCollapsed = false;
    left.length = coordinate - pair->start;
    right.length = pair->end - pair->thickness - coordinate;
    return panes;
}

void ZelSplitViewDividers::moveTo(QSplitterHandle *handle, int coordinate, bool mayCollapse)
{
    const std::optional<Panes> panes = moved(handle, coordinate, mayCollapse);
    if (!panes)
        return;
    const QPointer<QSplitterHandle> alive(handle);
    const QPoint before = handle->pos();
    m_delegate->apply(*panes);
    if (!alive || alive->pos() == before)
        return;
    QSplitter *splitter = alive->splitter();
    const QPoint bar = alive->geometry().marginsRemoved(alive->contentsMargins()).topLeft();
    Q_EMIT splitter->splitterMoved(splitter->orientation() == Qt::Horizontal ? bar.x() : bar.y(),
                                   splitter->indexOf(alive));
}

void ZelSplitViewDividers::toggle(QSplitterHandle *handle)
{
    QSplitter *splitter = handle->splitter();
    const Panes panes = m_delegate->readPanes();
    const int index = splitter->indexOf(handle);
    const int beside[] = {ZelSplitViewPanes::nearest(panes, index - 1, -1, true),
                          ZelSplitViewPanes::nearest(panes, index, 1, true)};
    for (int i : beside)
        if (i >= 0 && panes[size_t(i)].isCollapsed)
            return m_delegate->setSubviewCollapsed(panes[size_t(i)].widget, false);
    for (int i : beside)
        if (i >= 0 && m_delegate->splitViewCanCollapseSubview(splitter, panes[size_t(i)].widget))
            return m_delegate->setSubviewCollapsed(panes[size_t(i)].widget, true);
}
