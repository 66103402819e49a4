// SPDX-License-Identifier: MIT
#include "Inspector/ZelInspectorPane.h"

#include "Inspector/private/ZelLazyStack.h"
#include "Views/ZelScrollView.h"
#include "Views/ZelVerticalStackView.h"

ZelInspectorPane::ZelInspectorPane(QObject *owner)
    : ZelInspectorContainer(owner)
{
}

ZelInspectorPane::~ZelInspectorPane()
{
    uninstall();
}

void ZelInspectorPane::setImage(const QIcon &image)
{
    m_image = image;
    Q_EMIT imageChanged();
}

void ZelInspectorPane::setInspectors(const QList<ZelInspector *> &inspectors)
{
    const QList<ZelInspector *> former = this->inspectors();
    if (!m_inspectors.assign(inspectors, this))
        return;
    if (isViewInstalled()) {
        refresh();
        for (ZelInspector *inspector : former)
            stopObservationOfInspector(inspector);
        for (ZelInspector *inspector : this->inspectors())
            startObservationForInspector(inspector);
        updateView();
    }
    Q_EMIT inspectorsChanged();
}

ZelScrollView *ZelInspectorPane::scrollView() const
{
    return m_scrollView;
}

ZelVerticalStackView *ZelInspectorPane::containerView() const
{
    return m_containerView;
}

void ZelInspectorPane::loadView()
{
    auto *pane = new ZelView;
    pane->setBackgroundColor(ZelColor::named(QStringLiteral("System"), QStringLiteral("controlColor")));
    setView(pane);
    m_scrollView = new ZelScrollView(pane);
    m_containerView = new ZelVerticalStackView;
    m_containerView->setFlipped(true);
    m_scrollView->setDocumentView(m_containerView);
    for (const QString &format : {QStringLiteral("H:|[scrollView]|"), QStringLiteral("V:|[scrollView]|")})
        pane->addConstraintsWithVisualFormat(format, {{QStringLiteral("scrollView"), m_scrollView}});
    Q_EMIT scrollViewChanged();
    Q_EMIT containerViewChanged();
}

void ZelInspectorPane::viewDidInstall()
{
    ZelInspectorContainer::viewDidInstall();
    for (ZelInspector *inspector : inspectors())
        startObservationForInspector(inspector);
    updateView();
}

void ZelInspectorPane::viewWillUninstall()
{
    ZelInspectorContainer::viewWillUninstall();
    for (ZelInspector *inspector : inspectors())
        stopObservationOfInspector(inspector);
    prepareForReuse();
    if (m_containerView)
        m_containerView->setSubviews({});
}

void ZelInspectorPane::startObservationForInspector(ZelInspector *inspector)
{
    connect(inspector, &ZelInspectorConditionalContainer::visibleChanged, this,
            &ZelInspectorPane::inspectorVisibleDidChange);
}

void ZelInspectorPane::stopObservationOfInspector(ZelInspector *inspector)
{
    disconnect(inspector, &ZelInspectorConditionalContainer::visibleChanged, this,
               &ZelInspectorPane::inspectorVisibleDidChange);
}

void ZelInspectorPane::updateView()
{
    if (!isViewInstalled())
        return;
    const QPointer<ZelInspectorPane> alive(this); // a committed edit may delete this controller
    deactivateInspectors();
    if (alive && m_containerView)
        ZelStackLazily(m_containerView.data(), inspectors());
}

void ZelInspectorPane::deactivateInspectors()
{
    const QPointer<ZelInspectorPane> alive(this);
    for (const auto &inspector : childControllers()) {
        if (inspector && !inspector->commitEditing())
            return;
    }
    if (alive)
        prepareForReuse();
}
