// SPDX-License-Identifier: MIT
#include "Views/ZelStackView.h"

#include "Core/Values/private/ZelAssign.h"
#include "Observation/ZelBlockObservation.h"
#include "Views/ZelHorizontalStackView.h"
#include "Views/ZelVerticalStackView.h"

#include <cmath>

namespace {

using Constraint = ZelLayoutConstraint;

constexpr ZelLayoutPriority g_chainPriority = 750;
constexpr ZelLayoutPriority g_compressionPriority = 751; // beats the spacing, so that a hidden subview collapses
constexpr ZelLayoutPriority g_trailingPriority = 250;
constexpr ZelLayoutPriority g_lastCompressionPriority = 251;
constexpr double g_room = 10000; // stands for any room: the compression constraint has no effect

bool isSlack(const Constraint &compression)
{
    return std::abs(compression.constant()) == g_room;
}

} // namespace

/// The attributes of one direction. Rows and columns differ in nothing else.
struct ZelStackView::Axis
{
    Constraint::Attribute start;
    Constraint::Attribute end;
    Constraint::Attribute length;
    Constraint::Attribute crossStart;
    Constraint::Attribute crossEnd;
    Constraint::Attribute lastCompressed; // the edge of a hidden last subview that is pulled to the end
};

const ZelStackView::Axis &ZelStackView::axis() const
{
    static const Axis horizontal{Constraint::Left, Constraint::Right,  Constraint::Width,
                                 Constraint::Top,  Constraint::Bottom, Constraint::Right};
    static const Axis vertical{Constraint::Top,  Constraint::Bottom, Constraint::Height,
                               Constraint::Left, Constraint::Right,  Constraint::Top};
    static const Axis directed{Constraint::Leading, Constraint::Trailing, Constraint::Width,
                               Constraint::Top,     Constraint::Bottom,   Constraint::Trailing};
    return m_orientation == Qt::Vertical ? vertical : m_isMirrored ? directed : horizontal;
}

ZelStackView::ZelStackView(Qt::Orientation orientation, QWidget *parent)
    : ZelView(parent)
    , m_orientation(orientation)
{
}

ZelStackView::ZelStackView(Qt::Orientation orientation, const ZelKeyedCoder &coder, QWidget *parent)
    : ZelView(coder, parent)
    , m_orientation(orientation)
{
}

ZelStackView::~ZelStackView()
{
    uninstall();
}

bool ZelStackView::drawsContent() const
{
    return typeid(*this) != typeid(ZelVerticalStackView) && typeid(*this) != typeid(ZelHorizontalStackView);
}

void ZelStackView::setEdgeInsets(const QMarginsF &insets)
{
    if (!ZelAssign(m_edgeInsets, insets))
        return;
    setNeedsUpdateConstraints();
    Q_EMIT edgeInsetsChanged();
}

void ZelStackView::setSpacing(double spacing)
{
    if (!ZelAssign(m_spacing, spacing))
        return;
    setNeedsUpdateConstraints();
    Q_EMIT spacingChanged();
}

void ZelStackView::setEqualSizes(bool equal)
{
    if (!ZelAssign(m_equalSizes, equal))
        return;
    setNeedsUpdateConstraints();
    Q_EMIT equalSizesChanged();
}

void ZelStackView::setMirrored(bool mirrored)
{
    if (ZelAssign(m_isMirrored, mirrored))
        setNeedsUpdateConstraints();
}

double ZelStackView::trailingInset() const
{
    return m_orientation == Qt::Horizontal ? m_edgeInsets.right() : m_edgeInsets.bottom();
}

// Observation of the subviews

void ZelStackView::viewDidInstall()
{
    ZelView::viewDidInstall();
    for (QWidget *subview : subviews()) {
        startObservationsForView(subview);
        const ZelLayoutConstraint::Ptr compression = m_compressionConstraints.value(subview);
        if (compression && isSlack(*compression) == subview->isHidden()) // it changed while the stack was not installed
            setNeedsUpdateConstraints();
    }
}

void ZelStackView::viewWillUninstall()
{
    ZelView::viewWillUninstall();
    for (const auto &observation : std::exchange(m_hiddenObservations, {}))
        observation->cancel();
}

void ZelStackView::didAddSubview(QWidget *subview)
{
    ZelView::didAddSubview(subview);
    if (isInstalled())
        startObservationsForView(subview);
    setNeedsUpdateConstraints();
}

void ZelStackView::willRemoveSubview(QWidget *subview)
{
    ZelView::willRemoveSubview(subview);
    stopObservationsForView(subview);
    setNeedsUpdateConstraints();
}

void ZelStackView::startObservationsForView(QWidget *subview)
{
    stopObservationsForView(subview);
    m_hiddenObservations.insert(
        subview, ZelBlockObservation::observationWithObject(
                     subview, "hidden", 0, [this](ZelBlockObservation *observation, const ZelKeyValueChange &) {
                         subviewDidHideOrShow(static_cast<QWidget *>(observation->object()));
                     }));
}

void ZelStackView::stopObservationsForView(QWidget *subview)
{
    if (subview) {
        if (const auto observation = m_hiddenObservations.take(subview))
            observation->cancel();
        return;
    }
    m_hiddenObservations.removeIf([](auto entry) { // a subview has died: find it
        const bool isOver = !entry.value()->object();
        if (isOver)
            entry.value()->cancel();
        return isOver;
    });
}

