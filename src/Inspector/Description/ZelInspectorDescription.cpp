// SPDX-License-Identifier: MIT
#include "Inspector/Description/ZelInspectorDescription.h"

#include "Core/Errors/ZelAssertions.h"
#include "Inspector/Description/private/ZelClassDescriber.h"

ZelInspectorDescription ZelInspectorDescription::forMetaObject(const QMetaObject *metaObject, const Options &options)
{
    if (!ZelRequire(metaObject, "metaObject"))
        return {};
    const QString declaredBy = options.declaredBy ? QString::fromUtf8(options.declaredBy->className()) : QString();
    const QList<ZelDescribedClass> classes = ZelDescribedClass::hierarchyOf(metaObject);
    ZelClassDescriber describer(classes, {options.root, options.keyPath, declaredBy});
    ZelInspectorDescription description(describer.describe(),
                                        declaredBy.isNull() ? classes.constLast().name : declaredBy);
    description.m_properties = describer.properties();
    description.m_propertiesWithoutEditor = describer.propertiesWithoutEditor();
    return description;
}

ZelInspectorDescription ZelInspectorDescription::forMetaObject(const QMetaObject *metaObject)
{
    return forMetaObject(metaObject, {});
}

QString ZelInspectorDescription::titleForName(const QString &name)
{
    const QString word = name.section(QStringLiteral("::"), -1);
    QString title;
    const auto isAtWord = [&title] { return title.isEmpty() || title.endsWith(u' '); };
    for (qsizetype i = 0; i < word.size(); ++i) {
        const QChar c = word.at(i);
        const bool isAfterLower = i > 0 && word.at(i - 1).isLower();
        const bool isBeforeLower = i + 1 < word.size() && word.at(i + 1).isLower(); // ends a row of capitals
        if ((c == u'_' || (c.isUpper() && (isAfterLower || isBeforeLower))) && !isAtWord())
            title += u' ';
        if (c != u'_')
            title += isAtWord() ? c.toUpper() : c;
    }
    return title.trimmed();
}
