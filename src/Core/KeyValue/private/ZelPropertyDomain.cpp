// SPDX-License-Identifier: MIT
#include "Core/KeyValue/private/ZelPropertyDomain.h"

#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/KeyValue/private/ZelValueTypeAccess.h"
#include "Core/Values/ZelValues.h"

#include <algorithm>

ZelPropertyDomain ZelPropertyDomain::ofKeyPath(const QObject *object, const ZelKeyPath &path)
{
    ZelPropertyDomain domain;
    domain.addPath(object, path);
    return domain;
}

ZelPropertyDomain ZelPropertyDomain::ofType(QMetaType type)
{
    ZelPropertyDomain domain;
    domain.add(type, true);
    return domain;
}

void ZelPropertyDomain::add(QMetaType type, bool isWritable)
{
    m_isWritable = m_isWritable && isWritable;
    if (type.isValid() && !m_types.contains(type))
        m_types.append(type);
}

void ZelPropertyDomain::addPath(const QObject *object, const ZelKeyPath &path)
{
    if (!object || path.isEmpty())
        return;
    if (const ZelKeyValueCodingInterface *own = ZelPropertyAccessor::interfaceOf(object)) {
        own->visitObjects(path, [this](const QObject *target, const ZelKeyPath &rest) { addPath(target, rest); });
        return;
    }
    const ZelPropertyAccessor *accessor = ZelPropertyAccessor::find(object, path.first());
    if (!accessor)
        return;
    if (path.isSingleKey()) {
        add(accessor->type(), accessor->isWritable());
        return;
    }
    const QVariant value = ZelValueForKey(object, path.first());
    if (const QObject *next = ZelObject(value)) {
        addPath(next, path.rest());
        return;
    }
    m_isWritable = m_isWritable && accessor->isWritable(); // the changed container is stored
    addValuePath(value, path.rest());
}

void ZelPropertyDomain::addValuePath(const QVariant &container, const ZelKeyPath &path)
{
    if (const auto [type, isWritable] = ZelValueTypeAccess::property(container, path.first()); type.isValid()) {
        if (path.isSingleKey())
            add(type, isWritable);
        else
            addValuePath(ZelValueForKey(container, path.first()), path.rest());
    }
}

ZelValueConversion::Result ZelPropertyDomain::check(const QVariant &value) const
{
    for (const QMetaType type : m_types) {
        QVariant converted = value;
        if (const auto result = ZelValueConversion::convert(converted, type); result != ZelValueConversion::Fits)
            return result;
    }
    return ZelValueConversion::Fits;
}

bool ZelPropertyDomain::losesFraction(const QVariant &value) const
{
    return std::any_of(m_types.begin(), m_types.end(),
                       [&](QMetaType type) { return ZelValueConversion::losesFraction(value, type); });
}

ZelValueConversion::Limits ZelPropertyDomain::limits() const
{
    ZelValueConversion::Limits narrowest;
    for (const QMetaType type : m_types) {
        const ZelValueConversion::Limits limits = ZelValueConversion::limits(type);
        if (!limits.isValid())
            continue;
        if (!narrowest.isValid())
            narrowest = limits;
        if (limits.minimum.toDouble() > narrowest.minimum.toDouble())
            narrowest.minimum = limits.minimum;
        if (limits.maximum.toDouble() < narrowest.maximum.toDouble())
            narrowest.maximum = limits.maximum;
    }
    return narrowest;
}

QVariant ZelPropertyDomain::bounded(const QVariant &number) const
{
    const ZelValueConversion::Limits range = limits();
    if (!range.isValid() || check(number) != ZelValueConversion::OutOfRange)
        return number;
    const double middle = range.minimum.toDouble() / 2 + range.maximum.toDouble() / 2;
    return number.toDouble() < middle ? range.minimum : range.maximum;
}

bool ZelPropertyDomain::takesAllNumbers() const
{
    return std::all_of(m_types.begin(), m_types.end(), [](QMetaType type) {
        return type.id() == QMetaType::Double || type.id() == QMetaType::QVariant;
    });
}

bool ZelPropertyDomain::isOfTexts() const
{
    return m_types.size() == 1 && m_types.at(0).id() == QMetaType::QString;
}
