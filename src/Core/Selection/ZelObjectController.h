// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyPath.h"
#include "Core/ZelExport.h"

#include <QObject>
#include <QPointer>
#include <QVariant>
#include <functional>
#include <memory>

class ZelSelectionProxy;

/// The objects that an inspector edits, seen as one: `selection` answers a key with the value on which all selected
/// objects agree, or with a marker, and writes to all of them.
///
/// A controller owns nothing of the model. Its objects may die at any time and then leave the selection. If one of them
/// lacks a key, the answer is ZelNotApplicableMarker.
class ZEL_EXPORT ZelObjectController : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *selection READ selection NOTIFY selectionChanged)
    Q_PROPERTY(QList<QObject *> selectedObjects READ selectedObjects NOTIFY selectionChanged)
public:
    explicit ZelObjectController(QObject *parent = nullptr);
    ~ZelObjectController() override;

    /// The object that stands for all selected objects. It stays the same for the controller's whole life.
    QObject *selection() const;
    /// The selected objects that are alive, in their order.
    QList<QObject *> selectedObjects() const;
    qsizetype selectedCount() const;
    /// The selected objects as they are held, without a copy; those that have died meanwhile are null.
    const QList<QPointer<QObject>> &heldObjects() const;

    /// Selects these objects, without null and repeated ones. Nothing changes if they are selected already.
    void setSelectedObjects(const QList<QObject *> &objects);

    /// Holds back the notices of changes of the selected objects. When the outermost batch ends, one notice stands for
    /// all. Reading stays exact meanwhile. What an observer throws leaves the destructor.
    class ChangeBatch
    {
    public:
        explicit ChangeBatch(ZelObjectController *controller)
            : ChangeBatch(controller, {})
        {
        }
        /// The key path counts as changed in the end, even if the objects do not say so.
        ChangeBatch(ZelObjectController *controller, const ZelKeyPath &written);
        ~ChangeBatch() noexcept(false);
        Q_DISABLE_COPY_MOVE(ChangeBatch)

    private:
        QPointer<ZelObjectController> m_controller;
        ZelKeyPath m_written;
        int m_uncaught; // exceptions under way at the construction
    };

    /// Does the work while the notices of every controller of this thread are held back. What the work throws, and what
    /// observers throw in the end, is thrown on.
    static void batchChanges(const std::function<void()> &work);

Q_SIGNALS:
    /// Whatever is being entered for the present selection must be taken or dropped now.
    void selectionWillChange();
    void selectionChanged();

private:
    friend class ZelSelectionProxy;
    void replaceSelection(const QList<QPointer<QObject>> &objects);

    std::unique_ptr<ZelSelectionProxy> m_proxy;
};
