// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Binding/ZelBinding.h"
#include "Core/Values/ZelAbstractValueTransformer.h"
#include "Core/ZelExport.h"

/// A key for applications that remember a value to show where a binding has none; the library does nothing with it.
inline const QString ZelUnboundValueKey = QStringLiteral("ZelUnboundValue");

/// The values behind the bindings of an object, by the binding's name.
class ZEL_EXPORT ZelKeyValueBinding
{
public:
    explicit ZelKeyValueBinding(QObject *object)
        : m_object(object)
    {
    }

    /// Null if there is no such binding, or if the controller has died.
    QObject *controllerForBinding(const QString &binding) const;
    /// Empty if there is no such binding.
    ZelKeyPath keyPathForBinding(const QString &binding) const;
    /// Null if the binding has no transformer, or names one that is not registered.
    ZelValueTransformerPtr valueTransformerForBinding(const QString &binding) const;

    /// The value that the binding reads, transformed; for a name that is not bound, the property of that name. Asserts
    /// "binding != nil".
    QVariant valueForBinding(const QString &binding) const;
    /// For a name that is not bound, sets the property of that name. Does not write through a binding that has a
    /// controller: that is logged as an error, "ERROR: NSObservedObjectKey was nil for binding ...", and the model
    /// stays as it is. Asserts "binding != nil".
    void setValue(const QVariant &value, const QString &binding) const;

private:
    QObject *m_object;
};
