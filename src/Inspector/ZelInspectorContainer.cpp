// SPDX-License-Identifier: MIT
#include "Inspector/ZelInspectorContainer.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Values/private/ZelAssign.h"
#include "Inspector/private/ZelStateKeeper.h"

ZelInspectorContainer::ZelInspectorContainer(QObject *owner)
    : m_owner(owner)
{
    ZelRequire(owner, "owner");
}

ZelInspectorContainer::~ZelInspectorContainer() = default;

void ZelInspectorContainer::refresh()
{
    for (const auto &child : childControllers()) {
        const ZelPlaceScope scope(child);
        if (child)
            child->refresh();
    }
}

void ZelInspectorContainer::prepareForReuse()
{
    for (const auto &child : childControllers()) {
        const ZelPlaceScope scope(child);
        if (child)
            child->prepareForReuse();
    }
}

bool ZelInspectorContainer::commitEditing()
{
    const QPointer<ZelInspectorContainer> alive(this); // a committed edit may delete this controller
    for (const auto &child : childControllers()) {
        const ZelPlaceScope scope(child);
        if (child && !child->commitEditing())
            return false;
    }
    return !alive || ZelViewController::commitEditing();
}

void ZelInspectorContainer::discardEditing()
{
    const QPointer<ZelInspectorContainer> alive(this);
    for (const auto &child : childControllers()) {
        const ZelPlaceScope scope(child);
        if (child)
            child->discardEditing();
    }
    if (alive)
        ZelViewController::discardEditing();
}

// State

ZelStateKeeper &ZelInspectorContainer::stateKeeper() const
{
    if (!m_stateKeeper)
        m_stateKeeper = std::make_unique<ZelStateKeeper>(const_cast<ZelInspectorContainer *>(this));
    return *m_stateKeeper;
}

QByteArray ZelInspectorContainer::saveState() const
{
    return stateKeeper().save();
}

bool ZelInspectorContainer::restoreState(const QByteArray &state)
{
    return stateKeeper().restore(state);
}

void ZelInspectorContainer::setStateHeld(bool held)
{
    stateKeeper().setHeld(held);
}

QString ZelInspectorContainer::stateName() const
{
    if (!m_stateKey.isEmpty())
        return m_stateKey;
    return m_stateName.isNull() ? title() : m_stateName;
}

void ZelInspectorContainer::setStateKey(const QString &key)
{
    if (!ZelAssign(m_stateKey, key))
        return;
    if (isViewLoaded() && keepsOwnState())
        stateKeeper().keepUnder(m_stateKey);
    Q_EMIT stateKeyChanged();
}

bool ZelInspectorContainer::keepsOwnState() const
{
    for (const QObject *above = parent(); above; above = above->parent()) {
        const auto *container = qobject_cast<const ZelInspectorContainer *>(above);
        if (container && !container->stateKey().isEmpty())
            return false;
    }
    return !m_stateKey.isEmpty();
}

void ZelInspectorContainer::viewWillLoad()
{
    ZelViewController::viewWillLoad();
    if (keepsOwnState())
        stateKeeper().keepUnder(m_stateKey);
}

void ZelInspectorContainer::viewWillUninstall()
{
    ZelViewController::viewWillUninstall();
    flushState();
}

void ZelInspectorContainer::flushState()
{
    if (m_stateKeeper)
        m_stateKeeper->flush();
}
