// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/ZelChildControllers.h"
#include "ViewController/ZelViewController.h"

#include <memory>

class ZelStateKeeper;

/// The base of the controllers that an inspector is made of, from its tabs down to its rows.
///
/// A container is the QObject parent of other controllers. It hands on to them, in their order, the calls to refresh,
/// to prepare for reuse, and to commit or discard what the user is entering. It has an owner, held weakly, against
/// which all key paths are evaluated. Lists of children are values: to change one, set another. A child that is taken
/// out of a list remains a QObject child, and may be deleted by whoever took it out.
class ZEL_EXPORT ZelInspectorContainer : public ZelViewController
{
    Q_OBJECT
    Q_PROPERTY(QObject *owner READ owner CONSTANT)
    Q_PROPERTY(QString stateKey READ stateKey WRITE setStateKey NOTIFY stateKeyChanged)
public:
    /// The owner is required: a missing one is an assertion.
    explicit ZelInspectorContainer(QObject *owner);
    ~ZelInspectorContainer() override;

    QObject *owner() const { return m_owner; }

    void refresh() override;
    void prepareForReuse() override;
    /// Asks the children, then the container's own editors; stops with false at the first refusal.
    bool commitEditing() override;
    void discardEditing() override;

    // State
    /// What the user has arranged in the container and below it: the selected tab, folded boxes, how far panes are
    /// scrolled, the origins of frame editors, and what application's classes add (see ZelInspectorState). Views are
    /// not loaded for it.
    QByteArray saveState() const;
    /// Answers false, and changes nothing, if the bytes are no state. Views that are not loaded yet take their part of
    /// it when they are loaded. Parts of the state that belong to nothing here are kept, and are saved again.
    bool restoreState(const QByteArray &state);
    /// While the state is held, saveState answers what it was when it began to be, but for the text of a search. A
    /// search holds it, because it changes folds and tabs for a while.
    void setStateHeld(bool held);
    /// Null by default. With a key, the state is kept in the settings (see ZelInspectorState): it is restored when the
    /// view is loaded, and saved after every change. Within a container that has a key, the key only names this one.
    const QString &stateKey() const;
    void setStateKey(const QString &key);
    /// What the container is called in a state: the key, or what was set, or the title. It should be the same in all
    /// languages; descriptions set the title as it is written.
    QString stateName() const;
    void setStateName(const QString &name);

    /// The controllers of which the container consists, in their order; also those that are not in use.
    virtual QList<QPointer<ZelViewController>> allChildControllers() const { return childControllers(); }

    void viewWillLoad() override;
    void viewWillUninstall() override;

Q_SIGNALS:
    void stateKeyChanged();

protected:
    virtual QList<QPointer<ZelViewController>> childControllers() const = 0;
    /// Writes the state into the settings if it has changed. To be called by destructors, while the children are known.
    void flushState();

private:
    struct State;
    State &state() const;
    ZelStateKeeper &stateKeeper() const;
    bool keepsOwnState() const;

    QPointer<QObject> m_owner;
    mutable std::unique_ptr<State> m_state; // made when it is first needed
};
