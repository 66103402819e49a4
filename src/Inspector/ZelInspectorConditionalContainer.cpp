// SPDX-License-Identifier: MIT
#include "Inspector/ZelInspectorConditionalContainer.h"

#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"
#include "Inspector/private/ZelRowBlock.h"
#include "Observation/ZelObservations.h"
#include "ViewController/ZelView.h"

namespace {
const char g_conditionContext = 0;
}

struct ZelInspectorConditionalContainer::Condition
{
    QString keyPath;
    ZelValueTransformerPtr transformer;
};

ZelInspectorConditionalContainer::ZelInspectorConditionalContainer(QObject *owner, Observes observes)
    : ZelInspectorContainer(owner)
    , m_observes(observes)
{
    if (observes == Observes::ForLife)
        bindAndConfigure();
}

ZelInspectorConditionalContainer::~ZelInspectorConditionalContainer()
{
    uninstall();
    unbindAndTearDown();
}

void ZelInspectorConditionalContainer::setVisible(bool visible)
{
    if (!ZelAssign(m_visible, visible))
        return;
    // What is being typed in a view that hides is committed, and the application's action may end the inspector.
    const QPointer<ZelInspectorConditionalContainer> alive(this);
    updateHidden();
    if (alive && !m_isFilteredOut)
        Q_EMIT shownChanged();
    if (alive)
        Q_EMIT visibleChanged();
}

void ZelInspectorConditionalContainer::setFilteredOut(bool filteredOut)
{
    if (!ZelAssign(m_isFilteredOut, filteredOut) || !m_visible)
        return;
    const QPointer<ZelInspectorConditionalContainer> alive(this);
    updateHidden();
    if (alive)
        Q_EMIT shownChanged();
}

ZelInspectorConditionalContainer::Condition &ZelInspectorConditionalContainer::condition()
{
    if (!m_condition)
        m_condition = std::make_unique<Condition>();
    return *m_condition;
}

const QString &ZelInspectorConditionalContainer::visibleKeyPath() const
{
    static const QString none;
    return m_condition ? m_condition->keyPath : none;
}

const ZelValueTransformerPtr &ZelInspectorConditionalContainer::visibleValueTransformer() const
{
    static const ZelValueTransformerPtr none;
    return m_condition ? m_condition->transformer : none;
}

void ZelInspectorConditionalContainer::setVisibleKeyPath(const QString &keyPath)
{
    if (keyPath == visibleKeyPath())
        return;
    condition().keyPath = keyPath;
    const QPointer<ZelInspectorConditionalContainer> alive(this);
    if (m_bound)
        bindAndConfigure();
    else if (m_block)
        m_block->rowDidChangeCondition(this);
    if (alive)
        Q_EMIT visibleKeyPathChanged();
}

void ZelInspectorConditionalContainer::setVisibleValueTransformer(const ZelValueTransformerPtr &transformer)
{
    if (transformer == visibleValueTransformer())
        return;
    condition().transformer = transformer;
    const QPointer<ZelInspectorConditionalContainer> alive(this);
    if (m_bound)
        updateVisible();
    if (alive)
        Q_EMIT visibleValueTransformerChanged();
}

void ZelInspectorConditionalContainer::updateVisible()
{
    if (visibleKeyPath().isEmpty())
        return;
    const ZelPlaceScope scope(this);
    QVariant value = ZelValueForKeyPath(owner(), visibleKeyPath());
    if (visibleValueTransformer())
        value = visibleValueTransformer()->transformedValue(value);
    setVisible(!ZelIsNull(value) && !ZelIsControllerMarker(value) && value.toBool());
}

void ZelInspectorConditionalContainer::bindAndConfigure()
{
    unbindAndTearDown();
    m_bound = true;
    if (visibleKeyPath().isEmpty() || !owner())
        return;
    const ZelPlaceScope scope(this);
    ZelObservations(this).addObservationWithObject(
        owner(), visibleKeyPath(), 0,
        [self = QPointer<ZelInspectorConditionalContainer>(this)](ZelBlockObservation *, const ZelKeyValueChange &) {
            if (self)
                ZelExceptionReporter::passOn(self.data(), [&] { self->updateVisible(); });
        },
        &g_conditionContext);
    updateVisible();
}

void ZelInspectorConditionalContainer::unbindAndTearDown()
{
    if (std::exchange(m_bound, false))
        ZelObservations(this).removeAllObservationsForContext(&g_conditionContext);
}

void ZelInspectorConditionalContainer::refresh()
{
    if (!awaitsSight())
        ZelInspectorContainer::refresh();
}

void ZelInspectorConditionalContainer::prepareForReuse()
{
    if (!awaitsSight())
        ZelInspectorContainer::prepareForReuse();
}

bool ZelInspectorConditionalContainer::commitEditing()
{
    return awaitsSight() || ZelInspectorContainer::commitEditing();
}

void ZelInspectorConditionalContainer::discardEditing()
{
    if (!awaitsSight())
        ZelInspectorContainer::discardEditing();
}

void ZelInspectorConditionalContainer::updateHidden()
{
    if (isViewLoaded())
        ZelView::setShown(view(), isShown());
    else if (awaitsSight())
        m_block->rowDidHideOrShow();
}

void ZelInspectorConditionalContainer::viewDidLoad()
{
    ZelInspectorContainer::viewDidLoad();
    if (!isShown())
        updateHidden();
    if (m_block)
        m_block->rowDidLoad();
}

void ZelInspectorConditionalContainer::viewDidInstall()
{
    ZelInspectorContainer::viewDidInstall();
    if (m_observes == Observes::WhileInstalled)
        bindAndConfigure();
    else
        updateVisible();
}

void ZelInspectorConditionalContainer::viewWillUninstall()
{
    ZelInspectorContainer::viewWillUninstall();
    if (m_observes == Observes::WhileInstalled)
        unbindAndTearDown();
}
