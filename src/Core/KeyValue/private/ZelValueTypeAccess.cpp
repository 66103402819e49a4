// SPDX-License-Identifier: MIT
#include "Core/KeyValue/private/ZelValueTypeAccess.h"

#include "Core/Values/ZelGeometryType.h"
#include "Core/Values/private/ZelValueConversion.h"

#include <QMetaProperty>

namespace {

/// One of the numbers of which a point, a rectangle or the like consists.
struct Component
{
    const ZelGeometryType *type = nullptr;
    int index = -1;
    bool isValid() const { return index >= 0; }

    static Component of(const QVariant &container, ZelKey key)
    {
        const ZelGeometryType *type = ZelGeometryType::find(container.metaType());
        return {type, type ? type->indexOf(key.name()) : -1};
    }
    QMetaType metaType() const
    {
        return type->type == type->ofDoubles ? QMetaType::fromType<double>() : QMetaType::fromType<int>();
    }
    QVariant read(const QVariant &container) const
    {
        ZelGeometryType::Numbers numbers{};
        type->load(container.constData(), numbers);
        QVariant number = numbers[size_t(index)];
        (void)number.convert(metaType());
        return number;
    }
    /// The other numbers stay: a rectangle is moved by its x.
    void write(QVariant &container, double number) const
    {
        ZelGeometryType::Numbers numbers{};
        type->load(container.constData(), numbers);
        numbers[size_t(index)] = number;
        type->store(numbers, container.data());
    }
};

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
    if (const Component component = Component::of(container, key); component.isValid()) {
        *value = component.read(container);
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
    if (const Component component = Component::of(container, key); component.isValid()) {
        component.write(container, value.toDouble());
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
    if (const Component component = Component::of(container, key); component.isValid())
        return {component.metaType(), true};
    if (container.typeId() == QMetaType::QVariantMap || container.typeId() == QMetaType::QVariantHash)
        return {QMetaType::fromType<QVariant>(), true};
    const QMetaProperty property = gadgetProperty(container, key);
    return property.isValid() ? Property{property.metaType(), property.isWritable()} : Property();
}
