// SPDX-License-Identifier: MIT
#include "Views/ZelContainerView.h"

#include "Observation/ZelObservations.h"

namespace {
const char context = 0;
}

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
    if (m_childViewController == controller)
        return;
    m_childViewController = controller;
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
        &context);
    updateChildViewWithOldViewController(nullptr, m_childViewController);
}

void ZelContainerView::viewWillUninstall()
{
    ZelView::viewWillUninstall();
    ZelObservations(this).removeAllObservationsForContext(&context);
    updateChildViewWithOldViewController(m_childViewController, nullptr);
}

void ZelContainerView::updateChildViewWithOldViewController(ZelViewController *oldViewController,
                                                            ZelViewController *newViewController)
{
    ZelView *oldView = oldViewController && oldViewController->isViewLoaded() ? oldViewController->view() : nullptr;
    ZelView *newView = newViewController ? newViewController->view() : nullptr;
    m_shownViewController = newViewController;
    if (oldView == newView && (oldView || !m_shownView))
        return;
    removeConstraints(std::exchange(m_childConstraints, {}));
    if (oldView)
        oldView->removeFromSuperview();
    else if (m_shownView && m_shownView->parentWidget() == this)
        m_shownView->deleteLater(); // its controller died and left it here
    m_shownView = newView;
    if (!newView)
        return;
    newView->setGeometry(rect());
    addSubview(newView, 0);
    for (const QString &format : {QStringLiteral("H:|[view]|"), QStringLiteral("V:|[view]|")})
        m_childConstraints += addConstraintsWithVisualFormat(format, {{QStringLiteral("view"), newView}});
}
