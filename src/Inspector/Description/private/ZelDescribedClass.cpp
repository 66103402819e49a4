// SPDX-License-Identifier: MIT
#include "Inspector/Description/private/ZelDescribedClass.h"

#include "Core/Values/ZelOptionalType.h"
#include "Core/Values/private/ZelEnumerationKeys.h"

#include <QMetaClassInfo>
#include <QMetaEnum>
#include <QMetaProperty>
#include <algorithm>

namespace {

ZelDescribedClass::Enumeration enumerationOf(const QMetaEnum &keys, bool isFlags)
{
    ZelDescribedClass::Enumeration enumeration{.isFlags = isFlags};
    for (int i = 0; i < keys.keyCount(); ++i) {
        enumeration.keys.append(QString::fromUtf8(keys.key(i)));
        enumeration.values.append(keys.value(i));
    }
    return enumeration;
}

ZelDescribedClass::Property propertyOf(const QMetaProperty &property)
{
    const ZelOptionalType *optional = ZelOptionalType::find(property.metaType());
    const bool isEnumeration = property.isEnumType();
    return {.name = QString::fromUtf8(property.name()),
            .type = QString::fromUtf8(property.typeName()),
            .metaType = optional ? optional->value : property.metaType(),
            .isReadable = property.isReadable(),
            .isWritable = property.isWritable(),
            .isDesignable = property.isDesignable(),
            .isAnnounced = property.hasNotifySignal() || property.isConstant() || property.isBindable(),
            .isEnumeration = isEnumeration,
            .enumeration = isEnumeration
                               ? enumerationOf(property.enumerator(), ZelEnumerationKeys::isFlags(property.metaType()))
                               : ZelDescribedClass::Enumeration()};
}

} // namespace

const ZelDescribedClass::Property *ZelDescribedClass::propertyNamed(const QString &propertyName) const
{
    const auto found = std::ranges::find(properties, propertyName, &Property::name);
    return found == properties.end() ? nullptr : &*found;
}

QString ZelDescribedClass::informationNamed(const QString &informationName) const
{
    const auto found =
        std::ranges::find_if(information, [&](const auto &entry) { return entry.first == informationName; });
    return found == information.end() ? QString() : found->second;
}

QList<ZelDescribedClass> ZelDescribedClass::hierarchyOf(const QMetaObject *metaObject)
{
    QList<ZelDescribedClass> classes;
    for (const QMetaObject *base = metaObject; base; base = base->superClass()) {
        ZelDescribedClass described{.name = QString::fromUtf8(base->className())};
        for (int i = base->propertyOffset(); i < base->propertyCount(); ++i)
            described.properties.append(propertyOf(base->property(i)));
        for (int i = base->classInfoOffset(); i < base->classInfoCount(); ++i) {
            const QMetaClassInfo info = base->classInfo(i);
            described.information.append({QString::fromUtf8(info.name()), QString::fromUtf8(info.value())});
        }
        classes.prepend(described);
    }
    return classes;
}
