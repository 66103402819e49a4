// SPDX-License-Identifier: MIT
#include "Views/ZelContainerView.h"

#include "Core/Values/private/ZelAssign.h"
#include "Observation/ZelObservations.h"
#include "ViewController/ZelInstalledContext.h"

ZelContainerView::ZelContainerView(QWidget *parent)
    : ZelView(parent)
{
}

ZelContainerView::ZelContainerView(const ZelKeyedCoder &coder, QWidget *parent)
    : ZelView(coder, parent)
{
}

ZelContainerView::~ZelContainerView()
{
    uninstall();
}

bool ZelContainerView::drawsContent() const
{
    return typeid(*this) != typeid(ZelContainerView);
}

void ZelContainerView::setChildViewController(ZelViewController *controller)
{
    if (ZelAssign(m_childViewController, controller))
        Q_EMIT childViewControllerChanged();
}

void ZelContainerView::viewDidInstall()
{
    ZelView::viewDidInstall();
    ZelObservations(this).addObservationWithObject(
        this, "childViewController", ZelKeyValueObservingOptionEqualCheck,
        [this](ZelBlockObservation *, const ZelKeyValueChange &) {
            updateChildViewWithOldViewController(m_shownViewController, m_childViewController);
        },
        &ZelInstalledContext);
    updateChildViewWithOldViewController(nullptr, m_childViewController);
}

void ZelContainerView::viewWillUninstall()
{
    ZelView::viewWillUninstall();
    updateChildViewWithOldViewController(m_childViewController, nullptr);
}

void ZelContainerView::updateChildViewWithOldViewController(ZelViewController *oldViewController,
                                                            ZelViewController *newViewController)
{
    // Loading, taking out and installing call the application, which may delete the container and both views, and which
    // may choose another child.
    const QPointer<ZelContainerView> guard(this);
    const QPointer<ZelView> oldView =
        oldViewController && oldViewController->isViewLoaded() ? oldViewController->view() : nullptr;
    const QPointer<ZelView> newView = newViewController ? newViewController->view() : nullptr;
    if (!guard)
        return;
    m_shownViewController = newViewController;
    if (oldView == newView && (oldView || !m_shownView))
        return;
    removeConstraints(std::exchange(m_childConstraints, {}));
    if (oldView)
        oldView->removeFromSuperview();
    else if (m_shownView && m_shownView->parentWidget() == this)
        m_shownView->deleteLater(); // the view of a controller that has died
    if (!guard || m_shownViewController != newViewController)
        return;
    m_shownView = newView;
    if (!newView)
        return;
    newView->setGeometry(rect());
    addSubview(newView, 0);
    if (!guard || !newView || newView->parentWidget() != this || m_shownView != newView)
        return;
    for (const QString &format : {QStringLiteral("H:|[view]|"), QStringLiteral("V:|[view]|")})
        m_childConstraints += addConstraintsWithVisualFormat(format, {{QStringLiteral("view"), newView}});
}
