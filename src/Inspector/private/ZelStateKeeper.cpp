// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelStateKeeper.h"

#include "Core/Errors/ZelExceptionReporter.h"
#include "Inspector/ZelInspectorContainer.h"
#include "Inspector/ZelInspectorPane.h"
#include "Inspector/ZelInspectorState.h"
#include "Inspector/ZelTabbedInspector.h"
#include "Inspector/private/ZelStateTree.h"

#include <QCoreApplication>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QSettings>

namespace {

constexpr double g_writingDelay = 0.5;           // in seconds
constexpr qsizetype g_maximumKeptSize = 1 << 20; // of a state with parts that do not exist, in bytes

QString settingsKey(const QString &key)
{
    return QStringLiteral("ZelInspectorState/") + key;
}

QMetaMethod slotNamed(const char *signature)
{
    const QMetaObject &metaObject = ZelStateKeeper::staticMetaObject;
    return metaObject.method(metaObject.indexOfSlot(signature));
}

} // namespace

ZelStateKeeper::ZelStateKeeper(ZelInspectorContainer *panel)
    : m_panel(panel)
{
    m_writing.setDelay(g_writingDelay);
}

QByteArray ZelStateKeeper::save() const
{
    if (m_held)
        return ZelStateTree::toBytes(ZelStateTree::withSearchText(*m_held, m_panel));
    const QByteArray bytes = ZelStateTree::toBytes(ZelStateTree::read(m_panel, m_kept));
    const bool isKeptTooMuch = !m_kept.isEmpty() && bytes.size() > g_maximumKeptSize;
    return isKeptTooMuch ? ZelStateTree::toBytes(ZelStateTree::read(m_panel)) : bytes;
}

bool ZelStateKeeper::restore(const QByteArray &bytes)
{
    const std::optional<QJsonObject> state = ZelStateTree::fromBytes(bytes);
    if (!state)
        return false;
    m_kept = *state;
    if (m_held)
        m_held = *state;
    restoreParts(m_panel, *state);
    return true;
}

void ZelStateKeeper::setHeld(bool held)
{
    m_held = held ? std::optional(ZelStateTree::read(m_panel, m_kept)) : std::nullopt;
}

void ZelStateKeeper::restoreParts(ZelViewController *controller, const QJsonObject &state)
{
    const QList<ZelStateTree::Part> parts = ZelStateTree::partsOf(controller);
    ZelStateTree::restore(controller, state);
    for (const ZelStateTree::Part &part : parts) {
        if (part.controller)
            restoreParts(part.controller, ZelStateTree::stateOfPart(state, part.name));
    }
}

// Keeping by itself

void ZelStateKeeper::keepUnder(const QString &key)
{
    if (!m_key.isNull() || key.isEmpty())
        return;
    m_key = key;
    if (const auto settings = ZelInspectorState::settings()) {
        if (const auto state = ZelStateTree::fromBytes(settings->value(settingsKey(key)).toByteArray()))
            m_kept = *state;
    }
    connect(qApp, &QCoreApplication::aboutToQuit, this, &ZelStateKeeper::flush);
    const QPointer<ZelStateKeeper> alive(this);
    watch(m_panel, m_kept);
    if (alive)
        m_writing.cancel(); // nothing has changed but what was restored
}

/// Restores the state of the parts that are not followed yet, and follows them.
void ZelStateKeeper::watch(ZelViewController *controller, const QJsonObject &state)
{
    const QPointer<ZelStateKeeper> alive(this);
    const QList<ZelStateTree::Part> parts = ZelStateTree::partsOf(controller);
    if (follow(controller))
        ZelStateTree::restore(controller, state);
    for (const ZelStateTree::Part &part : parts) {
        if (alive && part.controller)
            watch(part.controller, ZelStateTree::stateOfPart(state, part.name));
    }
}

/// Answers false if the controller is followed already.
bool ZelStateKeeper::follow(ZelViewController *controller)
{
    static const QMetaMethod stateDidChange = slotNamed("stateDidChange()");
    bool isNew = false;
    for (const QMetaProperty &property : ZelStateTree::propertiesOf(controller))
        isNew |= bool(connect(controller, property.notifySignal(), this, stateDidChange, Qt::UniqueConnection));
    if (const auto *inspector = qobject_cast<ZelTabbedInspector *>(controller))
        connect(inspector, &ZelTabbedInspector::panesChanged, this, &ZelStateKeeper::partsDidChange,
                Qt::UniqueConnection);
    else if (const auto *pane = qobject_cast<ZelInspectorPane *>(controller))
        connect(pane, &ZelInspectorPane::inspectorsChanged, this, &ZelStateKeeper::partsDidChange,
                Qt::UniqueConnection);
    return isNew;
}

void ZelStateKeeper::stateDidChange()
{
    m_writing.schedule();
}

/// Parts that are gone leave their state behind; new ones take theirs.
void ZelStateKeeper::partsDidChange()
{
    watch(m_panel, m_kept);
}

void ZelStateKeeper::flush()
{
    if (m_writing.isPending())
        ZelExceptionReporter::run(this, [this] { m_writing.invoke(); });
}

void ZelStateKeeper::write()
{
    const QByteArray bytes = save();
    m_kept = ZelStateTree::fromBytes(bytes).value_or(QJsonObject());
    if (const auto settings = ZelInspectorState::settings())
        settings->setValue(settingsKey(m_key), bytes);
}
