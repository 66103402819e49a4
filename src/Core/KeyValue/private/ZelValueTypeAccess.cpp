// SPDX-License-Identifier: MIT
#include "Core/KeyValue/private/ZelValueTypeAccess.h"

#include "Core/Values/private/ZelValueConversion.h"

#include <QMetaProperty>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace {

/// A component of a value type of two or four numbers.
struct Component
{
    QMetaType::Type type;
    const char *key;
    QVariant (*read)(const QVariant &);
    void (*write)(QVariant &, double);
};

template<typename Type, auto Get, auto Set> constexpr Component component(QMetaType::Type type, const char *key)
{
    return {type, key, [](const QVariant &v) { return QVariant((v.value<Type>().*Get)()); },
            [](QVariant &v, double number) {
                Type changed = v.value<Type>();
                (changed.*Set)(number);
                v = changed;
            }};
}

/// The origin of a rectangle. Writing it moves the rectangle; QRectF::setX and setY would resize it.
template<auto Get, auto Move> constexpr Component origin(const char *key)
{
    return {QMetaType::QRectF, key, [](const QVariant &v) { return QVariant((v.toRectF().*Get)()); },
            [](QVariant &v, double number) {
                QRectF changed = v.toRectF();
                (changed.*Move)(number);
                v = changed;
            }};
}

const Component g_components[] = {
    component<QPointF, &QPointF::x, &QPointF::setX>(QMetaType::QPointF, "x"),
    component<QPointF, &QPointF::y, &QPointF::setY>(QMetaType::QPointF, "y"),
    component<QSizeF, &QSizeF::width, &QSizeF::setWidth>(QMetaType::QSizeF, "width"),
    component<QSizeF, &QSizeF::height, &QSizeF::setHeight>(QMetaType::QSizeF, "height"),
    origin<&QRectF::x, &QRectF::moveLeft>("x"),
    origin<&QRectF::y, &QRectF::moveTop>("y"),
    component<QRectF, &QRectF::width, &QRectF::setWidth>(QMetaType::QRectF, "width"),
    component<QRectF, &QRectF::height, &QRectF::setHeight>(QMetaType::QRectF, "height"),
};

const Component *componentOf(const QVariant &container, ZelKey key)
{
    for (const Component &candidate : g_components) {
        if (candidate.type == container.typeId() && key.name() == candidate.key)
            return &candidate;
    }
    return nullptr;
}

QMetaProperty gadgetProperty(const QVariant &container, ZelKey key)
{
    const QMetaObject *metaObject = container.metaType().metaObject();
    if (!metaObject || !container.metaType().flags().testFlag(QMetaType::IsGadget))
        return {};
    return metaObject->property(metaObject->indexOfProperty(key.name().constData()));
}

} // namespace

bool ZelValueTypeAccess::read(const QVariant &container, ZelKey key, QVariant *value)
{
    if (const Component *found = componentOf(container, key)) {
        *value = found->read(container);
        return true;
    }
    if (container.typeId() == QMetaType::QVariantMap) {
        *value = container.toMap().value(key.string());
        return true;
    }
    if (container.typeId() == QMetaType::QVariantHash) {
        *value = container.toHash().value(key.string());
        return true;
    }
    const QMetaProperty property = gadgetProperty(container, key);
    if (!property.isValid())
        return false;
    *value = property.readOnGadget(container.constData());
    return true;
}

bool ZelValueTypeAccess::write(QVariant &container, ZelKey key, const QVariant &value)
{
    if (const Component *found = componentOf(container, key)) {
        found->write(container, value.toDouble());
        return true;
    }
    if (container.typeId() == QMetaType::QVariantMap) {
        QVariantMap map = container.toMap();
        map.insert(key.string(), value);
        container = map;
        return true;
    }
    if (container.typeId() == QMetaType::QVariantHash) {
        QVariantHash hash = container.toHash();
        hash.insert(key.string(), value);
        container = hash;
        return true;
    }
    const QMetaProperty property = gadgetProperty(container, key);
    QVariant converted = value;
    return property.isValid() &&
           ZelValueConversion::convert(converted, property.metaType()) == ZelValueConversion::Fits &&
           property.writeOnGadget(container.data(), converted);
}

ZelValueTypeAccess::Property ZelValueTypeAccess::property(const QVariant &container, ZelKey key)
{
    if (componentOf(container, key))
        return {QMetaType::fromType<double>(), true};
    if (container.typeId() == QMetaType::QVariantMap || container.typeId() == QMetaType::QVariantHash)
        return {QMetaType::fromType<QVariant>(), true};
    const QMetaProperty property = gadgetProperty(container, key);
    return property.isValid() ? Property{property.metaType(), property.isWritable()} : Property();
}
