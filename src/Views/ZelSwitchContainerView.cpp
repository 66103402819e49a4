// SPDX-License-Identifier: MIT
#include "Views/ZelSwitchContainerView.h"

#include "Observation/ZelObservations.h"

namespace {

const char context = 0;
} // namespace

ZelSwitchContainerView::ZelSwitchContainerView(QWidget *parent)
    : ZelView(parent)
{
}

ZelSwitchContainerView::ZelSwitchContainerView(const ZelKeyedCoder &coder, QWidget *parent)
    : ZelView(coder, parent)
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
    Q_EMIT constraintSelectdViewChanged();
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
    m_takenViews.clear();
    // What is hidden is so before it comes in: the views that are not shown would be laid out for nothing.
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

/// What is not a controller's is only taken out. A controller that died has left its view here.
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
    const QPointer<ZelSwitchContainerView> alive(this); // hiding takes what was typed, whose action may end all of them
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