void ZelStackView::subviewDidHideOrShow(QWidget *subview)
{
    const ZelLayoutConstraint::Ptr compression = m_compressionConstraints.value(subview);
    if (!compression)
        return;
    const bool isLast = compression->priority() == g_lastCompressionPriority;
    if (!subview->isHidden())
        compression->setSlack(isLast ? -g_room : g_room);
    else // rows also get the bottom inset here; the next rebuild uses the right one
        compression->setConstant(isLast ? -m_edgeInsets.bottom() : 0);
}

// Constraints

void ZelStackView::updateConstraints()
{
    ZelView::updateConstraints();
    removeConstraints(std::exchange(m_stackConstraints, {}));
    removeConstraints(std::exchange(m_compressionConstraints, {}).values());
    const QList<QWidget *> views = subviews();
    m_stackConstraints.reserve(4 * views.size());
    m_compressionConstraints.reserve(views.size());
    QWidget *previous = nullptr;
    for (QWidget *view : views) {
        addConstraintsOfSubview(view, previous);
        previous = view;
    }
    if (previous)
        addTrailingConstraints(previous);
    else
        m_stackConstraints.append(Constraint::constraintWithItem(
            this, axis().length, Constraint::Equal, nullptr, Constraint::NotAnAttribute, 1,
            m_orientation == Qt::Horizontal ? m_edgeInsets.left() + m_edgeInsets.right()
                                            : m_edgeInsets.top() + m_edgeInsets.bottom(),
            g_trailingPriority));
    addConstraints(m_stackConstraints);
    QList<ZelLayoutConstraint::Ptr> compressions; // in the order of the views, not of the hash, which varies
    compressions.reserve(views.size());
    for (QWidget *view : views)
        compressions.append(m_compressionConstraints.value(view));
    addConstraints(compressions);
    Q_EMIT stackConstraintsChanged();
    Q_EMIT compressionConstraintsChanged();
}

void ZelStackView::setStackConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints)
{
    if (replaceConstraints(m_stackConstraints, constraints))
        Q_EMIT stackConstraintsChanged();
}

void ZelStackView::setCompressionConstraints(const ZelCompressionConstraints &constraints)
{
    if (m_compressionConstraints == constraints)
        return;
    removeConstraints(std::exchange(m_compressionConstraints, constraints).values());
    addConstraints(m_compressionConstraints.values());
    Q_EMIT compressionConstraintsChanged();
}

void ZelStackView::addConstraintsOfSubview(QWidget *view, QWidget *previous)
{
    const auto tie = [&](Constraint::Attribute attribute, QWidget *to, Constraint::Attribute toAttribute,
                         double constant, ZelLayoutPriority priority = ZelLayoutPriorityRequired) {
        m_stackConstraints.append(
            Constraint::constraintWithItem(view, attribute, Constraint::Equal, to, toAttribute, 1, constant, priority));
    };
    const bool horizontal = m_orientation == Qt::Horizontal;
    tie(axis().crossStart, this, axis().crossStart, horizontal ? m_edgeInsets.top() : m_edgeInsets.left());
    tie(axis().crossEnd, this, axis().crossEnd, horizontal ? -m_edgeInsets.bottom() : -m_edgeInsets.right());
    if (!previous) {
        tie(axis().start, this, axis().start, horizontal ? m_edgeInsets.left() : m_edgeInsets.top());
        return;
    }
    tie(axis().start, previous, axis().end, m_spacing, g_chainPriority);
    const auto compression = Constraint::constraintWithItem(view, axis().start, Constraint::LessThanOrEqual, previous,
                                                            axis().start, 1, 0, g_compressionPriority);
    if (!previous->isHidden())
        compression->setSlack(g_room);
    m_compressionConstraints.insert(previous, compression);
    if (m_equalSizes)
        tie(axis().length, previous, axis().length, 0);
}

void ZelStackView::addTrailingConstraints(QWidget *last)
{
    m_stackConstraints.append(Constraint::constraintWithItem(last, axis().end, Constraint::Equal, this, axis().end, 1,
                                                             -trailingInset(), g_trailingPriority));
    const auto compression =
        Constraint::constraintWithItem(last, axis().lastCompressed, Constraint::GreaterThanOrEqual, this, axis().end, 1,
                                       -trailingInset(), g_lastCompressionPriority);
    if (!last->isHidden())
        compression->setSlack(-g_room);
    m_compressionConstraints.insert(last, compression);
}

// Baseline

double ZelStackView::baselineOffsetForHeight(double height) const
{
    const QList<QWidget *> views = subviews();
    if (views.isEmpty())
        return height;
    const double firstHeight = m_orientation == Qt::Horizontal ? height - m_edgeInsets.top() - m_edgeInsets.bottom()
                                                               : views.first()->sizeHint().height();
    return m_edgeInsets.top() + ZelConstraintLayout::baselineOffset(views.first(), firstHeight);
}

double ZelStackView::baselineOffsetFromBottom() const
{
    const QList<QWidget *> views = subviews();
    if (views.isEmpty())
        return ZelView::baselineOffsetFromBottom();
    const QRect first = views.first()->geometry();
    return height() - first.y() - ZelConstraintLayout::baselineOffset(views.first(), first.height());
}
