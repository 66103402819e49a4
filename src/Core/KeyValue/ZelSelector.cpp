// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelSelector.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Values/ZelValues.h"

#include <QMetaMethod>

namespace {

/// Finds the method of that name with no argument or with one object; that of the most derived class comes first. What
/// every object has (deleteLater) and what is not public is out of reach, because names come from description files.
QMetaMethod methodOf(const QObject *target, const QString &selector)
{
    QString name = selector;
    while (name.endsWith(u':'))
        name.chop(1);
    const QByteArray wanted = name.toUtf8();
    const QMetaObject *metaObject = target->metaObject();
    for (int i = metaObject->methodCount() - 1; i >= QObject::staticMetaObject.methodCount(); --i) {
        const QMetaMethod method = metaObject->method(i);
        if (method.methodType() == QMetaMethod::Signal || method.access() != QMetaMethod::Public ||
            method.name() != wanted)
            continue;
        if (method.parameterCount() == 0 ||
            (method.parameterCount() == 1 && method.parameterType(0) == QMetaType::QObjectStar))
            return method;
    }
    return {};
}

} // namespace

bool ZelSelector::canPerform(const QObject *target) const
{
    return target && !isNull() && methodOf(target, m_name).isValid();
}

bool ZelSelector::perform(QObject *target, QObject *sender) const
{
    if (!target || isNull())
        return false;
    const QMetaMethod method = methodOf(target, m_name);
    if (!method.isValid()) {
        ZelLogError(
            QStringLiteral("%1 has no slot or invokable method \"%2\"").arg(ZelObjectDescription(target), m_name));
        return false;
    }
    if (method.parameterCount() == 0)
        return method.invoke(target, Qt::DirectConnection);
    return method.invoke(target, Qt::DirectConnection, Q_ARG(QObject *, sender));
}
