// SPDX-License-Identifier: MIT
#include "Core/Undo/private/ZelModelValidation.h"

#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/private/ZelValueTypeAccess.h"
#include "Core/Undo/private/ZelWriteTarget.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelValueConversion.h"

#include <QHash>
#include <algorithm>

namespace {

QMetaMethod findMethod(const QMetaObject *metaObject, ZelKey key)
{
    const QString property = key.string();
    const QByteArray name = QString(u"validate" + property.left(1).toUpper() + property.mid(1)).toUtf8();
    for (int i = metaObject->methodCount() - 1; i >= 0; --i) { // the most derived class comes last
        const QMetaMethod method = metaObject->method(i);
        const bool isCallable = method.methodType() == QMetaMethod::Method || method.methodType() == QMetaMethod::Slot;
        if (isCallable && method.access() == QMetaMethod::Public && method.parameterCount() == 1 &&
            method.returnType() == QMetaType::QString && method.name() == name)
            return method;
    }
    return {};
}

QString call(QObject *object, const QMetaMethod &method, QVariant value)
{
    const QMetaType type = method.parameterMetaType(0);
    const bool takesAnything = type.id() == QMetaType::QVariant;
    if (!takesAnything && ZelValueConversion::convert(value, type) != ZelValueConversion::Fits)
        return {}; // whoever writes it says what is wrong with its type
    QString reason;
    void *arguments[] = {&reason, takesAnything ? static_cast<void *>(&value) : value.data()};
    QMetaObject::metacall(object, QMetaObject::InvokeMetaMethod, method.methodIndex(), arguments);
    return reason;
}

/// The value at the path within the container, and what is around it, as it will be after the write.
QVariant replaced(const QVariant &container, const QVariant &value, const ZelKeyPath &path)
{
    if (path.isEmpty())
        return value;
    QVariant changed = container;
    (void)ZelValueTypeAccess::write(changed, path.first(),
                                    replaced(ZelValueForKey(container, path.first()), value, path.rest()));
    return changed;
}

} // namespace

bool ZelModelValidation::validates(const QObject *object)
{
    static QHash<std::pair<const QMetaObject *, ZelKey>, QMetaMethod> methods;
    const QMetaObject *metaObject = object->metaObject();
    if (metaObject == m_class)
        return m_method.isValid();
    auto known = methods.constFind({metaObject, m_key});
    if (known == methods.constEnd())
        known = methods.insert({metaObject, m_key}, findMethod(metaObject, m_key));
    m_class = metaObject;
    m_method = *known;
    return m_method.isValid();
}

bool ZelModelValidation::validates(const ZelWriteTarget &target)
{
    ZelModelValidation validation(target.path.first());
    return std::any_of(target.objectsOfEachClass.begin(), target.objectsOfEachClass.end(),
                       [&](const QPointer<QObject> &object) { return !object || validation.validates(object); });
}

bool ZelModelValidation::mayRefuse(QObject *root, const ZelKeyPath &path)
{
    const std::vector<ZelWriteTarget> targets = ZelWriteTarget::resolve(root, path);
    return std::any_of(targets.begin(), targets.end(), [](const ZelWriteTarget &target) { return validates(target); });
}

void ZelModelValidation::ask(QObject *object, const QVariant &value)
{
    ++m_count;
    const QString reason = validates(object) ? call(object, m_method, value) : QString();
    if (!reason.isEmpty() && m_refusing++ == 0)
        m_reason = reason;
}

void ZelModelValidation::askTargets(const std::vector<ZelWriteTarget> &targets, const QVariant &value)
{
    for (const ZelWriteTarget &target : targets) {
        if (!validates(target)) {
            m_count += target.objects.size();
            continue;
        }
        if (m_key != target.path.first()) {
            m_key = target.path.first();
            m_class = nullptr;
        }
        for (const QPointer<QObject> &object : target.objects) {
            if (!object)
                continue;
            const bool isPart = !target.path.isSingleKey() && validates(object) && ZelHasKey(object, m_key);
            ask(object, isPart ? replaced(ZelValueForKey(object.data(), m_key), value, target.path.rest()) : value);
        }
    }
}

ZelModelValidation ZelModelValidation::ofKeyPath(QObject *root, const ZelKeyPath &path, const QVariant &value)
{
    ZelModelValidation validation;
    if (root && !path.isEmpty())
        validation.askTargets(ZelWriteTarget::resolve(root, path), value);
    return validation;
}

void ZelModelValidation::check() const
{
    if (isRefused())
        throw ZelRefusedEditException(*this);
}
