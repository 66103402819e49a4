// SPDX-License-Identifier: MIT
#include "Inspector/ZelInspectorPane.h"

#include "Core/Values/private/ZelAssign.h"
#include "Inspector/private/ZelInspectorNote.h"
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

void ZelInspectorPane::setNote(const QString &note)
{
    if (!ZelAssign(m_note, note))
        return;
    updateNote();
    Q_EMIT noteChanged();
}

void ZelInspectorPane::updateNote()
{
    if (!isViewInstalled() || !m_containerView)
        return;
    if (m_note.isEmpty() == !m_noteView) {
        if (m_noteView)
            m_noteView->setText(m_note);
        return;
    }
    if (m_note.isEmpty())
        delete m_noteView;
    else
        m_noteView = new ZelInspectorNote(m_note);
    stackInspectors();
}

ZelScrollView *ZelInspectorPane::scrollView() const
{
    return m_scrollView;
}

ZelVerticalStackView *ZelInspectorPane::containerView() const
{
    return m_containerView;
}

void ZelInspectorPane::showHelp()
{
    view()->setWhatsThis(whatsThis());
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
    const QPointer<ZelInspectorPane> alive(this);
    updateView();
    if (alive)
        updateNote();
}

void ZelInspectorPane::viewWillUninstall()
{
    ZelInspectorContainer::viewWillUninstall();
    for (ZelInspector *inspector : inspectors())
        stopObservationOfInspector(inspector);
    prepareForReuse();
    if (m_containerView)
        m_containerView->setSubviews({});
    delete m_noteView;
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
        stackInspectors();
}

void ZelInspectorPane::stackInspectors()
{
    ZelStackLazily(m_containerView.data(), inspectors(), m_noteView);
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
