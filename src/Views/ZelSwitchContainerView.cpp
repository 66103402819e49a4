// SPDX-License-Identifier: MIT
#include "Views/ZelSwitchContainerView.h"

#include "Core/Values/private/ZelAssign.h"
#include "Observation/ZelObservations.h"
#include "ViewController/ZelInstalledContext.h"

ZelSwitchContainerView::ZelSwitchContainerView(QWidget *parent)
    : ZelView(parent)
{
}

ZelSwitchContainerView::ZelSwitchContainerView(const ZelKeyedCoder &coder, QWidget *parent)
    : ZelView(coder, parent)
{
}

bool ZelSwitchContainerView::drawsContent() const
{
    return typeid(*this) != typeid(ZelSwitchContainerView);
}

QList<ZelViewController *> ZelSwitchContainerView::childViewControllers() const
{
    QList<ZelViewController *> controllers;
    controllers.reserve(m_childViewControllers.size());
    for (const QPointer<ZelViewController> &controller : m_childViewControllers)
        if (controller)
            controllers.append(controller);
    return controllers;
}

void ZelSwitchContainerView::setChildViewControllers(const QList<ZelViewController *> &controllers)
{
    m_childViewControllers = {controllers.begin(), controllers.end()};
    Q_EMIT childViewControllersChanged();
}

void ZelSwitchContainerView::setSelectedChildViewControllerIndex(quint64 index)
{
    if (ZelAssign(m_selectedIndex, index))
        Q_EMIT selectedChildViewControllerIndexChanged();
}

void ZelSwitchContainerView::setConstraintSelectdView(bool constraint)
{
    if (!ZelAssign(m_constraintSelectdView, constraint))
        return;
    setNeedsUpdateConstraints();
    Q_EMIT constraintSelectdViewChanged();
}

void ZelSwitchContainerView::viewDidInstall()
{
    ZelView::viewDidInstall();
    const ZelObservations observations(this);
    observations.addObservationWithObject(
        this, "childViewControllers", ZelKeyValueObservingOptionEqualCheck,
        [this](ZelBlockObservation *, const ZelKeyValueChange &) { updateChildViews(); }, &ZelInstalledContext);
    observations.addObservationWithObject(
        this, "selectedChildViewControllerIndex", ZelKeyValueObservingOptionEqualCheck,
        [this](ZelBlockObservation *, const ZelKeyValueChange &) { updateSelectedChildView(); }, &ZelInstalledContext);
    updateChildViews();
}

void ZelSwitchContainerView::updateChildViews()
{
    for (const QPointer<QWidget> view : subviews())
        if (view)
            takeOut(view);
    m_takenViews.clear();
    // Views are hidden before they are added, so that those that are not shown are not laid out.
    quint64 index = 0;
    for (const QPointer<ZelViewController> controller : childViewControllers()) {
        ZelView *view = controller ? controller->view() : nullptr;
        if (!view)
            continue;
        if (index++ != m_selectedIndex)
            view->hide();
        m_takenViews.append(view);
        addSubview(view);
    }
    updateSelectedChildView();
    if (!m_constraintSelectdView)
        setNeedsUpdateConstraints();
}

/// Takes the view out. It is deleted only if it belonged to a controller that has died.
void ZelSwitchContainerView::takeOut(QWidget *view)
{
    const auto *zelView = qobject_cast<ZelView *>(view);
    const bool isOrphan = zelView && !zelView->viewController() && m_takenViews.contains(view);
    removeFromSuperview(view);
    if (isOrphan)
        view->deleteLater();
}

void ZelSwitchContainerView::updateSelectedChildView()
{
    const QList<ZelViewController *> all = childViewControllers();
    const QList<QPointer<ZelViewController>> controllers(all.begin(), all.end());
    const QPointer<ZelSwitchContainerView> alive(this); // hiding commits typing, whose action may delete all of them
    quint64 index = 0;
    for (const QPointer<ZelViewController> &controller : controllers) {
        ZelView *view = alive && controller ? controller->view() : nullptr;
        const bool hidden = !alive || index++ != m_selectedIndex;
        if (view && view->isHidden() != hidden)
            setShown(view, !hidden);
    }
    if (alive && m_constraintSelectdView)
        setNeedsUpdateConstraints();
}

void ZelSwitchContainerView::updateConstraints()
{
    ZelView::updateConstraints();
    QList<ZelLayoutConstraint::Ptr> constraints;
    quint64 index = 0;
    for (ZelViewController *controller : childViewControllers()) {
        const bool takesPart = !m_constraintSelectdView || index == m_selectedIndex;
        ++index;
        if (!takesPart || !controller->isViewLoaded() || controller->view()->parentWidget() != this)
            continue;
        for (const QString &format : {QStringLiteral("H:|[view]|"), QStringLiteral("V:|[view]|")})
            constraints += ZelLayoutConstraint::constraintsWithVisualFormat(
                format, {{QStringLiteral("view"), controller->view()}});
    }
    setContainerConstraints(constraints);
}

void ZelSwitchContainerView::setContainerConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints)
{
    if (replaceConstraints(m_containerConstraints, constraints))
        Q_EMIT containerConstraintsChanged();
}
