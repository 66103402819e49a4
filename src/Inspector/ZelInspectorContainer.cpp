// SPDX-License-Identifier: MIT
#include "Inspector/ZelInspectorContainer.h"

#include "Core/Errors/ZelAssertions.h"
#include "Inspector/private/ZelStateKeeper.h"

struct ZelInspectorContainer::State
{
    QString key;
    QString name;
    std::unique_ptr<ZelStateKeeper> keeper; // made when it is first needed
};

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

ZelInspectorContainer::State &ZelInspectorContainer::state() const
{
    if (!m_state)
        m_state = std::make_unique<State>();
    return *m_state;
}

ZelStateKeeper &ZelInspectorContainer::stateKeeper() const
{
    std::unique_ptr<ZelStateKeeper> &keeper = state().keeper;
    if (!keeper)
        keeper = std::make_unique<ZelStateKeeper>(const_cast<ZelInspectorContainer *>(this));
    return *keeper;
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
    if (!stateKey().isEmpty())
        return stateKey();
    return !m_state || m_state->name.isNull() ? title() : m_state->name;
}

void ZelInspectorContainer::setStateName(const QString &name)
{
    if (m_state || !name.isNull())
        state().name = name;
}

const QString &ZelInspectorContainer::stateKey() const
{
    static const QString none;
    return m_state ? m_state->key : none;
}

void ZelInspectorContainer::setStateKey(const QString &key)
{
    if (key == stateKey())
        return;
    state().key = key;
    if (isViewLoaded() && keepsOwnState())
        stateKeeper().keepUnder(key);
    Q_EMIT stateKeyChanged();
}

bool ZelInspectorContainer::keepsOwnState() const
{
    for (const QObject *above = parent(); above; above = above->parent()) {
        const auto *container = qobject_cast<const ZelInspectorContainer *>(above);
        if (container && !container->stateKey().isEmpty())
            return false;
    }
    return !stateKey().isEmpty();
}

void ZelInspectorContainer::viewWillLoad()
{
    ZelViewController::viewWillLoad();
    if (keepsOwnState())
        stateKeeper().keepUnder(stateKey());
}

void ZelInspectorContainer::viewWillUninstall()
{
    ZelViewController::viewWillUninstall();
    flushState();
}

void ZelInspectorContainer::flushState()
{
    if (m_state && m_state->keeper)
        m_state->keeper->flush();
}
