// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Observation/ZelBindingObservation.h"
#include "Observation/ZelBlockObservation.h"
#include "Observation/ZelDelegateObservation.h"
#include "Observation/ZelMajorEventObservation.h"
#include "Observation/ZelNotificationObservation.h"

#include <QMap>
#include <QStringList>

/// The observations of an owner, filed under contexts.
///
/// An object that watches others files its observations on itself under a context, the address of a static of its own,
/// and ends them with one call. It does so before it watches something else, and before it dies: what is still filed
/// when the owner dies is reported as not cancelled, and cancelled.
///
///     ZelObservations(this).addObservationWithObject(model, "title", ZelKeyValueObservingOptionEqualCheck,
///         [this](ZelBlockObservation *, const ZelKeyValueChange &) { m_updateViewInvocation.schedule(); }, &context);
///     ...
///     ZelObservations(this).removeAllObservationsForContext(&context);
///
/// A context must not be null: every operation asserts "context != NULL". A null owner has no observations.
class ZEL_EXPORT ZelObservations
{
public:
    explicit ZelObservations(QObject *owner)
        : m_owner(owner)
    {
    }

    /// Replaces what is filed; an empty list removes the entry. What is replaced is not cancelled.
    void setObservations(const QList<ZelObservationPtr> &observations, const void *context) const;
    QList<ZelObservationPtr> observationsForContext(const void *context) const;
    /// Files one more, at the end; does nothing for null.
    void addObservation(const ZelObservationPtr &observation, const void *context) const;
    /// Cancels all in their order, and drops them.
    void removeAllObservationsForContext(const void *context) const;

    // Each of these makes observations and files them, one for each name or key path.
    /// A null center is the default one, a null object any sender.
    void addObservationWithCenter(ZelNotificationCenter *center, const QString &name, QObject *object,
                                  const ZelNotificationObservation::Block &block, const void *context) const;
    void addObservationWithCenter(ZelNotificationCenter *center, const QStringList &names, QObject *object,
                                  const ZelNotificationObservation::Block &block, const void *context) const;
    void addObservationWithObject(QObject *object, const ZelKeyPath &keyPath, ZelKeyValueObservingOptions options,
                                  const ZelBlockObservation::Block &block, const void *context) const;
    void addObservationWithObject(QObject *object, const QStringList &keyPaths, ZelKeyValueObservingOptions options,
                                  const ZelBlockObservation::Block &block, const void *context) const;
    void addObservationWithObject(QObject *object, const ZelKeyPath &keyPath, ZelKeyValueObservingOptions options,
                                  QObject *observer, const ZelSelector &selector, const void *context) const;
    void addObservationWithObject(QObject *object, const QStringList &keyPaths, ZelKeyValueObservingOptions options,
                                  QObject *observer, const ZelSelector &selector, const void *context) const;
    void addBindingWithObject(QObject *object, const QString &name, QObject *toObject, const ZelKeyPath &keyPath,
                              const ZelBindingOptions &options, const void *context) const;
    /// Binds each name to its key path.
    void addBindingWithObject(QObject *object, QObject *toObject, const QMap<QString, QString> &namesAndKeyPaths,
                              const ZelBindingOptions &options, const void *context) const;

private:
    using List = QList<ZelObservationPtr>;
    List *listForContext(const void *context) const;

    QObject *m_owner;
};
