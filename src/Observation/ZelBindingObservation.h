// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Binding/ZelBinding.h"
#include "Core/ZelExport.h"
#include "Observation/ZelObservation.h"

/// Option of a binding: true makes cancelling the binding also take the value away from the bound property.
inline const QString ZelNilOnCancelBindingOption = QStringLiteral("ZelNilOnCancelBindingOption");

/// A binding that ends by being cancelled, so that it can be filed and removed together with other observations.
class ZEL_EXPORT ZelBindingObservation final : public ZelObservation
{
public:
    /// Binds. Asserts "object", "bindingName", "targetObject" and "keyPath"; null if one of them is missing.
    static QSharedPointer<ZelBindingObservation> bindingWithObject(QObject *object, const QString &bindingName,
                                                                   QObject *targetObject, const ZelKeyPath &keyPath,
                                                                   const ZelBindingOptions &options = {});

    // Null or empty after cancel().
    QObject *object() const { return m_object; }
    const QString &bindingName() const { return m_bindingName; }
    QObject *targetObject() const { return m_targetObject; }
    const ZelKeyPath &keyPath() const { return m_keyPath; }
    const ZelBindingOptions &options() const { return m_options; }
    QString description() const override;

private:
    friend class ZelObservation;
    ZelBindingObservation(QObject *object, const QString &bindingName, QObject *targetObject, const ZelKeyPath &keyPath,
                          const ZelBindingOptions &options);
    void start() override;
    void stop() override;

    QPointer<QObject> m_object;
    QString m_bindingName;
    QPointer<QObject> m_targetObject;
    ZelKeyPath m_keyPath;
    ZelBindingOptions m_options;
};
