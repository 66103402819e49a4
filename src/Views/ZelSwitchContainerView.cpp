// SPDX-License-Identifier: MIT
#include "Views/ZelSwitchContainerView.h"

#include "Observation/ZelObservations.h"

namespace {

const char context = 0;

void takeOut(QWidget *view)
{
    const auto *zelView = qobject_cast<ZelView *>(view);
    const bool isOrphan = zelView && !zelView->viewController(); // its controller died and left it here
    ZelView::removeFromSuperview(view);
    if (isOrphan)
        view->deleteLater();
}

} // namespace

ZelSwitchContainerView::ZelSwitchContainerView(QWidget *parent)
    : ZelView(parent)
{
}

ZelSwitchContainerView::~ZelSwitchContainerView()
{
    uninstall();
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
    if (m_selectedIndex == index)
        return;
    m_selectedIndex = index;
    Q_EMIT selectedChildViewControllerIndexChanged();
}

void ZelSwitchContainerView::setConstraintSelectdView(bool constraint)
{
    if (m_constraintSelectdView == constraint)
        return;
    m_constraintSelectdView = constraint;
    setNeedsUpdateConstraints();
}

void ZelSwitchContainerView::viewDidInstall()
{
    ZelView::viewDidInstall();
    const ZelObservations observations(this);
    observations.addObservationWithObject(
        this, "childViewControllers", ZelKeyValueObservingOptionEqualCheck,
        [this](ZelBlockObservation *, const ZelKeyValueChange &) { updateChildViews(); }, &context);
    observations.addObservationWithObject(
        this, "selectedChildViewControllerIndex", ZelKeyValueObservingOptionEqualCheck,
        [this](ZelBlockObservation *, const ZelKeyValueChange &) { updateSelectedChildView(); }, &context);
    updateChildViews();
}

void ZelSwitchContainerView::viewWillUninstall()
{
    ZelView::viewWillUninstall();
    ZelObservations(this).removeAllObservationsForContext(&context);
}

void ZelSwitchContainerView::updateChildViews()
{
    for (const QPointer<QWidget> view : subviews())
        if (view)
            takeOut(view);
    // What is hidden is so before it comes in: the views that are not shown would be laid out for nothing.
    quint64 index = 0;
    for (const QPointer<ZelViewController> controller : childViewControllers()) {
        ZelView *view = controller ? controller->view() : nullptr;
        if (!view)
            continue;
        if (index++ != m_selectedIndex)
            view->hide();
        addSubview(view);
    }
    updateSelectedChildView();
    if (!m_constraintSelectdView)
        setNeedsUpdateConstraints();
}

void ZelSwitchContainerView::updateSelectedChildView()
{
    quint64 index = 0;
    for (ZelViewController *controller : childViewControllers()) {
        ZelView *view = controller->view();
        const bool hidden = index++ != m_selectedIndex;
        if (view && view->isHidden() != hidden)
            view->setVisible(!hidden);
    }
    if (m_constraintSelectdView)
        setNeedsUpdateConstraints();
}

void ZelSwitchContainerView::updateConstraints()
{
    ZelView::updateConstraints();
    removeConstraints(std::exchange(m_containerConstraints, {}));
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
    m_containerConstraints = constraints;
    addConstraints(m_containerConstraints);
}
