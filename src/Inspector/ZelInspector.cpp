// SPDX-License-Identifier: MIT
#include "Inspector/ZelInspector.h"

#include "Core/Values/private/ZelAssign.h"
#include "ExpandableViews/ZelExpandableHeader.h"
#include "ExpandableViews/ZelExpandableView.h"
#include "Inspector/private/ZelLazyStack.h"
#include "Resources/ZelLocalizedString.h"
#include "Views/ZelVerticalStackView.h"

ZelInspector::ZelInspector(QObject *owner)
    : ZelInspectorConditionalContainer(owner, Observes::ForLife)
{
    setTitle(ZelLocalizedString(QStringLiteral("No title")));
}

void ZelInspector::titleDidChange()
{
    if (m_box)
        m_box->setTitle(title());
}

ZelInspector::~ZelInspector()
{
    flushState();
    uninstall();
}

void ZelInspector::setSlices(const QList<ZelInspectorSlice *> &slices)
{
    const QList<ZelInspectorSlice *> former = this->slices();
    if (!m_slices.assign(slices, this))
        return;
    if (isViewInstalled()) {
        for (ZelInspectorSlice *slice : former)
            stopObservationOfSlice(slice);
        for (ZelInspectorSlice *slice : this->slices())
            startObservationForSlice(slice);
    }
    updateView();
    Q_EMIT slicesChanged();
}

void ZelInspector::setExpanded(bool expanded)
{
    if (!ZelAssign(m_expanded, expanded))
        return;
    const QPointer<ZelInspector> alive(this); // what is being typed in a body that folds is committed
    if (m_box)
        m_box->setExpanded(expanded);
    if (alive)
        Q_EMIT expandedChanged();
}

ZelVerticalStackView *ZelInspector::slicesView() const
{
    return m_slicesView;
}

void ZelInspector::loadView()
{
    m_box = new ZelExpandableView;
    setView(m_box);
    m_slicesView = new ZelVerticalStackView;
    m_box->setBodyView(m_slicesView);
    m_box->setStyle(1);
    m_box->setTitle(title());
    m_box->setExpanded(m_expanded);
    connect(m_box, &ZelExpandableView::expandedChanged, this, [this] { setExpanded(m_box->isExpanded()); });
    connect(m_box, &ZelExpandableView::expandedForAll, this, &ZelInspector::expandedForAll);
    Q_EMIT slicesViewChanged();
    updateView();
}

void ZelInspector::showHelp()
{
    if (m_box)
        m_box->header()->setToolTip(toolTip());
    view()->setWhatsThis(whatsThis());
}

void ZelInspector::viewDidInstall()
{
    ZelInspectorConditionalContainer::viewDidInstall();
    for (ZelInspectorSlice *slice : slices())
        startObservationForSlice(slice);
    updateView(); // the slices' visibility may have changed meanwhile
}

void ZelInspector::viewWillUninstall()
{
    ZelInspectorConditionalContainer::viewWillUninstall();
    for (ZelInspectorSlice *slice : slices())
        stopObservationOfSlice(slice);
}

void ZelInspector::startObservationForSlice(ZelInspectorSlice *slice)
{
    connect(slice, &ZelInspectorConditionalContainer::visibleChanged, this, &ZelInspector::sliceVisibleDidChange);
}

void ZelInspector::stopObservationOfSlice(ZelInspectorSlice *slice)
{
    disconnect(slice, &ZelInspectorConditionalContainer::visibleChanged, this, &ZelInspector::sliceVisibleDidChange);
}

void ZelInspector::updateView()
{
    if (m_slicesView)
        ZelStackLazily(m_slicesView.data(), slices());
}
