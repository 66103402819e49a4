// SPDX-License-Identifier: MIT
#include "window/Panes.h"

#include "SplitView/ZelPrioritySplitViewDelegate.h"

#include <QEvent>
#include <QSettings>
#include <numeric>

namespace {
struct Limits
{
    const char *name; // in the settings
    int width;        // at first
    int least;
    int most;
    int priority;
    bool collapsible;
};

/// In the order of Panes::Pane.
constexpr Limits LimitTable[] = {
    {"list", 190, 120, 400, 0, true},
    {"canvas", 200, 200, QWIDGETSIZE_MAX, 2, false},
    {"inspector", 300, 240, 560, 1, true},
};

QString key(int pane, const char *what)
{
    return QStringLiteral("%1/%2").arg(QLatin1String(LimitTable[pane].name), QLatin1String(what));
}
} // namespace

/// Where the splitter shrinks, its items give room by their priority, the list first. Here the canvas gives what it can
/// before: the others get no shorter than the user made them, until that does not do. Since they begin with these
/// widths each time, a window that grows again gives them back.
class Panes::Delegate : public ZelPrioritySplitViewDelegate
{
public:
    /// The widths that the user chose, of each pane.
    Delegate(QSplitter *splitView, const int *widths)
        : ZelPrioritySplitViewDelegate(splitView, splitView)
        , m_widths(widths)
    {
    }

    void splitViewResizeSubviewsWithOldSize(QSplitter *splitView, const QSizeF &oldSize) override
    {
        {
            std::vector<std::unique_ptr<LengthKept>> kept;
            for (int i = 0; i < items().size(); ++i) {
                if (i != Canvas && !isSubviewCollapsed(splitView->widget(i)))
                    kept.push_back(std::make_unique<LengthKept>(items()[i], m_widths[i]));
            }
            ZelPrioritySplitViewDelegate::splitViewResizeSubviewsWithOldSize(splitView, oldSize);
        }
        ZelPrioritySplitViewDelegate::splitViewResizeSubviewsWithOldSize(splitView, oldSize);
    }

private:
    class LengthKept
    {
    public:
        LengthKept(ZelPrioritySplitViewItem *item, double length)
            : m_item(item)
            , m_minLength(item->minLength())
        {
            item->setMinLength(qMax(m_minLength, length));
        }
        ~LengthKept() { m_item->setMinLength(m_minLength); }
        Q_DISABLE_COPY_MOVE(LengthKept)

    private:
        ZelPrioritySplitViewItem *m_item;
        double m_minLength;
    };

    const int *m_widths;
};

Panes::Panes(QWidget *list, QWidget *canvas, QWidget *inspector)
    : m_delegate(new Delegate(this, m_widths))
{
    QList<ZelPrioritySplitViewItem *> items;
    int least = 0;
    for (QWidget *pane : {list, canvas, inspector}) {
        const Limits &limits = LimitTable[items.size()];
        items.append(new ZelPrioritySplitViewItem(limits.least, limits.most, limits.priority, limits.collapsible));
        addWidget(pane);
        pane->installEventFilter(this);
        m_widths[items.size() - 1] = limits.width;
        least += limits.least + handleWidth();
    }
    m_delegate->setItems(items);
    setMinimumWidth(least); // below, panes would reach beyond the window
    resizeHiddenPanes();
}

void Panes::resizeHiddenPanes()
{
    // As narrow as they may be: all that the window has more goes to the canvas.
    resize(std::accumulate(m_widths, m_widths + Count, (Count - 1) * handleWidth()), height());
    for (const Pane pane : {List, Canvas, Inspector})
        widget(pane)->resize(m_widths[pane], height());
}

void Panes::setPaneWidth(Pane pane, int width)
{
    ZelPrioritySplitViewItem *item = m_delegate->itemForViewIndex(pane);
    item->setMinLength(qMin<double>(item->minLength(), width));
    item->setMaxLength(qMax<double>(item->maxLength(), width));
    setCollapsed(pane, false);
    m_widths[pane] = width;
    if (!isVisible()) {
        resizeHiddenPanes();
        return;
    }
    QList<int> widths = sizes();
    widths[Canvas] += widths[pane] - width;
    widths[pane] = width;
    setSizes(widths);
}

bool Panes::isCollapsed(Pane pane) const
{
    return m_delegate->isSubviewCollapsed(widget(pane));
}

void Panes::setCollapsed(Pane pane, bool collapsed)
{
    m_delegate->setSubviewCollapsed(widget(pane), collapsed);
}

void Panes::save(QSettings &settings) const
{
    for (const Pane pane : {List, Inspector}) {
        settings.setValue(key(pane, "width"), m_widths[pane]);
        settings.setValue(key(pane, "collapsed"), isCollapsed(pane));
    }
}

void Panes::restore(const QSettings &settings)
{
    for (const Pane pane : {List, Inspector}) {
        const Limits &limits = LimitTable[pane];
        const int width = settings.value(key(pane, "width"), limits.width).toInt();
        setPaneWidth(pane, qBound(limits.least, width, limits.most));
        setCollapsed(pane, settings.value(key(pane, "collapsed")).toBool());
    }
}

bool Panes::eventFilter(QObject *watched, QEvent *event)
{
    // The panes are still being laid out.
    if ((event->type() == QEvent::Move || event->type() == QEvent::Resize) && !std::exchange(m_hasMoved, true))
        QMetaObject::invokeMethod(this, &Panes::paneMoved, Qt::QueuedConnection);
    return ZelSplitView::eventFilter(watched, event);
}

void Panes::paneMoved()
{
    m_hasMoved = false;
    bool isChanged = false;
    bool isOpened = false;
    for (const Pane pane : {List, Canvas, Inspector}) {
        const bool collapsed = isCollapsed(pane);
        if (std::exchange(m_collapsed[pane], collapsed) == collapsed)
            continue;
        isOpened = isOpened || !collapsed;
        // Nobody is to get by the keyboard into what cannot be seen.
        if (collapsed && widget(pane)->isAncestorOf(window()->focusWidget()))
            widget(Canvas)->setFocus();
        widget(pane)->setEnabled(!collapsed);
        isChanged = true;
    }
    // A pane that is opened takes its room by priority, from the other one beside the canvas. The canvas is to give it.
    if (isOpened)
        m_delegate->adjustSubviews();
    noteWidths(isOpened);
    if (isChanged)
        Q_EMIT collapsedChanged();
}

void Panes::noteWidths(bool isOpened)
{
    // In a window of the same width it is the user who has moved a divider.
    const bool isMovedByUser = std::exchange(m_seenWidth, width()) == width() && !isOpened;
    for (const Pane pane : {List, Canvas, Inspector}) {
        const int width = widget(pane)->width();
        if (!m_collapsed[pane] && std::exchange(m_seenWidths[pane], width) != width && isMovedByUser)
            m_widths[pane] = width;
    }
}
