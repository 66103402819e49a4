// SPDX-License-Identifier: MIT
#include "Inspector/ZelInspectorPane.h"

#include "Core/Values/private/ZelAssign.h"
#include "Inspector/private/ZelInspectorNote.h"
#include "Inspector/private/ZelLazyStack.h"
#include "Views/ZelScrollView.h"
#include "Views/ZelVerticalStackView.h"

#include <QScrollBar>

ZelInspectorPane::ZelInspectorPane(QObject *owner)
    : ZelInspectorContainer(owner)
{
}

ZelInspectorPane::~ZelInspectorPane()
{
    flushState();
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
    const QPointer<ZelInspectorPane> alive(this);
    if (isViewInstalled()) {
        refresh();
        for (ZelInspector *inspector : former)
            stopObservationOfInspector(inspector);
        for (ZelInspector *inspector : this->inspectors())
            startObservationForInspector(inspector);
        updateView();
    }
    if (alive)
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
    followScrolling();
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
    if (alive)
        scrollIfDue();
}

void ZelInspectorPane::viewWillUninstall()
{
    ZelInspectorContainer::viewWillUninstall();
    for (ZelInspector *inspector : inspectors())
        stopObservationOfInspector(inspector);
    prepareForReuse();
    m_isScrollDue = true; // when the column is filled again
    if (m_containerView)
        m_containerView->setSubviews({});
    delete m_noteView;
}

void ZelInspectorPane::startObservationForInspector(ZelInspector *inspector)
{
    connect(inspector, &ZelInspectorConditionalContainer::visibleChanged, this,
            &ZelInspectorPane::inspectorVisibleDidChange);
    connect(inspector, &ZelInspector::expandedForAll, this, &ZelInspectorPane::setAllExpanded);
}

void ZelInspectorPane::stopObservationOfInspector(ZelInspector *inspector)
{
    disconnect(inspector, &ZelInspectorConditionalContainer::visibleChanged, this,
               &ZelInspectorPane::inspectorVisibleDidChange);
    disconnect(inspector, &ZelInspector::expandedForAll, this, &ZelInspectorPane::setAllExpanded);
}

void ZelInspectorPane::setAllExpanded(bool expanded)
{
    const QPointer<ZelInspectorPane> alive(this); // a box that folds may commit an edit
    for (const QPointer<ZelViewController> &child : childControllers()) {
        auto *inspector = alive ? qobject_cast<ZelInspector *>(child.data()) : nullptr;
        if (inspector)
            inspector->setExpanded(expanded);
    }
}

// Scrolling

void ZelInspectorPane::setScrollPosition(int position)
{
    m_isScrollDue = true;
    const bool isOther = ZelAssign(m_scrollPosition, qMax(0, position));
    scrollIfDue();
    if (isOther)
        Q_EMIT scrollPositionChanged();
}

void ZelInspectorPane::followScrolling()
{
    const QScrollBar *bar = m_scrollView->verticalScrollBar();
    connect(bar, &QScrollBar::rangeChanged, this, &ZelInspectorPane::scrollIfDue);
    connect(bar, &QScrollBar::valueChanged, this, &ZelInspectorPane::didScroll);
}

void ZelInspectorPane::scrollIfDue()
{
    if (!m_isScrollDue || !m_scrollView || !isViewInstalled())
        return;
    QScrollBar *bar = m_scrollView->verticalScrollBar();
    bar->setValue(m_scrollPosition);
    m_isScrollDue = bar->value() < m_scrollPosition;
}

/// As long as the column is too short for a position that is due, being at its end is not the user's doing.
void ZelInspectorPane::didScroll(int position)
{
    const bool isFarthest =
        m_scrollView && position == qMin(m_scrollPosition, m_scrollView->verticalScrollBar()->maximum());
    if (!isViewInstalled() || (m_isScrollDue && isFarthest))
        return;
    m_isScrollDue = false;
    if (ZelAssign(m_scrollPosition, position))
        Q_EMIT scrollPositionChanged();
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
