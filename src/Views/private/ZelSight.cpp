// SPDX-License-Identifier: MIT
#include "Views/private/ZelSight.h"

#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "Layout/private/ZelLayoutTurn.h"
#include "Views/ZelScrollView.h"

#include <QScrollBar>
#include <QWidget>

#include <algorithm>

namespace {

constexpr int g_delay = 30; // in milliseconds, after what is seen was painted
constexpr int g_rounds = 8; // of parts that come because others turned out to be lower than assumed

} // namespace

/// A part that is seen, and where it stands in the visible area.
struct ZelSight::Anchor
{
    Part *part = nullptr;
    int position = 0;
};

ZelSight *ZelSight::around(const QWidget *widget)
{
    for (QWidget *around = widget->parentWidget(); around && !around->isWindow(); around = around->parentWidget()) {
        auto *view = qobject_cast<ZelScrollView *>(around);
        if (view && view->documentView() && view->documentView()->isAncestorOf(widget))
            return view->sight();
    }
    return nullptr;
}

ZelSight::ZelSight(ZelScrollView *view)
    : QObject(view)
    , m_view(view)
    , m_isEverythingSeen(QAccessible::isActive())
{
    QAccessible::installActivationObserver(this);
    m_ahead.setSingleShot(true);
    m_ahead.setInterval(g_delay);
    connect(&m_ahead, &QTimer::timeout, this, &ZelSight::letNextCome);
}

ZelSight::~ZelSight()
{
    QAccessible::removeActivationObserver(this);
}

void ZelSight::add(Part *part)
{
    if (!has(part))
        m_parts.push_back(part);
}

void ZelSight::remove(Part *part)
{
    m_parts.erase(std::remove(m_parts.begin(), m_parts.end(), part), m_parts.end());
}

bool ZelSight::has(const Part *part) const
{
    return std::find(m_parts.begin(), m_parts.end(), part) != m_parts.end();
}

void ZelSight::accessibilityActiveChanged(bool active)
{
    m_isEverythingSeen = active;
    ZelExceptionReporter::run(this, [this] { update(); });
}

void ZelSight::update()
{
    if (m_isUpdating || m_parts.empty())
        return;
    const ZelMemberScope updating(this, m_isUpdating, true);
    for (int round = 0; round < g_rounds && updating.isOwnerAlive(); ++round) {
        const Parts due = partsDue(0);
        if (due.empty())
            break;
        letCome(due);
    }
    if (updating.isOwnerAlive() && !m_isEverythingSeen)
        m_ahead.start();
    if (updating.isOwnerAlive())
        giveUpPartialParts();
    if (updating.isOwnerAlive())
        giveUpFarParts();
}

/// One at a time, so that nothing that the user does meanwhile has to wait long.
void ZelSight::letNextCome()
{
    const Parts due = m_view ? partsDue(viewportHeight() / 2) : Parts();
    if (m_isUpdating || due.empty())
        return;
    const ZelMemberScope updating(this, m_isUpdating, true);
    ZelExceptionReporter::run(this, [&] { letCome({due.front()}); });
    if (updating.isOwnerAlive() && due.size() > 1)
        m_ahead.start();
}

void ZelSight::scheduleUpdate()
{
    if (std::exchange(m_isScheduled, true))
        return;
    ZelLayoutTurn::instance().add(ZelLayoutTurn::Constraints, this, [](QObject *object) {
        auto *sight = static_cast<ZelSight *>(object);
        sight->m_isScheduled = false;
        sight->update();
    });
}

void ZelSight::bring(Part *part)
{
    if (!part->isWaiting())
        return;
    const ZelMemberScope updating(this, m_isUpdating, true);
    letCome({part});
}

// In the document's coordinates

int ZelSight::positionOf(Part *part) const
{
    return part->widget()->mapTo(m_view->documentView(), QPoint()).y();
}

int ZelSight::viewportHeight() const
{
    return m_view->viewport()->height();
}

/// The waiting parts in the visible area and the margin above and below it.
ZelSight::Parts ZelSight::partsDue(int margin) const
{
    Parts due;
    if (!m_view || !m_view->documentView())
        return due;
    const int top = m_view->verticalScrollBar()->value() - margin;
    const int bottom = top + viewportHeight() + 2 * margin;
    for (Part *part : m_parts) {
        if (!part->isWaiting())
            continue;
        const QWidget *widget = part->widget();
        if (!m_isEverythingSeen) {
            const bool isLaidOut = widget->isVisible() && !widget->testAttribute(Qt::WA_PendingResizeEvent);
            const int position = positionOf(part);
            if (!isLaidOut || position >= bottom || position + widget->height() <= qMax(top, position))
                continue;
        }
        due.push_back(part);
    }
    return due;
}

