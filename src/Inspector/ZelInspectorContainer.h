// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/ZelChildControllers.h"
#include "ViewController/ZelViewController.h"

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
public:
    /// The owner is required: a missing one is an assertion.
    explicit ZelInspectorContainer(QObject *owner);

    QObject *owner() const { return m_owner; }

    void refresh() override;
    void prepareForReuse() override;
    /// Asks the children, then the container's own editors; stops with false at the first refusal.
    bool commitEditing() override;
    void discardEditing() override;

protected:
    virtual QList<QPointer<ZelViewController>> childControllers() const = 0;

private:
    QPointer<QObject> m_owner;
};
