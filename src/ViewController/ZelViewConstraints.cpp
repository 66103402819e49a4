// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Values/ZelValues.h"
#include "Layout/ZelConstraintLayout.h"
#include "Layout/private/ZelLayoutTurn.h"
#include "ViewController/ZelView.h"
#include "ViewController/ZelViewController.h"

// The part of ZelView that deals with constraints and with when they are updated.

void ZelView::addConstraint(const ZelLayoutConstraint::Ptr &constraint)
{
    addConstraints({constraint});
}

void ZelView::addConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints)
{
    ZelConstraintLayout *layout = ZelConstraintLayout::of(this);
    if (layout)
        layout->addConstraints(constraints);
    else
        ZelFail(QStringLiteral("View %1 has a layout of another kind").arg(ZelObjectDescription(this)));
}

QList<ZelLayoutConstraint::Ptr> ZelView::addConstraintsWithVisualFormat(const QString &format,
                                                                        const QHash<QString, QWidget *> &views,
                                                                        const QHash<QString, double> &metrics)
{
    const auto constraints = ZelLayoutConstraint::constraintsWithVisualFormat(format, views, metrics);
    addConstraints(constraints);
    return constraints;
}

void ZelView::removeConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints)
{
    if (auto *constraintLayout = qobject_cast<ZelConstraintLayout *>(layout()))
        constraintLayout->removeConstraints(constraints);
}

bool ZelView::replaceConstraints(QList<ZelLayoutConstraint::Ptr> &member,
                                 const QList<ZelLayoutConstraint::Ptr> &constraints)
{
    if (member == constraints)
        return false;
    removeConstraints(std::exchange(member, constraints));
    addConstraints(member);
    return true;
}

QList<ZelLayoutConstraint::Ptr> ZelView::constraints() const
{
    const auto *constraintLayout = qobject_cast<ZelConstraintLayout *>(layout());
    return constraintLayout ? constraintLayout->constraints() : QList<ZelLayoutConstraint::Ptr>();
}

void ZelView::setNeedsUpdateConstraints()
{
    m_needsUpdateConstraints = true;
    if (m_installed)
        scheduleUpdateConstraints();
}

void ZelView::scheduleUpdateConstraints()
{
    if (m_isUpdateScheduled)
        return;
    m_isUpdateScheduled = true;
    ZelLayoutTurn::instance().add(ZelLayoutTurn::Constraints, this, [](QObject *object) {
        if (auto *view = qobject_cast<ZelView *>(object)) {
            view->m_isUpdateScheduled = false;
            view->updateConstraintsIfNeeded();
        }
    });
}

void ZelView::updateConstraintsIfNeeded()
{
    if (!m_needsUpdateConstraints)
        return;
    m_needsUpdateConstraints = false;
    updateConstraints();
}

void ZelView::updateConstraints()
{
    if (m_viewController)
        m_viewController->updateConstraints();
}

void ZelView::layoutSubviews()
{
    if (m_viewController)
        m_viewController->layout();
}

/// Any kind of layout may ask for these sizes, so constraints are updated here and not by our own layout. Exceptions
/// must not reach the caller, which is Qt.
void ZelView::updateConstraintsForLayout() const
{
    if (m_needsUpdateConstraints)
        ZelExceptionReporter::run(this, [this] { const_cast<ZelView *>(this)->updateConstraintsIfNeeded(); });
}

QSize ZelView::sizeHint() const
{
    updateConstraintsForLayout();
    return QWidget::sizeHint();
}

QSize ZelView::minimumSizeHint() const
{
    updateConstraintsForLayout();
    return QWidget::minimumSizeHint();
}

bool ZelView::hasHeightForWidth() const
{
    updateConstraintsForLayout();
    return QWidget::hasHeightForWidth();
}

int ZelView::heightForWidth(int width) const
{
    updateConstraintsForLayout();
    return QWidget::heightForWidth(width);
}
