// SPDX-License-Identifier: MIT
#include "Observation/ZelBindingObservation.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"

QSharedPointer<ZelBindingObservation>
ZelBindingObservation::bindingWithObject(QObject *object, const QString &bindingName, QObject *targetObject,
                                         const ZelKeyPath &keyPath, const ZelBindingOptions &options)
{
    const bool valid = ZelRequire(object, "object") && ZelRequire(!bindingName.isEmpty(), "bindingName") &&
                       ZelRequire(targetObject, "targetObject") && ZelRequire(!keyPath.isEmpty(), "keyPath");
    if (!valid)
        return {};
    return started<ZelBindingObservation>(object, bindingName, targetObject, keyPath, options);
}

ZelBindingObservation::ZelBindingObservation(QObject *object, const QString &bindingName, QObject *targetObject,
                                             const ZelKeyPath &keyPath, const ZelBindingOptions &options)
    : m_object(object)
    , m_bindingName(bindingName)
    , m_targetObject(targetObject)
    , m_keyPath(keyPath)
    , m_options(options)
{
}

QString ZelBindingObservation::description() const
{
    return title("ZelBindingObservation") % QStringLiteral("{object=%1, binding=%2 target=%3 keyPath=%4}")
                                                .arg(ZelObjectDescription(m_object), m_bindingName,
                                                     ZelObjectDescription(m_targetObject), m_keyPath.string());
}

void ZelBindingObservation::start()
{
    ZelBind(m_object, m_bindingName, m_targetObject, m_keyPath, m_options);
}

void ZelBindingObservation::stop()
{
    if (m_object) {
        ZelUnbind(m_object, m_bindingName);
        if (m_options.value(ZelNilOnCancelBindingOption).toBool())
            ZelSetValueForKeyPath(m_object, {}, m_bindingName);
    }
    m_object.clear();
    m_bindingName = {};
    m_targetObject.clear();
    m_keyPath = {};
    m_options = {};
}
