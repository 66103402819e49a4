// SPDX-License-Identifier: MIT
#include "Inspector/Checking/ZelTypeDescription.h"

#include "Core/Values/private/ZelNearestName.h"
#include "Inspector/Checking/private/ZelKeyPathResolver.h"
#include "Inspector/Description/private/ZelClassDescriber.h"

namespace {

using Table = ZelTypeTable;

/// Of an optional type, that of its values.
QMetaType metaTypeNamed(QString name)
{
    static const QString optional = QStringLiteral("std::optional<");
    if (name.startsWith(optional) && name.endsWith(u'>'))
        name = name.sliced(optional.size()).chopped(1);
    return QMetaType::fromName(name.toUtf8());
}

ZelDescribedClass::Property described(const Table &types, const Table::Class &type, const QString &name)
{
    const Table::Property &property = *type.properties.constFind(name);
    const Table::Enumeration *enumeration = types.enumeration(type, property.type);
    ZelDescribedClass::Property result{.name = name,
                                       .type = property.type,
                                       .metaType = metaTypeNamed(property.type),
                                       .isReadable = property.isReadable,
                                       .isWritable = property.isWritable,
                                       .isDesignable = property.isDesignable,
                                       .isAnnounced = property.isAnnounced,
                                       .isEnumeration = enumeration != nullptr};
    if (enumeration)
        result.enumeration = {enumeration->keys, enumeration->values, enumeration->isFlags};
    return result;
}

/// The class and those of its bases that may have properties: Qt's come first among several. Bases come first here.
QList<ZelDescribedClass> hierarchyOf(const Table &types, const Table::Class &last)
{
    QList<ZelDescribedClass> classes;
    QStringList seen; // keeps a file with a circle of bases from being followed for ever
    for (const Table::Class *type = &last; type && !seen.contains(type->name);
         type = types.classNamed(type->superClasses.value(0))) {
        seen.append(type->name);
        ZelDescribedClass result{.name = type->name, .information = type->information};
        for (const QString &name : type->propertyNames)
            result.properties.append(described(types, *type, name));
        classes.prepend(result);
    }
    return classes;
}

} // namespace

ZelTypeDescription ZelTypeDescription::ofClass(const Table &types, const QString &className, const Options &options)
{
    ZelTypeDescription result;
    const Table::Class *type = types.classNamed(className);
    if (!type) {
        ZelNearestName nearest(className);
        nearest.offerAll(types.classNames());
        result.error = QStringLiteral("The class %1 is not among the types").arg(className) + nearest.question();
        return result;
    }
    const QList<ZelDescribedClass> classes = hierarchyOf(types, *type);
    ZelClassInfo::Attributes root{{QStringLiteral("xmlns:types"), QStringLiteral("urn:zel:types")}};
    static const QString selection = QStringLiteral(".selection");
    if (const QString owner = options.keyPath.isEmpty() ? type->name : options.owner; !owner.isEmpty())
        root.set(ZelTypeAttributes::owner, owner);
    if (options.keyPath.endsWith(selection))
        root.set(ZelTypeAttributes::selection, options.keyPath.chopped(selection.size()) + u'=' + type->name);
    ZelClassDescriber describer(classes, {.root = options.root,
                                          .keyPath = options.keyPath,
                                          .declaredBy = {},
                                          .ofRoot = root,
                                          .isForAuthors = true,
                                          .attributeOfSilent = ZelTypeAttributes::keys});
    result.xml = describer.describe() + '\n';
    for (const QString &name : describer.properties()) {
        if (const Table::Found found = types.property(*type, name); !found.property->isAnnounced)
            result.silentProperties.append(found.owner->name + u'.' + name);
    }
    result.propertiesOnlyShown = describer.propertiesOnlyShown();
    result.propertiesWithoutEditor = describer.propertiesWithoutEditor();
    result.unknownBase = types.unknownBase(*type);
    return result;
}