void ZelSight::letCome(const Parts &parts)
{
    const QPointer<ZelSight> alive(this);
    const Anchor seen = anchor();
    for (Part *part : parts) {
        if (alive && has(part))
            ZelExceptionReporter::run(part->widget(), [part] { part->comeIntoSight(); });
    }
    if (alive)
        measure(parts);
    if (alive)
        restore(seen);
    if (alive)
        Q_EMIT partsDidCome();
}

void ZelSight::measure(const Parts &parts)
{
    const QPointer<ZelSight> alive(this);
    const auto widgetsOf = [this](const Parts &all) {
        QList<QWidget *> widgets;
        for (Part *part : all) {
            if (has(part))
                widgets.append(part->widget());
        }
        return widgets;
    };
    ZelLayoutTurn::instance().perform(ZelLayoutTurn::ShownChildren);
    ZelLayoutTurn::settle(widgetsOf(parts));
    bool doOthersChange = false;
    for (Part *part : parts) {
        if (alive && has(part))
            doOthersChange = part->measure() || doOthersChange;
    }
    if (!alive || !doOthersChange)
        return;
    Parts others;
    std::copy_if(m_parts.begin(), m_parts.end(), std::back_inserter(others),
                 [](Part *part) { return part->isWaiting(); });
    for (Part *part : others)
        part->updateAssumedHeight();
    ZelLayoutTurn::settle(widgetsOf(others));
}

/// The topmost part that is seen, if possible one that does not wait. Nothing has to be kept in place at the top of the
/// document.
ZelSight::Anchor ZelSight::anchor() const
{
    Anchor best;
    const int top = m_view ? m_view->verticalScrollBar()->value() : 0;
    if (top <= 0 || !m_view->documentView())
        return best;
    for (Part *part : m_parts) {
        const QWidget *widget = part->widget();
        if (!widget->isVisible() || widget->testAttribute(Qt::WA_PendingResizeEvent))
            continue;
        const int position = positionOf(part) - top;
        if (position + widget->height() <= 0 || position >= viewportHeight())
            continue;
        const bool isBetter = best.part && best.part->isWaiting() != part->isWaiting() ? best.part->isWaiting()
                                                                                       : position < best.position;
        if (!best.part || isBetter)
            best = {part, position};
    }
    return best;
}

void ZelSight::restore(const Anchor &anchor)
{
    if (!anchor.part || !has(anchor.part) || !m_view || !m_view->documentView())
        return;
    QScrollBar *bar = m_view->verticalScrollBar();
    bar->setValue(positionOf(anchor.part) - anchor.position);
}

/// A part of which only some rows are there has not the height that it should have.
void ZelSight::giveUpPartialParts()
{
    const QPointer<ZelSight> alive(this);
    const Parts all = m_parts;
    Parts needed;
    for (Part *part : all) {
        if (alive && has(part) && part->isPartial() && !part->goOutOfSight())
            needed.push_back(part);
    }
    if (alive && !needed.empty())
        letCome(needed);
}

/// From the farthest on, but none within two heights of the visible area.
void ZelSight::giveUpFarParts()
{
    int weight = 0;
    for (const Part *part : m_parts)
        weight += part->weight();
    if (!m_view || !m_view->documentView() || weight <= m_view->keptRows() || m_isEverythingSeen)
        return;
    const int middle = m_view->verticalScrollBar()->value() + viewportHeight() / 2;
    std::vector<std::pair<int, Part *>> far;
    for (Part *part : m_parts) {
        const int distance = std::abs(positionOf(part) + part->widget()->height() / 2 - middle);
        if (part->weight() > 0 && distance > 2 * viewportHeight() + part->widget()->height() / 2)
            far.emplace_back(distance, part);
    }
    std::sort(far.begin(), far.end(), std::greater());
    const QPointer<ZelSight> alive(this);
    for (auto [distance, part] : far) {
        if (!alive || !m_view || weight <= m_view->keptRows())
            return;
        const int held = has(part) ? part->weight() : 0;
        if (held > 0 && part->goOutOfSight())
            weight -= held;
    }
}
