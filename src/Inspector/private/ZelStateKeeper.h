// SPDX-License-Identifier: MIT
#pragma once

#include "Observation/ZelDelayedInvocation.h"

#include <QJsonObject>
#include <QObject>
#include <optional>

class ZelInspectorContainer;
class ZelViewController;

/// Saves and restores the state of a panel; with a key, in the settings and by itself.
///
/// The keeper remembers what it was told of parts that do not exist, so that it is saved again.
class ZelStateKeeper : public QObject
{
    Q_OBJECT
public:
    explicit ZelStateKeeper(ZelInspectorContainer *panel);

    QByteArray save() const;
    bool restore(const QByteArray &bytes);
    /// Saves what the state is now, instead of what it will be, until it is held no longer.
    void setHeld(bool held);

    /// Restores the state that the settings have for the key, and writes it there when it has changed, a little later.
    /// Only the first call does something.
    void keepUnder(const QString &key);
    /// Writes at once what was to be written later.
    void flush();

private Q_SLOTS:
    void stateDidChange();
    void partsDidChange();

private:
    static void restoreParts(ZelViewController *controller, const QJsonObject &state);
    void watch(ZelViewController *controller, const QJsonObject &state);
    bool follow(ZelViewController *controller);
    void write();

    ZelInspectorContainer *m_panel;
    QJsonObject m_kept;
    std::optional<QJsonObject> m_held;
    QString m_key; // null until the state is kept
    ZelDelayedInvocation m_writing{[this] { write(); }};
};
